// Timing curves, and what of a dictionary differs from another.
#include <cmath>
#include <cstdio>
#include <memory>

#include "brisel/infrastructure/dictionary_difference.h"
#include "brisel/object_interface/cubic_bezier_curve.h"
#include "brisel/object_interface/dictionaries.h"
#include "brisel/platform/value.h"

using Brisel::Platform::CGPoint;
using Brisel::Platform::Dictionary;

//! [subclass]
// As its base class, but more exact: the search asks the object itself how near it must come.
class ExactCurve final : public VLMBriselCubicBezierCurve {
 public:
  static std::shared_ptr<ExactCurve> initWithStartHandle(CGPoint start, CGPoint end) {
    return made(std::shared_ptr<ExactCurve>(new ExactCurve), start, end);
  }
  double epsilon() const override { return 1e-9; }

 private:
  ExactCurve() = default;
};
//! [subclass]

void showCurves() {
  //! [curve]
  // Slow at both ends. The handles are the two middle control points.
  const auto ease = VLMBriselCubicBezierCurve::initWithStartHandle({0.42, 0}, {0.58, 1});
  for (const double progress : {0.0, 0.5, 1.0}) std::printf("%.1f -> %.1f\n", progress, ease->yForGivenX(progress));

  // Setters only store: what has been calculated stays until it is calculated anew.
  ease->setEndHandle({0.58, 0});
  std::printf("%.3f, ", ease->sampleCurveY(0.5));
  ease->calculatePolynomialCoefficients();
  std::printf("%.3f\n", ease->sampleCurveY(0.5));
  //! [curve]

  const auto exact = ExactCurve::initWithStartHandle({0.42, 0}, {0.58, 1});
  const double t = exact->solveCurveX(0.25);
  std::printf("off by less than %g\n", std::abs(exact->sampleCurveX(t) - 0.25) < 1e-9 ? 1e-9 : 1);
}

void showDifference() {
  //! [difference]
  const Dictionary settings{{"volume", 7}, {"shuffle", true}, {"account", Dictionary{{"plan", "aurel"}}}};
  const Dictionary defaults{{"volume", 5}, {"shuffle", 1}, {"account", Dictionary{{"plan", "aurel"}}}};

  // true and 1 are equal; a nested dictionary is always there, empty where nothing in it differs.
  const auto changed = Brisel::difference(settings, defaults);
  for (const auto& [key, value] : changed)
    std::printf("%s: %s\n", key.asString()->c_str(), value.asDictionary() ? "a dictionary" : "changed");

  try {
    brisel_diff(settings, Dictionary{{"account", "none"}});
  } catch (const Brisel::NotADictionary&) {
    std::printf("\"account\" is no dictionary there\n");
  }
  //! [difference]
}

int main() {
  showCurves();
  showDifference();
}
