// What the Linux port's canvases paint, pixel by pixel. Their clips are in canvas_clip_test.cc.
#include "brisel/platform/canvas.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "brisel/platform/linux/canvas_pixels_test.h"
#include "brisel/platform/port.h"

namespace Brisel::Platform {
namespace {

// --- Filling and stroking ---

TEST(LinuxCanvas, FillsPathsInTheirColoursWithoutExchangingRedAndBlue) {
  const auto canvas = makeCanvas(4);
  canvas->fillPath(UIBezierPath::bezierPathWithRect({{1, 1}, {2, 2}}), kSlate);
  EXPECT_EQ(at(*canvas, 1, 1), kSlateBytes);
  EXPECT_EQ(at(*canvas, 2, 2), kSlateBytes);
  EXPECT_EQ(at(*canvas, 0, 1), kNothing);
  EXPECT_EQ(at(*canvas, 3, 2), kNothing);
}

TEST(LinuxCanvas, ClosesOpenPathsForFillingAndCoversPixelsByArea) {
  const auto canvas = makeCanvas(4);
  canvas->fillPath(polygon({{0, 0}, {4, 0}, {0, 4}}), kBlack);
  EXPECT_EQ(alphaAt(*canvas, 0, 0), 255);
  EXPECT_EQ(alphaAt(*canvas, 3, 3), 0);
  for (int x = 0; x < 4; ++x) EXPECT_NEAR(alphaAt(*canvas, x, 3 - x), 127.5, 3);
}

TEST(LinuxCanvas, FillsByTheNonzeroRule) {
  const auto twice = [](std::initializer_list<CGPoint> inner) {
    UIBezierPath path = UIBezierPath::bezierPathWithRect({{0, 0}, {6, 6}});
    for (const CGPoint& p : inner) p == *inner.begin() ? path.moveToPoint(p) : path.addLineToPoint(p);
    path.closePath();
    return path;
  };
  const auto same = makeCanvas(6);
  same->fillPath(twice({{2, 2}, {4, 2}, {4, 4}, {2, 4}}), kBlack);
  EXPECT_EQ(alphaAt(*same, 3, 3), 255);
  const auto opposite = makeCanvas(6);
  opposite->fillPath(twice({{2, 2}, {2, 4}, {4, 4}, {4, 2}}), kBlack);
  EXPECT_EQ(alphaAt(*opposite, 3, 3), 0);
  EXPECT_EQ(alphaAt(*opposite, 1, 1), 255);
}

TEST(LinuxCanvas, FollowsCurvesByTheirControls) {
  const auto canvas = makeCanvas(20);
  UIBezierPath path;
  path.moveToPoint({0, 20});
  path.addCurveToPoint({20, 20}, {0, 0}, {20, 0});  // highest in its middle, at 5
  canvas->fillPath(path, kBlack);
  EXPECT_EQ(alphaAt(*canvas, 10, 6), 255);
  EXPECT_EQ(alphaAt(*canvas, 10, 3), 0);
  EXPECT_EQ(alphaAt(*canvas, 1, 5), 0);
}

TEST(LinuxCanvas, StrokesWithThePathsWidthButtEndsAndMitredJoins) {
  const auto canvas = makeCanvas(10, 2);
  UIBezierPath path = polygon({{1, 8}, {1, 2}, {7, 2}});
  path.setLineWidth(1);
  canvas->strokePath(path, kSlate);  // in pixels: 2 wide, from (2, 16) by (2, 4) to (14, 4)
  EXPECT_EQ(at(*canvas, 1, 10), kSlateBytes);
  EXPECT_EQ(at(*canvas, 2, 10), kSlateBytes);
  EXPECT_EQ(alphaAt(*canvas, 0, 10), 0);
  EXPECT_EQ(alphaAt(*canvas, 3, 10), 0);
  EXPECT_EQ(alphaAt(*canvas, 1, 3), 255);  // the mitre's corner
  EXPECT_EQ(alphaAt(*canvas, 13, 4), 255);
  EXPECT_EQ(alphaAt(*canvas, 14, 4), 0);  // beyond the butt end
  EXPECT_EQ(alphaAt(*canvas, 2, 16), 0);
}

TEST(LinuxCanvas, SegmentsBehindAClosedSubpathStartFromItsFirstPoint) {
  const auto canvas = makeCanvas(8);
  UIBezierPath path = UIBezierPath::bezierPathWithRect({{0, 4}, {2, 2}});
  path.addLineToPoint({8, 4});
  path.addLineToPoint({8, 0});
  canvas->fillPath(path, kBlack);  // also the triangle (0, 4), (8, 4), (8, 0)
  EXPECT_EQ(alphaAt(*canvas, 7, 2), 255);
  EXPECT_EQ(alphaAt(*canvas, 1, 1), 0);
}

// --- Blending ---

TEST(LinuxCanvas, BlendsAsTheOverFormulaSaysWithinOneLevel) {
  EXPECT_TRUE(rc::check([] {
    Bitmap below{1, 1, {}};
    const int belowAlpha = *rc::gen::inRange(0, 256);
    for (int c = 0; c < 3; ++c) below.rgba.push_back(static_cast<std::uint8_t>(*rc::gen::inRange(0, belowAlpha + 1)));
    below.rgba.push_back(static_cast<std::uint8_t>(belowAlpha));
    std::array<CGFloat, 4> paint{};  // red, green, blue, alpha
    for (CGFloat& component : paint) component = *rc::gen::inRange(0, 1001) / 1000.0;

    const auto canvas = makeCanvas(1);
    canvas->drawBitmap(below, {{0, 0}, {1, 1}});
    RC_ASSERT(canvas->bitmap() == below);
    canvas->fillRect({{0, 0}, {1, 1}}, UIColor::rgb(paint[0], paint[1], paint[2], paint[3]));
    const Pixel found = at(*canvas, 0, 0);
    const CGFloat alpha = std::round(paint[3] * 255) / 255;
    for (std::size_t c = 0; c < 4; ++c) {
      const CGFloat source = c == 3 ? paint[3] : paint[c] * paint[3];
      const CGFloat expected = std::round(source * 255) + below.rgba[c] * (1 - alpha);
      RC_ASSERT(std::abs(found[c] - expected) <= 1);
    }
  }));
}

TEST(LinuxCanvas, PaintsAColourInTheNearestByte) {
  const auto canvas = makeCanvas(1);
  for (int byte = 0; byte < 256; ++byte) {
    const CGFloat asDesigned = std::round(byte / 255.0 * 1000) / 1000;
    canvas->fillRect(kAll, UIColor::rgb(asDesigned, 0, 1));
    ASSERT_EQ(at(*canvas, 0, 0), (Pixel{byte, 0, 255, 255}));
  }
}

TEST(LinuxCanvas, TakesComponentsBeyondTheirRangeAsItsEnds) {
  constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();
  const auto canvas = makeCanvas(1);
  canvas->fillRect(kAll, UIColor::rgb(1.5, -0.5, kNaN, 2));
  EXPECT_EQ(at(*canvas, 0, 0), (Pixel{255, 0, 0, 255}));
  canvas->fillRect(kAll, UIColor::rgb(0, 1, 1, -1));
  canvas->fillRect(kAll, UIColor::rgb(0, 1, 1, kNaN));
  EXPECT_EQ(at(*canvas, 0, 0), (Pixel{255, 0, 0, 255}));
}

TEST(LinuxCanvas, BlendsBitmapsByTheSameFormula) {
  const Bitmap above{1, 1, {10, 50, 90, 100}};
  const auto canvas = makeCanvas(1);
  canvas->fillRect(kAll, kSlate);
  canvas->drawBitmap(above, {{0, 0}, {1, 1}});
  const Pixel found = at(*canvas, 0, 0);
  for (std::size_t c = 0; c < 4; ++c) EXPECT_NEAR(found[c], above.rgba[c] + kSlateBytes[c] * (155 / 255.0), 1);
}

TEST(LinuxCanvas, TheClearBlendErasesByCoverageWhateverTheColour) {
  const auto canvas = makeCanvas(4);
  canvas->fillRect(kAll, kSlate);
  canvas->setBlendMode(CGBlendMode::clear);
  canvas->fillRect({{0, 0}, {1, 1}}, UIColor::grey(0, 0));
  canvas->fillRect({{1, 0}, {1, 1}}, kWhite);
  canvas->fillRect({{2, 0}, {0.5, 1}}, UIColor::rgb(1, 0, 0, 0.25));
  canvas->drawBitmap({1, 1, {0, 0, 0, 0}}, {{0, 1}, {1, 1}});
  canvas->fillPath(UIBezierPath::bezierPathWithRect({{1, 1}, {1, 1}}), UIColor::grey(0, 0));
  canvas->strokePath(polygon({{2, 1.5}, {3, 1.5}}), UIColor::grey(0, 0));
  canvas->setBlendMode(CGBlendMode::normal);
  for (const auto& [x, y] : {std::pair{0, 0}, {1, 0}, {0, 1}, {1, 1}, {2, 1}}) {
    EXPECT_EQ(at(*canvas, x, y), kNothing) << x << ' ' << y;
  }
  EXPECT_NEAR(alphaAt(*canvas, 2, 0), 127.5, 1);
  EXPECT_NEAR(at(*canvas, 2, 0)[2], 76.5, 1);
  EXPECT_EQ(at(*canvas, 3, 0), kSlateBytes);
  EXPECT_EQ(at(*canvas, 3, 1), kSlateBytes);
  canvas->fillRect({{0, 0}, {1, 1}}, kSlate);
  EXPECT_EQ(at(*canvas, 0, 0), kSlateBytes);
}

TEST(LinuxCanvas, TheClearBlendLeavesBlackOnAnOpaqueCanvas) {
  const auto canvas = makeCanvas(4, 1, true);
  canvas->fillRect(kAll, kSlate);
  canvas->setBlendMode(CGBlendMode::clear);
  canvas->fillRect({{0, 0}, {1, 1}}, kWhite);
  canvas->fillRect({{2, 0}, {0.5, 1}}, UIColor::grey(0, 0));
  EXPECT_EQ(at(*canvas, 0, 0), kBlackBytes);
  EXPECT_NEAR(at(*canvas, 2, 0)[2], 76.5, 1);
  EXPECT_TRUE(isOpaqueThroughout(canvas->bitmap()));
}

TEST(LinuxCanvas, RestoreTakesBackTheBlendModeTheQualityAndTheClips) {
  const auto canvas = makeCanvas(4);
  canvas->save();
  canvas->setBlendMode(CGBlendMode::clear);
  canvas->setInterpolationQuality(CGInterpolationQuality::none);
  canvas->clipToPath(UIBezierPath::bezierPathWithRect({{0, 0}, {1, 1}}));
  canvas->clipToMask(alphaMask(1, 1, {0}), {{0, 0}, {4, 4}});
  canvas->restore();
  canvas->fillRect({{0, 0}, {4, 1}}, kSlate);
  EXPECT_EQ(at(*canvas, 0, 0), kSlateBytes);
  EXPECT_EQ(at(*canvas, 3, 0), kSlateBytes);
  canvas->drawBitmap({2, 1, {0, 0, 0, 255, 255, 255, 255, 255}}, {{0, 1}, {4, 1}});
  EXPECT_NE(at(*canvas, 1, 1), kBlackBytes);  // smooth again
}

// --- Bitmaps ---

TEST(LinuxCanvas, DrawsABitmapOfItsOwnSizeAtWholePixelsBitForBit) {
  const Bitmap picture = colourful(12, 9);
  for (const CGFloat scale : {1.0, 2.0, 3.0, 1.5, 2.625}) {
    for (const CGInterpolationQuality quality : kQualities) {
      const auto canvas = makeCanvas(30 / scale, scale);
      canvas->setInterpolationQuality(quality);
      canvas->drawBitmap(picture, {{5 / scale, 7 / scale}, {12 / scale, 9 / scale}});
      const Bitmap found = canvas->bitmap();
      for (int y = 0; y < 9; ++y) {
        for (int x = 0; x < 12; ++x) ASSERT_EQ(at(found, x + 5, y + 7), at(picture, x, y)) << scale;
      }
      EXPECT_EQ(at(found, 4, 7), kNothing);
      EXPECT_EQ(at(found, 17, 15), kNothing);
    }
  }
}

TEST(LinuxCanvas, AStretchedBitmapHasCrispEdges) {
  const Bitmap slate{2, 2,
                     std::vector<std::uint8_t>{51, 102, 153, 255, 51, 102, 153, 255,  //
                                               51, 102, 153, 255, 51, 102, 153, 255}};
  for (const CGInterpolationQuality quality : kQualities) {
    for (const CGRect& rect : {CGRect{{2, 1}, {7, 8}}, CGRect{{2, 1}, {1, 8}}, CGRect{{2, 1}, {7, 1}}}) {
      const auto canvas = makeCanvas(10);
      canvas->setInterpolationQuality(quality);
      canvas->drawBitmap(slate, rect);
      for (int y = 0; y < 10; ++y) {
        for (int x = 0; x < 10; ++x) {
          const bool isInside = x >= 2 && x < 2 + rect.size.width && y >= 1 && y < 1 + rect.size.height;
          ASSERT_EQ(at(*canvas, x, y), isInside ? kSlateBytes : kNothing) << x << ' ' << y;
        }
      }
    }
  }
}

TEST(LinuxCanvas, WithoutInterpolationPixelsAreRepeatedAndElseMixed) {
  const Bitmap two{2, 1, {255, 0, 0, 255, 0, 0, 255, 255}};
  const auto canvas = makeCanvas(8);
  canvas->setInterpolationQuality(CGInterpolationQuality::none);
  canvas->drawBitmap(two, {{0, 0}, {8, 2}});
  for (int x = 0; x < 8; ++x) EXPECT_EQ(at(*canvas, x, 1), (x < 4 ? Pixel{255, 0, 0, 255} : Pixel{0, 0, 255, 255}));
  canvas->setInterpolationQuality(CGInterpolationQuality::high);
  canvas->drawBitmap(two, {{0, 0}, {8, 2}});
  EXPECT_GT(at(*canvas, 3, 1)[2], 0);
  EXPECT_GT(at(*canvas, 3, 1)[0], at(*canvas, 4, 1)[0]);
}

TEST(LinuxCanvas, NoQualityLeavesAColourAboveItsAlpha) {
  const Bitmap two{2, 1, {0, 0, 0, 255, 16, 32, 48, 128}};
  for (const CGInterpolationQuality quality : kQualities) {
    for (const CGFloat side : {0.7, 1.3, 3.3, 7.9}) {
      const auto canvas = makeCanvas(10);
      canvas->setInterpolationQuality(quality);
      canvas->drawBitmap(two, {{1, 1}, {side, 8.4 - side}});
      canvas->drawBitmap(colourful(7, 7), {{0.3, 0.3}, {8.4 - side, side}});
      const Bitmap bitmap = canvas->bitmap();
      for (std::size_t i = 0; i < bitmap.rgba.size(); i += 4) {
        const std::uint8_t* pixel = &bitmap.rgba[i];
        ASSERT_LE(std::max({pixel[0], pixel[1], pixel[2]}), pixel[3]) << side << ' ' << i;
      }
    }
  }
}

TEST(LinuxCanvas, TakesWhatRoundingLeftBesideAWholePixelAsThatPixel) {
  const auto canvas = engine().makeCanvas({19.428571428571427, 19.428571428571427}, 2.625);
  const Bitmap picture = colourful(51, 51);
  canvas->drawBitmap(picture, {{0, 0}, {51 / 2.625, 51 / 2.625}});
  EXPECT_EQ(canvas->bitmap(), picture);  // 51 pixels on each side
  canvas->fillRect({{0, 0}, {19.428571428571427, 19.428571428571427}}, kSlate);
  EXPECT_EQ(at(*canvas, 50, 50), kSlateBytes);
}

TEST(LinuxCanvas, SqueezesBitmapsIntoNextToNothingWithoutHarm) {
  const auto canvas = makeCanvas(8);
  const Bitmap wide{400, 1, std::vector<std::uint8_t>(1600, 255)};
  for (const CGFloat width : {1e-300, 1e-9, 1e-5, 0.004, 0.01, 0.3}) {
    canvas->drawBitmap(wide, {{2.3, 2}, {width, 2}});
    canvas->drawBitmap(wide, {{2, 2.3}, {2, width}});
    canvas->save();
    canvas->clipToMask(wide, {{2, 2.3}, {width, width}});
    canvas->fillRect(kAll, kSlate);
    canvas->restore();
  }
  canvas->drawBitmap({40'000, 1, std::vector<std::uint8_t>(160'000, 255)}, {{2, 2}, {2, 2}});  // too wide for Cairo
  canvas->fillRect(kAll, kSlate);
  EXPECT_EQ(at(*canvas, 5, 5), kSlateBytes);
  EXPECT_EQ(at(*canvas, 2, 2), kSlateBytes);
}

// --- Canvases ---

TEST(LinuxCanvas, AnOpaqueCanvasBeginsBlackAndStaysOpaque) {
  const auto canvas = makeCanvas(6, 1, true);
  EXPECT_EQ(at(*canvas, 3, 3), kBlackBytes);
  const CGRect all{{0, 0}, {6, 6}};
  canvas->fillRect(all, UIColor::rgb(1, 0, 0, 0.3));
  canvas->drawBitmap(colourful(3, 3), all);
  canvas->clipToMask(alphaMask(2, 2, {255, 100, 30, 0}), all);
  canvas->drawBitmap(colourful(3, 3), all);
  canvas->fillRect(all, UIColor::rgb(1, 0, 0, 0));
  canvas->setBlendMode(CGBlendMode::clear);
  canvas->fillPath(UIBezierPath::bezierPathWithOvalInRect(all), UIColor::grey(0, 0));
  canvas->strokePath(UIBezierPath::bezierPathWithOvalInRect(all), UIColor::grey(0, 0));
  canvas->drawBitmap(colourful(3, 3), all);
  EXPECT_TRUE(isOpaqueThroughout(canvas->bitmap()));
}

TEST(LinuxCanvas, DrawsNothingOnceItsBitmapIsTaken) {
  const auto canvas = makeCanvas(4);
  canvas->fillRect(kAll, kSlate);
  const Bitmap before = canvas->bitmap();
  const Bitmap taken = canvas->takeBitmap();
  EXPECT_EQ(taken, before);
  canvas->save();
  canvas->clipToPath(UIBezierPath::bezierPathWithRect({{0, 0}, {2, 2}}));
  canvas->clipToMask(alphaMask(1, 1, {100}), kAll);
  canvas->fillRect(kAll, kWhite);
  canvas->fillPath(UIBezierPath::bezierPathWithRect(kAll), kWhite);
  canvas->strokePath(UIBezierPath::bezierPathWithRect(kAll), kWhite);
  canvas->drawBitmap(colourful(2, 2), kAll);
  canvas->restore();
  EXPECT_EQ(taken, before);
  EXPECT_FALSE(canvas->bitmap().isValid());
  EXPECT_FALSE(canvas->takeBitmap().isValid());
}

TEST(LinuxCanvas, ACopyOfItsPixelsIsIndependent) {
  const auto canvas = makeCanvas(1);
  const Bitmap before = canvas->bitmap();
  canvas->fillRect(kAll, kSlate);
  EXPECT_TRUE(isBlank(before));
  EXPECT_EQ(at(*canvas, 0, 0), kSlateBytes);
}

TEST(LinuxCanvas, HugeDistancesDoNoHarm) {
  for (const CGFloat huge : {1e300, 1e18, 1e10}) {
    const auto canvas = makeCanvas(4, 2);
    const std::vector<CGRect> rects{{{-huge, -huge}, {huge, huge}},       {{huge, 0}, {huge, huge}},
                                    {{-huge, 0}, {2 * huge, 1e-300}},     {{0, -huge}, {1e-300, 2 * huge}},
                                    {{-huge, -huge}, {huge * 1.5, 1e-9}}, {{1, 1}, {huge, 1e-300}}};
    canvas->save();
    for (const CGRect& rect : rects) {
      canvas->fillRect(rect, kBlack);
      UIBezierPath path = UIBezierPath::bezierPathWithOvalInRect(rect);
      canvas->fillPath(path, kBlack);
      path.setLineWidth(huge);
      canvas->strokePath(path, kBlack);
      canvas->drawBitmap(colourful(3, 3), rect);
      canvas->save();
      canvas->clipToMask(colourful(3, 3), rect);
      canvas->fillRect(rect, kBlack);
      canvas->restore();
      canvas->clipToPath(path);
    }
    canvas->restore();
    canvas->setBlendMode(CGBlendMode::clear);
    canvas->fillRect(kAll, kBlack);
    EXPECT_TRUE(isBlank(canvas->bitmap()));
    canvas->setBlendMode(CGBlendMode::normal);
    canvas->fillRect({{-huge, -huge}, {2 * huge, 2 * huge}}, kSlate);
    EXPECT_EQ(at(*canvas, 7, 7), kSlateBytes);
    canvas->fillPath(UIBezierPath::bezierPathWithRect({{-huge, -huge}, {2 * huge, 2 * huge}}), kWhite);
    EXPECT_EQ(at(*canvas, 0, 0), (Pixel{255, 255, 255, 255}));
    canvas->drawBitmap({1, 1, {0, 0, 0, 255}}, {{-huge, -huge}, {2 * huge, 2 * huge}});
    EXPECT_EQ(at(*canvas, 3, 3), kBlackBytes);
  }
}

}  // namespace
}  // namespace Brisel::Platform
