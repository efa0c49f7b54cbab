#include "brisel/infrastructure/image_blending.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "tests/scarce_memory.h"

namespace Brisel {
namespace {

using namespace Platform;
using testing::ElementsAre;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

ImagePtr image(int width, int height, std::vector<std::uint8_t> rgba, CGFloat scale = 1) {
  return UIImage::imageWithBitmap({width, height, std::move(rgba)}, scale);
}

// An image whose bytes are 1, 2, 3 …, so that each pixel is known by its red.
ImagePtr numbered(int width, int height, CGFloat scale = 1) {
  std::vector<std::uint8_t> rgba(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4);
  for (std::size_t i = 0; i < rgba.size(); ++i) rgba[i] = static_cast<std::uint8_t>(i + 1);
  return image(width, height, std::move(rgba), scale);
}

// What a block was called with: the reds of the two pixels, -1 for none.
using Call = std::pair<int, int>;
int redOf(const Pixel* pixel) { return pixel ? pixel->red : -1; }

std::vector<Call> callsFor(const UIImage& first, const ImagePtr& second) {
  std::vector<Call> calls;
  imageByBlendingUsingRgbaBlock(
      first, second, [&](const Pixel* a, const Pixel* b, Pixel&, bool&) { calls.emplace_back(redOf(a), redOf(b)); });
  return calls;
}

TEST(BlendingOfPixels, CallsItsBlockOnceForEachPositionInRowOrderAlsoWhereBothImagesMiss) {
  EXPECT_THAT(callsFor(*numbered(2, 2), numbered(3, 1)),
              ElementsAre(Call(1, 1), Call(5, 5), Call(-1, 9), Call(9, -1), Call(13, -1), Call(-1, -1)));
  EXPECT_THAT(callsFor(*numbered(3, 1), numbered(2, 2)),
              ElementsAre(Call(1, 1), Call(5, 5), Call(9, -1), Call(-1, 9), Call(-1, 13), Call(-1, -1)));
}

TEST(BlendingOfPixels, TakesTheLargerWidthAndTheLargerHeightAndTheFirstImagesScale) {
  const ImagePtr result = imageByBlendingUsingRgbaBlock(*numbered(2, 2, 2), numbered(3, 1, 3),
                                                        [](const Pixel*, const Pixel*, Pixel& output, bool&) {
                                                          output = {1, 2, 3, 4};
                                                        });
  ASSERT_TRUE(result && result->bitmap());
  EXPECT_EQ(result->bitmap()->width, 3);
  EXPECT_EQ(result->bitmap()->height, 2);
  EXPECT_EQ(result->scale(), 2);
  EXPECT_EQ(result->alphaInfo(), CGImageAlphaInfo::premultipliedLast);
  for (int y = 0; y < 2; ++y) {
    for (int x = 0; x < 3; ++x)
      EXPECT_THAT(std::vector(result->bitmap()->pixel(x, y), result->bitmap()->pixel(x, y) + 4),
                  ElementsAre(1, 2, 3, 4));
  }
}

TEST(BlendingOfPixels, HandsOverTheFourBytesAsTheyLieInMemoryAndStoresThemLikewise) {
  const ImagePtr result = imageByBlendingUsingRgbaBlock(
      *image(1, 1, {10, 20, 30, 40}), image(1, 1, {50, 60, 70, 80}),
      [](const Pixel* a, const Pixel* b, Pixel& output, bool&) {
        EXPECT_EQ(*a, (Pixel{10, 20, 30, 40}));
        EXPECT_EQ(*b, (Pixel{50, 60, 70, 80}));
        output = {90, 100, 110, 5};  // More colour than alpha: kept, since nothing reads meaning into bytes.
      });
  EXPECT_THAT(result->bitmap()->rgba, ElementsAre(90, 100, 110, 5));
}

TEST(BlendingOfPixels, StoresEachPixelWhereItWasMade) {
  int count = 0;
  const ImagePtr result = imageByBlendingUsingRgbaBlock(
      *numbered(3, 2), nullptr,
      [&](const Pixel*, const Pixel*, Pixel& output, bool&) { output.red = static_cast<unsigned char>(++count); });
  for (int y = 0; y < 2; ++y) {
    for (int x = 0; x < 3; ++x) EXPECT_EQ(result->bitmap()->pixel(x, y)[0], 3 * y + x + 1);
  }
}

TEST(BlendingOfPixels, AMissingOtherImageHasNoPixels) {
  EXPECT_THAT(callsFor(*numbered(2, 1), nullptr), ElementsAre(Call(1, -1), Call(5, -1)));
  EXPECT_THAT(callsFor(*numbered(2, 1), UIImage::init()), ElementsAre(Call(1, -1), Call(5, -1)));
  EXPECT_THAT(callsFor(*UIImage::init(), numbered(2, 1)), ElementsAre(Call(-1, 1), Call(-1, 5)));
}

TEST(BlendingOfPixels, TwoImagesWithoutPixelsMakeAnother) {
  const ImagePtr result = imageByBlendingUsingRgbaBlock(
      *UIImage::init(), nullptr, [](const Pixel*, const Pixel*, Pixel&, bool&) { FAIL() << "There is no position"; });
  ASSERT_TRUE(result);
  EXPECT_EQ(result->bitmap(), nullptr);
}

TEST(BlendingOfPixels, StopsAtOnceWithoutAResult) {
  int count = 0;
  const auto stopAt = [&count](int last) {
    count = 0;
    return imageByBlendingUsingRgbaBlock(*numbered(3, 2), nullptr,
                                         [&count, last](const Pixel*, const Pixel*, Pixel&, bool& stop) {
                                           EXPECT_FALSE(stop);
                                           stop = ++count == last;
                                         });
  };
  EXPECT_EQ(stopAt(1), nullptr);
  EXPECT_EQ(count, 1);
  EXPECT_EQ(stopAt(4), nullptr);
  EXPECT_EQ(count, 4);
  EXPECT_EQ(stopAt(6), nullptr) << "at the last pixel";
  EXPECT_EQ(count, 6);
  EXPECT_NE(stopAt(7), nullptr);
}

TEST(BlendingOfPixels, PassesOnWhatTheBlockThrows) {
  const auto thrower = [](const Pixel*, const Pixel*, Pixel&, bool&) { throw std::runtime_error("enough"); };
  EXPECT_THROW(imageByBlendingUsingRgbaBlock(*numbered(2, 2), nullptr, thrower), std::runtime_error);
}

TEST(BlendingOfPixels, SurvivesABlockThatLetsGoOfTheOtherImage) {
  ImagePtr other = numbered(2, 2);
  std::vector<int> reds;
  imageByBlendingUsingRgbaBlock(*numbered(2, 2), other, [&](const Pixel*, const Pixel* b, Pixel&, bool&) {
    other = nullptr;
    reds.push_back(b->red);
  });
  EXPECT_THAT(reds, ElementsAre(1, 5, 9, 13));
}

// A row and a column of 20,000 pixels together span 400 million, which is more than there may be.
TEST(BlendingOfPixels, MakesAnEmptyImageOfWhatWouldBeTooLarge) {
  const ImagePtr result =
      imageByBlendingUsingRgbaBlock(*numbered(20'000, 1), numbered(1, 20'000),
                                    [](const Pixel*, const Pixel*, Pixel&, bool&) { FAIL() << "There is no place"; });
  ASSERT_TRUE(result);
  EXPECT_EQ(result->bitmap(), nullptr);
}

TEST(BlendingOfPixels, MakesAnEmptyImageWithoutACallWhereThereIsNoMemory) {
  const ImagePtr image = numbered(200, 200);
  bool isCalled = false;
  if (!Tests::ScarceMemory::isPossible()) GTEST_SKIP() << "The thread sanitizer allocates by itself.";
  const Tests::ScarceMemory scarce(100'000);
  const ImagePtr result =
      imageByBlendingUsingRgbaBlock(*image, nullptr, [&](auto, auto, Pixel&, bool&) { isCalled = true; });
  ASSERT_NE(result, nullptr);
  EXPECT_EQ(result->bitmap(), nullptr);
  EXPECT_FALSE(isCalled);
}

TEST(BlendingDeathTest, NeedsABlock) {
  EXPECT_DEATH(imageByBlendingUsingRgbaBlock(*numbered(1, 1), nullptr, nullptr), "block");
  EXPECT_DEATH(imageByBlendingUsingColorBlock(*numbered(1, 1), nullptr, {}), "block");
}

// The four bytes that come of a colour.
std::vector<std::uint8_t> bytesOf(const ColorPtr& color) {
  const ImagePtr result = imageByBlendingUsingColorBlock(
      *numbered(1, 1), nullptr, [&](const ColorPtr&, const ColorPtr&, bool&) { return color; });
  return result->bitmap()->rgba;
}

TEST(BlendingOfColors, DividesBytesBy255WithoutUndoingThePremultiplication) {
  imageByBlendingUsingColorBlock(*image(1, 1, {64, 32, 1, 128}), image(1, 1, {0, 255, 254, 255}),
                                 [](const ColorPtr& a, const ColorPtr& b, bool&) {
                                   EXPECT_EQ(*a, UIColor::rgb(64 / 255.0, 32 / 255.0, 1 / 255.0, 128 / 255.0));
                                   EXPECT_EQ(*b, UIColor::rgb(0, 1, 254 / 255.0, 1));
                                   return a;
                                 });
}

TEST(BlendingOfColors, StoresComponentsTimes255WithoutPremultiplyingThem) {
  EXPECT_THAT(bytesOf(UIColor::initWithRed(1, 0.2, 0, 0.4)), ElementsAre(255, 51, 0, 102));
  EXPECT_THAT(bytesOf(UIColor::initWithRed(1, 1, 1, 0)), ElementsAre(255, 255, 255, 0));
}

TEST(BlendingOfColors, RoundsHalvesAwayFromZero) {
  // 0.5 x 255 is 127.5 exactly, and 0.1 x 255 is 25.5; 0.25 x 255 is 63.75. To even would give 126 or 128 and 26 or 24.
  EXPECT_THAT(bytesOf(UIColor::initWithRed(0.5, 0.1, 0.25, 0.3)), ElementsAre(128, 26, 64, 77));
  EXPECT_EQ(0.1 * 255.0, 25.5);
  EXPECT_THAT(bytesOf(UIColor::initWithRed(0.5 / 255.0, std::nextafter(0.5 / 255.0, 0), 0, 1)),
              ElementsAre(1, 0, 0, 255));
}

TEST(BlendingOfColors, KeepsWhatLiesOutsideWithinAByte) {
  EXPECT_THAT(bytesOf(UIColor::initWithRed(1.2, -0.5, 1e300, -1e300)), ElementsAre(255, 0, 255, 0));
  EXPECT_THAT(bytesOf(UIColor::initWithRed(kInfinity, -kInfinity, kNaN, 1)), ElementsAre(255, 0, 0, 255));
}

TEST(BlendingOfColors, ReadsGreysAsRgb) {
  EXPECT_THAT(bytesOf(UIColor::initWithWhite(0.2, 1)), ElementsAre(51, 51, 51, 255));
}

TEST(BlendingOfColors, ANullAnswerIsAClearPixel) { EXPECT_THAT(bytesOf(nullptr), ElementsAre(0, 0, 0, 0)); }

TEST(BlendingOfColors, GivesNullForMissingPixelsAtEachPosition) {
  std::vector<Call> calls;
  const auto redByte = [](const ColorPtr& color) {
    return color ? static_cast<int>(color->getRed().red * 255 + 0.25) : -1;
  };
  imageByBlendingUsingColorBlock(*numbered(2, 2), numbered(3, 1), [&](const ColorPtr& a, const ColorPtr& b, bool&) {
    calls.emplace_back(redByte(a), redByte(b));
    return a;
  });
  EXPECT_THAT(calls, ElementsAre(Call(1, 1), Call(5, 5), Call(-1, 9), Call(9, -1), Call(13, -1), Call(-1, -1)));
}

TEST(BlendingOfColors, PassesTheStopFlagThrough) {
  int count = 0;
  const ImagePtr result =
      imageByBlendingUsingColorBlock(*numbered(2, 2), nullptr, [&](const ColorPtr& a, const ColorPtr&, bool& stop) {
        EXPECT_FALSE(stop);
        stop = ++count == 3;
        return a;
      });
  EXPECT_EQ(result, nullptr);
  EXPECT_EQ(count, 3);
}

TEST(BlendingOfColors, GivesEveryByteBackAsItCame) {
  std::vector<std::uint8_t> rgba(256 * 4);
  for (std::size_t i = 0; i < 256; ++i) {
    rgba[4 * i] = static_cast<std::uint8_t>(i);
    rgba[4 * i + 1] = static_cast<std::uint8_t>(255 - i);
    rgba[4 * i + 2] = static_cast<std::uint8_t>(i ^ 0x55U);
    rgba[4 * i + 3] = static_cast<std::uint8_t>(i * 7);
  }
  const ImagePtr result = imageByBlendingUsingColorBlock(
      *image(16, 16, rgba), nullptr, [](const ColorPtr& color, const ColorPtr&, bool&) { return color; });
  EXPECT_EQ(result->bitmap()->rgba, rgba);
}

// Against an outright reading: every position asks both images by its coordinates.
TEST(BlendingOfPixels, PutsTheImagesTogetherAtTheirFirstRowAndColumnWhateverTheirSizes) {
  EXPECT_TRUE(rc::check([] {
    const auto size = [] { return *rc::gen::inRange(0, 9); };
    const int w1 = size(), h1 = size(), w2 = size(), h2 = size();
    const ImagePtr first = numbered(w1, h1);
    const ImagePtr second = numbered(w2, h2);
    const auto expected = [](const ImagePtr& picture, int x, int y) -> std::optional<Pixel> {
      const auto& bitmap = picture->bitmap();
      if (!bitmap || x >= bitmap->width || y >= bitmap->height) return std::nullopt;
      const std::uint8_t* p = bitmap->pixel(x, y);
      return Pixel{p[0], p[1], p[2], p[3]};
    };
    const auto pixel = [](const Pixel* p) { return p ? std::optional(*p) : std::nullopt; };
    // An image without a bitmap has no rows either.
    const int width = std::max(h1 > 0 ? w1 : 0, h2 > 0 ? w2 : 0);
    const int height = std::max(w1 > 0 ? h1 : 0, w2 > 0 ? h2 : 0);
    int position = 0;
    imageByBlendingUsingRgbaBlock(*first, second, [&](const Pixel* a, const Pixel* b, Pixel&, bool&) {
      const int x = position % width;
      const int y = position / width;
      ++position;
      RC_ASSERT(pixel(a) == expected(first, x, y));
      RC_ASSERT(pixel(b) == expected(second, x, y));
    });
    RC_ASSERT(position == width * height);
  }));
}

}  // namespace
}  // namespace Brisel
