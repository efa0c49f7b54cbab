#include "brisel/infrastructure/image_comparison.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "tests/written_image_tools.h"

namespace Brisel {
namespace {

using namespace Platform;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kSmallest = std::numeric_limits<double>::denorm_min();

ImagePtr filled(int width, int height, std::uint8_t byte, CGFloat scale = 1) {
  const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4;
  return UIImage::imageWithBitmap({width, height, std::vector<std::uint8_t>(count, byte)}, scale);
}

ImagePtr pixel(std::uint8_t red, std::uint8_t green, std::uint8_t blue, std::uint8_t alpha) {
  return UIImage::imageWithBitmap({1, 1, {red, green, blue, alpha}}, 1);
}

TEST(PixelComparison, AcceptsADifferenceOfThreeAtTwoPercentAndNotAtOne) {
  EXPECT_TRUE(isEqualToPixels(*pixel(10, 20, 30, 255), pixel(10, 23, 30, 255), 0.02));   // 5.1
  EXPECT_FALSE(isEqualToPixels(*pixel(10, 20, 30, 255), pixel(10, 23, 30, 255), 0.01));  // 2.55
}

TEST(PixelComparison, RefusesOtherSizesWhateverTheAccuracy) {
  for (const double accuracy : {-1.0, 0.0, 1.0, kInfinity, kNaN}) {
    EXPECT_FALSE(isEqualToPixels(*filled(2, 2, 7), filled(2, 3, 7), accuracy));
    EXPECT_FALSE(isEqualToPixels(*filled(2, 2, 7), filled(3, 2, 7), accuracy));
    EXPECT_FALSE(isEqualToPixels(*filled(2, 6, 7), filled(6, 2, 7), accuracy));
    EXPECT_FALSE(isEqualToPixels(*filled(2, 2, 7), UIImage::init(), accuracy));
    EXPECT_FALSE(isEqualToPixels(*UIImage::init(), filled(2, 2, 7), accuracy));
  }
}

TEST(PixelComparison, CountsPixelsAndNotPoints) {
  EXPECT_TRUE(isEqualToPixels(*filled(4, 4, 7, 1), filled(4, 4, 7, 2), 0));
  EXPECT_FALSE(isEqualToPixels(*filled(4, 4, 7, 2), filled(2, 2, 7, 1), 1));  // both 2 x 2 points
}

TEST(PixelComparison, AnImageEqualsItselfWhateverTheAccuracy) {
  const ImagePtr image = filled(3, 3, 7);
  for (const double accuracy : {0.0, -1.0, -kInfinity, kNaN}) EXPECT_TRUE(isEqualToPixels(*image, image, accuracy));
}

TEST(PixelComparison, TwoEmptyImagesHaveNoPixelThatCouldDiffer) {
  for (const double accuracy : {-1.0, 0.0, 1.0, kNaN}) {
    EXPECT_TRUE(isEqualToPixels(*UIImage::init(), UIImage::init(), accuracy));
  }
}

TEST(PixelComparison, ANegativeAccuracyIsMetByNoPixel) {
  EXPECT_FALSE(isEqualToPixels(*filled(3, 3, 7), filled(3, 3, 7), -1));
  EXPECT_FALSE(isEqualToPixels(*filled(3, 3, 7), filled(3, 3, 7), -kInfinity));
  EXPECT_FALSE(isEqualToPixels(*filled(3, 3, 7), filled(3, 3, 7), -kSmallest));
  EXPECT_TRUE(isEqualToPixels(*filled(3, 3, 7), filled(3, 3, 7), -0.0));
  const ImagePtr image = filled(3, 3, 7);
  const ImagePtr template_ = image->imageWithRenderingMode(UIImageRenderingMode::alwaysTemplate);
  EXPECT_FALSE(isEqualToPixels(*image, template_, -1)) << "another object, though the pixels are shared";
  EXPECT_TRUE(isEqualToPixels(*image, template_, 0));
}

TEST(PixelComparison, NoDifferenceExceedsAnAccuracyThatIsNoNumber) {
  EXPECT_TRUE(isEqualToPixels(*pixel(0, 0, 0, 0), pixel(255, 255, 255, 255), kNaN));
}

TEST(PixelComparison, AccuracyOneAcceptsAnyTwoImagesOfOneSize) {
  for (const double accuracy : {1.0, 1.5, 1e300, kInfinity}) {
    EXPECT_TRUE(isEqualToPixels(*pixel(0, 255, 0, 255), pixel(255, 0, 255, 0), accuracy));
  }
  EXPECT_FALSE(isEqualToPixels(*pixel(0, 255, 0, 255), pixel(255, 0, 255, 0), 254.5 / 255.0));
}

TEST(PixelComparison, NothingEqualsAMissingOtherImage) {
  EXPECT_FALSE(isEqualToPixels(*filled(1, 1, 7), nullptr, 1));
  EXPECT_FALSE(isEqualToPixels(*filled(1, 1, 7), nullptr, kNaN));
  for (const double accuracy : {-1.0, 0.0, 1.0, kNaN})
    EXPECT_FALSE(isEqualToPixels(*UIImage::init(), nullptr, accuracy));
}

TEST(PixelComparison, ZeroDemandsEqualBytesInEachChannel) {
  const ImagePtr image = pixel(1, 2, 3, 4);
  EXPECT_TRUE(isEqualToPixels(*image, pixel(1, 2, 3, 4), 0));
  EXPECT_FALSE(isEqualToPixels(*image, pixel(2, 2, 3, 4), 0));
  EXPECT_FALSE(isEqualToPixels(*image, pixel(1, 1, 3, 4), 0));
  EXPECT_FALSE(isEqualToPixels(*image, pixel(1, 2, 4, 4), 0));
  EXPECT_FALSE(isEqualToPixels(*image, pixel(1, 2, 3, 3), 0));
}

// In unsigned char a difference would wrap; every pair of bytes is tried, in both orders.
TEST(PixelComparison, IsExactAtTheEdgeForEachPairOfBytes) {
  for (int a = 0; a < 256; ++a) {
    for (int b = 0; b < 256; ++b) {
      const ImagePtr first = pixel(9, 9, static_cast<std::uint8_t>(a), 9);
      const ImagePtr second = pixel(9, 9, static_cast<std::uint8_t>(b), 9);
      const int difference = std::abs(a - b);
      ASSERT_TRUE(isEqualToPixels(*first, second, (difference + 0.25) / 255.0)) << a << " and " << b;
      ASSERT_FALSE(isEqualToPixels(*first, second, (difference - 0.25) / 255.0)) << a << " and " << b;
    }
  }
}

TEST(PixelComparison, DoesNotRoundTheThreshold) {
  // 0.02 x 255 is 5.1 and 0.0235 x 255 is 5.9925: neither lets a difference of 6 pass.
  EXPECT_TRUE(isEqualToPixels(*pixel(0, 0, 0, 5), pixel(0, 0, 0, 0), 0.0235));
  EXPECT_FALSE(isEqualToPixels(*pixel(0, 0, 0, 6), pixel(0, 0, 0, 0), 0.0235));
  // A difference of exactly the threshold does not exceed it.
  EXPECT_EQ(0.2 * 255.0, 51.0);
  EXPECT_TRUE(isEqualToPixels(*pixel(51, 0, 0, 0), pixel(0, 0, 0, 0), 0.2));
  EXPECT_FALSE(isEqualToPixels(*pixel(51, 0, 0, 0), pixel(0, 0, 0, 0), std::nextafter(0.2, 0)));
  EXPECT_FALSE(isEqualToPixels(*pixel(52, 0, 0, 0), pixel(0, 0, 0, 0), 0.2));
}

// One byte at a time, in every place of every width: no lane, block or rest is left out, and no neighbour counts.
TEST(PixelComparison, SeesEachByteOfEachWidth) {
  constexpr double kAccuracy = 3.5 / 255.0;
  for (int width = 1; width <= 70; ++width) {
    const ImagePtr image = filled(width, 1, 100);
    for (std::size_t place = 0; place < image->bitmap()->rgba.size(); ++place) {
      for (const int byte : {96, 97, 103, 104}) {
        Bitmap bitmap = *image->bitmap();
        bitmap.rgba[place] = static_cast<std::uint8_t>(byte);
        const ImagePtr other = UIImage::imageWithBitmap(std::move(bitmap), 1);
        const bool isWithin = byte == 97 || byte == 103;
        ASSERT_EQ(isEqualToPixels(*image, other, kAccuracy), isWithin) << width << " pixels, byte " << place;
        ASSERT_FALSE(isEqualToPixels(*image, other, 0)) << width << " pixels, byte " << place;
      }
    }
  }
}

struct Pair {
  ImagePtr image;
  ImagePtr other;
};

// Two images of one size whose bytes differ by at most so much, and here and there by one more.
Pair nearlyEqual(int width, int height, int tolerance) {
  const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4;
  auto bytes = *rc::gen::container<std::vector<std::uint8_t>>(count, rc::gen::arbitrary<std::uint8_t>());
  auto others = bytes;
  const auto differences = *rc::gen::container<std::vector<int>>(count, rc::gen::inRange(-tolerance, tolerance + 1));
  for (std::size_t i = 0; i < count; ++i) {
    others[i] = static_cast<std::uint8_t>(std::clamp(bytes[i] + differences[i], 0, 255));
  }
  if (*rc::gen::arbitrary<bool>()) {
    const std::size_t place = *rc::gen::inRange<std::size_t>(0, count);
    const int over = bytes[place] + (*rc::gen::arbitrary<bool>() ? tolerance + 1 : -tolerance - 1);
    others[place] = static_cast<std::uint8_t>(std::clamp(over, 0, 255));
  }
  return {UIImage::imageWithBitmap({width, height, std::move(bytes)}, 1),
          UIImage::imageWithBitmap({width, height, std::move(others)}, 1)};
}

TEST(PixelComparison, SaysWhatTheWrittenWaySaysAtTheEdgeOfTheTolerance) {
  EXPECT_TRUE(rc::check([] {
    const int width = *rc::gen::oneOf(rc::gen::inRange(1, 71), rc::gen::element(127, 129, 255, 257, 321));
    const int tolerance = *rc::gen::inRange(0, 256);
    const Pair pair = nearlyEqual(width, *rc::gen::inRange(1, 4), tolerance);
    for (const double step : {-1.0, -0.5, 0.0, 0.5, 1.0}) {
      const double accuracy = (tolerance + step) / 255.0;
      RC_ASSERT(isEqualToPixels(*pair.image, pair.other, accuracy) ==
                Tests::isEqualToPixelsAsWritten(*pair.image, pair.other, accuracy));
    }
  }));
}

TEST(PixelComparison, SaysWhatTheWrittenWaySaysOfAnyTwoImages) {
  EXPECT_TRUE(rc::check([](double accuracy) {
    const auto any = [] {
      const int width = *rc::gen::inRange(0, 4), height = *rc::gen::inRange(0, 3);
      const auto count = static_cast<std::size_t>(width * height) * 4;
      return UIImage::imageWithBitmap(
          {width, height, *rc::gen::container<std::vector<std::uint8_t>>(count, rc::gen::arbitrary<std::uint8_t>())},
          1);
    };
    const ImagePtr image = any();
    const ImagePtr other = *rc::gen::element(image, any(), ImagePtr());
    RC_ASSERT(isEqualToPixels(*image, other, accuracy) == Tests::isEqualToPixelsAsWritten(*image, other, accuracy));
  }));
}

}  // namespace
}  // namespace Brisel
