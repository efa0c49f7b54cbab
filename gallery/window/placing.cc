#include "gallery/window/placing.h"

namespace Brisel::Gallery {

using Platform::NSLayoutConstraint, Platform::UIView;

void addPlaced(UIView& parent, const std::shared_ptr<UIView>& view) {
  view->setTranslatesAutoresizingMaskIntoConstraints(false);
  parent.addSubview(view);
}

void addFilling(UIView& parent, const std::shared_ptr<UIView>& view, const Platform::NSDirectionalEdgeInsets& insets) {
  addPlaced(parent, view);
  NSLayoutConstraint::activateConstraints({
      view->topAnchor().constraintEqualToAnchor(parent.topAnchor(), insets.top),
      view->leadingAnchor().constraintEqualToAnchor(parent.leadingAnchor(), insets.leading),
      parent.bottomAnchor().constraintEqualToAnchor(view->bottomAnchor(), insets.bottom),
      parent.trailingAnchor().constraintEqualToAnchor(view->trailingAnchor(), insets.trailing),
  });
}

void Column::add(const std::shared_ptr<UIView>& view, Platform::CGFloat gap) {
  addPlaced(parent_, view);
  NSLayoutConstraint::activateConstraints({
      view->topAnchor().constraintEqualToAnchor(last_ ? last_->bottomAnchor() : parent_.topAnchor(), gap),
      view->leadingAnchor().constraintEqualToAnchor(parent_.leadingAnchor()),
      view->trailingAnchor().constraintEqualToAnchor(parent_.trailingAnchor()),
  });
  last_ = view;
}

void Column::end() const {
  if (last_) last_->bottomAnchor().constraintEqualToAnchor(parent_.bottomAnchor())->setActive(true);
}

}  // namespace Brisel::Gallery
