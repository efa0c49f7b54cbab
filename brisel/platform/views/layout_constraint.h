#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <span>
#include <vector>

#include "brisel/platform/object.h"
#include "brisel/platform/views/layout_anchor.h"

namespace Brisel::Platform {

/// How important a constraint is: above 0, up to 1000. Each distinct value is a level of its own; a constraint gives
/// way to any that is more important, however many of its own level hold with it.
using UILayoutPriority = float;
inline constexpr UILayoutPriority UILayoutPriorityRequired = 1000;
inline constexpr UILayoutPriority UILayoutPriorityDefaultHigh = 750;
inline constexpr UILayoutPriority UILayoutPriorityDefaultLow = 250;
inline constexpr UILayoutPriority UILayoutPriorityFittingSizeLevel = 50;

/// The published numbers.
enum class NSLayoutRelation : std::int8_t { lessThanOrEqual = -1, equal = 0, greaterThanOrEqual = 1 };

/// A relation between two attributes of views or guides, or between one and a number:
/// first attribute (=, ≤, ≥) second attribute × multiplier + constant. Made by anchors, or from its parts.
///
/// The nearest view above both items holds an active constraint; the items are held weakly. Removing a view from its
/// superview deactivates the constraints that tie it or what is below it to what is outside.
class NSLayoutConstraint final : public NSObject {
 public:
  /// `constraintWithItem:attribute:relatedBy:toItem:attribute:multiplier:constant:`. Without a second item (null, or
  /// `notAnAttribute`) the first attribute is compared with the constant. A missing first item, and attributes that
  /// cannot be compared (a size with an edge, a left with a leading edge, x with y), are programming errors.
  static std::shared_ptr<NSLayoutConstraint> constraintWithItem(const std::shared_ptr<LayoutItem>& firstItem,
                                                                NSLayoutAttribute firstAttribute,
                                                                NSLayoutRelation relation,
                                                                const std::shared_ptr<LayoutItem>& secondItem,
                                                                NSLayoutAttribute secondAttribute, CGFloat multiplier,
                                                                CGFloat constant);

  /// `activateConstraints:`, `deactivateConstraints:`: all at once.
  static void activateConstraints(std::span<const std::shared_ptr<NSLayoutConstraint>> constraints);
  static void activateConstraints(std::initializer_list<std::shared_ptr<NSLayoutConstraint>> constraints);
  static void deactivateConstraints(std::span<const std::shared_ptr<NSLayoutConstraint>> constraints);
  static void deactivateConstraints(std::initializer_list<std::shared_ptr<NSLayoutConstraint>> constraints);

  std::shared_ptr<LayoutItem> firstItem() const noexcept { return firstItem_.lock(); }
  NSLayoutAttribute firstAttribute() const noexcept { return firstAttribute_; }
  NSLayoutRelation relation() const noexcept { return relation_; }
  std::shared_ptr<LayoutItem> secondItem() const noexcept { return secondItem_.lock(); }
  NSLayoutAttribute secondAttribute() const noexcept { return secondAttribute_; }
  CGFloat multiplier() const noexcept { return multiplier_; }

  /// Points. Changing it while the constraint is active costs little more than what moves. In layout, values that are
  /// not a number count as 0, and all are cut to a billion points.
  CGFloat constant() const noexcept { return constant_; }
  void setConstant(CGFloat constant);

  /// Required at first. In layout, what is above 1000 counts as required; a constraint whose priority is not above 0
  /// asks for nothing.
  UILayoutPriority priority() const noexcept { return priority_; }
  void setPriority(UILayoutPriority priority);

  /// Whether it takes part in layout. To activate a constraint whose items have no view above them in common is a
  /// programming error, as is one whose item has been freed.
  bool isActive() const noexcept;
  void setActive(bool active);

 private:
  NSLayoutConstraint() = default;

  std::weak_ptr<LayoutItem> firstItem_, secondItem_;
  std::weak_ptr<UIView> holder_;  // while active
  CGFloat multiplier_ = 1;
  CGFloat constant_ = 0;
  UILayoutPriority priority_ = UILayoutPriorityRequired;
  NSLayoutAttribute firstAttribute_ = NSLayoutAttribute::notAnAttribute;
  NSLayoutAttribute secondAttribute_ = NSLayoutAttribute::notAnAttribute;
  NSLayoutRelation relation_ = NSLayoutRelation::equal;
};

}  // namespace Brisel::Platform
