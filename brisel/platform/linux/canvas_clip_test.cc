// What the Linux port's canvases paint under clips and masks, pixel by pixel.
#include <memory>
#include <new>

#include <gtest/gtest.h>

#include "brisel/platform/canvas.h"
#include "brisel/platform/linux/canvas_pixels_test.h"
#include "brisel/platform/linux/polygon_font_test.h"
#include "brisel/platform/linux/scarce_memory_test.h"

namespace Brisel::Platform {
namespace {

TEST(LinuxCanvasClip, DrawsOnlyWithinAllClipPaths) {
  const auto canvas = makeCanvas(6);
  canvas->clipToPath(UIBezierPath::bezierPathWithRect({{0, 0}, {4, 4}}));
  canvas->clipToPath(UIBezierPath::bezierPathWithRect({{2, 2}, {4, 4}}));
  canvas->fillRect(kAll, kSlate);
  canvas->drawBitmap({1, 1, {255, 0, 0, 255}}, {{0, 0}, {3, 6}});
  for (int y = 0; y < 6; ++y) {
    for (int x = 0; x < 6; ++x) {
      const bool isInside = x >= 2 && x < 4 && y >= 2 && y < 4;
      const Pixel expected = !isInside ? kNothing : x < 3 ? Pixel{255, 0, 0, 255} : kSlateBytes;
      EXPECT_EQ(at(*canvas, x, y), expected) << x << ' ' << y;
    }
  }
}

TEST(LinuxCanvasClip, AnEmptyClipPathLeavesNowhereToDraw) {
  UIBezierPath point;
  point.moveToPoint({1, 1});
  for (const UIBezierPath& path : {UIBezierPath(), point}) {
    const auto canvas = makeCanvas(4);
    canvas->clipToPath(path);
    canvas->fillRect(kAll, kSlate);
    canvas->strokePath(polygon({{0, 2}, {4, 2}}), kSlate);
    canvas->drawBitmap(colourful(4, 4), {{0, 0}, {4, 4}});
    EXPECT_TRUE(isBlank(canvas->bitmap()));
  }
}

TEST(LinuxCanvasClip, DrawsThroughAMasksAlphaUpright) {
  const auto canvas = makeCanvas(4);
  canvas->setInterpolationQuality(CGInterpolationQuality::none);
  canvas->clipToMask(alphaMask(2, 2, {255, 102, 51, 0}), {{0, 0}, {4, 4}});
  canvas->fillRect(kAll, UIColor::rgb(1, 0, 0));
  EXPECT_EQ(at(*canvas, 0, 0), (Pixel{255, 0, 0, 255}));
  EXPECT_EQ(at(*canvas, 1, 1), (Pixel{255, 0, 0, 255}));
  EXPECT_EQ(at(*canvas, 3, 0), (Pixel{102, 0, 0, 102}));
  EXPECT_EQ(at(*canvas, 0, 3), (Pixel{51, 0, 0, 51}));
  EXPECT_EQ(at(*canvas, 3, 3), kNothing);
}

TEST(LinuxCanvasClip, AMaskLetsNothingThroughOutsideItsRectangle) {
  const auto canvas = makeCanvas(4);
  canvas->clipToMask(alphaMask(1, 1, {255}), {{1, 1}, {2, 2}});
  canvas->fillRect(kAll, kSlate);
  for (int y = 0; y < 4; ++y) {
    for (int x = 0; x < 4; ++x) {
      EXPECT_EQ(at(*canvas, x, y), x % 3 == 0 || y % 3 == 0 ? kNothing : kSlateBytes) << x << ' ' << y;
    }
  }
}

TEST(LinuxCanvasClip, MasksUnderMasksMultiplyAndRestoreGivesTheOuterBack) {
  const auto canvas = makeCanvas(2);
  const CGRect all{{0, 0}, {2, 2}};
  canvas->clipToMask(alphaMask(2, 1, {204, 255}), all);
  canvas->save();
  canvas->clipToMask(alphaMask(1, 2, {102, 255}), all);
  canvas->setInterpolationQuality(CGInterpolationQuality::none);
  canvas->fillRect(all, kBlack);
  canvas->restore();
  EXPECT_NEAR(alphaAt(*canvas, 0, 0), 0.8 * 0.4 * 255, 1);

  const auto again = makeCanvas(2);
  again->setInterpolationQuality(CGInterpolationQuality::none);
  again->clipToMask(alphaMask(2, 1, {204, 255}), all);
  again->save();
  again->clipToMask(alphaMask(1, 2, {102, 255}), all);
  again->restore();
  again->fillRect(all, kBlack);
  EXPECT_EQ(alphaAt(*again, 0, 0), 204);
  EXPECT_EQ(alphaAt(*again, 1, 1), 255);
}

TEST(LinuxCanvasClip, MaskAndClipPathHoldTogetherInEitherOrder) {
  for (const bool isMaskFirst : {false, true}) {
    const auto canvas = makeCanvas(4);
    const auto clip = UIBezierPath::bezierPathWithRect({{2, 0}, {2, 4}});
    if (!isMaskFirst) canvas->clipToPath(clip);
    canvas->clipToMask(alphaMask(1, 1, {102}), {{0, 0}, {4, 2}});
    if (isMaskFirst) canvas->clipToPath(clip);
    canvas->fillRect(kAll, UIColor::rgb(0, 0, 1));
    canvas->strokePath(polygon({{0, 3.5}, {4, 3.5}}), kBlack);
    EXPECT_EQ(at(*canvas, 3, 1), (Pixel{0, 0, 102, 102}));
    EXPECT_EQ(at(*canvas, 1, 1), kNothing);
    EXPECT_EQ(at(*canvas, 3, 3), kNothing);
  }
}

TEST(LinuxCanvasClip, AClipsEdgeCountsOnceUnderAMask) {
  const auto canvas = makeCanvas(2);
  canvas->clipToPath(UIBezierPath::bezierPathWithRect({{0, 0}, {0.5, 2}}));
  canvas->clipToMask(alphaMask(1, 1, {255}), {{0, 0}, {2, 2}});
  canvas->fillRect(kAll, kBlack);
  EXPECT_NEAR(alphaAt(*canvas, 0, 0), 127.5, 1);
}

TEST(LinuxCanvasClip, TheClearBlendErasesThroughAMaskByItsAlpha) {
  for (const bool isOpaque : {false, true}) {
    const auto canvas = makeCanvas(2, 1, isOpaque);
    canvas->fillRect(kAll, kSlate);
    canvas->clipToMask(alphaMask(2, 2, {255, 102, 0, 255}), {{0, 0}, {2, 2}});
    canvas->setBlendMode(CGBlendMode::clear);
    canvas->fillRect({{0, 0}, {2, 2}}, UIColor::grey(0, 0));
    EXPECT_EQ(at(*canvas, 0, 0), isOpaque ? kBlackBytes : kNothing);
    EXPECT_NEAR(at(*canvas, 1, 0)[0], 51 * 0.6, 1);
    EXPECT_NEAR(alphaAt(*canvas, 1, 0), isOpaque ? 255 : 153, 1);
    EXPECT_EQ(at(*canvas, 0, 1), kSlateBytes);
  }
}

TEST(LinuxCanvasClip, ADrawingThatThrowsUnderAMaskLeavesNothingBehind) {
  if (!ScarceMemory::isPossible()) GTEST_SKIP() << "Sanitizers need memory of their own.";
  const Linux::FontFace face(engine(), Linux::makePolygonFont(), "");
  const PositionedGlyph most[] = {{32'767, {0, 0}}};  // its points want more memory than there will be
  const auto canvas = makeCanvas(4);
  canvas->save();
  canvas->clipToMask(alphaMask(1, 1, {255}), {{0, 0}, {4, 4}});
  {
    const ScarceMemory scarce(0);
    EXPECT_THROW(canvas->drawGlyphs(face, 10, most, kBlack), std::bad_alloc);
  }
  canvas->restore();
  canvas->fillRect(kAll, kSlate);
  EXPECT_EQ(at(*canvas, 2, 2), kSlateBytes);
}

TEST(LinuxCanvasClip, ACanvasWithoutMemoryForAMaskHasNoPixels) {
  if (!ScarceMemory::isPossible()) GTEST_SKIP() << "Sanitizers need memory of their own.";
  const auto canvas = makeCanvas(4000);
  canvas->fillRect(kAll, kSlate);
  canvas->save();
  {
    const ScarceMemory scarce(1 << 20);
    canvas->clipToMask(alphaMask(1, 1, {255}), kAll);  // 16 MB
  }
  canvas->fillRect(kAll, kWhite);
  canvas->restore();
  EXPECT_FALSE(canvas->bitmap().isValid());
  EXPECT_FALSE(canvas->takeBitmap().isValid());
}

}  // namespace
}  // namespace Brisel::Platform
