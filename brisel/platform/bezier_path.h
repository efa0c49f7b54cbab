#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "brisel/platform/geometry.h"

namespace Brisel::Platform {

/// An outline of straight and cubic segments, in points. A value: copies are independent.
class UIBezierPath {
 public:
  /// A step of the outline. All but `close` lead to `end`; only `curve` has control points.
  struct Element {
    /// The kinds of steps.
    enum class Kind : std::uint8_t {
      move,   ///< begins a subpath
      line,   ///< a straight line
      curve,  ///< a cubic curve
      close,  ///< a straight line to the subpath's first point
    };
    Kind kind = Kind::move;  ///< which step this is
    CGPoint end;             ///< where it leads
    CGPoint control1;        ///< near the beginning of a curve
    CGPoint control2;        ///< near its end
    friend bool operator==(const Element&, const Element&) = default;
  };

  UIBezierPath() = default;
  /// A closed path round the rectangle, from its upper left corner; empty where the rectangle is.
  static UIBezierPath bezierPathWithRect(const CGRect& rect);
  /// The ellipse that touches the rectangle's sides, as four curves; empty where the rectangle is.
  static UIBezierPath bezierPathWithOvalInRect(const CGRect& rect);

  /// Begins a subpath.
  void moveToPoint(CGPoint point);
  // Segments need a point to start from: in a path without any they do nothing. Behind a closed subpath they start
  // from its first point.
  /// A straight line from where the last step led.
  void addLineToPoint(CGPoint point);
  /// `addCurveToPoint:controlPoint1:controlPoint2:`: a cubic curve from where the last step led.
  void addCurveToPoint(CGPoint endPoint, CGPoint controlPoint1, CGPoint controlPoint2);
  /// A straight line to the subpath's first point.
  void closePath();

  /// Maps all points; the line width stays.
  void applyTransform(const CGAffineTransform& transform);

  /// How wide a stroke is, in points; 1 at first. Strokes that are not above 0 are not drawn.
  CGFloat lineWidth() const noexcept { return lineWidth_; }
  void setLineWidth(CGFloat lineWidth) noexcept { lineWidth_ = lineWidth; }

  /// Whether there is no step.
  bool isEmpty() const noexcept { return elements_.empty(); }
  /// The steps in order; valid until the path is changed.
  std::span<const Element> elements() const noexcept { return elements_; }

  friend bool operator==(const UIBezierPath&, const UIBezierPath&) = default;

 private:
  std::vector<Element> elements_;
  CGFloat lineWidth_ = 1;
};

}  // namespace Brisel::Platform
