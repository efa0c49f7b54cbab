#include "brisel/object_interface/cubic_bezier_curve.h"

#include <cmath>
#include <concepts>
#include <initializer_list>
#include <memory>
#include <type_traits>

#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace {

using Brisel::Platform::CGPoint;
using VLMBrisel::BezierPointDefinition;
using Curve = VLMBriselCubicBezierCurve;

static_assert(std::is_abstract_v<VLMBriselCurve>);
static_assert(std::derived_from<Curve, VLMBriselCurve> && std::derived_from<Curve, Brisel::Platform::NSObject>);
static_assert(!std::is_default_constructible_v<Curve> && !std::is_copy_constructible_v<Curve>);
static_assert(!std::equality_comparable<BezierPointDefinition>);  // a plain record

std::shared_ptr<Curve> curve(CGPoint startHandle, CGPoint endHandle) {
  return Curve::initWithStartHandle(startHandle, endHandle);
}

// A coordinate as designers write them, beyond 0 … 1 too.
double coordinate() { return *rc::gen::inRange(-1500, 2501) / 1000.0; }
CGPoint handle() {
  const double x = coordinate();
  return {x, coordinate()};
}

// So that -0.0 is told from 0.0.
bool isPositiveZero(double number) { return number == 0 && !std::signbit(number); }
bool isNegativeZero(double number) { return number == 0 && std::signbit(number); }

TEST(CubicBezierCurve, HasTheHandlesAndTheirCoefficients) {
  const auto any = curve({0.25, 0.5}, {0.75, 1.0});
  EXPECT_EQ(any->startHandle(), (CGPoint{0.25, 0.5}));
  EXPECT_EQ(any->endHandle(), (CGPoint{0.75, 1.0}));
  EXPECT_EQ(any->ax(), -0.5);
  EXPECT_EQ(any->bx(), 0.75);
  EXPECT_EQ(any->cx(), 0.75);
  EXPECT_EQ(any->ay(), -0.5);
  EXPECT_EQ(any->by(), 0);
  EXPECT_EQ(any->cy(), 1.5);
}

TEST(CubicBezierCurve, SamplesBothCoordinatesAndTheDerivative) {
  const auto smooth = curve({0, 0}, {1, 1});
  EXPECT_EQ(smooth->ax(), -2);
  EXPECT_EQ(smooth->bx(), 3);
  EXPECT_EQ(smooth->cx(), 0);
  EXPECT_EQ(smooth->sampleCurveX(0.25), 0.15625);  // 3/16 - 2/64
  EXPECT_EQ(smooth->sampleCurveY(0.25), 0.15625);
  EXPECT_EQ(smooth->sampleCurveDerivativeX(0.25), 1.125);  // 6/4 - 6/16
  EXPECT_EQ(smooth->yForGivenX(0.5), 0.5);

  const auto other = curve({0.25, 0.5}, {0.75, 1.0});
  EXPECT_EQ(other->sampleCurveX(0.5), 0.5);     // -1/16 + 3/16 + 3/8
  EXPECT_EQ(other->sampleCurveY(0.5), 0.6875);  // -1/16 + 3/4
}

TEST(CubicBezierCurve, MultipliesInTheOrderOfTheDesign) {
  // (ax × 3) × t and ax × (3 × t) differ here in the last digit.
  EXPECT_EQ(curve({0.013, 0}, {0.93, 1})->sampleCurveDerivativeX(0.858), 0.8257225079999994);
  EXPECT_EQ(curve({0.48, 0}, {0.265, 1})->sampleCurveDerivativeX(0.565), 0.6593253750000001);
}

TEST(CubicBezierCurve, SubtractsInTheOrderOfTheDesign) {
  // Any other order or grouping differs in the last digit. Worked out apart, as below.
  const auto across = curve({0.03, 0}, {0.4, 1});
  EXPECT_EQ(across->bx(), 1.0199999999999998);
  EXPECT_EQ(across->ax(), -0.10999999999999976);
  EXPECT_EQ(curve({0.02, 0}, {0.19, 1})->ax(), 0.48999999999999994);
  const auto up = curve({0, 0.11}, {1, 0.29});
  EXPECT_EQ(up->by(), 0.21000000000000002);
  EXPECT_EQ(up->ay(), 0.4599999999999999);
}

struct Eased {
  double x, y;
};

// Worked out apart from the library, with the doubles of another language.
TEST(CubicBezierCurve, EasesAsTheDesignSays) {
  const auto expectEased = [](CGPoint startHandle, CGPoint endHandle, std::initializer_list<Eased> expected) {
    for (const auto& [x, y] : expected) EXPECT_EQ(curve(startHandle, endHandle)->yForGivenX(x), y) << x;
  };
  expectEased({0.25, 0.1}, {0.25, 1},
              {{0, 0},
               {0.1, 0.09326250000000004},
               {0.25, 0.41869212962962965},
               {0.5, 0.8056576301155383},
               {0.75, 0.9606877852623105},
               {0.9, 0.9943188900388695},
               {1, 1}});
  expectEased({0.42, 0}, {1, 1},
              {{0.1, 0.017071865080629967},
               {0.25, 0.0933895357028402},
               {0.5, 0.3153381246997542},
               {0.75, 0.6202330373070809},
               {0.9, 0.8392141663357683}});
  expectEased({0.34, 1.56}, {0.64, 1},  // beyond 1, and back
              {{0.1, 0.40708000000000005},
               {0.25, 0.814375},
               {0.5, 1.0874012198452434},
               {0.75, 1.059643096013487},
               {0.9, 1.0126143065819537}});
  expectEased({0, 0}, {1, 1}, {{0.1, 0.10208590092270677}, {0.75, 0.7499511048954047}, {0.9, 0.8979140990772934}});
}

TEST(CubicBezierCurve, InterpolatesWithoutACorrection) {
  const auto any = curve({0, 0}, {1, 1});
  EXPECT_EQ(any->lerpFrom({1, 2}, {3, 6}, 0.25), (CGPoint{1.5, 3}));
  EXPECT_EQ(any->lerpFrom({1, 2}, {3, 6}, -1), (CGPoint{-1, -2}));
  // 0.9 + (0.3 - 0.9) is not 0.3.
  EXPECT_EQ(any->lerpFrom({0.9, 0.7}, {0.3, 0.1}, 1), (CGPoint{0.29999999999999993, 0.09999999999999998}));
}

TEST(CubicBezierCurve, HasItsHandlesAtTheEnds) {
  const auto any = curve({0.25, 0.5}, {0.75, 1.0});
  const BezierPointDefinition start = any->positionAndHandleAt(0);
  EXPECT_EQ(start.position, (CGPoint{0, 0}));
  EXPECT_EQ(start.previousHandle, (CGPoint{0, 0}));
  EXPECT_EQ(start.nextHandle, (CGPoint{0.25, 0.5}));
  const BezierPointDefinition end = any->positionAndHandleAt(1);
  EXPECT_EQ(end.position, (CGPoint{1, 1}));
  EXPECT_EQ(end.previousHandle, (CGPoint{0.75, 1.0}));
  EXPECT_EQ(end.nextHandle, (CGPoint{1, 1}));
  // As its arithmetic has it, the end handle is missed by an ulp where interpolation misses it.
  EXPECT_EQ(curve({0.9, 0.7}, {0.3, 0.1})->positionAndHandleAt(1).previousHandle,
            (CGPoint{0.29999999999999993, 0.09999999999999998}));
}

TEST(CubicBezierCurve, HasATangentInTheMiddle) {
  const BezierPointDefinition middle = curve({0, 1}, {1, 1})->positionAndHandleAt(0.5);
  EXPECT_EQ(middle.position, (CGPoint{0.5, 0.875}));
  EXPECT_EQ(middle.previousHandle, (CGPoint{0.25, 0.75}));
  EXPECT_EQ(middle.nextHandle, (CGPoint{0.75, 1}));
}

TEST(CubicBezierCurve, HasItsPointsWhereItsSamplesAre) {
  EXPECT_TRUE(rc::check([] {
    const auto any = curve(handle(), handle());
    const double t = *rc::gen::inRange(0, 1001) / 1000.0;
    const CGPoint position = any->positionAndHandleAt(t).position;
    RC_ASSERT(std::abs(position.x - any->sampleCurveX(t)) < 1e-14);
    RC_ASSERT(std::abs(position.y - any->sampleCurveY(t)) < 1e-14);
  }));
}

TEST(CubicBezierCurve, DropsTheHandlesInTranslatingAndScaling) {
  const auto any = curve({0, 0}, {1, 1});
  const auto expectAll = [](const BezierPointDefinition& point, CGPoint expected) {
    EXPECT_EQ(point.position, expected);
    EXPECT_EQ(point.previousHandle, expected);
    EXPECT_EQ(point.nextHandle, expected);
  };
  expectAll(any->translate({{1, 2}, {3, 4}, {5, 6}}, {10, 10}), {11, 12});
  expectAll(any->scale({{1, 2}, {3, 4}, {5, 6}}, {10, 100}), {10, 200});
}

TEST(CubicBezierCurve, HasStraightSubCurves) {
  const auto part = curve({0.25, 0.5}, {0.75, 1.0})->subCurveFromStartT(0.2, 0.8);
  EXPECT_EQ(part->startHandle(), (CGPoint{0, 0}));
  EXPECT_EQ(part->endHandle(), (CGPoint{1, 1}));
  EXPECT_EQ(part->bx(), 3);  // It is a curve of its own, with its coefficients.
  EXPECT_EQ(part->yForGivenX(0.5), 0.5);

  // x (1 / x) need not be 1, and what goes down turns the sign of 0.
  const auto inexact = curve({0.406, 0.654}, {0.881, 0.154})->subCurveFromStartT(0.2, 0.8);
  EXPECT_EQ(inexact->startHandle(), (CGPoint{0, 0}));
  EXPECT_EQ(inexact->endHandle(), (CGPoint{0.9999999999999999, 0.9999999999999999}));
  const auto falling = curve({0.25, 3}, {0.75, -2})->subCurveFromStartT(0.25, 0.75);
  EXPECT_TRUE(isPositiveZero(falling->startHandle().x));
  EXPECT_TRUE(isNegativeZero(falling->startHandle().y));
  EXPECT_EQ(falling->endHandle(), (CGPoint{1, 1}));
}

TEST(CubicBezierCurve, HasStraightSubCurvesUpToRounding) {
  EXPECT_TRUE(rc::check([] {
    const auto any = curve(handle(), handle());
    const CGPoint start = any->positionAndHandleAt(0.2).position, end = any->positionAndHandleAt(0.8).position;
    RC_PRE(start.x != end.x && start.y != end.y);
    const auto part = any->subCurveFromStartT(0.2, 0.8);
    RC_ASSERT(part->startHandle() == (CGPoint{0, 0}));
    RC_ASSERT(std::abs(part->endHandle().x - 1) < 1e-15 && std::abs(part->endHandle().y - 1) < 1e-15);
  }));
}

TEST(CubicBezierCurve, HasNoNumbersWhereASubCurveHasNoExtent) {
  const auto none = curve({0.25, 0.5}, {0.75, 1.0})->subCurveFromStartT(0.5, 0.5);
  for (const CGPoint handle : {none->startHandle(), none->endHandle()})
    EXPECT_TRUE(std::isnan(handle.x) && std::isnan(handle.y));
  EXPECT_TRUE(std::isnan(none->yForGivenX(0.5)));

  // y(0.75) is 0, as y(0) is.
  const auto level = curve({0.25, -3}, {0.75, 0})->subCurveFromStartT(0, 0.75);
  EXPECT_EQ(level->startHandle().x, 0);
  EXPECT_TRUE(std::isnan(level->startHandle().y));
  EXPECT_EQ(level->endHandle().x, 1);
  EXPECT_TRUE(std::isnan(level->endHandle().y));

  const auto upright = curve({-3, 0.25}, {0, 0.75})->subCurveFromStartT(0, 0.75);
  EXPECT_TRUE(std::isnan(upright->startHandle().x));
  EXPECT_EQ(upright->startHandle().y, 0);
  EXPECT_TRUE(std::isnan(upright->endHandle().x));
  EXPECT_EQ(upright->endHandle().y, 1);
}

TEST(CubicBezierCurve, KeepsItsSamplesUntilTheCoefficientsAreCalculated) {
  const auto any = curve({0.25, 0.5}, {0.75, 1.0});
  const double before = any->sampleCurveX(0.25);
  any->setStartHandle({0.5, 0});
  any->setEndHandle({0.5, 2});
  EXPECT_EQ(any->sampleCurveX(0.25), before);
  EXPECT_EQ(any->cx(), 0.75);
  // Points and handles are of the new handles all the same.
  EXPECT_EQ(any->positionAndHandleAt(0).nextHandle, (CGPoint{0.5, 0}));
  EXPECT_EQ(any->positionAndHandleAt(1).previousHandle, (CGPoint{0.5, 2}));
  any->calculatePolynomialCoefficients();
  EXPECT_EQ(any->cx(), 1.5);
  EXPECT_EQ(any->sampleCurveX(0.25), 0.296875);  // 1/64 - 3/32 + 3/8
}

TEST(CubicBezierCurve, TakesCoefficientsAsTheyAreSet) {
  const auto any = curve({0, 0}, {1, 1});
  any->setAx(1);
  any->setBx(2);
  any->setCx(3);
  any->setAy(4);
  any->setBy(5);
  any->setCy(6);
  EXPECT_EQ(any->ax(), 1);
  EXPECT_EQ(any->bx(), 2);
  EXPECT_EQ(any->cx(), 3);
  EXPECT_EQ(any->ay(), 4);
  EXPECT_EQ(any->by(), 5);
  EXPECT_EQ(any->cy(), 6);
  EXPECT_EQ(any->sampleCurveX(2), 22);
  EXPECT_EQ(any->sampleCurveY(2), 64);
  EXPECT_EQ(any->sampleCurveDerivativeX(2), 23);
}

TEST(CubicBezierCurve, IsUsedAsAnyCurve) {
  const std::shared_ptr<const VLMBriselCurve> any = curve({0, 0}, {1, 1});
  EXPECT_EQ(any->yForGivenX(0.5), 0.5);
}

}  // namespace
