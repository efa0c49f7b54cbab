#include "gallery/window/scroll_view.h"

#include <algorithm>

#include "gallery/window/placing.h"

namespace Brisel::Gallery {

using Platform::CGFloat;

std::shared_ptr<ScrollView> ScrollView::initWithContent(const std::shared_ptr<Platform::UIView>& content) {
  auto view = made(std::shared_ptr<ScrollView>(new ScrollView), {});
  view->setClipsToBounds(true);
  view->content_ = content;
  addPlaced(*view, content);
  view->top_ = content->topAnchor().constraintEqualToAnchor(view->topAnchor());
  Platform::NSLayoutConstraint::activateConstraints({
      view->top_,
      content->leadingAnchor().constraintEqualToAnchor(view->leadingAnchor()),
      content->trailingAnchor().constraintEqualToAnchor(view->trailingAnchor()),
  });
  return view;
}

CGFloat ScrollView::largestOffset() const noexcept {
  return std::max<CGFloat>(content_->frame().size.height - frame().size.height, 0);
}

void ScrollView::setOffset(CGFloat offset) {
  offset_ = std::clamp<CGFloat>(offset, 0, largestOffset());
  top_->setConstant(-offset_);
}

void ScrollView::layoutSubviews() {
  UIView::layoutSubviews();
  if (offset_ > largestOffset()) setOffset(offset_);
}

}  // namespace Brisel::Gallery
