#pragma once

#include <cstddef>
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
/// What must hold.
inline constexpr UILayoutPriority UILayoutPriorityRequired = 1000;
/// How strongly views resist becoming smaller than their content, until told.
inline constexpr UILayoutPriority UILayoutPriorityDefaultHigh = 750;
/// How strongly views resist becoming larger than their content, until told.
inline constexpr UILayoutPriority UILayoutPriorityDefaultLow = 250;
/// How strongly a view that is measured is asked for the given size.
inline constexpr UILayoutPriority UILayoutPriorityFittingSizeLevel = 50;

/// What stands between the two sides of a constraint, by the published numbers.
enum class NSLayoutRelation : std::int8_t {
  lessThanOrEqual = -1,   ///< ≤
  equal = 0,              ///< =
  greaterThanOrEqual = 1  ///< ≥
};

/// A relation between two attributes of views or guides, or between one and a number:
/// first attribute (=, ≤, ≥) second attribute × multiplier + constant. Made by anchors, or from its parts.
///
/// The nearest view above both items holds an active constraint (one of them may be that view; a guide's is the one
/// that owns it); the items are held weakly, and with one of them goes the constraint. Removing a view from its
/// superview deactivates the constraints that tie it or what is below it to what is outside. Positions are measured in
/// the holder, from the edge where its text begins where a leading or trailing edge is meant, else from its left and
/// its top.
class NSLayoutConstraint final : public NSObject {
 public:
  /// `constraintWithItem:attribute:relatedBy:toItem:attribute:multiplier:constant:`. Without a second item (null, or
  /// `notAnAttribute`) the first attribute, a size, is compared with the constant. A missing first item, and attributes
  /// that cannot be compared (a size with an edge, a left with a leading edge, x with y, a place with a number), are
  /// programming errors. In layout, a multiplier that is not a number counts as 0, and all are cut to 10,000.
  static std::shared_ptr<NSLayoutConstraint> constraintWithItem(const std::shared_ptr<LayoutItem>& firstItem,
                                                                NSLayoutAttribute firstAttribute,
                                                                NSLayoutRelation relation,
                                                                const std::shared_ptr<LayoutItem>& secondItem,
                                                                NSLayoutAttribute secondAttribute, CGFloat multiplier,
                                                                CGFloat constant);

  /// `activateConstraints:`: all at once.
  static void activateConstraints(std::span<const std::shared_ptr<NSLayoutConstraint>> constraints);
  static void activateConstraints(std::initializer_list<std::shared_ptr<NSLayoutConstraint>> constraints);
  /// `deactivateConstraints:`: all at once.
  static void deactivateConstraints(std::span<const std::shared_ptr<NSLayoutConstraint>> constraints);
  static void deactivateConstraints(std::initializer_list<std::shared_ptr<NSLayoutConstraint>> constraints);

  /// The first item; null once that has been freed.
  std::shared_ptr<LayoutItem> firstItem() const noexcept { return firstItem_.lock(); }
  /// What of the first item is meant.
  NSLayoutAttribute firstAttribute() const noexcept { return firstAttribute_; }
  /// What stands between the two sides.
  NSLayoutRelation relation() const noexcept { return relation_; }
  /// The second item; null where there is none, and once it has been freed.
  std::shared_ptr<LayoutItem> secondItem() const noexcept { return secondItem_.lock(); }
  /// What of the second item is meant; `notAnAttribute` where there is none.
  NSLayoutAttribute secondAttribute() const noexcept { return secondAttribute_; }
  /// By which the second attribute is multiplied.
  CGFloat multiplier() const noexcept { return multiplier_; }

  /// What is added to the second side, in points. Changing it while the constraint is active costs little more than
  /// what moves. In layout, values that are not a number count as 0, and all are cut to a billion points.
  CGFloat constant() const noexcept { return constant_; }
  void setConstant(CGFloat constant);

  /// How important it is; required at first. In layout, what is above 1000 counts as required; a constraint whose
  /// priority is not above 0 asks for nothing.
  UILayoutPriority priority() const noexcept { return priority_; }
  void setPriority(UILayoutPriority priority);

  /// Whether it takes part in layout. To activate a constraint whose items have no view above them in common is a
  /// programming error, as is one whose item has been freed.
  bool isActive() const noexcept { return holder_ != nullptr; }
  void setActive(bool active);

 private:
  friend class UILayoutGuide;
  friend class UIView;
  friend class internal::ViewLayout;
  NSLayoutConstraint() = default;

  void activate();
  void deactivate();
  /// Calls `visit` with every item on whose place the meaning depends: from the items up to the holder, with it.
  template <class Visit>
  void forEachPlace(Visit visit) const;

  std::weak_ptr<LayoutItem> firstItem_, secondItem_;
  CGFloat multiplier_ = 1;
  CGFloat constant_ = 0;
  UILayoutPriority priority_ = UILayoutPriorityRequired;
  NSLayoutAttribute firstAttribute_ = NSLayoutAttribute::notAnAttribute;
  NSLayoutAttribute secondAttribute_ = NSLayoutAttribute::notAnAttribute;
  NSLayoutRelation relation_ = NSLayoutRelation::equal;

  // While active. Items and holder deactivate it before they go.
  UIView* holder_ = nullptr;
  LayoutItem* first_ = nullptr;
  LayoutItem* second_ = nullptr;  // null: none
  std::uint64_t number_ = 0;
  internal::ViewLayout* layout_ = nullptr;  // that has it; null: none yet
  std::size_t row_ = 0;                     // where
};

}  // namespace Brisel::Platform
