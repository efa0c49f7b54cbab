// Enlarged images, pixel by pixel, as the port that ships draws them.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "brisel/infrastructure/image_comparison.h"
#include "brisel/infrastructure/image_enlarging.h"

#include "tests/written_image_scaling.h"

namespace Brisel {
namespace {

using namespace Platform;
using Rgba = std::array<std::uint8_t, 4>;

constexpr Rgba kMagenta{255, 0, 255, 255};

Rgba at(const UIImage& image, int x, int y) {
  const std::uint8_t* p = image.bitmap()->pixel(x, y);
  return {p[0], p[1], p[2], p[3]};
}

// An image of greys, each pixel darker than the one before it.
ImagePtr greys(int width, int height, CGFloat scale = 1) {
  Bitmap bitmap{width, height, {}};
  for (int i = 0; i < width * height; ++i) {
    const auto grey = static_cast<std::uint8_t>(200 - i);
    bitmap.rgba.insert(bitmap.rgba.end(), {grey, grey, grey, 255});
  }
  return UIImage::imageWithBitmap(std::move(bitmap), scale);
}

// Each pixel of the result, where `isLine` says that the grid is and where it is not.
template <class IsLine>
void expectGrid(const UIImage& source, const ImagePtr& result, int factor, const IsLine& isLine) {
  ASSERT_TRUE(result && result->bitmap());
  ASSERT_EQ(result->bitmap()->width, source.bitmap()->width * factor);
  ASSERT_EQ(result->bitmap()->height, source.bitmap()->height * factor);
  for (int y = 0; y < result->bitmap()->height; ++y) {
    for (int x = 0; x < result->bitmap()->width; ++x) {
      EXPECT_EQ(at(*result, x, y), isLine(x, y) ? kMagenta : at(source, x / factor, y / factor)) << x << ", " << y;
    }
  }
}

const ColorPtr& magenta() {
  static const ColorPtr color = UIColor::initWithRed(1, 0, 1, 1);
  return color;
}

TEST(EnlargedPixels, AreSquaresOfTheirLikes) {
  const ImagePtr source = greys(5, 3);
  expectGrid(*source, imageByScaling(*source, 7, CGInterpolationQuality::none, nullptr), 7,
             [](int, int) { return false; });
}

TEST(EnlargedPixels, HaveALineEachWayInTwoByTwo) {
  const ImagePtr source = greys(2, 2);
  expectGrid(*source, imageByScaling(*source, 4, CGInterpolationQuality::none, magenta()), 4,
             [](int x, int y) { return x == 3 || y == 3; });
}

TEST(EnlargedPixels, HaveLinesADevicePixelWideAtAnyScale) {
  for (const CGFloat scale : {2.0, 3.0, 2.625}) {
    const ImagePtr source = greys(6, 6, scale);
    const ImagePtr result = imageByScaling(*source, 5, CGInterpolationQuality::none, magenta());
    expectGrid(*source, result, 5, [](int x, int y) { return (x % 5 == 4 && x < 29) || (y % 5 == 4 && y < 29); });
    EXPECT_EQ(result->scale(), scale);
  }
}

// Ten wide and two high: nine horizontal lines, of which two fall into the picture, the second on its very edge; and
// one vertical line.
TEST(EnlargedPixels, HaveTheirLinesCountedCrosswise) {
  const ImagePtr wide = greys(10, 2);
  expectGrid(*wide, imageByScaling(*wide, 4, CGInterpolationQuality::none, magenta()), 4,
             [](int x, int y) { return x == 3 || y == 3 || y == 7; });
  const ImagePtr high = greys(2, 10);
  expectGrid(*high, imageByScaling(*high, 4, CGInterpolationQuality::none, magenta()), 4,
             [](int x, int y) { return y == 3 || x == 3 || x == 7; });
}

// 255 x 0.5 over 0, once: 128. Laid on twice it would be 191.
TEST(EnlargedPixels, AreCoveredOnceWhereTranslucentLinesCross) {
  const ImagePtr source = UIImage::imageWithBitmap({2, 2, std::vector<std::uint8_t>(16, 0)}, 1);
  const ImagePtr result = imageByScaling(*source, 4, CGInterpolationQuality::none, UIColor::initWithRed(1, 1, 1, 0.5));
  EXPECT_EQ(at(*result, 3, 3), at(*result, 3, 0));
  EXPECT_NEAR(at(*result, 3, 3)[3], 128, 1);
  EXPECT_EQ(at(*result, 0, 0), (Rgba{0, 0, 0, 0}));
}

// Where the nearest pixel is found in fixed point, a factor like this strays.
TEST(EnlargedPixels, AreExactByFactorsThatFixedPointCannotTell) {
  const ImagePtr source = greys(100, 1);
  const ImagePtr result = imageByScaling(*source, 301, CGInterpolationQuality::none, magenta());
  for (int x = 0; x < 30'100; ++x) ASSERT_EQ(at(*result, x, 0), at(*source, x / 301, 0)) << x;
}

TEST(EnlargedPixels, AreSmoothedWhereAskedFor) {
  const ImagePtr source = UIImage::imageWithBitmap({2, 1, {0, 0, 0, 255, 250, 250, 250, 255}}, 1);
  for (const auto interpolation : {CGInterpolationQuality::default_, CGInterpolationQuality::low,
                                   CGInterpolationQuality::medium, CGInterpolationQuality::high}) {
    const ImagePtr result = imageByScaling(*source, 8, interpolation, nullptr);
    EXPECT_LT(at(*result, 0, 4)[0], 60);
    for (const int x : {7, 8}) {  // where the two meet, something between them
      EXPECT_GT(at(*result, x, 4)[0], 0);
      EXPECT_LT(at(*result, x, 4)[0], 250);
    }
    EXPECT_GT(at(*result, 15, 4)[0], 190);
  }
}

TEST(EnlargedPixels, KeepTheirColourWithoutAlphaWhereTheAlphaInfoHasNone) {
  const std::vector<std::uint8_t> rgba{10, 20, 30, 40, 50, 60, 70, 80};
  for (const auto alphaInfo : {CGImageAlphaInfo::none, CGImageAlphaInfo::noneSkipLast, CGImageAlphaInfo::only}) {
    const ImagePtr source = UIImage::imageWithBitmap({2, 1, rgba}, 1, alphaInfo);
    for (const ColorPtr& grid : {ColorPtr(), UIColor::initWithWhite(0, 0)}) {
      const ImagePtr result = imageByScaling(*source, 2, CGInterpolationQuality::none, grid);
      EXPECT_EQ(at(*result, 1, 1), (Rgba{10, 20, 30, 255}));
      EXPECT_EQ(at(*result, 2, 0), (Rgba{50, 60, 70, 255}));
    }
  }
}

TEST(EnlargedPixels, AreWhatACanvasDraws) {
  EXPECT_TRUE(rc::check([] {
    const int width = *rc::gen::inRange(1, 13);
    const int height = *rc::gen::inRange(1, 13);
    const auto count = static_cast<std::size_t>(width * height) * 4;
    auto rgba = *rc::gen::container<std::vector<std::uint8_t>>(count, rc::gen::arbitrary<std::uint8_t>());
    for (std::size_t i = 0; i < count; ++i) {
      if (i % 4 != 3) rgba[i] = std::min(rgba[i], rgba[i / 4 * 4 + 3]);  // premultiplied
    }
    const auto alphaInfo = static_cast<CGImageAlphaInfo>(*rc::gen::inRange(0, 8));
    const CGFloat scale = *rc::gen::element(1.0, 2.0, 3.0, 2.625);
    const ImagePtr image = UIImage::imageWithBitmap({width, height, std::move(rgba)}, scale, alphaInfo);
    const ColorPtr grid =
        *rc::gen::element(ColorPtr(), UIColor::initWithRed(1, 0, 0.25, 1), UIColor::initWithWhite(0.5, 0.4));
    const std::uint64_t factor = *rc::gen::inRange<std::uint64_t>(1, 10);
    const auto interpolation = *rc::gen::weightedOneOf<CGInterpolationQuality>(
        {{4, rc::gen::just(CGInterpolationQuality::none)},
         {1, rc::gen::element(CGInterpolationQuality::low, CGInterpolationQuality::high)}});

    const ImagePtr result = imageByScaling(*image, factor, interpolation, grid);
    const ImagePtr expected = Tests::imageByScalingAsWritten(*image, factor, interpolation, grid);
    RC_ASSERT(result && expected);
    RC_ASSERT(isEqualToPixels(*result, expected, 0));
    RC_ASSERT(result->size() == expected->size());
    RC_ASSERT(result->alphaInfo() == expected->alphaInfo());
  }));
}

}  // namespace
}  // namespace Brisel
