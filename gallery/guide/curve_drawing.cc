#include "gallery/guide/curve_drawing.h"

#include <array>

#include "brisel/platform/bezier_path.h"
#include "brisel/platform/color.h"
#include "brisel/themes/theme.h"
#include "brisel/tokens/color.h"

#include "gallery/catalogue_names.h"
#include "gallery/guide/specimens.h"

namespace Brisel::Gallery {
namespace {

using Platform::Canvas, Platform::CGPoint, Platform::CGSize, Platform::UIBezierPath, Platform::UIColor;

constexpr std::array<NamedCurve, 6> kCurves{{
    {"linear", "Linear", {0.25, 0.25}, {0.75, 0.75}},
    {"ease", "Ease", {0.25, 0.1}, {0.25, 1}},
    {"ease-in", "Ease in", {0.42, 0}, {1, 1}},
    {"ease-out", "Ease out", {0, 0}, {0.58, 1}},
    {"ease-in-out", "Ease in and out", {0.42, 0}, {0.58, 1}},
    {"overshoot", "Overshoot", {0.34, 1.56}, {0.64, 1}},
}};

constexpr int kSamples = 20;

const UIColor& line() { return *Theme::dark().base().text().base(); }
const UIColor& subdued() { return *Theme::dark().base().essential().subdued(); }
const UIColor& frameColor() { return *Color::gray30().value(); }
const UIColor& handle() { return *Theme::dark().base().essential().announcement(); }

void fillDot(Canvas& canvas, CGPoint middle, double radius, const UIColor& color) {
  canvas.fillPath(
      UIBezierPath::bezierPathWithOvalInRect({{middle.x - radius, middle.y - radius}, {2 * radius, 2 * radius}}),
      color);
}

void strokeLine(Canvas& canvas, CGPoint from, CGPoint to, double width, const UIColor& color) {
  UIBezierPath path;
  path.moveToPoint(from);
  path.addLineToPoint(to);
  path.setLineWidth(width);
  canvas.strokePath(path, color);
}

std::string pair(CGPoint point) { return decimal(point.x) + ", " + decimal(point.y); }

}  // namespace

std::shared_ptr<const VLMBriselCubicBezierCurve> NamedCurve::make() const {
  return VLMBriselCubicBezierCurve::initWithStartHandle(startHandle, endHandle);
}

std::string NamedCurve::code() const {
  return "VLMBriselCubicBezierCurve::initWithStartHandle({" + pair(startHandle) + "}, {" + pair(endHandle) + "})";
}

std::string NamedCurve::value() const { return pair(startHandle) + ", " + pair(endHandle); }

std::span<const NamedCurve> namedCurves() { return kCurves; }

CGSize CurveGraph::size() const { return {kLeft + kSide + kLeft, kBottom + kSide * highest_ + kBottom}; }

CGSize CurveGraph::sizeWithRail() const { return {size().width + kRail, size().height}; }

CGPoint CurveGraph::at(CGPoint point) const {
  return {kLeft + kSide * point.x, kBottom + kSide * (highest_ - point.y)};
}

void CurveGraph::paintGround(Canvas& canvas) const {
  canvas.fillRect({{}, sizeWithRail()}, specimenGround());
  auto frame = UIBezierPath::bezierPathWithRect({at({0, 1}), {kSide, kSide}});
  canvas.strokePath(frame, frameColor());
}

void CurveGraph::strokeCurve(Canvas& canvas, const VLMBriselCubicBezierCurve& curve, const UIColor& color) const {
  UIBezierPath path;
  path.moveToPoint(at({0, 0}));
  path.addCurveToPoint(at({1, 1}), at(curve.startHandle()), at(curve.endHandle()));
  path.setLineWidth(2);
  canvas.strokePath(path, color);
}

void CurveGraph::paintCurve(Canvas& canvas, const VLMBriselCubicBezierCurve& curve) const {
  strokeCurve(canvas, curve, subdued());
}

void CurveGraph::paintSampledCurve(Canvas& canvas, const VLMBriselCubicBezierCurve& curve) const {
  strokeLine(canvas, at({0, 0}), at(curve.startHandle()), 1, handle());
  strokeLine(canvas, at({1, 1}), at(curve.endHandle()), 1, handle());
  strokeCurve(canvas, curve, line());
  for (int i = 0; i <= kSamples; ++i) {
    const double x = static_cast<double>(i) / kSamples;
    fillDot(canvas, at({x, curve.yForGivenX(x)}), 3, line());
  }
  fillDot(canvas, at(curve.startHandle()), 4, handle());
  fillDot(canvas, at(curve.endHandle()), 4, handle());
}

void CurveGraph::paintRail(Canvas& canvas, const VLMBriselCubicBezierCurve& curve) const {
  constexpr double kRight = 1 + kRail / kSide;
  strokeLine(canvas, at({kRight, 0}), at({kRight, 1}), 1, frameColor());
  for (int i = 0; i <= kSamples; ++i) {
    fillDot(canvas, at({kRight, curve.yForGivenX(static_cast<double>(i) / kSamples)}), 2, line());
  }
}

void CurveGraph::paintTangent(Canvas& canvas, const VLMBriselCubicBezierCurve& curve, double t) const {
  const auto [position, previous, next] = curve.positionAndHandleAt(t);
  strokeLine(canvas, at(previous), at(position), 1, handle());
  strokeLine(canvas, at(position), at(next), 1, handle());
  fillDot(canvas, at(previous), 4, handle());
  fillDot(canvas, at(next), 4, handle());
  fillDot(canvas, at(position), 5, line());
}

void CurveGraph::paintPart(Canvas& canvas, const VLMBriselCubicBezierCurve& curve, double startT, double endT) const {
  constexpr int kSteps = 64;
  UIBezierPath path;
  for (int i = 0; i <= kSteps; ++i) {
    const double t = startT + (endT - startT) * i / kSteps;
    const CGPoint point = at(curve.positionAndHandleAt(t).position);
    if (i == 0)
      path.moveToPoint(point);
    else
      path.addLineToPoint(point);
  }
  path.setLineWidth(4);
  canvas.strokePath(path, line());
  fillDot(canvas, at(curve.positionAndHandleAt(startT).position), 5, line());
  fillDot(canvas, at(curve.positionAndHandleAt(endT).position), 5, line());
}

}  // namespace Brisel::Gallery
