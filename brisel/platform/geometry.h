// Plain geometry, in points: the numbers that every other layer speaks.
#pragma once

namespace Brisel::Platform {

/// A length, coordinate or fraction. Always 64 bits wide.
using CGFloat = double;

struct CGPoint {
  CGFloat x = 0;
  CGFloat y = 0;
  friend bool operator==(const CGPoint&, const CGPoint&) = default;
};

struct CGSize {
  CGFloat width = 0;
  CGFloat height = 0;
  friend bool operator==(const CGSize&, const CGSize&) = default;
};

/// A rectangle whose origin is its upper left corner; y grows downwards.
struct CGRect {
  CGPoint origin;
  CGSize size;
  friend bool operator==(const CGRect&, const CGRect&) = default;
};

/// What maps (x, y) to (a x + c y + tx, b x + d y + ty).
struct CGAffineTransform {
  CGFloat a = 1;
  CGFloat b = 0;
  CGFloat c = 0;
  CGFloat d = 1;
  CGFloat tx = 0;
  CGFloat ty = 0;
  friend bool operator==(const CGAffineTransform&, const CGAffineTransform&) = default;
};

/// Distances from the four sides of a rectangle, inwards.
struct UIEdgeInsets {
  CGFloat top = 0;
  CGFloat left = 0;
  CGFloat bottom = 0;
  CGFloat right = 0;
  friend bool operator==(const UIEdgeInsets&, const UIEdgeInsets&) = default;
};

/// Insets whose leading and trailing sides follow the layout direction.
struct NSDirectionalEdgeInsets {
  CGFloat top = 0;
  CGFloat leading = 0;
  CGFloat bottom = 0;
  CGFloat trailing = 0;
  friend bool operator==(const NSDirectionalEdgeInsets&, const NSDirectionalEdgeInsets&) = default;
};

}  // namespace Brisel::Platform
