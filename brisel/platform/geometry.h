// Plain geometry, in points: the numbers that every other layer speaks.
#pragma once

namespace Brisel::Platform {

/// A length, coordinate or fraction. Always 64 bits wide.
using CGFloat = double;

/// A place, in points.
struct CGPoint {
  CGFloat x = 0;  ///< to the right
  CGFloat y = 0;  ///< downwards
  friend bool operator==(const CGPoint&, const CGPoint&) = default;
};

/// How large something is, in points.
struct CGSize {
  CGFloat width = 0;   ///< from left to right
  CGFloat height = 0;  ///< from top to bottom
  friend bool operator==(const CGSize&, const CGSize&) = default;
};

/// A rectangle whose origin is its upper left corner; y grows downwards.
struct CGRect {
  CGPoint origin;  ///< the upper left corner
  CGSize size;     ///< from there to the right and downwards
  friend bool operator==(const CGRect&, const CGRect&) = default;
};

/// What maps (x, y) to (a x + c y + tx, b x + d y + ty).
struct CGAffineTransform {
  CGFloat a = 1;   ///< of x, in the new x
  CGFloat b = 0;   ///< of x, in the new y
  CGFloat c = 0;   ///< of y, in the new x
  CGFloat d = 1;   ///< of y, in the new y
  CGFloat tx = 0;  ///< added to the new x, in points
  CGFloat ty = 0;  ///< added to the new y, in points
  friend bool operator==(const CGAffineTransform&, const CGAffineTransform&) = default;
};

/// Distances from the four sides of a rectangle, inwards.
struct UIEdgeInsets {
  CGFloat top = 0;     ///< points, as all four
  CGFloat left = 0;    ///< points
  CGFloat bottom = 0;  ///< points
  CGFloat right = 0;   ///< points
  friend bool operator==(const UIEdgeInsets&, const UIEdgeInsets&) = default;
};

/// Insets whose leading and trailing sides follow the layout direction.
struct NSDirectionalEdgeInsets {
  CGFloat top = 0;       ///< points, as all four
  CGFloat leading = 0;   ///< where text begins; points
  CGFloat bottom = 0;    ///< points
  CGFloat trailing = 0;  ///< where text ends; points
  friend bool operator==(const NSDirectionalEdgeInsets&, const NSDirectionalEdgeInsets&) = default;
};

}  // namespace Brisel::Platform
