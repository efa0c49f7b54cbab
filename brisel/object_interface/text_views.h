// The object interface of styles on text views (see brisel/typography/text_view_styling.h): all forward to it. A null
// style is a programming error. Where no category is given, it is the dynamic-type monitor's current one.
#pragma once

#include <memory>

#include "brisel/object_interface/type_styles.h"
#include "brisel/platform/content_size_category.h"
#include "brisel/platform/views/button.h"
#include "brisel/platform/views/label.h"
#include "brisel/platform/views/text_field.h"
#include "brisel/platform/views/text_view.h"

// --- Labels ---

/// `briselSwift_applyStyle:`: and from now on.
void briselSwift_applyStyle(Brisel::Platform::UILabel& label, const std::shared_ptr<const VLMBriselTypeStyle>& style);
/// `briselSwift_applyStyle:withContentSizeCategory:`: and from now on.
void briselSwift_applyStyle(Brisel::Platform::UILabel& label, const std::shared_ptr<const VLMBriselTypeStyle>& style,
                            const Brisel::Platform::UIContentSizeCategory& contentSizeCategory);
/// `briselSwift_applyStyle:withContentSizeCategory:useDynamicTypeMonitor:`: and from now on where the flag says so.
void briselSwift_applyStyle(Brisel::Platform::UILabel& label, const std::shared_ptr<const VLMBriselTypeStyle>& style,
                            const Brisel::Platform::UIContentSizeCategory& contentSizeCategory,
                            bool useDynamicTypeMonitor);
void briselSwift_applyStyle(Brisel::Platform::UILabel& label, const std::shared_ptr<const VLMBriselTypeStyle>& style,
                            const Brisel::Platform::UIContentSizeCategory& contentSizeCategory, const void*) = delete;
/// `briselSwift_disableDynamicTypeMorning`: ends the label's subscription. The misspelling is the published name, and
/// deliberate; the text view's is spelt correctly.
void briselSwift_disableDynamicTypeMorning(Brisel::Platform::UILabel& label);

// --- Text fields ---

/// `briselSwift_applyStyle:`: for the current category.
void briselSwift_applyStyle(Brisel::Platform::UITextField& textField,
                            const std::shared_ptr<const VLMBriselTypeStyle>& style);
/// `briselSwift_applyStyle:contentSizeCategory:`: for a category.
void briselSwift_applyStyle(Brisel::Platform::UITextField& textField,
                            const std::shared_ptr<const VLMBriselTypeStyle>& style,
                            const Brisel::Platform::UIContentSizeCategory& contentSizeCategory);

// --- Text views ---

/// `briselSwift_applyStyle:`: and from now on.
void briselSwift_applyStyle(Brisel::Platform::UITextView& textView,
                            const std::shared_ptr<const VLMBriselTypeStyle>& style);
/// `briselSwift_applyStyle:withContentSizeCategory:useDynamicTypeMonitor:`: and from now on where the flag says so.
void briselSwift_applyStyle(Brisel::Platform::UITextView& textView,
                            const std::shared_ptr<const VLMBriselTypeStyle>& style,
                            const Brisel::Platform::UIContentSizeCategory& contentSizeCategory,
                            bool useDynamicTypeMonitor);
void briselSwift_applyStyle(Brisel::Platform::UITextView& textView,
                            const std::shared_ptr<const VLMBriselTypeStyle>& style,
                            const Brisel::Platform::UIContentSizeCategory& contentSizeCategory, const void*) = delete;
/// `briselSwift_disableDynamicTypeMonitor`: ends the text view's subscription.
void briselSwift_disableDynamicTypeMonitor(Brisel::Platform::UITextView& textView);

// --- Buttons ---

/// `briselSwift_applyStyle:`: to the titles of all states, for the current category.
void briselSwift_applyStyle(Brisel::Platform::UIButton& button, const std::shared_ptr<const VLMBriselTypeStyle>& style);
/// `briselSwift_applyStyle:withContentSizeCategory:`: to the titles of all states, for a category.
void briselSwift_applyStyle(Brisel::Platform::UIButton& button, const std::shared_ptr<const VLMBriselTypeStyle>& style,
                            const Brisel::Platform::UIContentSizeCategory& contentSizeCategory);
/// `briselSwift_applyStyle:forState:withContentSizeCategory:`: to the title of one state.
void briselSwift_applyStyle(Brisel::Platform::UIButton& button, const std::shared_ptr<const VLMBriselTypeStyle>& style,
                            Brisel::Platform::UIControlState state,
                            const Brisel::Platform::UIContentSizeCategory& contentSizeCategory);
