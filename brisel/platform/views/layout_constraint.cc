#include "brisel/platform/views/layout_constraint.h"

#include <algorithm>
#include <utility>

#include "brisel/platform/fatal_error.h"
#include "brisel/platform/views/internal/view_layout.h"
#include "brisel/platform/views/layout_guide.h"
#include "brisel/platform/views/view.h"

namespace Brisel::Platform {
namespace {

enum class Kind : std::uint8_t { none, size, edgeOfText, edgeOfScreen, centerX, y };

Kind kindOf(NSLayoutAttribute attribute) {
  switch (attribute) {
    case NSLayoutAttribute::notAnAttribute:
      return Kind::none;
    case NSLayoutAttribute::left:
    case NSLayoutAttribute::right:
      return Kind::edgeOfScreen;
    case NSLayoutAttribute::leading:
    case NSLayoutAttribute::trailing:
      return Kind::edgeOfText;
    case NSLayoutAttribute::centerX:
      return Kind::centerX;
    case NSLayoutAttribute::top:
    case NSLayoutAttribute::bottom:
    case NSLayoutAttribute::centerY:
    case NSLayoutAttribute::firstBaseline:
      return Kind::y;
    case NSLayoutAttribute::width:
    case NSLayoutAttribute::height:
      return Kind::size;
  }
  return Kind::none;
}

bool areComparable(Kind a, Kind b) {
  const auto isEdge = [](Kind kind) { return kind == Kind::edgeOfText || kind == Kind::edgeOfScreen; };
  return a == b || (a == Kind::centerX && isEdge(b)) || (b == Kind::centerX && isEdge(a));
}

// The lowest view that is one of both, or null.
UIView* commonView(UIView* a, UIView* b, UIView* (*above)(const UIView&)) {
  const auto depth = [above](const UIView* view) {
    std::size_t levels = 0;
    for (; view; view = above(*view)) ++levels;
    return levels;
  };
  std::size_t depthOfA = depth(a), depthOfB = depth(b);
  for (; depthOfA > depthOfB; --depthOfA) a = above(*a);
  for (; depthOfB > depthOfA; --depthOfB) b = above(*b);
  while (a != b) {
    a = above(*a);
    b = above(*b);
  }
  return a;
}

// Those activated last are the first to go: measuring adds two and takes them out again.
template <class Pointers>
auto findFromBack(Pointers& pointers, const NSLayoutConstraint* wanted) {
  return std::find_if(pointers.rbegin(), pointers.rend(), [wanted](const auto& at) { return &*at == wanted; });
}

}  // namespace

std::shared_ptr<NSLayoutConstraint> NSLayoutConstraint::constraintWithItem(
    const std::shared_ptr<LayoutItem>& firstItem, NSLayoutAttribute firstAttribute, NSLayoutRelation relation,
    const std::shared_ptr<LayoutItem>& secondItem, NSLayoutAttribute secondAttribute, CGFloat multiplier,
    CGFloat constant) {
  const bool isUnary = !secondItem || secondAttribute == NSLayoutAttribute::notAnAttribute;
  const Kind first = kindOf(firstAttribute);
  if (!firstItem) fatalError("A constraint needs a first item");
  if (first == Kind::none || !areComparable(first, isUnary ? Kind::size : kindOf(secondAttribute)))
    fatalError("The attributes of a constraint cannot be compared");
  std::shared_ptr<NSLayoutConstraint> constraint(new NSLayoutConstraint);
  constraint->firstItem_ = firstItem;
  constraint->firstAttribute_ = firstAttribute;
  constraint->relation_ = relation;
  if (!isUnary) {
    constraint->secondItem_ = secondItem;
    constraint->secondAttribute_ = secondAttribute;
  }
  constraint->multiplier_ = multiplier;
  constraint->constant_ = constant;
  return constraint;
}

void NSLayoutConstraint::activateConstraints(std::span<const std::shared_ptr<NSLayoutConstraint>> constraints) {
  for (const auto& constraint : constraints)
    if (constraint) constraint->activate();
}

void NSLayoutConstraint::activateConstraints(std::initializer_list<std::shared_ptr<NSLayoutConstraint>> constraints) {
  activateConstraints(std::span(constraints.begin(), constraints.size()));
}

void NSLayoutConstraint::deactivateConstraints(std::span<const std::shared_ptr<NSLayoutConstraint>> constraints) {
  for (const auto& constraint : constraints)
    if (constraint) constraint->deactivate();
}

void NSLayoutConstraint::deactivateConstraints(std::initializer_list<std::shared_ptr<NSLayoutConstraint>> constraints) {
  deactivateConstraints(std::span(constraints.begin(), constraints.size()));
}

void NSLayoutConstraint::setConstant(CGFloat constant) {
  constant_ = constant;
  if (layout_) layout_->markRow(*this);
}

void NSLayoutConstraint::setPriority(UILayoutPriority priority) {
  priority_ = priority;
  if (layout_) layout_->markRow(*this);
}

void NSLayoutConstraint::setActive(bool active) { active ? activate() : deactivate(); }

template <class Visit>
void NSLayoutConstraint::forEachPlace(Visit visit) const {
  for (LayoutItem* const item : {first_, second_ == first_ ? nullptr : second_}) {
    if (!item) continue;
    auto* const guide = dynamic_cast<UILayoutGuide*>(item);
    if (guide) visit(*item);
    for (UIView* view = guide ? guide->owner_ : static_cast<UIView*>(item); view != holder_; view = view->superview_)
      visit(static_cast<LayoutItem&>(*view));
  }
  visit(static_cast<LayoutItem&>(*holder_));
}

void NSLayoutConstraint::activate() {
  if (isActive()) return;
  const auto first = firstItem_.lock(), second = secondItem_.lock();
  if (!first || (secondAttribute_ != NSLayoutAttribute::notAnAttribute && !second))
    fatalError("A constraint cannot be activated whose item has been freed");
  const auto viewOf = [](LayoutItem& item) {
    auto* const guide = dynamic_cast<UILayoutGuide*>(&item);
    return guide ? guide->owner_ : static_cast<UIView*>(&item);
  };
  UIView* const view = viewOf(*first);
  UIView* const holder =
      second ? commonView(view, viewOf(*second), [](const UIView& v) { return v.superview_; }) : view;
  if (!holder) fatalError("A constraint cannot be activated whose items have no view above them in common");
  first_ = first.get();
  second_ = second.get();
  holder_ = holder;
  number_ = LayoutItem::nextNumber();
  holder->constraints_.push_back(std::static_pointer_cast<NSLayoutConstraint>(shared_from_this()));
  forEachPlace([this](LayoutItem& item) { item.place().constraints.push_back(this); });
  holder->isConstrained_ = true;
  holder->markAbove(&UIView::isConstrained_);
  if (const auto& layout = holder->top().layout_) layout->add(*this);
}

void NSLayoutConstraint::deactivate() {
  if (!isActive()) return;
  if (layout_) layout_->remove(*this);
  forEachPlace([this](LayoutItem& item) {
    auto& known = item.place_->constraints;
    known.erase(std::prev(findFromBack(known, this).base()));
  });
  auto& held = holder_->constraints_;
  const auto at = std::prev(findFromBack(held, this).base());
  const auto self = std::move(*at);  // The holder may have been the only owner.
  held.erase(at);
  holder_ = nullptr;
  first_ = second_ = nullptr;
}

}  // namespace Brisel::Platform
