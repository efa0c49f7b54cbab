// The search for the parameter of an x, and what subclasses change of it.
#include <cmath>
#include <cstdint>
#include <cstring>
#include <functional>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "brisel/object_interface/cubic_bezier_curve.h"

#include "tests/written_curve_search.h"

namespace {

using Brisel::Platform::CGPoint;
using Brisel::Tests::isSameNumber;
using Brisel::Tests::solvedAsWritten;
using testing::ElementsAre;
using VLMBrisel::BezierPointDefinition;
using Curve = VLMBriselCubicBezierCurve;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

std::shared_ptr<Curve> curve(CGPoint startHandle, CGPoint endHandle) {
  return Curve::initWithStartHandle(startHandle, endHandle);
}

// Any bits at all.
double anyDouble() {
  const auto bits = *rc::gen::arbitrary<std::uint64_t>();
  double value = 0;
  static_assert(sizeof value == sizeof bits);
  std::memcpy(&value, &bits, sizeof value);
  return value;
}

// A coordinate as designers write them, beyond 0 … 1 too.
double coordinate() { return *rc::gen::inRange(-1500, 2501) / 1000.0; }
CGPoint handle() {
  const double x = coordinate();
  return {x, coordinate()};
}

// A curve of another class that overrides nothing.
class Subclass final : public Curve {
 public:
  static std::shared_ptr<Subclass> make(CGPoint startHandle, CGPoint endHandle) {
    return made(std::make_shared<Subclass>(), startHandle, endHandle);
  }
};

TEST(CubicBezierCurveSearch, HasATolerance) { EXPECT_EQ(curve({0, 0}, {1, 1})->epsilon(), 0.005); }

TEST(CubicBezierCurveSearch, FindsWhatTheSearchFindsAsWritten) {
  EXPECT_TRUE(rc::check([] {
    const CGPoint start = handle(), end = handle();
    const auto any = curve(start, end);
    const double x = coordinate();
    const double epsilon = *rc::gen::element(0.5, 0.005, 1e-3, 1e-7, 1e-12, 0.0);
    const double t = any->solveCurveX(x, epsilon);
    RC_ASSERT(isSameNumber(t, solvedAsWritten(*any, x, epsilon)));
    RC_ASSERT(isSameNumber(t, Subclass::make(start, end)->solveCurveX(x, epsilon)));
    RC_ASSERT(isSameNumber(any->solveCurveX(x), solvedAsWritten(*any, x, 0.005)));
  }));
}

TEST(CubicBezierCurveSearch, EasesByTheSearchAsWrittenInASubclassToo) {
  EXPECT_TRUE(rc::check([] {
    const bool isSensible = *rc::gen::arbitrary<bool>();
    const auto number = [isSensible] { return isSensible ? coordinate() : anyDouble(); };
    const auto any = curve({0, 0}, {1, 1});
    const auto other = Subclass::make({0, 0}, {1, 1});
    for (const auto set : {&Curve::setAx, &Curve::setBx, &Curve::setCx, &Curve::setAy, &Curve::setBy, &Curve::setCy}) {
      const double coefficient = number();
      ((*any).*set)(coefficient);
      ((*other).*set)(coefficient);
    }
    const double x = number(), y = any->yForGivenX(x);
    RC_ASSERT(isSameNumber(y, any->sampleCurveY(solvedAsWritten(*any, x, 0.005))));
    RC_ASSERT(isSameNumber(y, other->yForGivenX(x)));
    RC_ASSERT(isSameNumber(any->solveCurveX(x), other->solveCurveX(x)));
    const double epsilon = anyDouble();
    RC_ASSERT(isSameNumber(any->solveCurveX(x, epsilon), other->solveCurveX(x, epsilon)));
  }));
}

TEST(CubicBezierCurveSearch, EndsForAnyNumbersAndFindsTheSame) {
  const auto expectSame = [](CGPoint start, CGPoint end, double x, double epsilon) {
    const auto any = curve(start, end);
    return isSameNumber(any->solveCurveX(x, epsilon), solvedAsWritten(*any, x, epsilon));
  };
  EXPECT_TRUE(rc::check([&] {
    const CGPoint start{anyDouble(), anyDouble()}, end{anyDouble(), anyDouble()};
    const double x = *rc::gen::arbitrary<bool>() ? anyDouble() : coordinate();
    RC_ASSERT(expectSame(start, end, x, anyDouble()));
    RC_ASSERT(expectSame(start, end, x, 0.005));
  }));
  for (const double x : {0.0, -0.0, 0.3, 0.7, 1.0, kNaN, kInfinity, -kInfinity})
    for (const double epsilon : {0.0, -1.0, -kInfinity, 5e-324, kNaN, kInfinity}) {
      EXPECT_TRUE(expectSame({kNaN, kNaN}, {kNaN, kNaN}, x, epsilon)) << x << ' ' << epsilon;
      EXPECT_TRUE(expectSame({kInfinity, 0}, {-kInfinity, 0}, x, epsilon)) << x << ' ' << epsilon;
      EXPECT_TRUE(expectSame({0.1, 0.9}, {0.3, 0.2}, x, epsilon)) << x << ' ' << epsilon;
      EXPECT_TRUE(expectSame({5, 0.9}, {-4, 0.2}, x, epsilon)) << x << ' ' << epsilon;
      EXPECT_TRUE(expectSame({0, 0}, {0, 0}, x, epsilon)) << x << ' ' << epsilon;
      EXPECT_TRUE(expectSame({1, 1}, {0, 0}, x, epsilon)) << x << ' ' << epsilon;
    }
}

TEST(CubicBezierCurveSearch, EasesWithinJustTheTolerance) {
  const auto straight = curve({0, 0}, {1, 1});
  straight->setAx(0);
  straight->setBx(0);
  straight->setAy(0);
  straight->setBy(0);
  straight->setCy(1);
  straight->setCx(1.005);  // x(1) misses 1 by 0.00499999999999989,
  EXPECT_EQ(straight->yForGivenX(1), 1);
  straight->setCx(0.995);  // and here by 0.0050000000000000044.
  EXPECT_EQ(straight->yForGivenX(1), 1.0050251256281406);
}

TEST(CubicBezierCurveSearch, IsWithinTheToleranceWhereTheCurveRises) {
  EXPECT_TRUE(rc::check([] {
    const auto any = curve({*rc::gen::inRange(0, 1001) / 1000.0, 0}, {*rc::gen::inRange(0, 1001) / 1000.0, 1});
    const double x = *rc::gen::inRange(0, 1001) / 1000.0;
    const double epsilon = *rc::gen::element(0.005, 1e-3, 1e-6, 1e-9);
    RC_ASSERT(std::abs(any->sampleCurveX(any->solveCurveX(x, epsilon)) - x) < epsilon);
  }));
}

TEST(CubicBezierCurveSearch, EndsAtTheEndsWhereNewtonFailsOutside) {
  const auto smooth = curve({0, 0}, {1, 1});
  EXPECT_EQ(smooth->solveCurveX(-0.5, 0.005), 0);
  EXPECT_EQ(smooth->solveCurveX(1.5, 0.005), 1);
  EXPECT_EQ(smooth->yForGivenX(-0.5), 0);
  EXPECT_EQ(smooth->yForGivenX(1.5), 1);
}

TEST(CubicBezierCurveSearch, LetsNewtonSucceedOutside) {
  // x(t) = t, but for rounding.
  const auto straight = curve({1.0 / 3, 1.0 / 3}, {2.0 / 3, 2.0 / 3});
  EXPECT_EQ(straight->solveCurveX(-0.5, 0.005), -0.5);
  EXPECT_EQ(straight->yForGivenX(1.5), 1.5);
  // x(t) = 3 t² - 2 t³ = -0.1 only far outside.
  EXPECT_NEAR(curve({0, 0}, {1, 1})->solveCurveX(-0.1), 1.5217, 1e-4);
}

TEST(CubicBezierCurveSearch, ComparesWithTheToleranceStrictly) {
  const auto halving = curve({0, 0}, {1, 1});
  halving->setAx(0);
  halving->setBx(0);
  halving->setCx(0.5);  // x(t) = t / 2: it misses 0.5 by 0.25 at 0.5, and is there at 1.
  EXPECT_EQ(halving->solveCurveX(0.5, 0.25), 1.0);
  EXPECT_EQ(halving->solveCurveX(0.5, 0.2500001), 0.5);
}

TEST(CubicBezierCurveSearch, BisectsWhatNewtonMissesInFifteenSteps) {
  // The fifteenth step leads within the tolerance, but where it leads is not tested.
  EXPECT_EQ(curve({1.45, 0}, {0.05, 1})->solveCurveX(0.59), 0.21203125);
  EXPECT_EQ(curve({0.56, 0}, {-0.33, 1})->solveCurveX(0.39), 0.77125);
}

// A curve with x(t) and dx/dt of the test's own, which remembers where it is sampled.
class Sampled final : public Curve {
 public:
  using Function = std::function<double(double)>;
  static std::shared_ptr<Sampled> make(Function x, Function derivative) {
    const auto curve = made(std::make_shared<Sampled>(), {0, 0}, {1, 1});
    curve->x_ = std::move(x);
    curve->derivative_ = std::move(derivative);
    return curve;
  }
  double sampleCurveX(double t) const override {
    samples_.push_back(t);
    return x_(t);
  }
  double sampleCurveDerivativeX(double t) const override { return derivative_(t); }
  std::vector<double> samples() const { return std::exchange(samples_, {}); }

 private:
  Function x_, derivative_;
  mutable std::vector<double> samples_;
};

double flat(double) { return 0; }

TEST(CubicBezierCurveSearch, BisectsFromXItself) {
  const auto square = Sampled::make([](double t) { return t * t; }, flat);
  EXPECT_EQ(square->solveCurveX(0.25, 1e-3), 0.4990234375);
  EXPECT_THAT(square->samples(),
              ElementsAre(0.25,  // Newton's method, which the slope ends
                          0.25, 0.625, 0.4375, 0.53125, 0.484375, 0.5078125, 0.49609375, 0.501953125, 0.4990234375));
}

TEST(CubicBezierCurveSearch, BisectsAsStrictlyAsTheDesignSays) {
  // 0.4375² misses 0.25 by just 0.05859375, and is not near enough.
  const auto square = Sampled::make([](double t) { return t * t; }, flat);
  EXPECT_EQ(square->solveCurveX(0.25, 0.05859375), 0.53125);
  // x(t) is not below x where it is x, so that the search goes down.
  EXPECT_EQ(Sampled::make([](double) { return 0.3; }, flat)->solveCurveX(0.3, 0), 0);
  // low + (high - low) × 0.5, where (low + high) × 0.5 would end in ...387.
  EXPECT_EQ(curve({-0.078, 0}, {-1.249, 1})->solveCurveX(0.453, 1e-15), 0.9060625852565389);
}

TEST(CubicBezierCurveSearch, BisectsOnceEvenWhereNothingIsLeftToBisect) {
  const auto none = Sampled::make([](double) { return 0.0; }, flat);
  EXPECT_EQ(none->solveCurveX(1, 0.005), 1);
  EXPECT_THAT(none->samples(), ElementsAre(1, 1));
  EXPECT_EQ(none->solveCurveX(-1, 0.005), 0);
  EXPECT_THAT(none->samples(), ElementsAre(-1));
}

TEST(CubicBezierCurveSearch, StopsNewtonWhereTheSlopeIsBelowAMillionth) {
  const auto flattest = Sampled::make([](double t) { return t + 5; }, [](double) { return -0.9999e-6; });
  EXPECT_EQ(flattest->solveCurveX(2, 1), 1);
  EXPECT_THAT(flattest->samples(), ElementsAre(2));
  const auto steeper = Sampled::make([](double t) { return t + 5; }, [](double) { return 1e-6; });
  EXPECT_EQ(steeper->solveCurveX(2, 1), 1);
  EXPECT_EQ(steeper->samples().size(), 15U);
}

TEST(CubicBezierCurveSearch, TestsFifteenStepsOfNewton) {
  int samples = 0;
  const auto late = Sampled::make([&](double) { return ++samples <= 15 ? 7.0 : -1.0; }, [](double) { return 1.0; });
  EXPECT_EQ(late->solveCurveX(-1, 0.5), 0);  // x(t) would be -1 at the sixteenth.
  EXPECT_EQ(samples, 15);
}

TEST(CubicBezierCurveSearch, EndsWhereItStandsStill) {
  // A step that no tolerance bridges: the neighbours of 0.5 are all that is left.
  const auto step = Sampled::make([](double t) { return t < 0.5 ? 0.0 : 1.0; }, flat);
  EXPECT_NEAR(step->solveCurveX(0.3, 0.005), 0.5, 1e-15);
  EXPECT_LT(step->samples().size(), 70U);
  // Halved down to 0, which takes longest.
  const auto above = Sampled::make([](double) { return 2.0; }, flat);
  EXPECT_EQ(above->solveCurveX(1, 0.005), 0);
  EXPECT_GT(above->samples().size(), 1070U);
  const auto never = Sampled::make([](double) { return kNaN; }, flat);
  EXPECT_EQ(never->solveCurveX(1, 0.005), 0);
  EXPECT_THAT(never->solveCurveX(kNaN, 0.005), testing::IsNan());
}

// Overrides one operation at a time.
class Overriding final : public Curve {
 public:
  enum class What : std::uint8_t {
    nothing,
    coefficients,
    epsilon,
    sampleX,
    sampleY,
    derivative,
    solve,
    solveWithin,
    lerp,
    position,
    translate,
    scale
  };
  static std::shared_ptr<Overriding> make(What what) {
    return made(std::shared_ptr<Overriding>(new Overriding(what)), {0.25, 0.5}, {0.75, 1.0});
  }

  void calculatePolynomialCoefficients() override {
    Curve::calculatePolynomialCoefficients();
    if (what_ == What::coefficients) setCy(100);
  }
  double epsilon() const override { return what_ == What::epsilon ? 10 : Curve::epsilon(); }
  double sampleCurveX(double t) const override { return what_ == What::sampleX ? t + 0.25 : Curve::sampleCurveX(t); }
  double sampleCurveY(double t) const override { return what_ == What::sampleY ? 7 : Curve::sampleCurveY(t); }
  double sampleCurveDerivativeX(double t) const override {
    return what_ == What::derivative ? 0 : Curve::sampleCurveDerivativeX(t);
  }
  double solveCurveX(double x) const override { return what_ == What::solve ? 42 : Curve::solveCurveX(x); }
  double solveCurveX(double x, double epsilon) const override {
    return what_ == What::solveWithin ? 2 * x : Curve::solveCurveX(x, epsilon);
  }
  CGPoint lerpFrom(CGPoint from, CGPoint to, double progress) const override {
    return what_ == What::lerp ? CGPoint{42, 43} : Curve::lerpFrom(from, to, progress);
  }
  BezierPointDefinition positionAndHandleAt(double t) const override {
    return what_ == What::position ? BezierPointDefinition{{t, 0.5}, {}, {}} : Curve::positionAndHandleAt(t);
  }
  BezierPointDefinition translate(const BezierPointDefinition& point, CGPoint offset) const override {
    return what_ == What::translate ? BezierPointDefinition{{2, 4}, {}, {}} : Curve::translate(point, offset);
  }
  BezierPointDefinition scale(const BezierPointDefinition& point, CGPoint factor) const override {
    return what_ == What::scale ? BezierPointDefinition{{}, {1, 2}, {3, 4}} : Curve::scale(point, factor);
  }

 private:
  explicit Overriding(What what) : what_(what) {}
  What what_;
};

using What = Overriding::What;

TEST(CubicBezierCurveSubclass, ChangesTheCoefficientsFromItsMakingOn) {
  EXPECT_EQ(Overriding::make(What::coefficients)->cy(), 100);
  EXPECT_EQ(Overriding::make(What::nothing)->cy(), 1.5);
}

TEST(CubicBezierCurveSubclass, ChangesTheSearchByItsTolerance) {
  const auto plain = curve({0.25, 0.5}, {0.75, 1.0});
  const auto lax = Overriding::make(What::epsilon);
  // Within a tolerance of 10 the first t, x itself, will do.
  EXPECT_EQ(lax->solveCurveX(0.25), 0.25);
  EXPECT_EQ(lax->yForGivenX(0.25), plain->sampleCurveY(0.25));
  EXPECT_NE(plain->solveCurveX(0.25), 0.25);
  EXPECT_EQ(lax->solveCurveX(0.25, 0.005), plain->solveCurveX(0.25, 0.005));
}

TEST(CubicBezierCurveSubclass, ChangesTheSearchByItsSamples) {
  const auto plain = curve({0.25, 0.5}, {0.75, 1.0});
  const auto shifted = Overriding::make(What::sampleX);
  EXPECT_NEAR(shifted->solveCurveX(0.75), 0.5, 0.005);
  EXPECT_NEAR(shifted->yForGivenX(0.75), 0.6875, 0.01);

  // Without a slope the search bisects, up from x at first.
  const auto bisecting = Overriding::make(What::derivative);
  EXPECT_EQ(bisecting->solveCurveX(0.75, 0.1), 0.75);
  EXPECT_EQ(bisecting->solveCurveX(0.75, 1e-9), solvedAsWritten(*bisecting, 0.75, 1e-9));
  EXPECT_NE(bisecting->solveCurveX(0.75, 1e-9), plain->solveCurveX(0.75, 1e-9));
}

TEST(CubicBezierCurveSubclass, ChangesTheEasedValue) {
  const auto plain = curve({0.25, 0.5}, {0.75, 1.0});
  EXPECT_EQ(Overriding::make(What::sampleY)->yForGivenX(0.25), 7);
  EXPECT_EQ(Overriding::make(What::solveWithin)->yForGivenX(0.25), plain->sampleCurveY(0.5));
  EXPECT_EQ(Overriding::make(What::solveWithin)->solveCurveX(0.25), 0.5);
  // The eased value asks for the tolerance itself, and not the search that would.
  EXPECT_EQ(Overriding::make(What::solve)->yForGivenX(0.25), plain->yForGivenX(0.25));
}

TEST(CubicBezierCurveSubclass, ChangesPointsByItsInterpolation) {
  const BezierPointDefinition point = Overriding::make(What::lerp)->positionAndHandleAt(0.5);
  EXPECT_EQ(point.position, (CGPoint{42, 43}));
  EXPECT_EQ(point.previousHandle, (CGPoint{42, 43}));
  EXPECT_EQ(point.nextHandle, (CGPoint{42, 43}));
}

TEST(CubicBezierCurveSubclass, ChangesItsSubCurves) {
  // Points of the same y.
  const auto level = Overriding::make(What::position)->subCurveFromStartT(0.25, 0.75);
  EXPECT_EQ(level->endHandle().x, 1);
  EXPECT_TRUE(std::isnan(level->endHandle().y));
  // Both points at (2, 4), by which they are scaled.
  EXPECT_EQ(Overriding::make(What::translate)->subCurveFromStartT(0.2, 0.8)->startHandle(), (CGPoint{1, 1}));
  // The next handle of the start, the previous one of the end.
  const auto scaled = Overriding::make(What::scale)->subCurveFromStartT(0.2, 0.8);
  EXPECT_EQ(scaled->startHandle(), (CGPoint{3, 4}));
  EXPECT_EQ(scaled->endHandle(), (CGPoint{1, 2}));
  // They are of the class itself.
  EXPECT_EQ(Overriding::make(What::sampleY)->subCurveFromStartT(0.2, 0.8)->yForGivenX(0.5), 0.5);
}

}  // namespace
