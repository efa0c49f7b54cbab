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
  notAnAttribute,  ///< nothing
  left,            ///< the left edge
  right,           ///< the right edge
  top,             ///< the top edge
  bottom,          ///< the bottom edge
  leading,         ///< the edge where text begins
  trailing,        ///< the edge where text ends
  width,           ///< a size
  height,          ///< a size
  centerX,         ///< the middle from left to right
  centerY,         ///< the middle from top to bottom
  firstBaseline,   ///< the baseline of the first line of text
};

/// An edge, a centre or a size of a view or a layout guide, which it holds weakly. The constraints that it makes are
/// not active yet. To make one from or to an anchor whose item has been freed is a programming error.
template <class Kind>
class NSLayoutAnchor {
 public:
  /// The view or guide; null once that has been freed.
  std::shared_ptr<LayoutItem> item() const noexcept { return item_.lock(); }
  /// What of the item it stands for.
  NSLayoutAttribute attribute() const noexcept { return attribute_; }

  /// `constraintEqualToAnchor:constant:`: this anchor = the other + constant points.
  std::shared_ptr<NSLayoutConstraint> constraintEqualToAnchor(const Kind& anchor, CGFloat constant = 0) const;
  /// `constraintGreaterThanOrEqualToAnchor:constant:`: at least that.
  std::shared_ptr<NSLayoutConstraint> constraintGreaterThanOrEqualToAnchor(const Kind& anchor,
                                                                           CGFloat constant = 0) const;
  /// `constraintLessThanOrEqualToAnchor:constant:`: at most that.
  std::shared_ptr<NSLayoutConstraint> constraintLessThanOrEqualToAnchor(const Kind& anchor, CGFloat constant = 0) const;

 protected:
  /// An anchor of an item.
  // NOLINTNEXTLINE(bugprone-crtp-constructor-accessibility): the kinds inherit it
  NSLayoutAnchor(std::weak_ptr<LayoutItem> item, NSLayoutAttribute attribute) noexcept
      : item_(std::move(item)), attribute_(attribute) {}

 private:
  std::weak_ptr<LayoutItem> item_;
  NSLayoutAttribute attribute_;
};

/// An edge or a centre on the horizontal axis.
class NSLayoutXAxisAnchor final : public NSLayoutAnchor<NSLayoutXAxisAnchor> {
  friend class LayoutItem;
  using NSLayoutAnchor::NSLayoutAnchor;
};

/// An edge, a centre or a baseline on the vertical axis.
class NSLayoutYAxisAnchor final : public NSLayoutAnchor<NSLayoutYAxisAnchor> {
  friend class LayoutItem;
  using NSLayoutAnchor::NSLayoutAnchor;
};

/// A width or a height.
class NSLayoutDimension final : public NSLayoutAnchor<NSLayoutDimension> {
 public:
  using NSLayoutAnchor::constraintEqualToAnchor;
  using NSLayoutAnchor::constraintGreaterThanOrEqualToAnchor;
  using NSLayoutAnchor::constraintLessThanOrEqualToAnchor;

  /// `constraintEqualToConstant:`: in points.
  std::shared_ptr<NSLayoutConstraint> constraintEqualToConstant(CGFloat constant) const;
  /// `constraintGreaterThanOrEqualToConstant:`: at least so many points.
  std::shared_ptr<NSLayoutConstraint> constraintGreaterThanOrEqualToConstant(CGFloat constant) const;
  /// `constraintLessThanOrEqualToConstant:`: at most so many points.
  std::shared_ptr<NSLayoutConstraint> constraintLessThanOrEqualToConstant(CGFloat constant) const;

  /// `constraintEqualToAnchor:multiplier:constant:`: the other size × multiplier + constant points.
  std::shared_ptr<NSLayoutConstraint> constraintEqualToAnchor(const NSLayoutDimension& dimension, CGFloat multiplier,
                                                              CGFloat constant) const;
  /// `constraintGreaterThanOrEqualToAnchor:multiplier:constant:`: at least that.
  std::shared_ptr<NSLayoutConstraint> constraintGreaterThanOrEqualToAnchor(const NSLayoutDimension& dimension,
                                                                           CGFloat multiplier, CGFloat constant) const;
  /// `constraintLessThanOrEqualToAnchor:multiplier:constant:`: at most that.
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

  NSLayoutXAxisAnchor leadingAnchor() const noexcept;        ///< the edge where text begins
  NSLayoutXAxisAnchor trailingAnchor() const noexcept;       ///< the edge where text ends
  NSLayoutXAxisAnchor leftAnchor() const noexcept;           ///< the left edge
  NSLayoutXAxisAnchor rightAnchor() const noexcept;          ///< the right edge
  NSLayoutXAxisAnchor centerXAnchor() const noexcept;        ///< the middle from left to right
  NSLayoutYAxisAnchor topAnchor() const noexcept;            ///< the top edge
  NSLayoutYAxisAnchor bottomAnchor() const noexcept;         ///< the bottom edge
  NSLayoutYAxisAnchor centerYAnchor() const noexcept;        ///< the middle from top to bottom
  NSLayoutYAxisAnchor firstBaselineAnchor() const noexcept;  ///< of the first line; without text, the bottom
  NSLayoutDimension widthAnchor() const noexcept;            ///< the width
  NSLayoutDimension heightAnchor() const noexcept;           ///< the height

  /// The view that stands for this item in the tree: the view itself, or the one that owns the guide; null for a guide
  /// without an owner.
  virtual std::shared_ptr<const UIView> layoutView() const = 0;

 protected:
  /// For views and guides.
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
