// What a canvas checks for every port, seen by what reaches the recording one.
#include "brisel/platform/canvas.h"

#include <limits>
#include <memory>
#include <new>
#include <span>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/platform/recording/engine.h"

namespace Brisel::Platform {
namespace {

using Kind = RecordingEngine::CanvasCall::Kind;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();
constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();
constexpr UIColor kBlack = UIColor::grey(0, 1);

class CanvasChecks : public testing::Test {
 protected:
  std::vector<Kind> kinds() const {
    std::vector<Kind> result;
    for (const auto& call : engine.record().calls) result.push_back(call.kind);
    return result;
  }

  static std::vector<CGRect> impossibleRects() {
    return {{{0, 0}, {0, 5}},    {{0, 0}, {5, 0}},         {{0, 0}, {-5, 5}},        {{kNaN, 0}, {5, 5}},
            {{0, kNaN}, {5, 5}}, {{kInfinity, 0}, {5, 5}}, {{0, 0}, {kInfinity, 5}}, {{0, 0}, {5, kNaN}}};
  }

  // Each with a number that is not finite, in another place.
  static std::vector<UIBezierPath> lostPaths() {
    const auto square = UIBezierPath::bezierPathWithRect({{0, 0}, {5, 5}});
    std::vector<UIBezierPath> paths(5, square);
    paths[0].moveToPoint({kNaN, 0});
    paths[1].addLineToPoint({0, kInfinity});
    paths[2].addCurveToPoint({0, -kInfinity}, {}, {});
    paths[3].addCurveToPoint({}, {kNaN, 0}, {});
    paths[4].addCurveToPoint({}, {}, {0, kNaN});
    return paths;
  }

  RecordingEngine engine;
  const std::unique_ptr<Canvas> canvas = engine.makeCanvas({10, 10}, 2);
  const UIBezierPath square = UIBezierPath::bezierPathWithRect({{0, 0}, {5, 5}});
  const Bitmap pixel{1, 1, {0, 0, 0, 255}};
};

TEST_F(CanvasChecks, PassCallsOnInOrder) {
  canvas->save();
  canvas->setBlendMode(CGBlendMode::clear);
  canvas->setInterpolationQuality(CGInterpolationQuality::none);
  canvas->clipToPath(square);
  canvas->clipToMask(pixel, {{1, 2}, {3, 4}});
  canvas->fillRect({{1, 2}, {3, 4}}, kBlack);
  canvas->fillPath(square, kBlack);
  canvas->strokePath(square, kBlack);
  canvas->drawBitmap(pixel, {{5, 6}, {7, 8}});
  canvas->restore();
  EXPECT_THAT(kinds(), ElementsAre(Kind::save, Kind::setBlendMode, Kind::setInterpolationQuality, Kind::clipToPath,
                                   Kind::clipToMask, Kind::fillRect, Kind::fillPath, Kind::strokePath, Kind::drawBitmap,
                                   Kind::restore));
  const auto calls = engine.record().calls;
  EXPECT_EQ(calls[1].blendMode, CGBlendMode::clear);
  EXPECT_EQ(calls[2].quality, CGInterpolationQuality::none);
  EXPECT_EQ(calls[3].path, square);
  EXPECT_EQ(calls[4].rect, (CGRect{{1, 2}, {3, 4}}));
  EXPECT_EQ(calls[8].rect, (CGRect{{5, 6}, {7, 8}}));
  EXPECT_EQ(engine.record().canvases, (std::vector<RecordingEngine::CanvasSize>{{20, 20, 2, false}}));
}

TEST_F(CanvasChecks, RefuseRectanglesThatAreEmptyOrNotFinite) {
  for (const CGRect& rect : impossibleRects()) {
    canvas->fillRect(rect, kBlack);
    canvas->drawBitmap(pixel, rect);
  }
  EXPECT_THAT(kinds(), IsEmpty());
}

TEST_F(CanvasChecks, RefusePathsThatAreEmptyOrNotFinite) {
  canvas->fillPath({}, kBlack);
  canvas->strokePath({}, kBlack);
  for (const UIBezierPath& path : lostPaths()) {
    canvas->fillPath(path, kBlack);
    canvas->strokePath(path, kBlack);
  }
  EXPECT_THAT(kinds(), IsEmpty());
}

TEST_F(CanvasChecks, RefuseStrokesThatAreNotWiderThanNothing) {
  for (const CGFloat width : {0.0, -1.0, kNaN, kInfinity}) {
    UIBezierPath path = square;
    path.setLineWidth(width);
    canvas->strokePath(path, kBlack);
  }
  EXPECT_THAT(kinds(), IsEmpty());
}

TEST_F(CanvasChecks, TurnClipsThatMeanNothingIntoClipsThatLeaveNothing) {
  for (const UIBezierPath& path : lostPaths()) canvas->clipToPath(path);
  for (const CGRect& rect : impossibleRects()) canvas->clipToMask(pixel, rect);
  canvas->clipToMask({}, {{0, 0}, {5, 5}});
  canvas->clipToMask({2, 2, std::vector<std::uint8_t>(15)}, {{0, 0}, {5, 5}});
  const auto calls = engine.record().calls;
  EXPECT_EQ(calls.size(), lostPaths().size() + impossibleRects().size() + 2);
  for (const auto& call : calls) {
    EXPECT_EQ(call.kind, Kind::clipToPath);
    EXPECT_TRUE(call.path.isEmpty());
  }
}

TEST_F(CanvasChecks, RefuseBitmapsWhosePixelsAreNotWhatTheirSizeSays) {
  canvas->drawBitmap({}, {{0, 0}, {5, 5}});
  canvas->drawBitmap({2, 2, std::vector<std::uint8_t>(15)}, {{0, 0}, {5, 5}});
  canvas->drawBitmap({-1, -1, std::vector<std::uint8_t>(4)}, {{0, 0}, {5, 5}});
  EXPECT_THAT(kinds(), IsEmpty());
}

// A canvas whose port has no memory to save with.
class FullCanvas final : public Canvas {
 public:
  explicit FullCanvas(const Engine& maker) : Canvas(maker, 1) {}
  int restored() const { return restored_; }

 private:
  void onSave() override { throw std::bad_alloc(); }
  void onRestore() override { ++restored_; }
  void onSetBlendMode(CGBlendMode) override {}
  void onSetInterpolationQuality(CGInterpolationQuality) override {}
  void onClipToPath(const UIBezierPath&) override {}
  void onClipToMask(const Bitmap&, const CGRect&) override {}
  void onFillRect(const CGRect&, const UIColor&) override {}
  void onFillPath(const UIBezierPath&, const UIColor&) override {}
  void onStrokePath(const UIBezierPath&, const UIColor&) override {}
  void onDrawBitmap(const Bitmap&, const CGRect&) override {}
  void onDrawGlyphs(const Face&, CGFloat, std::span<const PositionedGlyph>, const UIColor&) override {}
  Bitmap onBitmap() const override { return {}; }
  Bitmap onTakeBitmap() override { return {}; }

  int restored_ = 0;
};

TEST_F(CanvasChecks, DoNotCountASaveInWhichThePortThrew) {
  FullCanvas full(engine);
  EXPECT_THROW(full.save(), std::bad_alloc);
  full.restore();
  EXPECT_EQ(full.restored(), 0);
}

TEST_F(CanvasChecks, RestoreOnlyWhatWasSaved) {
  canvas->restore();
  canvas->save();
  canvas->save();
  canvas->restore();
  canvas->restore();
  canvas->restore();
  EXPECT_THAT(kinds(), ElementsAre(Kind::save, Kind::save, Kind::restore, Kind::restore));
}

}  // namespace
}  // namespace Brisel::Platform
