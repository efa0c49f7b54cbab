#include "brisel/platform/views/layout_anchor.h"

#include "brisel/platform/fatal_error.h"
#include "brisel/platform/views/internal/view_layout.h"
#include "brisel/platform/views/layout_constraint.h"

namespace Brisel::Platform {

namespace {

// Without its item, an anchor would be taken for none, and what it is compared with for a constant.
template <class Anchor>
std::shared_ptr<LayoutItem> itemOf(const Anchor& anchor) {
  auto item = anchor.item();
  if (!item) fatalError("A constraint cannot be made to an anchor whose item has been freed");
  return item;
}

}  // namespace

template <class Kind>
std::shared_ptr<NSLayoutConstraint> NSLayoutAnchor<Kind>::constraintEqualToAnchor(const Kind& anchor,
                                                                                  CGFloat constant) const {
  return NSLayoutConstraint::constraintWithItem(itemOf(*this), attribute_, NSLayoutRelation::equal, itemOf(anchor),
                                                anchor.attribute(), 1, constant);
}

template <class Kind>
std::shared_ptr<NSLayoutConstraint> NSLayoutAnchor<Kind>::constraintGreaterThanOrEqualToAnchor(const Kind& anchor,
                                                                                               CGFloat constant) const {
  return NSLayoutConstraint::constraintWithItem(itemOf(*this), attribute_, NSLayoutRelation::greaterThanOrEqual,
                                                itemOf(anchor), anchor.attribute(), 1, constant);
}

template <class Kind>
std::shared_ptr<NSLayoutConstraint> NSLayoutAnchor<Kind>::constraintLessThanOrEqualToAnchor(const Kind& anchor,
                                                                                            CGFloat constant) const {
  return NSLayoutConstraint::constraintWithItem(itemOf(*this), attribute_, NSLayoutRelation::lessThanOrEqual,
                                                itemOf(anchor), anchor.attribute(), 1, constant);
}

template class NSLayoutAnchor<NSLayoutXAxisAnchor>;
template class NSLayoutAnchor<NSLayoutYAxisAnchor>;
template class NSLayoutAnchor<NSLayoutDimension>;

namespace {

std::shared_ptr<NSLayoutConstraint> sizeConstraint(const NSLayoutDimension& dimension, NSLayoutRelation relation,
                                                   CGFloat constant) {
  return NSLayoutConstraint::constraintWithItem(itemOf(dimension), dimension.attribute(), relation, nullptr,
                                                NSLayoutAttribute::notAnAttribute, 1, constant);
}

std::shared_ptr<NSLayoutConstraint> ratioConstraint(const NSLayoutDimension& dimension, NSLayoutRelation relation,
                                                    const NSLayoutDimension& other, CGFloat multiplier,
                                                    CGFloat constant) {
  return NSLayoutConstraint::constraintWithItem(itemOf(dimension), dimension.attribute(), relation, itemOf(other),
                                                other.attribute(), multiplier, constant);
}

}  // namespace

std::shared_ptr<NSLayoutConstraint> NSLayoutDimension::constraintEqualToConstant(CGFloat constant) const {
  return sizeConstraint(*this, NSLayoutRelation::equal, constant);
}

std::shared_ptr<NSLayoutConstraint> NSLayoutDimension::constraintGreaterThanOrEqualToConstant(CGFloat constant) const {
  return sizeConstraint(*this, NSLayoutRelation::greaterThanOrEqual, constant);
}

std::shared_ptr<NSLayoutConstraint> NSLayoutDimension::constraintLessThanOrEqualToConstant(CGFloat constant) const {
  return sizeConstraint(*this, NSLayoutRelation::lessThanOrEqual, constant);
}

std::shared_ptr<NSLayoutConstraint> NSLayoutDimension::constraintEqualToAnchor(const NSLayoutDimension& dimension,
                                                                               CGFloat multiplier,
                                                                               CGFloat constant) const {
  return ratioConstraint(*this, NSLayoutRelation::equal, dimension, multiplier, constant);
}

std::shared_ptr<NSLayoutConstraint> NSLayoutDimension::constraintGreaterThanOrEqualToAnchor(
    const NSLayoutDimension& dimension, CGFloat multiplier, CGFloat constant) const {
  return ratioConstraint(*this, NSLayoutRelation::greaterThanOrEqual, dimension, multiplier, constant);
}

std::shared_ptr<NSLayoutConstraint> NSLayoutDimension::constraintLessThanOrEqualToAnchor(
    const NSLayoutDimension& dimension, CGFloat multiplier, CGFloat constant) const {
  return ratioConstraint(*this, NSLayoutRelation::lessThanOrEqual, dimension, multiplier, constant);
}

LayoutItem::LayoutItem() = default;

LayoutItem::~LayoutItem() = default;

internal::LayoutPlace& LayoutItem::place() {
  if (!place_) place_ = std::make_unique<internal::LayoutPlace>();
  return *place_;
}

std::uint64_t LayoutItem::nextNumber() noexcept {
  static constinit std::uint64_t last = 0;
  return ++last;
}

template <class Anchor>
Anchor LayoutItem::anchor(NSLayoutAttribute attribute) const noexcept {
  // Constraints move what they are made from, also where an anchor was asked of a constant item.
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast)
  return {std::static_pointer_cast<LayoutItem>(const_cast<LayoutItem*>(this)->weak_from_this().lock()), attribute};
}

NSLayoutXAxisAnchor LayoutItem::leadingAnchor() const noexcept {
  return anchor<NSLayoutXAxisAnchor>(NSLayoutAttribute::leading);
}
NSLayoutXAxisAnchor LayoutItem::trailingAnchor() const noexcept {
  return anchor<NSLayoutXAxisAnchor>(NSLayoutAttribute::trailing);
}
NSLayoutXAxisAnchor LayoutItem::leftAnchor() const noexcept {
  return anchor<NSLayoutXAxisAnchor>(NSLayoutAttribute::left);
}
NSLayoutXAxisAnchor LayoutItem::rightAnchor() const noexcept {
  return anchor<NSLayoutXAxisAnchor>(NSLayoutAttribute::right);
}
NSLayoutXAxisAnchor LayoutItem::centerXAnchor() const noexcept {
  return anchor<NSLayoutXAxisAnchor>(NSLayoutAttribute::centerX);
}
NSLayoutYAxisAnchor LayoutItem::topAnchor() const noexcept {
  return anchor<NSLayoutYAxisAnchor>(NSLayoutAttribute::top);
}
NSLayoutYAxisAnchor LayoutItem::bottomAnchor() const noexcept {
  return anchor<NSLayoutYAxisAnchor>(NSLayoutAttribute::bottom);
}
NSLayoutYAxisAnchor LayoutItem::centerYAnchor() const noexcept {
  return anchor<NSLayoutYAxisAnchor>(NSLayoutAttribute::centerY);
}
NSLayoutYAxisAnchor LayoutItem::firstBaselineAnchor() const noexcept {
  return anchor<NSLayoutYAxisAnchor>(NSLayoutAttribute::firstBaseline);
}
NSLayoutDimension LayoutItem::widthAnchor() const noexcept {
  return anchor<NSLayoutDimension>(NSLayoutAttribute::width);
}
NSLayoutDimension LayoutItem::heightAnchor() const noexcept {
  return anchor<NSLayoutDimension>(NSLayoutAttribute::height);
}

}  // namespace Brisel::Platform
