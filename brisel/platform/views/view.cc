#include "brisel/platform/views/view.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "brisel/platform/fatal_error.h"
#include "brisel/platform/views/layout_guide.h"
#include "brisel/platform/views/view_controller.h"
#include "brisel/platform/views/window.h"

namespace Brisel::Platform {
namespace {

CGFloat finite(CGFloat distance) noexcept { return std::isfinite(distance) ? distance : 0; }

std::size_t indexOf(UILayoutConstraintAxis axis) noexcept { return static_cast<std::size_t>(axis); }

}  // namespace

std::shared_ptr<UIView> UIView::initWithFrame(const CGRect& frame) {
  return made(std::shared_ptr<UIView>(new UIView), frame);
}

UIView::UIView() : traitCollection_(UITraitCollection::init()) {}

UIView::~UIView() {
  for (const auto& view : subviews_) {
    view->superview_.reset();
    if (view.use_count() > 1) view->surroundingsDidChange();
  }
}

void UIView::didInitWithFrame() {}

void UIView::addSubview(const std::shared_ptr<UIView>& view) {
  if (!view || isDescendantOfView(*view)) fatalError("A view can be added neither to itself nor below itself");
  view->removeFromSuperview();
  view->superview_ = std::static_pointer_cast<UIView>(shared_from_this());
  subviews_.push_back(view);
  setNeedsLayout();
  view->surroundingsDidChange();
}

void UIView::removeFromSuperview() {
  const auto superview = superview_.lock();
  if (!superview) return;
  const auto self = shared_from_this();  // The superview may have been the only owner.
  auto& siblings = superview->subviews_;
  siblings.erase(std::find_if(siblings.begin(), siblings.end(), [&](const auto& view) { return view.get() == this; }));
  superview_.reset();
  superview->setNeedsLayout();
  surroundingsDidChange();
}

std::shared_ptr<UIWindow> UIView::window() const { return window_.lock(); }

bool UIView::isDescendantOfView(const UIView& view) const noexcept {
  if (this == &view) return true;
  for (auto above = superview(); above; above = above->superview())
    if (above.get() == &view) return true;
  return false;
}

void UIView::setFrame(const CGRect& frame) {
  const CGRect checked{{finite(frame.origin.x), finite(frame.origin.y)},
                       {finite(frame.size.width), finite(frame.size.height)}};
  if (checked.size != frame_.size) setNeedsLayout();
  frame_ = checked;
}

CGPoint UIView::convertPointToView(CGPoint point, const UIView& view) const noexcept {
  const auto toTop = [](const UIView& from) {
    CGPoint origin = from.frame_.origin;
    for (auto above = from.superview(); above; above = above->superview()) {
      origin.x += above->frame_.origin.x;
      origin.y += above->frame_.origin.y;
    }
    return origin;
  };
  const CGPoint here = toTop(*this), there = toTop(view);
  return {point.x + here.x - there.x, point.y + here.y - there.y};
}

CGRect UIView::convertRectToView(const CGRect& rect, const UIView& view) const noexcept {
  return {convertPointToView(rect.origin, view), rect.size};
}

void UIView::drawHierarchy(Canvas& canvas, CGPoint at) const {
  if (hidden_) return;
  const CGRect rect{at, frame_.size};
  if (backgroundColor_) canvas.fillRect(rect, *backgroundColor_);
  drawContent(canvas, at);
  if (clipsToBounds_) {
    canvas.save();
    canvas.clipToPath(UIBezierPath::bezierPathWithRect(rect));
  }
  for (const auto& view : subviews_)
    view->drawHierarchy(canvas, {at.x + view->frame_.origin.x, at.y + view->frame_.origin.y});
  if (clipsToBounds_) canvas.restore();
}

void UIView::drawContent(Canvas&, CGPoint) const {}

void UIView::setNeedsLayout() { needsLayout_ = true; }

void UIView::layoutIfNeeded() {
  if (std::exchange(needsLayout_, false)) layoutSubviews();
  const auto views = subviews_;
  for (const auto& view : views) view->layoutIfNeeded();
}

void UIView::layoutSubviews() {}

void UIView::setTranslatesAutoresizingMaskIntoConstraints(bool translates) { translatesAutoresizingMask_ = translates; }

UILayoutPriority UIView::contentHuggingPriorityForAxis(UILayoutConstraintAxis axis) const noexcept {
  return hugging_[indexOf(axis)];
}

void UIView::setContentHuggingPriority(UILayoutPriority priority, UILayoutConstraintAxis axis) {
  hugging_[indexOf(axis)] = priority;
}

UILayoutPriority UIView::contentCompressionResistancePriorityForAxis(UILayoutConstraintAxis axis) const noexcept {
  return compressionResistance_[indexOf(axis)];
}

void UIView::setContentCompressionResistancePriority(UILayoutPriority priority, UILayoutConstraintAxis axis) {
  compressionResistance_[indexOf(axis)] = priority;
}

CGSize UIView::intrinsicContentSize() const { return {UIViewNoIntrinsicMetric, UIViewNoIntrinsicMetric}; }

void UIView::invalidateIntrinsicContentSize() {}

CGSize UIView::sizeThatFits(CGSize) const { return frame_.size; }

void UIView::sizeToFit() { setFrame({frame_.origin, sizeThatFits(frame_.size)}); }

FirstBaseline UIView::firstBaseline() const { return {}; }

bool UIView::hasHeightForWidth() const { return false; }

CGSize UIView::systemLayoutSizeFittingSize(CGSize) { return frame_.size; }

void UIView::traitCollectionDidChange(const std::shared_ptr<const UITraitCollection>&) {}

void UIView::didMoveToWindow() {}

void UIView::setSemanticContentAttribute(UISemanticContentAttribute attribute) {
  semanticContentAttribute_ = attribute;
  setNeedsLayout();
}

UIUserInterfaceLayoutDirection UIView::effectiveUserInterfaceLayoutDirection() const noexcept {
  switch (semanticContentAttribute_) {
    case UISemanticContentAttribute::forceLeftToRight:
      return UIUserInterfaceLayoutDirection::leftToRight;
    case UISemanticContentAttribute::forceRightToLeft:
      return UIUserInterfaceLayoutDirection::rightToLeft;
    case UISemanticContentAttribute::unspecified:
      break;
  }
  switch (traitCollection_->layoutDirection()) {
    case UITraitEnvironmentLayoutDirection::leftToRight:
      return UIUserInterfaceLayoutDirection::leftToRight;
    case UITraitEnvironmentLayoutDirection::rightToLeft:
      return UIUserInterfaceLayoutDirection::rightToLeft;
    case UITraitEnvironmentLayoutDirection::unspecified:
      break;
  }
  return userInterfaceLayoutDirection();
}

std::shared_ptr<const UIView> UIView::layoutView() const {
  return std::static_pointer_cast<const UIView>(shared_from_this());
}

}  // namespace Brisel::Platform
