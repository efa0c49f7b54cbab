// The search of timing curves as it is told, but that it gives up where it would go on for ever: no double can be
// halved as often as that.
#pragma once

#include <cmath>

#include "brisel/object_interface/cubic_bezier_curve.h"

namespace Brisel::Tests {

inline double solvedAsWritten(const VLMBriselCubicBezierCurve& curve, double x, double eps) {
  double t = x;
  for (int i = 0; i < 15; ++i) {
    const double x2 = curve.sampleCurveX(t);
    if (std::fabs(x2 - x) < eps) return t;
    const double d = curve.sampleCurveDerivativeX(t);
    if (std::fabs(d) < 1e-6) break;
    t = t - (x2 - x) / d;
  }
  if (x < 0) return 0;
  if (x > 1) return 1;
  double lo = 0, hi = 1;
  t = x;
  int rounds = 0;
  do {
    const double x2 = curve.sampleCurveX(t);
    if (std::fabs(x2 - x) < eps) return t;
    if (x2 < x) {
      lo = t;
    } else {
      hi = t;
    }
    t = lo + (hi - lo) * 0.5;
  } while (lo < hi && ++rounds < 2500);
  return t;
}

/// Tells -0.0 from 0.0, and any NaN is any other.
inline bool isSameNumber(double a, double b) {
  return (a == b && std::signbit(a) == std::signbit(b)) || (std::isnan(a) && std::isnan(b));
}

}  // namespace Brisel::Tests
