// What constraints are made between: the edges, centres and sizes of views and layout guides.
#pragma once

#include <cstdint>
#include <memory>

#include "brisel/platform/geometry.h"
#include "brisel/platform/object.h"

namespace Brisel::Platform {

class LayoutItem;
class NSLayoutConstraint;
class UIView;
namespace internal {
struct LayoutPlace;
class ViewLayout;
}  // namespace internal

/// What of an item a constraint means. Leading and trailing follow the direction of the view that holds the constraint.
/// The first baseline is that of the item's text as it is drawn; of an item without text, its bottom.
enum class NSLayoutAttribute : std::uint8_t {
  notAnAttribute,
  left,
  right,
  top,
  bottom,
  leading,
  trailing,
  width,
  height,
  centerX,
  centerY,
  firstBaseline,
};

/// An edge, a centre or a size of a view or a layout guide, which it holds weakly. The constraints that it makes are
/// not active yet. To make one from or to an anchor whose item has been freed is a programming error.
template <class Kind>
class NSLayoutAnchor {
 public:
  /// The view or guide; null once that has been freed.
  std::shared_ptr<LayoutItem> item() const noexcept { return item_.lock(); }
  NSLayoutAttribute attribute() const noexcept { return attribute_; }

  /// `constraintEqualToAnchor:constant:`: this anchor = the other + constant points.
  std::shared_ptr<NSLayoutConstraint> constraintEqualToAnchor(const Kind& anchor, CGFloat constant = 0) const;
  /// `constraintGreaterThanOrEqualToAnchor:constant:`
  std::shared_ptr<NSLayoutConstraint> constraintGreaterThanOrEqualToAnchor(const Kind& anchor,
                                                                           CGFloat constant = 0) const;
  /// `constraintLessThanOrEqualToAnchor:constant:`
  std::shared_ptr<NSLayoutConstraint> constraintLessThanOrEqualToAnchor(const Kind& anchor, CGFloat constant = 0) const;

 protected:
  // NOLINTNEXTLINE(bugprone-crtp-constructor-accessibility): the kinds inherit it
  NSLayoutAnchor(std::weak_ptr<LayoutItem> item, NSLayoutAttribute attribute) noexcept
      : item_(std::move(item)), attribute_(attribute) {}

 private:
  std::weak_ptr<LayoutItem> item_;
  NSLayoutAttribute attribute_;
};

class NSLayoutXAxisAnchor final : public NSLayoutAnchor<NSLayoutXAxisAnchor> {
  friend class LayoutItem;
  using NSLayoutAnchor::NSLayoutAnchor;
};

class NSLayoutYAxisAnchor final : public NSLayoutAnchor<NSLayoutYAxisAnchor> {
  friend class LayoutItem;
  using NSLayoutAnchor::NSLayoutAnchor;
};

class NSLayoutDimension final : public NSLayoutAnchor<NSLayoutDimension> {
 public:
  using NSLayoutAnchor::constraintEqualToAnchor;
  using NSLayoutAnchor::constraintGreaterThanOrEqualToAnchor;
  using NSLayoutAnchor::constraintLessThanOrEqualToAnchor;

  /// `constraintEqualToConstant:` and its sisters: in points.
  std::shared_ptr<NSLayoutConstraint> constraintEqualToConstant(CGFloat constant) const;
  std::shared_ptr<NSLayoutConstraint> constraintGreaterThanOrEqualToConstant(CGFloat constant) const;
  std::shared_ptr<NSLayoutConstraint> constraintLessThanOrEqualToConstant(CGFloat constant) const;

  /// `constraintEqualToAnchor:multiplier:constant:` and its sisters: the other size × multiplier + constant points.
  std::shared_ptr<NSLayoutConstraint> constraintEqualToAnchor(const NSLayoutDimension& dimension, CGFloat multiplier,
                                                              CGFloat constant) const;
  std::shared_ptr<NSLayoutConstraint> constraintGreaterThanOrEqualToAnchor(const NSLayoutDimension& dimension,
                                                                           CGFloat multiplier, CGFloat constant) const;
  std::shared_ptr<NSLayoutConstraint> constraintLessThanOrEqualToAnchor(const NSLayoutDimension& dimension,
                                                                        CGFloat multiplier, CGFloat constant) const;

 private:
  friend class LayoutItem;
  using NSLayoutAnchor::NSLayoutAnchor;
};

extern template class NSLayoutAnchor<NSLayoutXAxisAnchor>;
extern template class NSLayoutAnchor<NSLayoutYAxisAnchor>;
extern template class NSLayoutAnchor<NSLayoutDimension>;

/// A rectangle that constraints place: a view or a layout guide.
class LayoutItem : public NSObject {
 public:
  ~LayoutItem() override;

  NSLayoutXAxisAnchor leadingAnchor() const noexcept;
  NSLayoutXAxisAnchor trailingAnchor() const noexcept;
  NSLayoutXAxisAnchor leftAnchor() const noexcept;
  NSLayoutXAxisAnchor rightAnchor() const noexcept;
  NSLayoutXAxisAnchor centerXAnchor() const noexcept;
  NSLayoutYAxisAnchor topAnchor() const noexcept;
  NSLayoutYAxisAnchor bottomAnchor() const noexcept;
  NSLayoutYAxisAnchor centerYAnchor() const noexcept;
  NSLayoutYAxisAnchor firstBaselineAnchor() const noexcept;
  NSLayoutDimension widthAnchor() const noexcept;
  NSLayoutDimension heightAnchor() const noexcept;

  /// The view that stands for this item in the tree: the view itself, or the one that owns the guide; null for a guide
  /// without an owner.
  virtual std::shared_ptr<const UIView> layoutView() const = 0;

 protected:
  LayoutItem();

 private:
  friend class NSLayoutConstraint;
  friend class UILayoutGuide;
  friend class UIView;
  friend class internal::ViewLayout;

  template <class Anchor>
  Anchor anchor(NSLayoutAttribute attribute) const noexcept;
  internal::LayoutPlace& place();
  /// For the order of what layout compares: of views and guides as they are made, of constraints as they are activated.
  static std::uint64_t nextNumber() noexcept;

  std::uint64_t number_ = nextNumber();
  std::unique_ptr<internal::LayoutPlace> place_;  // what layout knows of it; null: nothing
};

}  // namespace Brisel::Platform
