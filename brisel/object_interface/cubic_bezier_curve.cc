#include "brisel/object_interface/cubic_bezier_curve.h"

#include <array>
#include <cmath>
#include <limits>
#include <typeinfo>
#include <utility>

using Brisel::Platform::CGPoint;
using VLMBrisel::BezierPointDefinition;

namespace {

constexpr double kEpsilon = 0.005;
constexpr int kNewtonSteps = 15;
constexpr double kFlat = 1e-6;  // a dx/dt below which Newton's method stops

// a t³ + b t² + c t
struct Cubic {
  double a, b, c;
  double at(double t) const { return ((a * t + b) * t + c) * t; }
  double slopeAt(double t) const { return c + (a * 3 * t + (b + b)) * t; }
};

// A t of Newton's method: how far x(t) is from the x that is solved for, and the slope there.
struct Step {
  Step(const Cubic& curve, double x, double at) : t(at), error(curve.at(t) - x), slope(curve.slopeAt(t)) {}
  double next() const { return t - error / slope; }
  double t, error, slope;
};

// What Newton's method finds in its first four steps; not a number where it needs more, or stops. How many it needs
// changes from one x to the next, so that a processor guesses it wrongly: to take all four and choose costs less.
[[gnu::always_inline]] inline double foundEarly(const Cubic& curve, double x, double epsilon) {
  const Step a(curve, x, x), b(curve, x, a.next()), c(curve, x, b.next()), d(curve, x, c.next());
  const auto isAway = [epsilon](const Step& step) { return static_cast<unsigned>(!(std::abs(step.error) < epsilon)); };
  const auto isFlat = [](const Step& step) { return static_cast<unsigned>(std::abs(step.slope) < kFlat); };
  const unsigned pastA = isAway(a), pastB = pastA & isAway(b), pastC = pastB & isAway(c), pastD = pastC & isAway(d);
  if ((pastD | isFlat(a) | isFlat(b) | isFlat(c)) != 0) return std::numeric_limits<double>::quiet_NaN();
  return std::array{a.t, b.t, c.t, d.t}[pastA + pastB + pastC];
}

[[gnu::noinline]] double searched(const VLMBriselCubicBezierCurve& curve, double x, double epsilon) {
  double t = x;
  for (int step = 0; step < kNewtonSteps; ++step) {
    const double found = curve.sampleCurveX(t);
    if (std::abs(found - x) < epsilon) return t;
    const double slope = curve.sampleCurveDerivativeX(t);
    if (std::abs(slope) < kFlat) break;
    t -= (found - x) / slope;
  }

  if (x < 0) return 0;
  if (x > 1) return 1;
  double low = 0, high = 1;
  t = x;
  do {
    const double found = curve.sampleCurveX(t);
    if (std::abs(found - x) < epsilon) return t;
    const double lastLow = std::exchange(low, found < x ? t : low);
    const double lastHigh = std::exchange(high, found < x ? high : t);
    const double lastT = std::exchange(t, low + (high - low) * 0.5);
    // Where low and high are neighbours, t is one of them, and a tolerance that nothing is within would keep the
    // search there for ever. A round that changes nothing is like all that would follow, so no answer is lost. Any
    // other round brings low and high nearer: there are some 1,075 at most, when high is halved down to 0.
    if (low == lastLow && high == lastHigh && t == lastT) break;
  } while (low < high);
  return t;
}

[[gnu::noinline]] double eased(const VLMBriselCubicBezierCurve& curve, double x) {
  return curve.sampleCurveY(curve.solveCurveX(x, curve.epsilon()));
}

// Only of a curve that overrides nothing is it known what its operations would call.
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
  if (overridesNothing(*this))
    if (const double t = foundEarly({ax_, bx_, cx_}, x, epsilon); !std::isnan(t)) return t;
  return searched(*this, x, epsilon);
}

double VLMBriselCubicBezierCurve::solveCurveX(double x) const { return solveCurveX(x, epsilon()); }

double VLMBriselCubicBezierCurve::yForGivenX(double x) const {
  if (overridesNothing(*this))
    if (const double t = foundEarly({ax_, bx_, cx_}, x, kEpsilon); !std::isnan(t)) return Cubic{ay_, by_, cy_}.at(t);
  return eased(*this, x);
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
