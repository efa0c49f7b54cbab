// What the shape images draw, and in which order, by the calls that reach the recording port.
#include "brisel/infrastructure/shape_images.h"

#include <cstdint>
#include <functional>
#include <limits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/infrastructure/internal/shape_paths.h"
#include "brisel/platform/screen.h"

#include "tests/recording_ports.h"

namespace Brisel {
namespace {

using namespace Platform;
using Brisel::internal::badgePath;
using Brisel::internal::circlePath;
using Brisel::internal::dotPath;
using Brisel::internal::starPath;
using Call = RecordingEngine::CanvasCall;
using Kind = Call::Kind;
using CanvasSizes = std::vector<RecordingEngine::CanvasSize>;

constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();
constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();

class ShapeImages : public testing::Test {
 protected:
  static ImagePtr imageOf(int width, int height, CGFloat scale = 1) {
    return UIImage::imageWithBitmap(
        {width, height, std::vector<std::uint8_t>(static_cast<std::size_t>(width * height) * 4, 90)}, scale);
  }

  static Call fill(const UIBezierPath& path, const ColorPtr& color) {
    return {.kind = Kind::fillPath, .path = path, .color = *color};
  }
  static Call stroke(const UIBezierPath& path, const ColorPtr& color) {
    return {.kind = Kind::strokePath, .path = path, .color = *color};
  }
  static Call clip(const UIBezierPath& path) { return {.kind = Kind::clipToPath, .path = path}; }
  static Call mask(const CGRect& rect) { return {.kind = Kind::clipToMask, .rect = rect}; }
  static Call draw(const CGRect& rect) { return {.kind = Kind::drawBitmap, .rect = rect}; }
  static Call blend(CGBlendMode mode) { return {.kind = Kind::setBlendMode, .blendMode = mode}; }

  // The calls that `makeImage` causes, and the sizes of its canvases.
  std::vector<Call> callsOf(const std::function<ImagePtr()>& makeImage) {
    engine.forget();
    result = makeImage();
    canvases = engine.record().canvases;
    return engine.record().calls;
  }

  RecordingEngine& engine = recordingEngine();
  const ColorPtr red = UIColor::initWithRed(1, 0, 0, 1);
  const ColorPtr blue = UIColor::initWithRed(0, 0, 1, 0.5);
  const ImagePtr square = imageOf(10, 10);
  const ImagePtr empty = UIImage::init();
  ImagePtr result;
  CanvasSizes canvases;
};

// --- Circle ---

TEST_F(ShapeImages, CircleFillsStrokesClipsAndThenDrawsTheImageFromFiveFive) {
  const auto circle = circlePath({0, 0}, 20, 2);
  EXPECT_EQ(callsOf([&] { return withCircle(*square, 20, 2, red, blue, false); }),
            (std::vector{fill(circle, blue), stroke(circle, red), clip(circle), draw({{5, 5}, {10, 10}})}));
  EXPECT_EQ(canvases, (CanvasSizes{{20, 20, 1, false}}));
  EXPECT_EQ(result->size(), (CGSize{20, 20}));
}

TEST_F(ShapeImages, CircleWithoutAFillColourIsNotFilled) {
  const auto circle = circlePath({0, 0}, 20, 2);
  EXPECT_EQ(callsOf([&] { return withCircle(*square, 20, 2, red, nullptr, false); }),
            (std::vector{stroke(circle, red), clip(circle), draw({{5, 5}, {10, 10}})}));
}

TEST_F(ShapeImages, CircleSmallerThanTheImageLeavesTheCanvasAsLargeAsTheImage) {
  const auto circle = circlePath({2, 2}, 6, 1);
  EXPECT_EQ(callsOf([&] { return withCircle(*square, 6, 1, red, nullptr, false); }),
            (std::vector{stroke(circle, red), clip(circle), draw({{0, 0}, {10, 10}})}));
  EXPECT_EQ(canvases, (CanvasSizes{{10, 10, 1, false}}));
}

TEST_F(ShapeImages, CircleAndImageShareTheirMiddleOnACanvasWithRoomForBoth) {
  const auto circle = circlePath({5, 0}, 20, 1);
  EXPECT_EQ(callsOf([&] { return withCircle(*imageOf(30, 10), 20, 1, red, nullptr, false); }),
            (std::vector{stroke(circle, red), clip(circle), draw({{0, 5}, {30, 10}})}));
  EXPECT_EQ(canvases, (CanvasSizes{{30, 20, 1, false}}));
}

TEST_F(ShapeImages, CircleThatCutsOutDrawsThroughTheImagesAlphaOverTheWholeCanvasAndNotTheImage) {
  const auto circle = circlePath({5, 0}, 20, 1);
  EXPECT_EQ(callsOf([&] { return withCircle(*imageOf(30, 10), 20, 1, red, blue, true); }),
            (std::vector{mask({{0, 0}, {30, 20}}), fill(circle, blue), stroke(circle, red), clip(circle)}));
}

TEST_F(ShapeImages, CircleAsThickAsItsDiameterLeavesNowhereToDraw) {
  for (const CGFloat lineWidth : {20.0, 21.0, kInfinity}) {
    const auto calls = callsOf([&] { return withCircle(*square, 20, lineWidth, red, blue, false); });
    ASSERT_EQ(calls.size(), 2U);
    EXPECT_EQ(calls[0].kind, Kind::clipToPath);
    EXPECT_TRUE(calls[0].path.isEmpty());
    EXPECT_EQ(calls[1], draw({{5, 5}, {10, 10}}));
  }
}

TEST_F(ShapeImages, CircleWithoutALineIsNotStroked) {
  const auto circle = circlePath({0, 0}, 20, 0);
  EXPECT_EQ(callsOf([&] { return withCircle(*square, 20, 0, red, blue, false); }),
            (std::vector{fill(circle, blue), clip(circle), draw({{5, 5}, {10, 10}})}));
}

TEST_F(ShapeImages, AnImageWithoutABitmapIsNeitherDrawnNorCutOut) {
  const auto circle = circlePath({0, 0}, 20, 2);
  const auto star = starPath({0, 0}, 20, 10, 5);
  for (const bool isCuttingOut : {false, true}) {
    EXPECT_EQ(callsOf([&] { return withCircle(*empty, 20, 2, red, blue, isCuttingOut); }),
              (std::vector{fill(circle, blue), stroke(circle, red), clip(circle)}));
    EXPECT_EQ(canvases, (CanvasSizes{{20, 20, 1, false}}));
    EXPECT_EQ(callsOf([&] { return withStar(*empty, 20, 10, 5, red, isCuttingOut); }),
              (std::vector{fill(star, red), clip(star)}));
    EXPECT_EQ(canvases, (CanvasSizes{{20, 20, 1, false}}));
  }
}

// --- Star ---

TEST_F(ShapeImages, StarIsFilledAndClippedToBeforeTheImageIsDrawnInTheMiddleOfBoth) {
  const auto star = starPath({5, 0}, 20, 8, 5);
  EXPECT_EQ(callsOf([&] { return withStar(*imageOf(30, 10), 20, 8, 5, red, false); }),
            (std::vector{fill(star, red), clip(star), draw({{0, 5}, {30, 10}})}));
  EXPECT_EQ(canvases, (CanvasSizes{{30, 20, 1, false}}));
}

TEST_F(ShapeImages, StarThatCutsOutDrawsThroughTheImagesAlphaAndNotTheImage) {
  const auto star = starPath({0, 0}, 20, 8, 5);
  EXPECT_EQ(callsOf([&] { return withStar(*square, 20, 8, 5, red, true); }),
            (std::vector{mask({{0, 0}, {20, 20}}), fill(star, red), clip(star)}));
}

TEST_F(ShapeImages, StarWithoutPointsClipsEverythingAway) {
  const auto point = starPath({0, 0}, 20, 8, 0);
  for (const std::int64_t points : {std::int64_t{0}, std::int64_t{-3}}) {
    EXPECT_EQ(callsOf([&] { return withStar(*square, 20, 8, points, red, false); }),
              (std::vector{fill(point, red), clip(point), draw({{5, 5}, {10, 10}})}));
  }
}

// No memory would hold the outline.
TEST_F(ShapeImages, StarOfAnyNumberOfPointsIsAnEmptyImageWhereThereCanBeNoCanvas) {
  const ImagePtr star = withStar(*square, 1e9, 8, (std::int64_t{1} << 62) - 1, red, false);
  ASSERT_NE(star, nullptr);
  EXPECT_EQ(star->bitmap(), nullptr);
}

// --- Dot ---

TEST_F(ShapeImages, DotErasesItsGapBetweenTheImageAndItself) {
  EXPECT_EQ(callsOf([&] {
              return withDot(*square, 4, 6, {8, 2}, red);
            }),
            (std::vector{draw({{0, 0}, {10, 10}}), blend(CGBlendMode::clear),
                         fill(dotPath({8, 2}, 6), UIColor::initWithWhite(0, 0)), blend(CGBlendMode::normal),
                         fill(dotPath({8, 2}, 4), red)}));
  EXPECT_EQ(canvases, (CanvasSizes{{10, 10, 1, false}}));
}

TEST_F(ShapeImages, DotLeavesNoGapWithoutACutOutDiameter) {
  for (const CGFloat cutOut : {0.0, -1.0, kNaN}) {
    EXPECT_EQ(callsOf([&] {
                return withDot(*square, 4, cutOut, {8, 2}, red);
              }),
              (std::vector{draw({{0, 0}, {10, 10}}), fill(dotPath({8, 2}, 4), red)}));
  }
}

TEST_F(ShapeImages, DotOnAnImageWithoutABitmapIsAnEmptyImage) {
  EXPECT_TRUE(callsOf([&] { return withDot(*empty, 4, 6, {8, 2}, red); }).empty());
  ASSERT_NE(result, nullptr);
  EXPECT_EQ(result->bitmap(), nullptr);
}

// --- Badge ---

TEST_F(ShapeImages, BadgeIsItsOutlineWithAWhiteCheckMarkOfHalfItsSizeInTheMiddle) {
  const auto calls = callsOf([&] { return verifiedIndicator({24, 24}, red); });
  ASSERT_GE(calls.size(), 3U);  // the check mark's image is drawn first
  EXPECT_EQ(calls[calls.size() - 2], fill(badgePath({24, 24}), red));
  EXPECT_EQ(calls.back(), draw({{6, 6}, {12, 12}}));
  EXPECT_EQ(calls.front().kind, Kind::drawGlyphs);
  EXPECT_EQ(calls.front().color, UIColor::grey(1, 1));
  EXPECT_EQ(canvases, (CanvasSizes{{12, 12, 1, false}, {24, 24, 1, false}}));
  EXPECT_EQ(result->size(), (CGSize{24, 24}));
}

TEST_F(ShapeImages, BadgesShareTheCheckMarksOfTheirSize) {
  verifiedIndicator({24, 24}, red);
  callsOf([&] { return verifiedIndicator({24, 24}, blue); });
  EXPECT_EQ(canvases, (CanvasSizes{{24, 24, 1, false}}));
}

TEST_F(ShapeImages, BadgesCheckMarkIsAsLargeAsWholePixelsMakeIt) {
  const auto calls = callsOf([&] { return verifiedIndicator({25, 31}, red); });
  ASSERT_FALSE(calls.empty());
  EXPECT_EQ(calls.back(), draw({{6.5, 8}, {12, 15}}));  // half is 12.5 x 15.5
}

TEST_F(ShapeImages, BadgeTooSmallForACheckMarkHasNone) {
  EXPECT_EQ(callsOf([&] { return verifiedIndicator({1, 1}, red); }), (std::vector{fill(badgePath({1, 1}), red)}));
}

TEST_F(ShapeImages, BadgeTooLargeToDrawIsAnEmptyImage) {
  for (const CGSize size : {CGSize{1.8e18, 1.8e18}, CGSize{2e18, 24}, CGSize{24, 1.8e18}}) {
    EXPECT_EQ(verifiedIndicator(size, red)->bitmap(), nullptr) << size.width << " x " << size.height;
  }
}

// --- All ---

TEST_F(ShapeImages, AreDrawnAtTheMainScreensScale) {
  UIScreen::mainScreen().setScale(2);
  const auto circle = circlePath({0, 0}, 20, 2);
  EXPECT_EQ(callsOf([&] { return withCircle(*imageOf(20, 20, 2), 20, 2, red, nullptr, false); }),
            (std::vector{stroke(circle, red), clip(circle), draw({{5, 5}, {10, 10}})}));
  EXPECT_EQ(canvases, (CanvasSizes{{40, 40, 2, false}}));
  EXPECT_EQ(result->scale(), 2);
}

TEST_F(ShapeImages, OfImpossibleSizesAreEmptyImages) {
  for (const CGFloat diameter : {0.0, -1.0, kNaN, kInfinity, 1e9}) {
    for (const ImagePtr& image :
         {withCircle(*empty, diameter, 1, red, blue, true), withStar(*empty, diameter, 1, 5, red, false),
          verifiedIndicator({diameter, diameter}, red)}) {
      ASSERT_NE(image, nullptr);
      EXPECT_EQ(image->bitmap(), nullptr);
    }
  }
}

TEST_F(ShapeImages, LeaveTheirImageAsItIs) {
  const Bitmap before = *square->bitmap();
  const ImagePtr circled = withCircle(*square, 20, 2, red, blue, false);
  EXPECT_NE(circled, square);
  EXPECT_EQ(*square->bitmap(), before);
  EXPECT_EQ(square->size(), (CGSize{10, 10}));
}

TEST_F(ShapeImages, HaveAlpha) {
  EXPECT_EQ(withDot(*square, 4, 6, {8, 2}, red)->alphaInfo(), CGImageAlphaInfo::premultipliedLast);
}

using ShapeImagesDeathTest = ShapeImages;

TEST_F(ShapeImagesDeathTest, ANullColourThatIsNotOptionalIsAnError) {
  EXPECT_DEATH(withCircle(*square, 20, 2, nullptr, blue, false), "null colour");
  EXPECT_DEATH(withStar(*square, 20, 10, 5, nullptr, false), "null colour");
  EXPECT_DEATH(withDot(*square, 4, 6, {8, 2}, nullptr), "null colour");
  EXPECT_DEATH(verifiedIndicator({24, 24}, nullptr), "null colour");
}

TEST_F(ShapeImagesDeathTest, TooManyPointsAreAnErrorOnACanvasThatCannotBeToo) {
  for (const CGFloat diameter : {20.0, 1e9}) {
    EXPECT_DEATH(withStar(*square, diameter, 10, std::int64_t{1} << 62, red, false), "star's points");
    EXPECT_DEATH(withStar(*square, diameter, 10, -(std::int64_t{1} << 62) - 1, red, false), "star's points");
  }
}

TEST_F(ShapeImagesDeathTest, ABadgeWhoseCheckMarkIsTooHighForAFontSizeIsAnError) {
  EXPECT_DEATH(verifiedIndicator({2e18, 2e18}, red), "too high");
  EXPECT_DEATH(verifiedIndicator({24, 2e18}, red), "too high");
}

}  // namespace
}  // namespace Brisel
