#include "brisel/platform/image.h"

#include <limits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Brisel::Platform {
namespace {

using testing::ElementsAre;

constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();
constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();

Bitmap bitmapOf(int width, int height) {
  return {width, height, std::vector<std::uint8_t>(static_cast<std::size_t>(width * height) * 4, 100)};
}

TEST(Image, WithoutABitmapHasNoSize) {
  const auto image = UIImage::init();
  EXPECT_EQ(image->bitmap(), nullptr);
  EXPECT_EQ(image->size(), (CGSize{0, 0}));
  EXPECT_EQ(image->scale(), 1);
  EXPECT_EQ(image->renderingMode(), UIImageRenderingMode::automatic);
  EXPECT_NE(image, UIImage::init());  // each is a new object
}

TEST(Image, IsAsLargeAsItsPixelsDividedByItsScale) {
  EXPECT_EQ(UIImage::imageWithBitmap(bitmapOf(6, 3), 3)->size(), (CGSize{2, 1}));
  EXPECT_EQ(UIImage::imageWithBitmap(bitmapOf(5, 2), 2)->size(), (CGSize{2.5, 1}));
  EXPECT_EQ(UIImage::imageWithBitmap(bitmapOf(1, 1), 0.5)->size(), (CGSize{2, 2}));
}

TEST(Image, TakesAnImpossibleScaleAsOne) {
  for (const CGFloat scale : {0.0, -2.0, kNaN, kInfinity, -kInfinity}) {
    const auto image = UIImage::imageWithBitmap(bitmapOf(4, 2), scale);
    EXPECT_EQ(image->scale(), 1);
    EXPECT_EQ(image->size(), (CGSize{4, 2}));
  }
}

TEST(Image, OfAnInvalidBitmapIsEmpty) {
  for (const Bitmap& bitmap : {Bitmap{}, Bitmap{2, 2, std::vector<std::uint8_t>(15)},
                               Bitmap{-1, -1, std::vector<std::uint8_t>(4)}, Bitmap{0, 2, {}}}) {
    const auto image = UIImage::imageWithBitmap(bitmap, 2);
    EXPECT_EQ(image->bitmap(), nullptr);
    EXPECT_EQ(image->size(), (CGSize{0, 0}));
  }
}

TEST(Image, OfAKindWithoutAlphaIsOpaqueInItsPixelsToo) {
  using Info = CGImageAlphaInfo;
  for (const Info info : {Info::none, Info::noneSkipLast, Info::noneSkipFirst}) {
    const auto image = UIImage::imageWithBitmap({1, 1, {1, 2, 3, 4}}, 1, info);
    EXPECT_THAT(image->bitmap()->rgba, ElementsAre(1, 2, 3, 255));
    EXPECT_EQ(image->alphaInfo(), info);
  }
  for (const Info info : {Info::premultipliedLast, Info::premultipliedFirst, Info::last, Info::first, Info::only}) {
    const auto image = UIImage::imageWithBitmap({1, 1, {1, 2, 3, 4}}, 1, info);
    EXPECT_THAT(image->bitmap()->rgba, ElementsAre(1, 2, 3, 4));
    EXPECT_EQ(image->alphaInfo(), info);
  }
}

TEST(Image, HasTheAlphaKindsPublishedNumbers) {
  EXPECT_EQ(static_cast<int>(CGImageAlphaInfo::none), 0);
  EXPECT_EQ(static_cast<int>(CGImageAlphaInfo::premultipliedLast), 1);
  EXPECT_EQ(static_cast<int>(CGImageAlphaInfo::premultipliedFirst), 2);
  EXPECT_EQ(static_cast<int>(CGImageAlphaInfo::last), 3);
  EXPECT_EQ(static_cast<int>(CGImageAlphaInfo::first), 4);
  EXPECT_EQ(static_cast<int>(CGImageAlphaInfo::noneSkipLast), 5);
  EXPECT_EQ(static_cast<int>(CGImageAlphaInfo::noneSkipFirst), 6);
  EXPECT_EQ(static_cast<int>(CGImageAlphaInfo::only), 7);
}

TEST(Image, InAnotherRenderingModeSharesItsPixels) {
  const auto image = UIImage::imageWithBitmap(bitmapOf(4, 2), 2, CGImageAlphaInfo::last);
  const auto original = image->imageWithRenderingMode(UIImageRenderingMode::alwaysOriginal);
  EXPECT_EQ(original->renderingMode(), UIImageRenderingMode::alwaysOriginal);
  EXPECT_EQ(image->renderingMode(), UIImageRenderingMode::automatic);
  EXPECT_EQ(original->bitmap(), image->bitmap());
  EXPECT_EQ(original->scale(), 2);
  EXPECT_EQ(original->alphaInfo(), CGImageAlphaInfo::last);
}

}  // namespace
}  // namespace Brisel::Platform
