// What is asked of a canvas, by the numbers; image_enlarging_linux_test.cc looks at pixels.
#include "brisel/infrastructure/image_enlarging.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/platform/port.h"
#include "brisel/platform/recording/engine.h"

#include "tests/scarce_memory.h"

namespace Brisel {
namespace {

using namespace Platform;
using Call = RecordingEngine::CanvasCall;
using Kind = Call::Kind;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint64_t kHuge = std::numeric_limits<std::uint64_t>::max();

class ImageEnlarging : public testing::Test {
 protected:
  ImageEnlarging() { setEngine(engine_); }

  static ImagePtr image(int width, int height, CGFloat scale = 1,
                        CGImageAlphaInfo alphaInfo = CGImageAlphaInfo::premultipliedLast) {
    const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4;
    return UIImage::imageWithBitmap({width, height, std::vector<std::uint8_t>(count, 200)}, scale, alphaInfo);
  }

  // The lines of the one path that was stroked: from and to.
  struct Line {
    CGPoint from, to;
    bool operator==(const Line&) const = default;
  };
  std::vector<Line> lines() const {
    std::vector<Line> lines;
    for (const Call& call : engine_->record().calls) {
      if (call.kind != Kind::strokePath) continue;
      EXPECT_THAT(lines, IsEmpty()) << "all lines are one path";
      const auto elements = call.path.elements();
      for (std::size_t i = 0; i + 1 < elements.size(); i += 2) {
        EXPECT_EQ(elements[i].kind, UIBezierPath::Element::Kind::move);
        EXPECT_EQ(elements[i + 1].kind, UIBezierPath::Element::Kind::line);
        lines.push_back({elements[i].end, elements[i + 1].end});
      }
    }
    return lines;
  }

  std::shared_ptr<RecordingEngine> engine_ = std::make_shared<RecordingEngine>();
  ColorPtr magenta_ = UIColor::initWithRed(1, 0, 1, 0.5);
};

TEST_F(ImageEnlarging, DrawsTheImageToTheWholeOfALargerCanvasOfItsScale) {
  const ImagePtr result = imageByScaling(*image(6, 4, 2), 3, CGInterpolationQuality::high, nullptr);
  ASSERT_TRUE(result);
  const auto record = engine_->record();
  EXPECT_THAT(record.canvases, ElementsAre(RecordingEngine::CanvasSize{18, 12, 2, false}));
  ASSERT_EQ(record.calls.size(), 2U);
  EXPECT_EQ(record.calls[0].kind, Kind::setInterpolationQuality);
  EXPECT_EQ(record.calls[0].quality, CGInterpolationQuality::high);
  EXPECT_EQ(record.calls[1].kind, Kind::drawBitmap);
  EXPECT_EQ(record.calls[1].rect, (CGRect{{0, 0}, {9, 6}}));
  EXPECT_EQ(result->scale(), 2);
}

TEST_F(ImageEnlarging, TheResultHasAlphaForAlphaInfoOneToFour) {
  for (std::uint32_t info = 0; info <= 7; ++info) {
    const auto alphaInfo = static_cast<CGImageAlphaInfo>(info);
    const bool isOpaque = info < 1 || info > 4;
    const ImagePtr receiver = image(2, 2, 1, alphaInfo);
    for (const auto interpolation : {CGInterpolationQuality::low, CGInterpolationQuality::none}) {
      engine_->forget();
      const ImagePtr result = imageByScaling(*receiver, 2, interpolation, magenta_);
      EXPECT_THAT(engine_->record().canvases, ElementsAre(RecordingEngine::CanvasSize{4, 4, 1, isOpaque})) << info;
      EXPECT_EQ(result->alphaInfo(), isOpaque ? CGImageAlphaInfo::noneSkipLast : CGImageAlphaInfo::premultipliedLast)
          << info;
    }
    EXPECT_EQ(imageByScaling(*receiver, 2, CGInterpolationQuality::none, nullptr)->alphaInfo(),
              isOpaque ? CGImageAlphaInfo::noneSkipLast : CGImageAlphaInfo::premultipliedLast)
        << info;
  }
}

TEST_F(ImageEnlarging, DrawsALineEachWayOfTwoByTwoPixels) {
  imageByScaling(*image(2, 2), 4, CGInterpolationQuality::none, magenta_);
  EXPECT_THAT(lines(), ElementsAre(Line{{0, 3.5}, {8, 3.5}}, Line{{3.5, 0}, {3.5, 8}}));
}

TEST_F(ImageEnlarging, StrokesOnceInTheGridColourADevicePixelWide) {
  imageByScaling(*image(4, 4, 2), 3, CGInterpolationQuality::default_, magenta_);
  const auto calls = engine_->record().calls;
  ASSERT_EQ(calls.size(), 3U);
  EXPECT_EQ(calls[2].kind, Kind::strokePath) << "over the picture";
  EXPECT_EQ(calls[2].color, *magenta_);
  EXPECT_EQ(calls[2].path.lineWidth(), 0.5);
}

// i counts source pixels, y is in points of the result, and its length is in points too.
TEST_F(ImageEnlarging, PlacesLinesInPointsForEachPixel) {
  imageByScaling(*image(3, 3, 2), 5, CGInterpolationQuality::none, magenta_);
  EXPECT_THAT(lines(), ElementsAre(Line{{0, 2.25}, {7.5, 2.25}}, Line{{0, 4.75}, {7.5, 4.75}},
                                   Line{{2.25, 0}, {2.25, 7.5}}, Line{{4.75, 0}, {4.75, 7.5}}));
}

TEST_F(ImageEnlarging, CountsHorizontalLinesByTheWidthAndVerticalOnesByTheHeight) {
  imageByScaling(*image(10, 2), 4, CGInterpolationQuality::none, magenta_);
  const auto all = lines();
  ASSERT_EQ(all.size(), 10U);
  for (std::size_t i = 0; i < 9; ++i) {
    const double y = static_cast<double>(i + 1) * 4 - 0.5;  // up to 35.5, far below the picture's 8
    EXPECT_EQ(all[i], (Line{{0, y}, {40, y}}));
  }
  EXPECT_EQ(all[9], (Line{{3.5, 0}, {3.5, 8}}));
}

// At some scales a size in points, multiplied by the scale again, is a little more than the pixels it came from; the
// count of lines goes by that number.
TEST_F(ImageEnlarging, CountsLinesUpToTheWidthTimesTheScaleAsADouble) {
  constexpr CGFloat kScale = 2.3;
  int odd = 0;
  for (int width = 1; width <= 300; ++width) {
    const ImagePtr receiver = image(width, 1, kScale);
    const CGFloat product = kScale * receiver->size().width;
    if (!(product > width)) continue;
    ++odd;
    engine_->forget();
    imageByScaling(*receiver, 2, CGInterpolationQuality::low, magenta_);
    ASSERT_EQ(lines().size(), static_cast<std::size_t>(width)) << width << " pixels: as many lines, not one less";
  }
  EXPECT_GT(odd, 0);
}

TEST_F(ImageEnlarging, OnePixelHasNoLines) {
  ASSERT_TRUE(imageByScaling(*image(1, 1), 4, CGInterpolationQuality::none, magenta_));
  EXPECT_THAT(lines(), IsEmpty());
}

TEST_F(ImageEnlarging, NeedsNoCanvasToRepeatPixels) {
  ASSERT_TRUE(imageByScaling(*image(2, 2), 4, CGInterpolationQuality::none, nullptr));
  EXPECT_THAT(engine_->record().canvases, IsEmpty());
}

TEST_F(ImageEnlarging, AFactorOfZeroOrAnEmptyImageGivesNull) {
  for (const auto interpolation : {CGInterpolationQuality::none, CGInterpolationQuality::high}) {
    for (const ColorPtr& color : {ColorPtr(), magenta_}) {
      EXPECT_EQ(imageByScaling(*image(2, 2), 0, interpolation, color), nullptr);
      EXPECT_EQ(imageByScaling(*UIImage::init(), 3, interpolation, color), nullptr);
      EXPECT_EQ(imageByScaling(*UIImage::init(), 0, interpolation, color), nullptr);
    }
  }
  EXPECT_THAT(engine_->record().calls, IsEmpty());
}

TEST_F(ImageEnlarging, WhatWouldBeTooLargeGivesNull) {
  for (const auto interpolation : {CGInterpolationQuality::none, CGInterpolationQuality::high}) {
    for (const ColorPtr& color : {ColorPtr(), magenta_}) {
      for (const std::uint64_t factor : {std::uint64_t{32'768}, std::uint64_t{1} << 32, kHuge / 4 + 1, kHuge}) {
        EXPECT_EQ(imageByScaling(*image(1, 1), factor, interpolation, color), nullptr) << factor;
      }
      EXPECT_EQ(imageByScaling(*image(2, 1), 16'384, interpolation, color), nullptr) << "32,768 pixels wide";
      EXPECT_EQ(imageByScaling(*image(1, 2), 16'384, interpolation, color), nullptr) << "32,768 pixels high";
      EXPECT_EQ(imageByScaling(*image(2, 2), 5'793, interpolation, color), nullptr) << "11,586 squared is above 2^27";
    }
  }
  EXPECT_THAT(engine_->record().canvases, IsEmpty());
}

TEST_F(ImageEnlarging, WhatFindsNoMemoryGivesNull) {
  const ImagePtr receiver = image(10, 10);
  if (!Tests::ScarceMemory::isPossible()) GTEST_SKIP() << "The thread sanitizer allocates by itself.";
  const Tests::ScarceMemory scarce(100'000);
  EXPECT_EQ(imageByScaling(*receiver, 20, CGInterpolationQuality::none, nullptr), nullptr);
  EXPECT_EQ(imageByScaling(*receiver, 20, CGInterpolationQuality::none, magenta_), nullptr);
}

TEST_F(ImageEnlarging, AsLargeAsCanBeIsMade) {
  const ImagePtr result = imageByScaling(*image(31, 1), 1'057, CGInterpolationQuality::none, nullptr);
  ASSERT_TRUE(result);
  EXPECT_EQ(result->bitmap()->width, 32'767);
  EXPECT_EQ(result->bitmap()->height, 1'057);
}

// A size in points that is infinite is no size for a canvas; no line is counted towards it.
TEST_F(ImageEnlarging, AScaleNextToZeroGivesNullWhereACanvasIsNeeded) {
  EXPECT_EQ(imageByScaling(*image(2, 2, 1e-310), 2, CGInterpolationQuality::none, magenta_), nullptr);
  EXPECT_EQ(imageByScaling(*image(2, 2, 1e-310), 2, CGInterpolationQuality::low, nullptr), nullptr);
}

}  // namespace
}  // namespace Brisel
