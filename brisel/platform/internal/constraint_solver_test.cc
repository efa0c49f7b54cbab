#include "brisel/platform/internal/constraint_solver.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "tests/constraint_model.h"

namespace Brisel::Platform::internal {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Solver = ConstraintSolver;
using Terms = std::vector<Solver::Term>;
using Relation = Solver::Relation;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

// terms + constant is zero, at least zero, at most zero.
Solver::Constraint equal(Solver& solver, const Terms& terms, double constant, float priority = Solver::kRequired) {
  return solver.addConstraint(terms, constant, Relation::equal, priority).value();
}
Solver::Constraint atLeast(Solver& solver, const Terms& terms, double constant, float priority = Solver::kRequired) {
  return solver.addConstraint(terms, constant, Relation::atLeast, priority).value();
}
Solver::Constraint atMost(Solver& solver, const Terms& terms, double constant, float priority = Solver::kRequired) {
  return solver.addConstraint(terms, constant, Relation::atMost, priority).value();
}

// A length that hugs its content and withstands compression, as views do.
struct Intrinsic {
  Solver::Constraint hugging;
  Solver::Constraint compression;
};
Intrinsic intrinsic(Solver& solver, Solver::Variable length, double size, float hugging = 250,
                    float compression = 750) {
  return {atMost(solver, {{length, 1}}, -size, hugging), atLeast(solver, {{length, 1}}, -size, compression)};
}

// Layouts

// A label 8 points from the leading edge of its container, and at least as far from the trailing one.
struct LabelInContainer {
  Solver solver;
  Solver::Variable container = solver.addVariable();
  Solver::Variable x = solver.addVariable();
  Solver::Variable width = solver.addVariable();
  Solver::Constraint containerWidth = equal(solver, {{container, 1}}, -100);
  Solver::Constraint leading = equal(solver, {{x, 1}}, -8);
  Solver::Constraint trailing = atLeast(solver, {{container, 1}, {x, -1}, {width, -1}}, -8);
};

TEST(ConstraintSolver, GivesALabelThatIsPinnedToBothSidesWhatIsLeft) {
  LabelInContainer label;
  equal(label.solver, {{label.container, 1}, {label.x, -1}, {label.width, -1}}, -8);
  EXPECT_THAT(label.solver.solve(), IsEmpty());
  EXPECT_EQ(label.solver.value(label.x), 8);
  EXPECT_EQ(label.solver.value(label.width), 84);
}

TEST(ConstraintSolver, LetsALabelHugItsText) {
  LabelInContainer label;
  intrinsic(label.solver, label.width, 20.5);
  label.solver.solve();
  EXPECT_EQ(label.solver.value(label.x), 8);
  EXPECT_EQ(label.solver.value(label.width), 20.5);
}

TEST(ConstraintSolver, CompressesALabelThatHasNoRoom) {
  LabelInContainer label;
  const Intrinsic size = intrinsic(label.solver, label.width, 120);
  EXPECT_THAT(label.solver.solve(), IsEmpty());
  EXPECT_EQ(label.solver.value(label.width), 84);
  EXPECT_EQ(label.solver.violation(size.compression), 36);
  EXPECT_EQ(label.solver.violation(size.hugging), 0);
}

TEST(ConstraintSolver, FollowsTheContainer) {
  LabelInContainer label;
  intrinsic(label.solver, label.width, 70);
  for (const double width : {100.0, 60.5, 16.0, 86.0, 85.5, 300.0}) {
    ASSERT_TRUE(label.solver.setConstant(label.containerWidth, -width));
    EXPECT_THAT(label.solver.solve(), IsEmpty());
    EXPECT_EQ(label.solver.value(label.width), std::min(70.0, width - 16)) << width;
  }
}

TEST(ConstraintSolver, StretchesTheLabelThatHugsLess) {
  Solver solver;
  const auto left = solver.addVariable();
  const auto right = solver.addVariable();
  intrinsic(solver, left, 30, 251);
  intrinsic(solver, right, 40, 250);
  const auto total = equal(solver, {{left, 1}, {right, 1}}, -100);
  solver.solve();
  EXPECT_EQ(solver.value(left), 30);
  EXPECT_EQ(solver.value(right), 70);
  ASSERT_TRUE(solver.setConstant(total, -70));
  solver.solve();
  EXPECT_EQ(solver.value(left), 30);
  EXPECT_EQ(solver.value(right), 40);
}

TEST(ConstraintSolver, CompressesTheLabelThatResistsLess) {
  Solver solver;
  const auto left = solver.addVariable();
  const auto right = solver.addVariable();
  intrinsic(solver, left, 60, 250, 749);
  intrinsic(solver, right, 70, 250, 750);
  equal(solver, {{left, 1}, {right, 1}}, -100);
  solver.solve();
  EXPECT_EQ(solver.value(left), 30);
  EXPECT_EQ(solver.value(right), 70);
}

TEST(ConstraintSolver, SharesAWidthAmongEqualColumns) {
  Solver solver;
  const auto a = solver.addVariable();
  const auto b = solver.addVariable();
  const auto c = solver.addVariable();
  equal(solver, {{a, 1}, {b, -1}}, 0);
  equal(solver, {{b, 1}, {c, -1}}, 0);
  const auto total = equal(solver, {{a, 1}, {b, 1}, {c, 1}}, 4 * 8 - 320);
  solver.solve();
  for (const auto column : {a, b, c}) EXPECT_EQ(solver.value(column), 96);
  ASSERT_TRUE(solver.setConstant(total, -100));
  solver.solve();
  for (const auto column : {a, b, c}) EXPECT_NEAR(solver.value(column), 100.0 / 3, 1e-12);
}

TEST(ConstraintSolver, KeepsAnAspectRatio) {
  Solver solver;
  const auto width = solver.addVariable();
  const auto height = solver.addVariable();
  equal(solver, {{height, 16}, {width, -9}}, 0);
  equal(solver, {{width, 1}}, -320);
  solver.solve();
  EXPECT_EQ(solver.value(height), 180);
}

TEST(ConstraintSolver, Centres) {
  Solver solver;
  const auto x = solver.addVariable();
  const auto width = solver.addVariable();
  equal(solver, {{x, 1}, {width, 0.5}}, -50);
  intrinsic(solver, width, 41);
  solver.solve();
  EXPECT_EQ(solver.value(x), 29.5);
}

TEST(ConstraintSolver, WrapsAColumnAroundItsTallestChild) {
  Solver solver;
  const auto height = solver.addVariable();
  for (const double child : {20.0, 44.0, 31.0}) atLeast(solver, {{height, 1}}, -child);
  atMost(solver, {{height, 1}}, 0, 1);
  solver.solve();
  EXPECT_EQ(solver.value(height), 44);
}

TEST(ConstraintSolver, KeepsAListInOrder) {
  Solver solver;
  std::vector<Solver::Variable> tops;
  std::vector<Solver::Constraint> heights;
  for (std::size_t i = 0; i < 20; ++i) {
    tops.push_back(solver.addVariable());
    if (i == 0) {
      equal(solver, {{tops[0], 1}}, 0);
    } else {
      heights.push_back(equal(solver, {{tops[i], 1}, {tops[i - 1], -1}}, -10.5));
    }
  }
  solver.solve();
  EXPECT_EQ(solver.value(tops[19]), 19 * 10.5);
  ASSERT_TRUE(solver.setConstant(heights[4], -100));
  solver.solve();
  EXPECT_EQ(solver.value(tops[4]), 42);
  EXPECT_EQ(solver.value(tops[5]), 142);
  EXPECT_EQ(solver.value(tops[19]), 18 * 10.5 + 100);
}

// Priorities

TEST(ConstraintSolver, PrefersOneOf501ToFiftyOf500) {
  Solver solver;
  const auto x = solver.addVariable();
  for (int i = 0; i < 50; ++i) equal(solver, {{x, 1}}, -10, 500);
  equal(solver, {{x, 1}}, -90, 501);
  solver.solve();
  EXPECT_EQ(solver.value(x), 90);
}

TEST(ConstraintSolver, TellsPrioritiesApartByTheLastBit) {
  Solver solver;
  const auto x = solver.addVariable();
  equal(solver, {{x, 1}}, -10, 500);
  equal(solver, {{x, 1}}, -20, std::nextafter(500.0F, 501.0F));
  const auto y = solver.addVariable();
  equal(solver, {{y, 1}}, -10, std::numeric_limits<float>::denorm_min());
  const auto z = solver.addVariable();
  equal(solver, {{z, 1}}, -10);
  equal(solver, {{z, 1}}, -20, std::nextafter(1000.0F, 0.0F));
  EXPECT_THAT(solver.solve(), IsEmpty());
  EXPECT_EQ(solver.value(x), 20);
  EXPECT_EQ(solver.value(y), 10);
  EXPECT_EQ(solver.value(z), 10);
}

TEST(ConstraintSolver, TakesTheMedianOfEqualPriorities) {
  Solver solver;
  const auto x = solver.addVariable();
  const auto low = equal(solver, {{x, 1}}, -10, 500);
  equal(solver, {{x, 1}}, -20, 500);
  const auto high = equal(solver, {{x, 1}}, -70, 500);
  solver.solve();
  EXPECT_EQ(solver.value(x), 20);
  EXPECT_EQ(solver.violation(low), 10);
  EXPECT_EQ(solver.violation(high), 50);
}

TEST(ConstraintSolver, CountsAConstraintTwiceThatIsThereTwice) {
  Solver solver;
  const auto x = solver.addVariable();
  equal(solver, {{x, 1}}, -10, 500);
  const auto twice = equal(solver, {{x, 1}}, -40, 500);
  equal(solver, {{x, 1}}, -40, 500);
  solver.solve();
  EXPECT_EQ(solver.value(x), 40);
  ASSERT_TRUE(solver.removeConstraint(twice));
  solver.solve();
  EXPECT_EQ(solver.value(x), 10);  // of two equals, what is nearer to rest
}

TEST(ConstraintSolver, BreaksTiesTowardsRest) {
  Solver solver;
  const auto x = solver.addVariable();
  equal(solver, {{x, 1}}, -10, 500);
  equal(solver, {{x, 1}}, -20, 500);
  for (const double rest : {-5.0, 14.0, 100.0}) {
    ASSERT_TRUE(solver.setRest(x, rest));
    solver.solve();
    EXPECT_EQ(solver.value(x), std::min(std::max(rest, 10.0), 20.0));
  }
}

TEST(ConstraintSolver, LetsALowerPriorityDecideWhatAHigherLeavesOpen) {
  Solver solver;
  const auto x = solver.addVariable();
  equal(solver, {{x, 1}}, -10, 500);
  equal(solver, {{x, 1}}, -20, 500);
  equal(solver, {{x, 1}}, -17, 3);
  equal(solver, {{x, 1}}, -12, 2);
  solver.solve();
  EXPECT_EQ(solver.value(x), 17);
}

// Rest

TEST(ConstraintSolver, LeavesVariablesAtRestOfWhichNothingIsAsked) {
  Solver solver;
  const auto x = solver.addVariable();
  const auto y = solver.addVariable(7.25);
  const auto z = solver.addVariable(kNan);
  EXPECT_EQ(solver.value(y), 7.25);
  solver.solve();
  EXPECT_EQ(solver.value(x), 0);
  EXPECT_EQ(solver.value(y), 7.25);
  EXPECT_EQ(solver.value(z), 0);
  ASSERT_TRUE(solver.setRest(y, -3));
  EXPECT_EQ(solver.value(y), 7.25);
  solver.solve();
  EXPECT_EQ(solver.value(y), -3);
}

TEST(ConstraintSolver, KeepsTheFirstVariableNearestToRest) {
  Solver solver;
  const auto first = solver.addVariable(3);
  const auto second = solver.addVariable(5);
  const auto third = solver.addVariable(9);
  equal(solver, {{third, 1}, {second, 1}, {first, 1}}, -10);
  solver.solve();
  EXPECT_EQ(solver.value(first), 3);
  EXPECT_EQ(solver.value(second), 5);
  EXPECT_EQ(solver.value(third), 2);
}

// Conflicts

TEST(ConstraintSolver, LetsTheLaterRequiredConstraintGiveWay) {
  Solver solver;
  const auto x = solver.addVariable(100);
  const auto older = equal(solver, {{x, 1}}, -10);
  const auto later = equal(solver, {{x, 1}}, -20);
  equal(solver, {{x, 1}}, -15, 999);
  EXPECT_THAT(solver.solve(), ElementsAre(later));
  EXPECT_EQ(solver.value(x), 10);
  EXPECT_EQ(solver.violation(older), 0);
  EXPECT_EQ(solver.violation(later), 10);
}

TEST(ConstraintSolver, LetsOneGiveWayToOneOlderHoweverManyAgree) {
  Solver solver;
  const auto x = solver.addVariable();
  equal(solver, {{x, 1}}, -10);
  std::vector<Solver::Constraint> later;
  for (int i = 0; i < 5; ++i) later.push_back(equal(solver, {{x, 1}}, -20));
  EXPECT_EQ(solver.solve(), later);
  EXPECT_EQ(solver.value(x), 10);
}

TEST(ConstraintSolver, GivesWayAsLittleAsItMay) {
  Solver solver;
  const auto x = solver.addVariable();
  atMost(solver, {{x, 1}}, -12);
  const auto later = equal(solver, {{x, 1}}, -20);
  EXPECT_THAT(solver.solve(), ElementsAre(later));
  EXPECT_EQ(solver.value(x), 12);
  EXPECT_EQ(solver.violation(later), 8);
}

TEST(ConstraintSolver, FindsTheNewestOfAChainThatCannotHold) {
  Solver solver;
  const auto a = solver.addVariable();
  const auto b = solver.addVariable();
  const auto c = solver.addVariable();
  const auto end = equal(solver, {{c, 1}}, -15);
  equal(solver, {{a, 1}}, 0);
  equal(solver, {{b, 1}, {a, -1}}, -10);
  const auto newest = equal(solver, {{c, 1}, {b, -1}}, -10);
  const auto other = solver.addVariable();
  equal(solver, {{other, 1}, {b, -1}}, -1, 20);
  EXPECT_THAT(solver.solve(), ElementsAre(newest));
  EXPECT_EQ(solver.value(b), 10);
  EXPECT_EQ(solver.value(c), 15);
  EXPECT_EQ(solver.value(other), 11);  // all else is solved
  ASSERT_TRUE(solver.setConstant(end, -20));
  EXPECT_THAT(solver.solve(), IsEmpty());
}

TEST(ConstraintSolver, TellsOfEachConflictTheOldestFirst) {
  Solver solver;
  std::vector<Solver::Constraint> later;
  std::vector<Solver::Variable> variables;
  for (int i = 0; i < 3; ++i) equal(solver, {{variables.emplace_back(solver.addVariable()), 1}}, -5);
  for (const int i : {2, 0, 1}) later.push_back(atLeast(solver, {{variables[static_cast<std::size_t>(i)], 1}}, -6));
  EXPECT_EQ(solver.solve(), later);
  ASSERT_TRUE(solver.removeConstraint(later[1]));
  EXPECT_THAT(solver.solve(), ElementsAre(later[0], later[2]));
}

TEST(ConstraintSolver, NeverTellsOfOptionalConstraints) {
  Solver solver;
  const auto x = solver.addVariable();
  equal(solver, {{x, 1}}, -10);
  const auto optional = equal(solver, {{x, 1}}, -20, std::nextafter(1000.0F, 0.0F));
  EXPECT_THAT(solver.solve(), IsEmpty());
  EXPECT_EQ(solver.violation(optional), 10);
}

// Changes

TEST(ConstraintSolver, FindsTheOldSolutionAgainWhenAConstraintIsRemoved) {
  LabelInContainer label;
  intrinsic(label.solver, label.width, 50);
  label.solver.solve();
  for (const float priority : {1000.0F, 800.0F, 500.0F, 100.0F}) {
    const auto extra = equal(label.solver, {{label.width, 1}}, -33, priority);
    label.solver.solve();
    EXPECT_EQ(label.solver.value(label.width), priority > 750 ? 33 : 50) << priority;
    ASSERT_TRUE(label.solver.removeConstraint(extra));
    label.solver.solve();
    EXPECT_EQ(label.solver.value(label.width), 50) << priority;
    EXPECT_EQ(label.solver.value(label.x), 8) << priority;
  }
}

TEST(ConstraintSolver, TakesChangesInBatches) {
  Solver solver;
  const auto x = solver.addVariable(1);
  const auto first = equal(solver, {{x, 1}}, -10);
  EXPECT_EQ(solver.value(x), 1);
  solver.solve();
  ASSERT_TRUE(solver.removeConstraint(first));
  const auto gone = equal(solver, {{x, 1}}, -99);
  const auto second = equal(solver, {{x, 1}}, -20);
  ASSERT_TRUE(solver.removeConstraint(gone));
  ASSERT_TRUE(solver.setConstant(second, -30));
  ASSERT_TRUE(solver.setConstant(second, -31));
  EXPECT_EQ(solver.value(x), 10);
  EXPECT_THAT(solver.solve(), IsEmpty());
  EXPECT_EQ(solver.value(x), 31);
}

TEST(ConstraintSolver, DoesNotMindConstraintsThatSayTheSame) {
  Solver solver;
  const auto x = solver.addVariable();
  const auto y = solver.addVariable();
  const auto first = equal(solver, {{x, 1}, {y, -1}}, -5);
  equal(solver, {{x, 2}, {y, -2}}, -10);
  equal(solver, {{y, 1}, {x, -1}}, 5);
  atLeast(solver, {{x, 1}, {y, -1}}, -5);
  const auto second = equal(solver, {{x, 1}}, -8);
  atMost(solver, {{x, 1}, {y, 1}}, -11);
  EXPECT_THAT(solver.solve(), IsEmpty());
  ASSERT_TRUE(solver.removeConstraint(first));
  EXPECT_THAT(solver.solve(), IsEmpty());
  EXPECT_EQ(solver.value(x), 8);
  EXPECT_EQ(solver.value(y), 3);
  ASSERT_TRUE(solver.removeConstraint(second));
  EXPECT_THAT(solver.solve(), IsEmpty());
  EXPECT_EQ(solver.value(x), 0);
  EXPECT_EQ(solver.value(y), -5);
}

TEST(ConstraintSolver, LeavesAPointWhereManyConstraintsMeet) {
  Solver solver;
  const auto x = solver.addVariable();
  const auto y = solver.addVariable();
  for (int i = 1; i <= 6; ++i) {
    atLeast(solver, {{x, static_cast<double>(i)}, {y, 1}}, 0);
    atLeast(solver, {{x, 1}, {y, static_cast<double>(i)}}, 0);
  }
  const auto sum = equal(solver, {{x, 1}, {y, 1}}, 0, 500);
  solver.solve();
  EXPECT_EQ(solver.value(x), 0);
  EXPECT_EQ(solver.value(y), 0);
  ASSERT_TRUE(solver.setConstant(sum, -12));
  solver.solve();
  EXPECT_EQ(solver.value(x), 0);
  EXPECT_EQ(solver.value(y), 12);
  ASSERT_TRUE(solver.setConstant(sum, 12));  // no sum is below zero
  solver.solve();
  EXPECT_EQ(solver.value(x), 0);
  EXPECT_EQ(solver.value(y), 0);
}

TEST(ConstraintSolver, TakesConstraintsWithoutVariables) {
  Solver solver;
  const auto x = solver.addVariable();
  equal(solver, {}, 0);
  atLeast(solver, {{x, 1}, {x, -1}}, 3);  // cancels out
  equal(solver, {{x, 0}}, 3, 999);
  const auto wrong = atMost(solver, {}, 4);
  EXPECT_THAT(solver.solve(), ElementsAre(wrong));
  EXPECT_EQ(solver.violation(wrong), 4);
  ASSERT_TRUE(solver.setConstant(wrong, -4));
  EXPECT_THAT(solver.solve(), IsEmpty());
  EXPECT_THAT(Solver().solve(), IsEmpty());
}

TEST(ConstraintSolver, AddsUpTermsOfOneVariable) {
  Solver solver;
  const auto x = solver.addVariable();
  equal(solver, {{x, 3}, {x, -1}}, -11);
  solver.solve();
  EXPECT_EQ(solver.value(x), 5.5);
}

TEST(ConstraintSolver, RemovesAVariableWithItsConstraints) {
  Solver solver;
  const auto x = solver.addVariable();
  const auto y = solver.addVariable(4);
  const auto tied = equal(solver, {{x, 1}, {y, -1}}, 0);
  equal(solver, {{x, 1}}, -50, 500);
  solver.solve();
  EXPECT_EQ(solver.value(y), 50);
  EXPECT_TRUE(solver.removeVariable(x));
  solver.solve();
  EXPECT_EQ(solver.value(y), 4);
  EXPECT_EQ(solver.value(x), 0);
  EXPECT_FALSE(solver.removeConstraint(tied));
  EXPECT_FALSE(solver.removeVariable(x));
}

TEST(ConstraintSolver, StaysExactOverManyEdits) {
  Solver solver;
  const auto a = solver.addVariable();
  const auto b = solver.addVariable();
  const auto c = solver.addVariable();
  equal(solver, {{a, 1}, {b, -1.0 / 3}}, 0);
  equal(solver, {{b, 1}, {c, -0.1}}, 0);
  const auto width = equal(solver, {{c, 1}}, 0);
  atMost(solver, {{b, 1}}, -70, 900);  // comes and goes
  for (int i = 0; i < 20'000; ++i) {
    const double wanted = (i * 37 % 1'000) + 0.1 * (i % 10);
    ASSERT_TRUE(solver.setConstant(width, -wanted));
    solver.solve();
    ASSERT_NEAR(solver.value(c), wanted, 1e-9);
    ASSERT_NEAR(solver.value(b), wanted * 0.1, 1e-9);
    ASSERT_NEAR(solver.value(a), wanted * 0.1 / 3, 1e-9);
  }
  ASSERT_TRUE(solver.setConstant(width, -120));
  solver.solve();
  EXPECT_EQ(solver.value(a), 4);
}

TEST(ConstraintSolver, ForgetsWhatLargeNumbersRoundOff) {
  LabelInContainer label;
  equal(label.solver, {{label.container, 1}, {label.x, -1}, {label.width, -1}}, -8.1);
  for (const double width : {987'654'321.3, 100.2}) {
    ASSERT_TRUE(label.solver.setConstant(label.containerWidth, -width));
    ASSERT_TRUE(label.solver.setConstant(label.leading, -width / 7));
    label.solver.solve();
  }
  EXPECT_NEAR(label.solver.value(label.container), 100.2, 1e-12);
  EXPECT_NEAR(label.solver.value(label.width), 100.2 * 6 / 7 - 8.1, 1e-12);
}

TEST(ConstraintSolver, CleansValuesOfRoundingErrors) {
  Solver solver;
  Solver::Variable last = solver.addVariable();
  for (int i = 0; i < 10; ++i) {
    const auto next = solver.addVariable();
    equal(solver, {{next, 1}, {last, -1}}, -0.1);
    last = next;
  }
  const auto zero = solver.addVariable(5);
  equal(solver, {{zero, -1}}, 0);
  solver.solve();
  EXPECT_EQ(solver.value(last), 1);  // the sum of ten doubles 0.1 is less
  EXPECT_FALSE(std::signbit(solver.value(zero)));
}

// Bad input

TEST(ConstraintSolver, RefusesNumbersThatAreNone) {
  Solver solver;
  const auto x = solver.addVariable(5);
  const auto constraint = equal(solver, {{x, 1}}, -10, 500);
  for (const double number : {kNan, kInfinity, -kInfinity, 1.1e9, -1e300}) {
    EXPECT_FALSE(solver.addConstraint(Terms{{x, 1}}, number, Relation::equal)) << number;
    EXPECT_FALSE(solver.addConstraint(Terms{{x, number}}, 0, Relation::equal)) << number;
    EXPECT_FALSE(solver.setConstant(constraint, number)) << number;
    EXPECT_FALSE(solver.setRest(x, number)) << number;
    EXPECT_EQ(solver.value(solver.addVariable(number)), 0) << number;
  }
  EXPECT_FALSE(solver.addConstraint(Terms{{x, 1.1e6}}, 0, Relation::equal));
  EXPECT_FALSE(solver.addConstraint(Terms{{x, 1e6}, {x, 1e6}}, 0, Relation::equal));
  EXPECT_FALSE(solver.addConstraint(Terms{{x, 9e-7}}, 0, Relation::equal));
  for (const float priority :
       {0.0F, -1.0F, 1000.01F, std::numeric_limits<float>::infinity(), std::numeric_limits<float>::quiet_NaN()})
    EXPECT_FALSE(solver.addConstraint(Terms{{x, 1}}, 0, Relation::equal, priority)) << priority;
  EXPECT_THAT(solver.solve(), IsEmpty());
  EXPECT_EQ(solver.value(x), 10);
}

TEST(ConstraintSolver, RefusesWhatItDoesNotKnow) {
  Solver solver;
  const Solver::Variable nobody;
  const Solver::Constraint nothing;
  EXPECT_FALSE(solver.addConstraint(Terms{{nobody, 1}}, 0, Relation::equal));
  EXPECT_FALSE(solver.setRest(nobody, 1));
  EXPECT_FALSE(solver.removeVariable(nobody));
  EXPECT_FALSE(solver.setConstant(nothing, 1));
  EXPECT_FALSE(solver.removeConstraint(nothing));
  EXPECT_EQ(solver.value(nobody), 0);
  EXPECT_EQ(solver.violation(nothing), 0);
}

TEST(ConstraintSolver, DoesNotTakeANewConstraintForARemovedOne) {
  Solver solver;
  const auto x = solver.addVariable();
  const auto old = equal(solver, {{x, 1}}, -10);
  solver.solve();
  ASSERT_TRUE(solver.removeConstraint(old));
  solver.solve();
  equal(solver, {{x, 1}}, -20);
  EXPECT_FALSE(solver.setConstant(old, -30));
  EXPECT_FALSE(solver.removeConstraint(old));
  solver.solve();
  EXPECT_EQ(solver.value(x), 20);
}

TEST(ConstraintSolver, EndsWithFiniteValuesWhateverTheNumbers) {
  Solver solver;
  std::vector<Solver::Variable> variables;
  for (int i = 0; i < 120; ++i) variables.push_back(solver.addVariable(i % 2 == 0 ? 1e9 : -1e9));
  // A chain in which each is 10¹² times the one before would reach beyond the largest double.
  for (std::size_t i = 0; i + 1 < variables.size(); ++i)
    equal(solver, {{variables[i], 1e6}, {variables[i + 1], -1e-6}}, i % 3 == 0 ? 1e9 : -1, i % 5 == 0 ? 500 : 1000);
  solver.solve();
  for (const auto variable : variables) EXPECT_TRUE(std::isfinite(solver.value(variable)));
}

TEST(ConstraintSolver, TakesLargeLengths) {
  LabelInContainer label;
  intrinsic(label.solver, label.width, 1e7);
  ASSERT_TRUE(label.solver.setConstant(label.containerWidth, -1e9));
  EXPECT_THAT(label.solver.solve(), IsEmpty());
  EXPECT_EQ(label.solver.value(label.width), 1e7);
  ASSERT_TRUE(label.solver.setConstant(label.containerWidth, -100));
  label.solver.solve();
  EXPECT_EQ(label.solver.value(label.width), 84);
}

// Any system

// A model that is changed as the bytes say, and solved after every few changes; `check` sees it each time.
template <class Check>
void solveOverAndOver(const std::vector<std::uint8_t>& bytes, const Check& check) {
  Tests::ConstraintModel model;
  std::size_t next = 0;
  const auto below = [&bytes, &next](int end) { return next < bytes.size() ? bytes[next++] % end : 0; };
  while (next < bytes.size()) {
    for (int changes = 1 + below(8); changes > 0; --changes) model.change(below);
    check(model, model.solver().solve());
  }
  RC_ASSERT(!model.isRefused());
}

rc::Gen<std::vector<std::uint8_t>> genChanges() {
  return rc::gen::resize(400, rc::gen::container<std::vector<std::uint8_t>>(rc::gen::arbitrary<std::uint8_t>()));
}

TEST(ConstraintSolver, IsAsGoodAtEachLevelAsTheDenseSimplex) {
  EXPECT_TRUE(rc::check([] {
    solveOverAndOver(*genChanges(), [](Tests::ConstraintModel& model, const std::vector<Solver::Constraint>&) {
      const auto dense = model.denseValues();
      RC_ASSERT(Tests::ConstraintModel::areNear(model.violations(model.values()), model.violations(dense)));
      RC_ASSERT(Tests::ConstraintModel::areNear(model.values(), dense));
    });
  }));
}

TEST(ConstraintSolver, FindsTheSameByWhateverWayItCame) {
  EXPECT_TRUE(rc::check([] {
    solveOverAndOver(*genChanges(), [](Tests::ConstraintModel& model, const std::vector<Solver::Constraint>&) {
      const auto values = model.values();
      RC_ASSERT(Tests::ConstraintModel::areNear(values, model.freshValues()));
      model.solver().solve();
      RC_ASSERT(model.values() == values);
    });
  }));
}

TEST(ConstraintSolver, TellsWhatGivesWayAndByHowMuch) {
  EXPECT_TRUE(rc::check([] {
    solveOverAndOver(*genChanges(),
                     [](Tests::ConstraintModel& model, const std::vector<Solver::Constraint>& givingWay) {
                       RC_ASSERT(model.areGivingWay(givingWay));
                       RC_ASSERT(model.knowsViolations());
                     });
  }));
}

}  // namespace
}  // namespace Brisel::Platform::internal
