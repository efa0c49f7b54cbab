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

/// `briselSwift_applyStyle:`: styles a label for the current category, and for each that follows.
void briselSwift_applyStyle(Brisel::Platform::UILabel& label, const std::shared_ptr<const VLMBriselTypeStyle>& style);
/// `briselSwift_applyStyle:withContentSizeCategory:`: styles a label for a category, and for each that follows.
void briselSwift_applyStyle(Brisel::Platform::UILabel& label, const std::shared_ptr<const VLMBriselTypeStyle>& style,
                            const Brisel::Platform::UIContentSizeCategory& contentSizeCategory);
/// `briselSwift_applyStyle:withContentSizeCategory:useDynamicTypeMonitor:`: styles a label for a category, and for each
/// that follows where the flag says so.
void briselSwift_applyStyle(Brisel::Platform::UILabel& label, const std::shared_ptr<const VLMBriselTypeStyle>& style,
                            const Brisel::Platform::UIContentSizeCategory& contentSizeCategory,
                            bool useDynamicTypeMonitor);
void briselSwift_applyStyle(Brisel::Platform::UILabel& label, const std::shared_ptr<const VLMBriselTypeStyle>& style,
                            const Brisel::Platform::UIContentSizeCategory& contentSizeCategory, const void*) = delete;
/// `briselSwift_disableDynamicTypeMorning`: ends the label's subscription. The misspelling is the published name, and
/// deliberate; the text view's is spelt correctly.
void briselSwift_disableDynamicTypeMorning(Brisel::Platform::UILabel& label);

// --- Text fields ---

/// `briselSwift_applyStyle:`: styles a text field for the current category.
void briselSwift_applyStyle(Brisel::Platform::UITextField& textField,
                            const std::shared_ptr<const VLMBriselTypeStyle>& style);
/// `briselSwift_applyStyle:contentSizeCategory:`: styles a text field for a category.
void briselSwift_applyStyle(Brisel::Platform::UITextField& textField,
                            const std::shared_ptr<const VLMBriselTypeStyle>& style,
                            const Brisel::Platform::UIContentSizeCategory& contentSizeCategory);

// --- Text views ---

/// `briselSwift_applyStyle:`: styles a text view for the current category, and for each that follows.
void briselSwift_applyStyle(Brisel::Platform::UITextView& textView,
                            const std::shared_ptr<const VLMBriselTypeStyle>& style);
/// `briselSwift_applyStyle:withContentSizeCategory:useDynamicTypeMonitor:`: styles a text view for a category, and for
/// each that follows where the flag says so.
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

/// `briselSwift_applyStyle:`: styles the titles of all states for the current category.
void briselSwift_applyStyle(Brisel::Platform::UIButton& button, const std::shared_ptr<const VLMBriselTypeStyle>& style);
/// `briselSwift_applyStyle:withContentSizeCategory:`: styles the titles of all states for a category.
void briselSwift_applyStyle(Brisel::Platform::UIButton& button, const std::shared_ptr<const VLMBriselTypeStyle>& style,
                            const Brisel::Platform::UIContentSizeCategory& contentSizeCategory);
/// `briselSwift_applyStyle:forState:withContentSizeCategory:`: styles the title of one state for a category.
void briselSwift_applyStyle(Brisel::Platform::UIButton& button, const std::shared_ptr<const VLMBriselTypeStyle>& style,
                            Brisel::Platform::UIControlState state,
                            const Brisel::Platform::UIContentSizeCategory& contentSizeCategory);
