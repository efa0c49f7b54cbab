// Any doubles as handles, coefficients, parameters and tolerances of a timing curve: every search ends, where it is
// written to end, and the eased value is y there.

#include <cstddef>
#include <cstdint>

#include "brisel/object_interface/cubic_bezier_curve.h"

#include "fuzz/input.h"
#include "tests/written_curve_search.h"

using Brisel::Fuzz::require;
using Brisel::Tests::isSameNumber;
using Brisel::Tests::solvedAsWritten;

namespace {

void requireEased(const VLMBriselCubicBezierCurve& curve, double x) {
  require(isSameNumber(curve.yForGivenX(x), curve.sampleCurveY(solvedAsWritten(curve, x, 0.005))));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Brisel::Fuzz::Source source(data, size);
  const auto number = [&] { return source.take<double>(); };
  const Brisel::Platform::CGPoint start{number(), number()}, end{number(), number()};
  const auto curve = VLMBriselCubicBezierCurve::initWithStartHandle(start, end);
  while (!source.isEmpty()) {
    switch (source.below(4)) {
      case 0: {
        const double x = number(), epsilon = number();
        require(isSameNumber(curve->solveCurveX(x, epsilon), solvedAsWritten(*curve, x, epsilon)));
        break;
      }
      case 1:
        requireEased(*curve, number());
        break;
      case 2: {
        const auto part = curve->subCurveFromStartT(number(), number());
        requireEased(*part, number());
        break;
      }
      default:
        curve->setAx(number());
        curve->setBx(number());
        curve->setCx(number());
        curve->setAy(number());
        curve->setBy(number());
        curve->setCy(number());
        break;
    }
  }
  return 0;
}
