// What of a view is about layout.
#include "brisel/platform/views/internal/view_layout.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "brisel/platform/views/internal/layout_nesting.h"
#include "brisel/platform/views/layout_guide.h"
#include "brisel/platform/views/view.h"

namespace Brisel::Platform {
namespace {

constexpr int kMostRounds = 16;
constexpr int kMostNestedRounds = 2;

std::size_t indexOf(UILayoutConstraintAxis axis) noexcept { return static_cast<std::size_t>(axis); }

}  // namespace

// Above a view that needs layout, all views know.
void UIView::setNeedsLayout() {
  if (std::exchange(needsLayout_, true)) return;
  markAbove(&UIView::needsLayoutBelow_);
}

void UIView::markAbove(bool UIView::*mark) noexcept {
  for (UIView* above = superview_; above && !(above->*mark); above = above->superview_) above->*mark = true;
}

void UIView::layoutIfNeeded() {
  const internal::Nesting nesting(top());
  const auto self = weak_from_this().lock();
  if (!self || nesting.isTooDeep()) return;
  internal::ViewLayout::layOut(top());
  for (int left = nesting.isOutermostOfTree() ? kMostRounds : kMostNestedRounds; left > 0; --left) {
    if (!needsLayout_ && !needsLayoutBelow_) break;
    layOutSubtree();
    internal::ViewLayout::layOut(top());
  }
}

// Without recursion, as trees may be deep. A view learns when it is left whether one below has asked for more.
void UIView::layOutSubtree() {
  struct Step {
    std::shared_ptr<UIView> view;
    bool isLeft = false;
  };
  std::vector<Step> steps = {{std::static_pointer_cast<UIView>(shared_from_this())}};
  while (!steps.empty()) {
    const auto [view, isLeft] = std::move(steps.back());
    steps.pop_back();
    const auto& below = view->subviews_;
    const auto needs = [](const auto& at) { return at->needsLayout_ || at->needsLayoutBelow_; };
    if (isLeft) {
      view->needsLayoutBelow_ = std::any_of(below.begin(), below.end(), needs);
      continue;
    }
    if (std::exchange(view->needsLayout_, false)) view->layoutSubviews();
    if (!view->needsLayoutBelow_) continue;
    steps.push_back({view, true});
    for (auto at = below.rbegin(); at != below.rend(); ++at)
      if (needs(*at)) steps.push_back({*at});
  }
}

void UIView::layoutSubviews() {}

void UIView::setTranslatesAutoresizingMaskIntoConstraints(bool translates) {
  if (std::exchange(translatesAutoresizingMask_, translates) == translates) return;
  if (translates) {
    if (place_->layout) place_->layout->leave(*this);
    return;
  }
  place().rest = frame_;
  isConstrained_ = true;
  markAbove(&UIView::isConstrained_);
  if (const auto& layout = top().layout_) layout->enter(*this);
}

UILayoutPriority UIView::contentHuggingPriorityForAxis(UILayoutConstraintAxis axis) const noexcept {
  return hugging_[indexOf(axis)];
}

void UIView::setContentHuggingPriority(UILayoutPriority priority, UILayoutConstraintAxis axis) {
  hugging_[indexOf(axis)] = priority;
  invalidateIntrinsicContentSize();
}

UILayoutPriority UIView::contentCompressionResistancePriorityForAxis(UILayoutConstraintAxis axis) const noexcept {
  return compressionResistance_[indexOf(axis)];
}

void UIView::setContentCompressionResistancePriority(UILayoutPriority priority, UILayoutConstraintAxis axis) {
  compressionResistance_[indexOf(axis)] = priority;
  invalidateIntrinsicContentSize();
}

CGSize UIView::intrinsicContentSize() const { return {UIViewNoIntrinsicMetric, UIViewNoIntrinsicMetric}; }

void UIView::invalidateIntrinsicContentSize() {
  if (place_) internal::ViewLayout::contentHasChanged(*this);
}

CGSize UIView::sizeThatFits(CGSize) const { return frame_.size; }

void UIView::sizeToFit() { setFrame({frame_.origin, sizeThatFits(frame_.size)}); }

FirstBaseline UIView::firstBaseline() const { return {}; }

bool UIView::hasHeightForWidth() const { return false; }

CGSize UIView::systemLayoutSizeFittingSize(CGSize size) {
  const internal::Nesting nesting(top(), *this);
  const auto self = weak_from_this().lock();
  return !self || nesting.isTooDeep() ? frame_.size : internal::ViewLayout::fit(*this, size);
}

void UIView::addLayoutGuide(const std::shared_ptr<UILayoutGuide>& guide) {
  if (!guide || guide->owner_ == this) return;
  // What was handed in may be a place in the list that it is taken from.
  const auto added = guide;  // NOLINT(performance-unnecessary-copy-initialization)
  if (added->owner_) added->owner_->removeLayoutGuide(added);
  added->owner_ = this;
  layoutGuides_.push_back(added);
  isConstrained_ = true;
  markAbove(&UIView::isConstrained_);
  if (const auto& layout = top().layout_) layout->enter(*added);
}

void UIView::removeLayoutGuide(const std::shared_ptr<UILayoutGuide>& guide) {
  if (!guide || guide->owner_ != this) return;
  internal::ViewLayout::forget(*guide);
  guide->owner_ = nullptr;
  layoutGuides_.erase(std::find(layoutGuides_.begin(), layoutGuides_.end(), guide));
}

void UIView::traitCollectionDidChange(const std::shared_ptr<const UITraitCollection>&) {}

void UIView::didMoveToWindow() {}

void UIView::setSemanticContentAttribute(UISemanticContentAttribute attribute) {
  semanticContentAttribute_ = attribute;
  setNeedsLayout();
}

}  // namespace Brisel::Platform
