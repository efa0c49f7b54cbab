#include "brisel/infrastructure/view_sizing.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "brisel/platform/trait_collection.h"
#include "brisel/platform/views/layout_constraint.h"
#include "brisel/typography/content_size_category.h"
#include "brisel/typography/dynamic_type_monitor.h"

namespace Brisel {

using Platform::CGSize;
using Platform::NSLayoutConstraint;
using Platform::UIContentSizeCategory;
using Platform::UILayoutConstraintAxis;
using Platform::UILayoutPriority;
using Platform::UITraitCollection;
using Platform::UIView;
using Platform::UIViewController;

namespace {

UILayoutPriority fittingPriority(const UIView& view, UILayoutConstraintAxis axis) {
  return (view.contentHuggingPriorityForAxis(axis) + view.contentCompressionResistancePriorityForAxis(axis)) * 0.5F +
         1.0F;
}

// Constraints that are active while this lives, even if laying out throws.
class ActiveConstraints {
 public:
  explicit ActiveConstraints(std::array<std::shared_ptr<NSLayoutConstraint>, 2> constraints)
      : constraints_(std::move(constraints)) {
    NSLayoutConstraint::activateConstraints(constraints_);
  }
  ActiveConstraints(const ActiveConstraints&) = delete;
  ActiveConstraints& operator=(const ActiveConstraints&) = delete;
  ~ActiveConstraints() { NSLayoutConstraint::deactivateConstraints(constraints_); }

 private:
  std::array<std::shared_ptr<NSLayoutConstraint>, 2> constraints_;
};

void applyCap(const std::shared_ptr<UIViewController>& viewController, ContentSizeCategory maximum,
              ContentSizeCategory category) {
  const ContentSizeCategory effective = maximum.rawValue() < category.rawValue() ? maximum : category;
  const auto traits = UITraitCollection::traitCollectionWithTraitsFromCollections(
      {viewController->traitCollection(),
       UITraitCollection::traitCollectionWithPreferredContentSizeCategory(effective.platformCategory())});
  if (const auto parent = viewController->parentViewController())
    parent->setOverrideTraitCollection(traits, viewController);
}

}  // namespace

CGSize brisel_systemLayoutSizeFitting(UIView& view, CGSize size) {
  // Deliberately asked before anything else, and its answer dropped: views may override it for what it does.
  (void)view.systemLayoutSizeFittingSize(size);
  return brisel_systemLayoutSizeFitting(view, size, fittingPriority(view, UILayoutConstraintAxis::horizontal),
                                        fittingPriority(view, UILayoutConstraintAxis::vertical));
}

CGSize brisel_systemLayoutSizeFitting(UIView& view, CGSize size, UILayoutPriority horizontalFittingPriority,
                                      UILayoutPriority verticalFittingPriority) {
  const auto width = view.widthAnchor().constraintEqualToConstant(size.width);
  width->setPriority(std::min(horizontalFittingPriority, Platform::UILayoutPriorityRequired));
  const auto height = view.heightAnchor().constraintEqualToConstant(size.height);
  height->setPriority(std::min(verticalFittingPriority, Platform::UILayoutPriorityRequired));
  const ActiveConstraints active({width, height});
  view.setNeedsLayout();
  view.layoutIfNeeded();
  return view.frame().size;
}

void briselSwift_setMaxPreferredContentSizeCategory(const std::shared_ptr<UIViewController>& viewController,
                                                    const UIContentSizeCategory& maxPreferredContentSizeCategory) {
  const ContentSizeCategory maximum(maxPreferredContentSizeCategory);
  const auto& monitor = DynamicTypeMonitor::shared();
  // Deliberately strong: the controller lives until it is unsubscribed.
  monitor->subscribe(viewController, [viewController, maximum](const UIContentSizeCategory& category) {
    applyCap(viewController, maximum, ContentSizeCategory(category));
  });
  applyCap(viewController, maximum, ContentSizeCategory(monitor->preferredContentSizeCategory()));
}

}  // namespace Brisel
