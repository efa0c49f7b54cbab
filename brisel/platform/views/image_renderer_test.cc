#include "brisel/platform/views/image_renderer.h"

#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "brisel/platform/screen.h"

#include "tests/recording_ports.h"

namespace Brisel::Platform {
namespace {

using Kind = RecordingEngine::CanvasCall::Kind;

constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();

class ImageRenderer : public testing::Test {
 protected:
  RecordingEngine& engine = recordingEngine();
};

TEST_F(ImageRenderer, MakesAnImageAsLargeAsItsCanvas) {
  UIGraphicsImageRendererFormat format;
  format.scale = 2;
  const auto image = UIGraphicsImageRenderer({10, 5}, format).image([](Canvas& canvas) {
    EXPECT_EQ(canvas.scale(), 2);
    canvas.fillRect({{0, 0}, {1, 1}}, UIColor::grey(0, 1));
  });
  EXPECT_EQ(image->size(), (CGSize{10, 5}));
  EXPECT_EQ(image->scale(), 2);
  EXPECT_EQ(image->bitmap()->width, 20);
  EXPECT_EQ(image->alphaInfo(), CGImageAlphaInfo::premultipliedLast);
  EXPECT_EQ(engine.record().canvases, (std::vector<RecordingEngine::CanvasSize>{{20, 10, 2, false}}));
  EXPECT_EQ(engine.record().fills.size(), 1U);
}

TEST_F(ImageRenderer, TakesTheMainScreensScaleUntilTold) {
  UIScreen::mainScreen().setScale(3);
  EXPECT_EQ(UIGraphicsImageRendererFormat().scale, 3);
  EXPECT_FALSE(UIGraphicsImageRendererFormat().opaque);
  EXPECT_EQ(UIGraphicsImageRenderer({1, 1}).image([](Canvas&) {})->bitmap()->width, 3);
}

TEST_F(ImageRenderer, MakesAnImageWithoutAlphaWhereOpaque) {
  UIGraphicsImageRendererFormat format;
  format.scale = 1;
  format.opaque = true;
  const auto image = UIGraphicsImageRenderer({1, 1}, format).image([](Canvas&) {});
  EXPECT_EQ(image->alphaInfo(), CGImageAlphaInfo::noneSkipLast);
  EXPECT_EQ(image->bitmap()->rgba, (std::vector<std::uint8_t>{0, 0, 0, 255}));
  EXPECT_TRUE(engine.record().canvases.at(0).isOpaque);
}

TEST_F(ImageRenderer, CountsAPartOfAPixelAsAWholeOne) {
  UIGraphicsImageRendererFormat format;
  format.scale = 1;
  const auto image = UIGraphicsImageRenderer({10.1, 5}, format).image([](Canvas&) {});
  EXPECT_EQ(image->size(), (CGSize{11, 5}));
}

TEST_F(ImageRenderer, MakesAnEmptyImageWithoutAskingWhereThereCanBeNoCanvas) {
  for (const CGSize size : {CGSize{0, 5}, CGSize{-1, 5}, CGSize{5, kInfinity}, CGSize{1e9, 1e9}}) {
    const auto image = UIGraphicsImageRenderer(size).image([](Canvas&) { ADD_FAILURE() << "there is no canvas"; });
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->bitmap(), nullptr);
  }
}

TEST_F(ImageRenderer, EndsTheProcessWhereItIsGivenNothingToDrawWith) {
  EXPECT_DEATH(UIGraphicsImageRenderer({1, 1}).image({}), "nothing to draw an image with");
  EXPECT_DEATH(UIGraphicsImageRenderer({0, 0}).image(nullptr), "nothing to draw an image with");
}

TEST_F(ImageRenderer, DrawsAnImageAtItsOwnSizeOrStretched) {
  const auto image = UIImage::imageWithBitmap({2, 1, std::vector<std::uint8_t>(8)}, 2);
  const auto canvas = engine.makeCanvas({10, 10}, 1);
  drawAtPoint(*image, *canvas, {3, 4});
  drawInRect(*image, *canvas, {{5, 6}, {7, 8}});
  drawAtPoint(*UIImage::init(), *canvas, {3, 4});
  drawInRect(*UIImage::init(), *canvas, {{5, 6}, {7, 8}});
  const auto calls = engine.record().calls;
  ASSERT_EQ(calls.size(), 2U);
  EXPECT_EQ(calls[0].kind, Kind::drawBitmap);
  EXPECT_EQ(calls[0].rect, (CGRect{{3, 4}, {1, 0.5}}));
  EXPECT_EQ(calls[1].rect, (CGRect{{5, 6}, {7, 8}}));
}

TEST_F(ImageRenderer, SaysWhyAFileIsNoPicture) {
  std::string problem;
  EXPECT_EQ(UIImage::imageWithData({}, 1, &problem), nullptr);
  EXPECT_EQ(problem, "an empty file");
  const std::uint8_t byte = 0;
  EXPECT_EQ(UIImage::imageWithData({&byte, 1}, 1, &problem), nullptr);
  EXPECT_EQ(problem, "a port without pictures");
  EXPECT_EQ(UIImage::imageWithData({&byte, 1}), nullptr);
}

TEST_F(ImageRenderer, WritesTheImagesOwnPixelsAndNothingOfAnEmptyOne) {
  const auto image = UIImage::imageWithBitmap({1, 1, {1, 2, 3, 4}}, 2);
  EXPECT_EQ(UIImagePNGRepresentation(*image), (std::vector<std::uint8_t>{1, 2, 3, 4}));
  EXPECT_TRUE(UIImagePNGRepresentation(*UIImage::init()).empty());
}

}  // namespace
}  // namespace Brisel::Platform
