#include "brisel/platform/bezier_path.h"

#include <cmath>
#include <limits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Brisel::Platform {
namespace {

using Element = UIBezierPath::Element;
using Kind = Element::Kind;
using testing::ElementsAre;

constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();

std::vector<Element> elements(const UIBezierPath& path) { return {path.elements().begin(), path.elements().end()}; }

Element move(CGPoint to) { return {Kind::move, to, {}, {}}; }
Element line(CGPoint to) { return {Kind::line, to, {}, {}}; }
Element curve(CGPoint to, CGPoint c1, CGPoint c2) { return {Kind::curve, to, c1, c2}; }
Element close() { return {Kind::close, {}, {}, {}}; }

CGPoint pointOfCurve(CGPoint from, const Element& e, CGFloat t) {
  const auto mix = [t](CGFloat p0, CGFloat p1, CGFloat p2, CGFloat p3) {
    const CGFloat u = 1 - t;
    return u * u * u * p0 + 3 * u * u * t * p1 + 3 * u * t * t * p2 + t * t * t * p3;
  };
  return {mix(from.x, e.control1.x, e.control2.x, e.end.x), mix(from.y, e.control1.y, e.control2.y, e.end.y)};
}

TEST(BezierPath, BeginsEmptyWithALineWidthOfOne) {
  const UIBezierPath path;
  EXPECT_TRUE(path.isEmpty());
  EXPECT_EQ(path.lineWidth(), 1);
}

TEST(BezierPath, KeepsItsSegmentsInOrder) {
  UIBezierPath path;
  path.moveToPoint({1, 2});
  path.addLineToPoint({3, 4});
  path.addCurveToPoint({5, 6}, {7, 8}, {9, 10});
  path.closePath();
  EXPECT_FALSE(path.isEmpty());
  EXPECT_THAT(elements(path), ElementsAre(move({1, 2}), line({3, 4}), curve({5, 6}, {7, 8}, {9, 10}), close()));
}

TEST(BezierPath, TakesNoSegmentBeforeAPointToStartFrom) {
  UIBezierPath path;
  path.addLineToPoint({1, 1});
  path.addCurveToPoint({1, 1}, {2, 2}, {3, 3});
  path.closePath();
  EXPECT_TRUE(path.isEmpty());
}

TEST(BezierPath, OfARectangleGoesRoundItFromItsUpperLeftCorner) {
  EXPECT_THAT(elements(UIBezierPath::bezierPathWithRect({{1, 2}, {10, 20}})),
              ElementsAre(move({1, 2}), line({11, 2}), line({11, 22}), line({1, 22}), close()));
}

TEST(BezierPath, OfAnEmptyRectangleIsEmpty) {
  for (const CGSize size : {CGSize{0, 5}, CGSize{5, 0}, CGSize{-1, 5}, CGSize{5, -1}, CGSize{kNaN, 5}}) {
    EXPECT_TRUE(UIBezierPath::bezierPathWithRect({{0, 0}, size}).isEmpty());
    EXPECT_TRUE(UIBezierPath::bezierPathWithOvalInRect({{0, 0}, size}).isEmpty());
  }
}

TEST(BezierPath, OfAnOvalTouchesTheRectanglesSidesAndStaysOnTheEllipse) {
  const auto oval = elements(UIBezierPath::bezierPathWithOvalInRect({{10, 20}, {8, 4}}));
  ASSERT_EQ(oval.size(), 6U);
  EXPECT_EQ(oval[0], move({18, 22}));
  EXPECT_EQ(oval[1].end, (CGPoint{14, 24}));
  EXPECT_EQ(oval[2].end, (CGPoint{10, 22}));
  EXPECT_EQ(oval[3].end, (CGPoint{14, 20}));
  EXPECT_EQ(oval[4].end, (CGPoint{18, 22}));
  EXPECT_EQ(oval[5].kind, Kind::close);
  for (std::size_t i = 1; i <= 4; ++i) {
    for (CGFloat t = 0; t <= 1; t += 0.125) {
      const CGPoint p = pointOfCurve(oval[i - 1].end, oval[i], t);
      // Four cubic curves miss a circle by at most 0.03 % of its radius.
      EXPECT_NEAR(std::hypot((p.x - 14) / 4, (p.y - 22) / 2), 1, 0.0003);
    }
  }
}

TEST(BezierPath, MapsEndsAndControlsButNotTheLineWidth) {
  UIBezierPath path;
  path.setLineWidth(3);
  path.moveToPoint({1, 2});
  path.addCurveToPoint({3, 4}, {5, 6}, {7, 8});
  path.closePath();
  path.applyTransform({.a = 2, .b = 0, .c = 0, .d = 3, .tx = 10, .ty = 20});
  EXPECT_THAT(elements(path), ElementsAre(move({12, 26}), curve({16, 32}, {20, 38}, {24, 44}), close()));
  EXPECT_EQ(path.lineWidth(), 3);
}

TEST(BezierPath, IsTurnedAQuarterByBAndC) {
  UIBezierPath path;
  path.moveToPoint({1, 2});
  path.applyTransform({.a = 0, .b = 1, .c = -1, .d = 0, .tx = 0, .ty = 0});
  EXPECT_THAT(elements(path), ElementsAre(move({-2, 1})));
}

TEST(BezierPath, IsAValueWhoseCopiesAreIndependent) {
  UIBezierPath path = UIBezierPath::bezierPathWithRect({{0, 0}, {1, 1}});
  const UIBezierPath copy = path;
  EXPECT_EQ(copy, path);
  path.applyTransform({.tx = 1});
  EXPECT_NE(copy, path);
  UIBezierPath wider = copy;
  wider.setLineWidth(2);
  EXPECT_NE(wider, copy);
}

}  // namespace
}  // namespace Brisel::Platform
