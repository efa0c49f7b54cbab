// Any doubles as handles, coefficients, parameters and tolerances of a timing curve: every search must end.

#include <cmath>
#include <cstddef>
#include <cstdint>

#include "brisel/object_interface/cubic_bezier_curve.h"

#include "fuzz/input.h"

using Brisel::Fuzz::require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Brisel::Fuzz::Source source(data, size);
  const auto number = [&] { return source.take<double>(); };
  const Brisel::Platform::CGPoint start{number(), number()}, end{number(), number()};
  const auto curve = VLMBriselCubicBezierCurve::initWithStartHandle(start, end);
  while (!source.isEmpty()) {
    switch (source.below(4)) {
      case 0: {
        const double x = number(), epsilon = number();
        const double t = curve->solveCurveX(x, epsilon);
        const bool isNear = std::fabs(curve->sampleCurveX(t) - x) < epsilon;
        if (!isNear && x < 0) require(t == 0);
        if (!isNear && x > 1) require(t == 1);
        if (!isNear && x >= 0 && x <= 1) require(t >= 0 && t <= 1);
        break;
      }
      case 1:
        curve->yForGivenX(number());
        break;
      case 2: {
        const auto part = curve->subCurveFromStartT(number(), number());
        part->yForGivenX(number());
        break;
      }
      default:
        curve->setAx(number());
        curve->setBx(number());
        curve->setCx(number());
        break;
    }
  }
  return 0;
}
