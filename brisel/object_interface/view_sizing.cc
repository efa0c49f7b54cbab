#include "brisel/object_interface/view_sizing.h"

using Brisel::Platform::CGSize;
using Brisel::Platform::UIContentSizeCategory;
using Brisel::Platform::UILayoutPriority;
using Brisel::Platform::UIView;
using Brisel::Platform::UIViewController;

CGSize briselSwift_systemLayoutSizeFittingSize(UIView& view, CGSize size) {
  return Brisel::brisel_systemLayoutSizeFitting(view, size);
}

CGSize briselSwift_systemLayoutSizeFittingSize(UIView& view, CGSize size, UILayoutPriority horizontalFittingPriority,
                                               UILayoutPriority verticalFittingPriority) {
  return Brisel::brisel_systemLayoutSizeFitting(view, size, horizontalFittingPriority, verticalFittingPriority);
}

CGSize brisel_systemLayoutSizeFittingSize(UIView& view, CGSize size) {
  return briselSwift_systemLayoutSizeFittingSize(view, size);
}

CGSize brisel_systemLayoutSizeFittingSize(UIView& view, CGSize size, UILayoutPriority horizontalFittingPriority,
                                          UILayoutPriority verticalFittingPriority) {
  return briselSwift_systemLayoutSizeFittingSize(view, size, horizontalFittingPriority, verticalFittingPriority);
}

void brisel_setMaxPreferredContentSizeCategory(const std::shared_ptr<UIViewController>& viewController,
                                               const UIContentSizeCategory& maxPreferredContentSizeCategory) {
  briselSwift_setMaxPreferredContentSizeCategory(viewController, maxPreferredContentSizeCategory);
}
