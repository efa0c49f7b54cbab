// Any doubles as handles, coefficients, parameters and tolerances of a timing curve: every search ends, where it is
// written to end.

#include <cstddef>
#include <cstdint>

#include "brisel/object_interface/cubic_bezier_curve.h"

#include "fuzz/input.h"
#include "tests/written_curve_search.h"

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
        require(Brisel::Tests::isSameNumber(curve->solveCurveX(x, epsilon),
                                            Brisel::Tests::solvedAsWritten(*curve, x, epsilon)));
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
