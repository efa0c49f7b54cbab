#include "brisel/object_interface/images.h"

#include <cstdint>
#include <cstring>
#include <memory>
#include <tuple>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/platform/port.h"
#include "brisel/platform/recording/engine.h"

namespace {

using namespace Brisel::Platform;
using Brisel::Pixel;
using testing::ElementsAre;

ImagePtr onePixel(std::uint8_t red, std::uint8_t green, std::uint8_t blue, std::uint8_t alpha) {
  return UIImage::imageWithBitmap({1, 1, {red, green, blue, alpha}}, 1);
}

TEST(ObjectInterfaceOfImages, BlendsByBytes) {
  const ImagePtr result = brisel_imageByBlendingWithImageUsingRgbaBlock(
      *onePixel(1, 2, 3, 4), onePixel(5, 6, 7, 8), [](const Pixel* a, const Pixel* b, Pixel& output, bool&) {
        output = {a->red, b->green, a->blue, b->alpha};
      });
  EXPECT_THAT(result->bitmap()->rgba, ElementsAre(1, 6, 3, 8));
}

TEST(ObjectInterfaceOfImages, BlendsByColours) {
  const ImagePtr result = brisel_imageByBlendingWithImageUsingColorBlock(
      *onePixel(1, 2, 3, 4), onePixel(5, 6, 7, 8), [](const ColorPtr&, const ColorPtr& b, bool&) { return b; });
  EXPECT_THAT(result->bitmap()->rgba, ElementsAre(5, 6, 7, 8));
}

// Callables of any shape find their operation, since its name says which block it takes.
TEST(ObjectInterfaceOfImages, TakesGenericCallables) {
  const auto stopping = [](auto&&, auto&&, auto&&... rest) {
    (std::get<sizeof...(rest) - 1>(std::tie(rest...))) = true;
    return ColorPtr();
  };
  EXPECT_EQ(brisel_imageByBlendingWithImageUsingRgbaBlock(*onePixel(1, 2, 3, 4), nullptr, stopping), nullptr);
  EXPECT_EQ(brisel_imageByBlendingWithImageUsingColorBlock(*onePixel(1, 2, 3, 4), nullptr, stopping), nullptr);
}

TEST(ObjectInterfaceOfImages, ComparesWithinATolerance) {
  EXPECT_TRUE(brisel_isEqualToPixelsInImage(*onePixel(10, 20, 30, 40), onePixel(10, 20, 33, 40), 0.02));
  EXPECT_FALSE(brisel_isEqualToPixelsInImage(*onePixel(10, 20, 30, 40), onePixel(10, 20, 33, 40), 0.01));
}

TEST(ObjectInterfaceOfImages, EnlargesWithAGrid) {
  const auto engine = std::make_shared<RecordingEngine>();
  setEngine(engine);
  const ColorPtr green = UIColor::initWithRed(0, 1, 0, 1);
  const ImagePtr image = UIImage::imageWithBitmap({2, 2, std::vector<std::uint8_t>(16, 255)}, 1);
  const ImagePtr result = brisel_imageByScaling(*image, 4, CGInterpolationQuality::medium, green);
  ASSERT_TRUE(result);
  EXPECT_EQ(result->size(), (CGSize{8, 8}));
  const auto calls = engine->record().calls;
  ASSERT_EQ(calls.size(), 3U);
  EXPECT_EQ(calls[0].quality, CGInterpolationQuality::medium);
  EXPECT_EQ(calls[2].color, *green);
  EXPECT_EQ(brisel_imageByScaling(*image, 0, CGInterpolationQuality::medium, green), nullptr);
}

TEST(ObjectInterfaceOfImages, AWordIsAPixelsFourBytesInMemory) {
  const unsigned char bytes[] = {0x11, 0x22, 0x33, 0x44};
  std::uint32_t word = 0;
  std::memcpy(&word, bytes, sizeof word);
  EXPECT_EQ(VLMBrisel::rgbaFromUint32(word), (Pixel{0x11, 0x22, 0x33, 0x44}));
  EXPECT_EQ(VLMBrisel::uint32FromRgba({0x11, 0x22, 0x33, 0x44}), word);
#if defined(__x86_64__)
  EXPECT_EQ(word, 0x44332211U);  // alpha highest: no swap on a machine that stores the lowest byte first
#endif
  for (const std::uint32_t any : {0U, 1U, 0xFF00FF00U, 0xFFFFFFFFU}) {
    EXPECT_EQ(VLMBrisel::uint32FromRgba(VLMBrisel::rgbaFromUint32(any)), any);
  }
}

}  // namespace
