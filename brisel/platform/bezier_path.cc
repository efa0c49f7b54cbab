#include "brisel/platform/bezier_path.h"

namespace Brisel::Platform {
namespace {

// How far the controls of a quarter circle lie from its ends, in radii: 4/3 (√2 − 1), which touches the circle in the
// middle too.
constexpr CGFloat kQuarterCircle = 0.5522847498307936;

bool hasArea(const CGRect& rect) { return rect.size.width > 0 && rect.size.height > 0; }

}  // namespace

UIBezierPath UIBezierPath::bezierPathWithRect(const CGRect& rect) {
  UIBezierPath path;
  if (!hasArea(rect)) return path;
  const CGFloat right = rect.origin.x + rect.size.width;
  const CGFloat bottom = rect.origin.y + rect.size.height;
  path.moveToPoint(rect.origin);
  path.addLineToPoint({right, rect.origin.y});
  path.addLineToPoint({right, bottom});
  path.addLineToPoint({rect.origin.x, bottom});
  path.closePath();
  return path;
}

UIBezierPath UIBezierPath::bezierPathWithOvalInRect(const CGRect& rect) {
  UIBezierPath path;
  if (!hasArea(rect)) return path;
  const CGFloat rx = rect.size.width * 0.5;
  const CGFloat ry = rect.size.height * 0.5;
  const CGFloat x = rect.origin.x + rx;
  const CGFloat y = rect.origin.y + ry;
  const CGFloat cx = rx * kQuarterCircle;
  const CGFloat cy = ry * kQuarterCircle;
  path.moveToPoint({x + rx, y});
  path.addCurveToPoint({x, y + ry}, {x + rx, y + cy}, {x + cx, y + ry});
  path.addCurveToPoint({x - rx, y}, {x - cx, y + ry}, {x - rx, y + cy});
  path.addCurveToPoint({x, y - ry}, {x - rx, y - cy}, {x - cx, y - ry});
  path.addCurveToPoint({x + rx, y}, {x + cx, y - ry}, {x + rx, y - cy});
  path.closePath();
  return path;
}

void UIBezierPath::moveToPoint(CGPoint point) { elements_.push_back({Element::Kind::move, point, {}, {}}); }

void UIBezierPath::addLineToPoint(CGPoint point) {
  if (!isEmpty()) elements_.push_back({Element::Kind::line, point, {}, {}});
}

void UIBezierPath::addCurveToPoint(CGPoint endPoint, CGPoint controlPoint1, CGPoint controlPoint2) {
  if (!isEmpty()) elements_.push_back({Element::Kind::curve, endPoint, controlPoint1, controlPoint2});
}

void UIBezierPath::closePath() {
  if (!isEmpty()) elements_.push_back({Element::Kind::close, {}, {}, {}});
}

void UIBezierPath::applyTransform(const CGAffineTransform& t) {
  const auto map = [&t](CGPoint& p) { p = {t.a * p.x + t.c * p.y + t.tx, t.b * p.x + t.d * p.y + t.ty}; };
  for (Element& element : elements_) {
    if (element.kind == Element::Kind::close) continue;
    map(element.end);
    if (element.kind != Element::Kind::curve) continue;
    map(element.control1);
    map(element.control2);
  }
}

}  // namespace Brisel::Platform
