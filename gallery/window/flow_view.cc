#include "gallery/window/flow_view.h"

#include <algorithm>
#include <limits>

namespace Brisel::Gallery {

using Platform::CGFloat, Platform::CGRect, Platform::CGSize;

std::shared_ptr<FlowView> FlowView::initWithGap(CGFloat gap) {
  return made(std::shared_ptr<FlowView>(new FlowView(gap)), {});
}

template <class Place>
CGFloat FlowView::arrange(CGFloat width, Place place) const {
  CGFloat x = 0, y = 0, rowHeight = 0;
  for (const auto& view : subviews()) {
    CGSize size = view->sizeThatFits({width, std::numeric_limits<CGFloat>::infinity()});
    size.width = std::min(size.width, width);
    if (x > 0 && x + size.width > width) {
      x = 0;
      y += rowHeight + gap_;
      rowHeight = 0;
    }
    place(*view, CGRect{{x, y}, size});
    x += size.width + gap_;
    rowHeight = std::max(rowHeight, size.height);
  }
  return y + rowHeight;
}

void FlowView::contentDidChange() {
  invalidateIntrinsicContentSize();
  setNeedsLayout();
}

void FlowView::traitCollectionDidChange(const std::shared_ptr<const Platform::UITraitCollection>& previous) {
  UIView::traitCollectionDidChange(previous);
  setNeedsLayout();
}

CGSize FlowView::intrinsicContentSize() const {
  return {Platform::UIViewNoIntrinsicMetric, sizeThatFits(bounds().size).height};
}

CGSize FlowView::sizeThatFits(CGSize size) const {
  return {size.width, arrange(size.width, [](Platform::UIView&, const CGRect&) {})};
}

void FlowView::layoutSubviews() {
  UIView::layoutSubviews();
  const CGFloat width = bounds().size.width;
  const bool isMirrored =
      effectiveUserInterfaceLayoutDirection() == Platform::UIUserInterfaceLayoutDirection::rightToLeft;
  arrange(width, [&](Platform::UIView& view, CGRect place) {
    if (isMirrored) place.origin.x = width - place.origin.x - place.size.width;
    view.setFrame(place);
  });
}

}  // namespace Brisel::Gallery
