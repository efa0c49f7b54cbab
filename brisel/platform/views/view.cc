#include "brisel/platform/views/view.h"

#include <algorithm>
#include <utility>

#include "brisel/platform/fatal_error.h"
#include "brisel/platform/internal/distance.h"
#include "brisel/platform/views/internal/view_layout.h"
#include "brisel/platform/views/layout_guide.h"
#include "brisel/platform/views/window.h"

namespace Brisel::Platform {

using internal::finite;

std::shared_ptr<UIView> UIView::initWithFrame(const CGRect& frame) {
  return made(std::shared_ptr<UIView>(new UIView), frame);
}

UIView::UIView() : traitCollection_(UITraitCollection::init()) {}

// Takes trees apart level by level: of deep ones, destructors that call each other would fill the stack.
UIView::~UIView() {
  std::vector<std::shared_ptr<UIView>> orphans;
  dismantle(orphans);
  while (!orphans.empty()) {
    const auto view = std::move(orphans.back());
    orphans.pop_back();
    if (view.use_count() == 1) {
      view->dismantle(orphans);
    } else {
      view->surroundingsDidChange();
    }
  }
}

void UIView::dismantle(std::vector<std::shared_ptr<UIView>>& orphans) {
  internal::ViewLayout::forget(*this);
  if (layout_) std::exchange(layout_, nullptr)->end();
  for (const auto& guide : layoutGuides_) {
    internal::ViewLayout::forget(*guide);
    guide->owner_ = nullptr;
  }
  layoutGuides_.clear();
  for (auto& view : subviews_) {
    view->superview_ = nullptr;
    orphans.push_back(std::move(view));
  }
  subviews_.clear();
}

void UIView::didInitWithFrame() {}

void UIView::addSubview(const std::shared_ptr<UIView>& view) {
  if (!view || view.get() == this || (!view->subviews_.empty() && isDescendantOfView(*view)))
    fatalError("A view can be added neither to itself nor below itself");
  // What was handed in may be a place in the list that it is taken from.
  const auto added = view;  // NOLINT(performance-unnecessary-copy-initialization)
  if (added->superview_ == this) {
    const auto at = std::find(subviews_.begin(), subviews_.end(), added);
    std::rotate(at, at + 1, subviews_.end());
    return;
  }
  if (added->superview_) added->detach();
  added->superview_ = this;
  subviews_.push_back(added);
  if (added->needsLayout_ || added->needsLayoutBelow_) added->markAbove(&UIView::needsLayoutBelow_);
  if (added->isConstrained_) {
    added->markAbove(&UIView::isConstrained_);
    if (added->layout_) std::exchange(added->layout_, nullptr)->end();
    if (const auto& layout = top().layout_) layout->addTree(*added);
  }
  setNeedsLayout();
  added->surroundingsDidChange();
}

void UIView::removeFromSuperview() {
  if (!superview_) return;
  const auto self = shared_from_this();  // The superview may have been the only owner.
  detach();
  surroundingsDidChange();
}

void UIView::detach() {
  if (place_)
    for (auto i = place_->constraints.size(); i-- > 0;)
      if (place_->constraints[i]->holder_ != this) place_->constraints[i]->deactivate();
  if (isConstrained_)
    if (const auto& layout = top().layout_) layout->removeTree(*this);
  auto& siblings = superview_->subviews_;
  siblings.erase(std::find_if(siblings.begin(), siblings.end(), [&](const auto& view) { return view.get() == this; }));
  superview_->setNeedsLayout();
  superview_ = nullptr;
}

std::shared_ptr<UIView> UIView::superview() const noexcept {
  return superview_ ? std::static_pointer_cast<UIView>(superview_->weak_from_this().lock()) : nullptr;
}

UIView& UIView::top() noexcept {
  UIView* top = this;
  while (top->superview_) top = top->superview_;
  return *top;
}

std::shared_ptr<UIWindow> UIView::window() const { return window_.lock(); }

bool UIView::isDescendantOfView(const UIView& view) const noexcept {
  const UIView* at = this;
  while (at && at != &view) at = at->superview_;
  return at != nullptr;
}

void UIView::setFrame(const CGRect& frame) {
  const CGRect checked{{finite(frame.origin.x), finite(frame.origin.y)},
                       {finite(frame.size.width), finite(frame.size.height)}};
  if (checked.size != frame_.size) setNeedsLayout();
  frame_ = checked;
  if (place_) internal::ViewLayout::frameWasSet(*this);
}

void UIView::takePlace(const CGRect& frame) {
  if (frame.size != frame_.size) setNeedsLayout();
  frame_ = frame;
}

CGPoint UIView::convertPointToView(CGPoint point, const UIView& view) const noexcept {
  const auto toTop = [](const UIView& from) {
    CGPoint origin;
    for (const UIView* at = &from; at; at = at->superview_) {
      origin.x += at->frame_.origin.x;
      origin.y += at->frame_.origin.y;
    }
    return origin;
  };
  const CGPoint here = toTop(*this), there = toTop(view);
  return {point.x + here.x - there.x, point.y + here.y - there.y};
}

CGRect UIView::convertRectToView(const CGRect& rect, const UIView& view) const noexcept {
  return {convertPointToView(rect.origin, view), rect.size};
}

// Without recursion, as trees may be deep.
void UIView::drawHierarchy(Canvas& canvas, CGPoint at) const {
  struct Step {
    std::shared_ptr<const UIView> view;  // null: the end of one that clips
    CGPoint at;
  };
  std::vector<Step> steps = {{layoutView(), at}};
  while (!steps.empty()) {
    const auto [view, corner] = std::move(steps.back());
    steps.pop_back();
    if (!view) canvas.restore();
    if (!view || view->hidden_) continue;
    const CGRect rect{corner, view->frame_.size};
    if (view->backgroundColor_) canvas.fillRect(rect, *view->backgroundColor_);
    view->drawContent(canvas, corner);
    if (view->clipsToBounds_ && !view->subviews_.empty()) {
      canvas.save();
      canvas.clipToPath(UIBezierPath::bezierPathWithRect(rect));
      steps.push_back({});
    }
    for (std::size_t i = view->subviews_.size(); i-- > 0;) {
      const auto& below = view->subviews_[i];
      const CGPoint origin = below->frame_.origin;
      steps.push_back({below, {corner.x + origin.x, corner.y + origin.y}});
    }
  }
}

void UIView::drawContent(Canvas&, CGPoint) const {}

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
