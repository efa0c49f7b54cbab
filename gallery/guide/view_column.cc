#include "gallery/guide/view_column.h"

#include <cmath>
#include <utility>

#include "brisel/platform/views/layout_constraint.h"

namespace Brisel::Gallery {

using Platform::CGFloat, Platform::NSLayoutConstraint, Platform::UIView;

ViewColumn::ViewColumn(ViewPtr ground, CGFloat margin) : ground_(std::move(ground)), margin_(margin) {}

void ViewColumn::add(const ViewPtr& view, CGFloat gap) {
  ground_->addSubview(view);
  view->setTranslatesAutoresizingMaskIntoConstraints(false);
  NSLayoutConstraint::activateConstraints(
      {view->leadingAnchor().constraintEqualToAnchor(ground_->leadingAnchor()),
       view->trailingAnchor().constraintEqualToAnchor(ground_->trailingAnchor()),
       last_ ? view->topAnchor().constraintEqualToAnchor(last_->bottomAnchor(), gap)
             : view->topAnchor().constraintEqualToAnchor(ground_->topAnchor(), margin_)});
  last_ = view;
}

ViewPtr ViewColumn::laidOut() const {
  ground_->layoutIfNeeded();
  const Platform::CGRect& last = last_->frame();
  Platform::CGRect frame = ground_->frame();
  frame.size.height = std::ceil(last.origin.y + last.size.height + margin_);
  ground_->setFrame(frame);
  ground_->layoutIfNeeded();
  return ground_;
}

ViewPtr boxed(const ViewPtr& view, Spacer horizontal, Spacer vertical, const Platform::ColorPtr& color) {
  auto box = UIView::initWithFrame();
  box->setBackgroundColor(color);
  box->addSubview(view);
  view->setTranslatesAutoresizingMaskIntoConstraints(false);
  NSLayoutConstraint::activateConstraints(
      {view->leadingAnchor().constraintEqualToAnchor(box->leadingAnchor(), horizontal.value()),
       view->trailingAnchor().constraintEqualToAnchor(box->trailingAnchor(), -horizontal.value()),
       view->topAnchor().constraintEqualToAnchor(box->topAnchor(), vertical.value()),
       view->bottomAnchor().constraintEqualToAnchor(box->bottomAnchor(), -vertical.value())});
  return box;
}

}  // namespace Brisel::Gallery
