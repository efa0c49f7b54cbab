#include "brisel/infrastructure/internal/shape_paths.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Brisel::internal {
namespace {

using namespace Platform;
using Kind = UIBezierPath::Element::Kind;

constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();
constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();
constexpr std::int64_t kTwoTo62 = std::int64_t{1} << 62;

// Sine and cosine are not rounded alike everywhere.
void expectNear(CGPoint found, CGPoint expected, CGFloat diameter) {
  EXPECT_NEAR(found.x, expected.x, 1e-9 * diameter);
  EXPECT_NEAR(found.y, expected.y, 1e-9 * diameter);
}

TEST(CirclePath, IsTheOvalInTheMiddleOfItsLine) {
  const UIBezierPath path = circlePath({5, 6}, 20, 3);
  UIBezierPath expected = UIBezierPath::bezierPathWithOvalInRect({{6.5, 7.5}, {17, 17}});
  expected.setLineWidth(3);
  EXPECT_EQ(path, expected);
}

TEST(CirclePath, IsEmptyWhereItsLineIsNotNarrower) {
  for (const CGFloat lineWidth : {20.0, 20.5, 1e300, kInfinity, kNaN}) {
    EXPECT_TRUE(circlePath({0, 0}, 20, lineWidth).isEmpty());
  }
  EXPECT_FALSE(circlePath({0, 0}, 20, 19.5).isEmpty());
}

TEST(DotPath, LiesAboutItsMiddle) {
  EXPECT_EQ(dotPath({10, 20}, 6), UIBezierPath::bezierPathWithOvalInRect({{7, 17}, {6, 6}}));
  EXPECT_TRUE(dotPath({10, 20}, 0).isEmpty());
}

TEST(StarPath, OfFourPointsHasItsCornersOnTheAxesAndItsNotchesOnTheDiagonals) {
  const auto path = starPath({100, 200}, 20, 10, 4);
  const CGFloat s = 5 * std::sqrt(0.5);
  const std::vector<CGPoint> expected{{110, 200},         {110, 200},         {110 + s, 210 - s},
                                      {120, 210},         {110 + s, 210 + s}, {110, 220},
                                      {110 - s, 210 + s}, {100, 210},         {110 - s, 210 - s}};
  const auto elements = path.elements();
  ASSERT_EQ(elements.size(), expected.size() + 1);
  EXPECT_EQ(elements.back().kind, Kind::close);
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(elements[i].kind, i == 0 ? Kind::move : Kind::line);
    expectNear(elements[i].end, expected[i], 20);
  }
}

TEST(StarPath, OfFivePointsHasTenVerticesOfWhichTheFirstIsOnTop) {
  const auto path = starPath({3, 4}, 30, 12, 5);
  const auto elements = path.elements();
  ASSERT_EQ(elements.size(), 12U);  // one move, ten lines, of which the first repeats it, and the closing
  EXPECT_EQ(elements[0].end, (CGPoint{18, 4}));
  expectNear(elements[1].end, {18, 4}, 30);
  const CGPoint center{18, 19};
  for (std::size_t i = 0; i < 10; ++i) {
    const CGPoint p = elements[i + 1].end;
    EXPECT_NEAR(std::hypot(p.x - center.x, p.y - center.y), i % 2 == 0 ? 15 : 6, 1e-9 * 30);
    for (std::size_t j = 0; j < i; ++j) {
      const CGPoint other = elements[j + 1].end;
      EXPECT_GT(std::hypot(p.x - other.x, p.y - other.y), 1);
    }
  }
  EXPECT_GT(elements[2].end.x, center.x);  // clockwise
}

TEST(StarPath, OfNoPointsOrFewerHasNoLines) {
  for (const std::int64_t points : {std::int64_t{0}, std::int64_t{-1}, -kTwoTo62}) {
    const auto path = starPath({0, 0}, 20, 10, points);
    const auto elements = path.elements();
    ASSERT_EQ(elements.size(), 2U);
    EXPECT_EQ(elements[0].kind, Kind::move);
    EXPECT_EQ(elements[0].end, (CGPoint{10, 0}));
    EXPECT_EQ(elements[1].kind, Kind::close);
  }
}

TEST(StarPathDeathTest, TwiceANumberOfPointsBeyond64BitsIsAnErrorBelowZeroToo) {
  constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
  constexpr auto kLeast = std::numeric_limits<std::int64_t>::min();
  for (const std::int64_t points : {kTwoTo62, kMost, -kTwoTo62 - 1, kLeast}) {
    EXPECT_DEATH(starPath({0, 0}, 20, 10, points), "star's points");
  }
}

TEST(BadgePath, UsesTheDesignAsItIsAtItsOwnSize) {
  const auto path = badgePath({24, 24});
  const auto elements = path.elements();
  ASSERT_EQ(elements.size(), 26U);  // the beginning, 8 curves, 16 lines, the closing
  EXPECT_EQ(elements[0], (UIBezierPath::Element{Kind::move, {13.19, 0.5}, {}, {}}));
  EXPECT_EQ(elements[1], (UIBezierPath::Element{Kind::curve, {10.81, 0.5}, {12.54, -0.17}, {11.46, -0.17}}));
  EXPECT_EQ(elements[2], (UIBezierPath::Element{Kind::line, {8.3, 3.07}, {}, {}}));
  EXPECT_EQ(elements[24], (UIBezierPath::Element{Kind::line, {13.19, 0.5}, {}, {}}));
  EXPECT_EQ(elements[25].kind, Kind::close);
  const auto curves = std::count_if(elements.begin(), elements.end(), [](auto& e) { return e.kind == Kind::curve; });
  EXPECT_EQ(curves, 8);
}

// A segment from where the one before it ends; of a line the controls are its own ends.
struct Segment {
  CGPoint start, control1, control2, end;
};

std::vector<Segment> segmentsOf(const UIBezierPath& path) {
  std::vector<Segment> segments;
  CGPoint start;
  for (const auto& e : path.elements()) {
    if (e.kind == Kind::line) segments.push_back({start, start, e.end, e.end});
    if (e.kind == Kind::curve) segments.push_back({start, e.control1, e.control2, e.end});
    start = e.end;
  }
  return segments;
}

bool areNear(CGPoint a, CGPoint b) { return std::hypot(a.x - b.x, a.y - b.y) < 1e-9; }

bool areNear(const Segment& a, const Segment& b) {
  return areNear(a.start, b.start) && areNear(a.control1, b.control1) && areNear(a.control2, b.control2) &&
         areNear(a.end, b.end);
}

// A wrong digit anywhere would break this, and so would two controls in the wrong order. 24 segments are six a quarter.
TEST(BadgePath, LooksTheSameAfterAQuarterTurnAndInAMirror) {
  const std::vector<Segment> segments = segmentsOf(badgePath({24, 24}));
  ASSERT_EQ(segments.size(), 24U);
  const auto turned = [](CGPoint p) { return CGPoint{p.y, 24 - p.x}; };
  const auto mirrored = [](CGPoint p) { return CGPoint{24 - p.x, p.y}; };
  for (std::size_t i = 0; i < segments.size(); ++i) {
    const Segment& s = segments[i];
    EXPECT_TRUE(
        areNear(segments[(i + 6) % 24], {turned(s.start), turned(s.control1), turned(s.control2), turned(s.end)}))
        << i;
    // A mirror turns the outline's direction; its first segment is its own picture.
    EXPECT_TRUE(areNear(segments[(24 - i) % 24],
                        {mirrored(s.end), mirrored(s.control2), mirrored(s.control1), mirrored(s.start)}))
        << i;
  }
}

TEST(BadgePath, IsScaledCrosswiseWhereNotSquare) {
  const auto design = badgePath({24, 24});
  const auto wide = badgePath({48, 24});
  for (std::size_t i = 0; i < design.elements().size(); ++i) {
    const auto& from = design.elements()[i];
    const auto& to = wide.elements()[i];
    EXPECT_EQ(to.end, (CGPoint{from.end.x, from.end.y * 2}));
    EXPECT_EQ(to.control1, (CGPoint{from.control1.x, from.control1.y * 2}));
    EXPECT_EQ(to.control2, (CGPoint{from.control2.x, from.control2.y * 2}));
  }
}

}  // namespace
}  // namespace Brisel::internal
