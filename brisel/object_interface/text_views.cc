#include "brisel/object_interface/text_views.h"

#include "brisel/object_interface/internal/unwrap.h"
#include "brisel/typography/dynamic_type_monitor.h"
#include "brisel/typography/text_view_styling.h"

using Brisel::DynamicTypeMonitor;
using Brisel::Platform::UIButton;
using Brisel::Platform::UIContentSizeCategory;
using Brisel::Platform::UIControlState;
using Brisel::Platform::UILabel;
using Brisel::Platform::UITextField;
using Brisel::Platform::UITextView;
using VLMBrisel::internal::unwrap;

using TypeStylePtr = std::shared_ptr<const VLMBriselTypeStyle>;

namespace {
UIContentSizeCategory currentCategory() { return DynamicTypeMonitor::shared()->preferredContentSizeCategory(); }
}  // namespace

void briselSwift_applyStyle(UILabel& label, const TypeStylePtr& style) {
  briselSwift_applyStyle(label, style, currentCategory());
}

void briselSwift_applyStyle(UILabel& label, const TypeStylePtr& style,
                            const UIContentSizeCategory& contentSizeCategory) {
  briselSwift_applyStyle(label, style, contentSizeCategory, true);
}

void briselSwift_applyStyle(UILabel& label, const TypeStylePtr& style, const UIContentSizeCategory& contentSizeCategory,
                            bool useDynamicTypeMonitor) {
  Brisel::apply(label, unwrap(style).typeStyle(), contentSizeCategory, useDynamicTypeMonitor);
}

void briselSwift_disableDynamicTypeMorning(UILabel& label) { Brisel::disableDynamicTypeMonitor(label); }

void briselSwift_applyStyle(UITextField& textField, const TypeStylePtr& style) {
  briselSwift_applyStyle(textField, style, currentCategory());
}

void briselSwift_applyStyle(UITextField& textField, const TypeStylePtr& style,
                            const UIContentSizeCategory& contentSizeCategory) {
  Brisel::apply(textField, unwrap(style).typeStyle(), contentSizeCategory);
}

void briselSwift_applyStyle(UITextView& textView, const TypeStylePtr& style) {
  briselSwift_applyStyle(textView, style, currentCategory(), true);
}

void briselSwift_applyStyle(UITextView& textView, const TypeStylePtr& style,
                            const UIContentSizeCategory& contentSizeCategory, bool useDynamicTypeMonitor) {
  Brisel::apply(textView, unwrap(style).typeStyle(), contentSizeCategory, useDynamicTypeMonitor);
}

void briselSwift_disableDynamicTypeMonitor(UITextView& textView) { Brisel::disableDynamicTypeMonitor(textView); }

void briselSwift_applyStyle(UIButton& button, const TypeStylePtr& style) {
  briselSwift_applyStyle(button, style, currentCategory());
}

void briselSwift_applyStyle(UIButton& button, const TypeStylePtr& style,
                            const UIContentSizeCategory& contentSizeCategory) {
  Brisel::apply(button, unwrap(style).typeStyle(), contentSizeCategory);
}

void briselSwift_applyStyle(UIButton& button, const TypeStylePtr& style, UIControlState state,
                            const UIContentSizeCategory& contentSizeCategory) {
  Brisel::apply(button, unwrap(style).typeStyle(), state, contentSizeCategory);
}
