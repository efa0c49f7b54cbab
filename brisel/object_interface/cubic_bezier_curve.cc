#include "brisel/object_interface/cubic_bezier_curve.h"

#include <cmath>
#include <typeinfo>
#include <utility>

using Brisel::Platform::CGPoint;
using VLMBrisel::BezierPointDefinition;

namespace {

constexpr double kEpsilon = 0.005;

// a t³ + b t² + c t
struct Cubic {
  double at(double t) const { return ((a * t + b) * t + c) * t; }
  double slopeAt(double t) const { return c + (a * 3 * t + (b + b)) * t; }
  double a, b, c;
};

// A curve as the search sees it, which asks the object.
struct Overridden {
  double at(double t) const { return curve.sampleCurveX(t); }
  double slopeAt(double t) const { return curve.sampleCurveDerivativeX(t); }
  const VLMBriselCubicBezierCurve& curve;
};

template <class Curve>
double solved(const Curve& curve, double x, double epsilon) {
  constexpr int kNewtonSteps = 15;
  constexpr double kFlat = 1e-6;
  double t = x;
  for (int step = 0; step < kNewtonSteps; ++step) {
    const double found = curve.at(t);
    if (std::abs(found - x) < epsilon) return t;
    const double slope = curve.slopeAt(t);
    if (std::abs(slope) < kFlat) break;
    t -= (found - x) / slope;
  }

  if (x < 0) return 0;
  if (x > 1) return 1;
  double low = 0, high = 1;
  t = x;
  do {
    const double found = curve.at(t);
    if (std::abs(found - x) < epsilon) return t;
    const double lastLow = std::exchange(low, found < x ? t : low);
    const double lastHigh = std::exchange(high, found < x ? high : t);
    const double lastT = std::exchange(t, low + (high - low) * 0.5);
    // Where low and high are neighbours, t is one of them, and a tolerance that nothing is within would keep the
    // search there for ever. A round that changes nothing is like all that would follow, as a curve answers alike for
    // the same t, so no answer is lost. Any other round but the first brings low and high nearer: there are some 1,075
    // at most, when high is halved down to 0.
    if (low == lastLow && high == lastHigh && t == lastT) break;
  } while (low < high);
  return t;
}

// Of a curve that overrides nothing it is known what its operations call, which need not be asked of the object then.
bool overridesNothing(const VLMBriselCubicBezierCurve& curve) {
  return typeid(curve) == typeid(VLMBriselCubicBezierCurve);
}

}  // namespace

VLMBriselCurve::~VLMBriselCurve() = default;

std::shared_ptr<VLMBriselCubicBezierCurve> VLMBriselCubicBezierCurve::initWithStartHandle(CGPoint startHandle,
                                                                                          CGPoint endHandle) {
  return made(std::shared_ptr<VLMBriselCubicBezierCurve>(new VLMBriselCubicBezierCurve), startHandle, endHandle);
}

void VLMBriselCubicBezierCurve::calculatePolynomialCoefficients() {
  cx_ = 3 * startHandle_.x;
  bx_ = 3 * (endHandle_.x - startHandle_.x) - cx_;
  ax_ = 1 - cx_ - bx_;
  cy_ = 3 * startHandle_.y;
  by_ = 3 * (endHandle_.y - startHandle_.y) - cy_;
  ay_ = 1 - cy_ - by_;
}

double VLMBriselCubicBezierCurve::epsilon() const { return kEpsilon; }

double VLMBriselCubicBezierCurve::sampleCurveX(double t) const { return Cubic{ax_, bx_, cx_}.at(t); }

double VLMBriselCubicBezierCurve::sampleCurveY(double t) const { return Cubic{ay_, by_, cy_}.at(t); }

double VLMBriselCubicBezierCurve::sampleCurveDerivativeX(double t) const { return Cubic{ax_, bx_, cx_}.slopeAt(t); }

double VLMBriselCubicBezierCurve::solveCurveX(double x, double epsilon) const {
  return overridesNothing(*this) ? solved(Cubic{ax_, bx_, cx_}, x, epsilon) : solved(Overridden{*this}, x, epsilon);
}

double VLMBriselCubicBezierCurve::solveCurveX(double x) const { return solveCurveX(x, epsilon()); }

double VLMBriselCubicBezierCurve::yForGivenX(double x) const {
  if (overridesNothing(*this)) return Cubic{ay_, by_, cy_}.at(solved(Cubic{ax_, bx_, cx_}, x, kEpsilon));
  return sampleCurveY(solveCurveX(x, epsilon()));
}

CGPoint VLMBriselCubicBezierCurve::lerpFrom(CGPoint from, CGPoint to, double progress) const {
  return {from.x + (to.x - from.x) * progress, from.y + (to.y - from.y) * progress};
}

BezierPointDefinition VLMBriselCubicBezierCurve::positionAndHandleAt(double t) const {
  constexpr CGPoint kStart{0, 0}, kEnd{1, 1};
  const CGPoint a = lerpFrom(kStart, startHandle_, t);
  const CGPoint b = lerpFrom(startHandle_, endHandle_, t);
  const CGPoint c = lerpFrom(endHandle_, kEnd, t);
  const CGPoint d = lerpFrom(a, b, t);
  const CGPoint e = lerpFrom(b, c, t);
  return {.position = lerpFrom(d, e, t), .previousHandle = d, .nextHandle = e};
}

BezierPointDefinition VLMBriselCubicBezierCurve::translate(const BezierPointDefinition& point, CGPoint offset) const {
  const CGPoint moved{point.position.x + offset.x, point.position.y + offset.y};
  return {moved, moved, moved};
}

BezierPointDefinition VLMBriselCubicBezierCurve::scale(const BezierPointDefinition& point, CGPoint factor) const {
  const CGPoint scaled{point.position.x * factor.x, point.position.y * factor.y};
  return {scaled, scaled, scaled};
}

std::shared_ptr<VLMBriselCubicBezierCurve> VLMBriselCubicBezierCurve::subCurveFromStartT(double startT,
                                                                                         double endT) const {
  const BezierPointDefinition start = positionAndHandleAt(startT);
  const BezierPointDefinition end = positionAndHandleAt(endT);
  const CGPoint offset{0 - start.position.x, 0 - start.position.y};
  const BezierPointDefinition startAtOrigin = translate(start, offset);
  const BezierPointDefinition endFromOrigin = translate(end, offset);
  const CGPoint factor{1 / endFromOrigin.position.x, 1 / endFromOrigin.position.y};
  return initWithStartHandle(scale(startAtOrigin, factor).nextHandle, scale(endFromOrigin, factor).previousHandle);
}
