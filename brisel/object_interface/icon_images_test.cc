#include "brisel/object_interface/icon_images.h"

#include <cstdint>
#include <limits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/icons/icon_image.h"
#include "brisel/icons/internal/icon_rendering.h"
#include "brisel/platform/screen.h"
#include "brisel/tokens/color.h"

#include "tests/recording_ports.h"

using namespace Brisel::Platform;
using Brisel::Icon;
using Brisel::recordingEngine;

namespace {

using GlyphSize = Icon::GlyphSize;

constexpr auto kUnknownGlyphSize = static_cast<VLMBriselIconGlyphSize>(2);

class ObjectIconImage : public testing::Test {
 protected:
  void SetUp() override {
    recordingEngine();
    color_ = UIColor::initWithRed(1, 0, 0, 1);
    background_ = UIColor::initWithRed(0, 0, 1, 1);
  }

  static std::int64_t cached() { return Brisel::internal::iconImageCache().count(); }

  static char32_t drawnCharacter() {
    const auto drawings = recordingEngine().record().drawings;
    return drawings.empty() ? 0 : static_cast<char32_t>(drawings.back().glyphs.at(0).id);
  }
  static constexpr char32_t kHeart16 = 0xF320;
  static constexpr char32_t kHeart24 = 0xF3DB;

  ImagePtr value(CGSize iconSize, CGSize imageSize, std::optional<GlyphSize> glyphSize, const ColorPtr& color,
                 const ColorPtr& background, CGPoint offset) const {
    return Brisel::image(Icon::heart(), iconSize, imageSize, glyphSize, color, background, offset);
  }

  ColorPtr color_;
  ColorPtr background_;
};

// Equal requests get the same object from the cache, so identity shows what was asked.

TEST_F(ObjectIconImage, OfAnIconObjectIsThatOfItsIcon) {
  const auto icon = VLMBriselSwiftIcons::heart();
  const CGSize box{20, 18};
  const CGSize size{40, 30};
  const CGPoint offset{1, 2};
  EXPECT_EQ(briselSwift_imageForIcon(icon, size, color_, background_),
            value(size, size, {}, color_, background_, {0, 0}));
  EXPECT_EQ(briselSwift_imageForIcon(icon, size, VLMBriselIconGlyphSizeSmall, color_, background_),
            value(size, size, GlyphSize::x16, color_, background_, {0, 0}));
  EXPECT_EQ(briselSwift_imageForIcon(icon, box, size, color_, background_, offset),
            value(box, size, {}, color_, background_, offset));
  EXPECT_EQ(briselSwift_imageForIcon(icon, box, size, VLMBriselIconGlyphSizeMedium, color_, background_, offset),
            value(box, size, GlyphSize::x24, color_, background_, offset));
  EXPECT_EQ(cached(), 4);
}

TEST_F(ObjectIconImage, OfAnIconsNumberFillsInWhatItsNameLeavesOut) {
  const auto icon = VLMBriselIconHeart;
  const auto white = Brisel::Color::white().value();
  const auto clear = UIColor::clearColor();
  const CGSize box{20, 18};
  const CGSize size{40, 30};
  const CGPoint offset{1, 2};
  const auto small = GlyphSize::x16;  // for a box 18 high
  const auto medium = GlyphSize::x24;
  EXPECT_EQ(brisel_imageForIcon(icon, size), value(size, size, medium, white, clear, {}));
  EXPECT_EQ(brisel_imageForIcon(icon, size, color_), value(size, size, medium, color_, clear, {}));
  EXPECT_EQ(brisel_imageForIcon(icon, size, color_, background_), value(size, size, medium, color_, background_, {}));
  EXPECT_EQ(brisel_imageForIcon(icon, size, VLMBriselIconGlyphSizeSmall, color_, background_),
            value(size, size, small, color_, background_, {}));
  EXPECT_EQ(brisel_imageForIcon(icon, box, size, color_), value(box, size, small, color_, clear, {}));
  EXPECT_EQ(brisel_imageForIcon(icon, box, size, color_, background_),
            value(box, size, small, color_, background_, {}));
  EXPECT_EQ(brisel_imageForIcon(icon, box, size, color_, background_, offset),
            value(box, size, small, color_, background_, offset));
  EXPECT_EQ(brisel_imageForIcon(icon, box, size, VLMBriselIconGlyphSizeMedium, color_, background_, offset),
            value(box, size, medium, color_, background_, offset));
  EXPECT_EQ(cached(), 8);
}

// Without the object that the number stands for, and yet as by way of it.
TEST_F(ObjectIconImage, OfANumberIsThatOfTheObjectThatItIsConvertedTo) {
  std::vector<VLMBriselIcon> numbers{VLMBriselIconInvalid, VLMBriselIcon(std::numeric_limits<std::uint64_t>::max())};
  for (std::uint64_t number = 0; number <= 330; ++number) numbers.push_back(VLMBriselIcon(number));
  for (const VLMBriselIcon number : numbers) {
    const auto object = VLMBrisel::convertIcon(number);
    const auto named = VLMBriselSwiftIcons::getSwiftIconWithName(NSStringFromVLMBriselIcon(number));
    ASSERT_EQ(object == nullptr, named == nullptr) << number;
    const ImagePtr image = brisel_imageForIcon(number, {8, 8}, VLMBriselIconGlyphSizeSmall, color_, background_);
    const ImagePtr same = briselSwift_imageForIcon(object, {8, 8}, VLMBriselIconGlyphSizeSmall, color_, background_);
    if (object) {
      EXPECT_EQ(object->icon(), named->icon()) << number;
      EXPECT_EQ(image, same) << number;
    } else {
      EXPECT_EQ(*image->bitmap(), *same->bitmap()) << number;
      EXPECT_EQ(image->alphaInfo(), same->alphaInfo()) << number;
    }
  }
  EXPECT_EQ(cached(), 328);
}

TEST_F(ObjectIconImage, OfANumberChoosesItsDesignByTheHeightOfTheBox) {
  const auto character = [&](double height) {
    brisel_imageForIcon(VLMBriselIconHeart, {30, height}, {30, 30}, color_, background_, {});
    return drawnCharacter();
  };
  EXPECT_EQ(character(20.0), kHeart16);
  EXPECT_EQ(character(20.5), kHeart24);
  EXPECT_EQ(character(20.01), kHeart24);  // as it was asked for, not as it is cut to pixels
  EXPECT_EQ(character(16.7), kHeart16);
}

TEST_F(ObjectIconImage, OfAnObjectChoosesItsDesignByTheFontSize) {
  UIScreen::mainScreen().setScale(3);
  briselSwift_imageForIcon(VLMBriselSwiftIcons::heart(), {16.7, 16.7}, color_, background_);
  EXPECT_EQ(drawnCharacter(), kHeart24);
  briselSwift_imageForIcon(VLMBriselSwiftIcons::heart(), {16, 16}, color_, background_);
  EXPECT_EQ(drawnCharacter(), kHeart16);
}

TEST_F(ObjectIconImage, TakesAnUnknownGlyphSizeForMediumOrAProgrammingError) {
  brisel_imageForIcon(VLMBriselIconHeart, {10, 10}, kUnknownGlyphSize, color_, background_);
  EXPECT_EQ(drawnCharacter(), kHeart24);
  const auto icon = VLMBriselSwiftIcons::heart();
  EXPECT_DEATH(briselSwift_imageForIcon(icon, {10, 10}, kUnknownGlyphSize, color_, background_), "glyph size");
  EXPECT_DEATH(briselSwift_imageForIcon(nullptr, {10, 10}, kUnknownGlyphSize, color_, background_), "glyph size");
}

TEST_F(ObjectIconImage, OfNoIconIsBlank) {
  for (const auto icon : {VLMBriselIconNone, VLMBriselIconCount, VLMBriselIconInvalid, VLMBriselIcon(400)}) {
    const ImagePtr blank = brisel_imageForIcon(icon, {24, 24}, {10.5, 20}, color_, UIColor::clearColor(), {});
    ASSERT_TRUE(blank->bitmap());
    EXPECT_EQ(blank->bitmap()->width, 11);  // not cut to whole pixels
    EXPECT_EQ(blank->bitmap()->height, 20);
    EXPECT_EQ(blank->alphaInfo(), CGImageAlphaInfo::premultipliedLast);
  }
  const ImagePtr opaque = briselSwift_imageForIcon(nullptr, {24, 24}, color_, background_);
  EXPECT_EQ(opaque->alphaInfo(), CGImageAlphaInfo::noneSkipLast);
  EXPECT_TRUE(recordingEngine().record().calls.empty());
  EXPECT_EQ(cached(), 0);
}

TEST_F(ObjectIconImage, OfNoIconInABadSizeIsEmpty) {
  EXPECT_EQ(briselSwift_imageForIcon(nullptr, {0, 24}, {24, 24}, color_, background_, {})->bitmap(), nullptr);
  EXPECT_EQ(briselSwift_imageForIcon(nullptr, {24, 24}, {24, -1}, color_, background_, {})->bitmap(), nullptr);
  EXPECT_EQ(brisel_imageForIcon(VLMBriselIconNone, {0, 0})->bitmap(), nullptr);
  // Would be nothing when cut to whole pixels, and is a pixel here.
  EXPECT_NE(briselSwift_imageForIcon(nullptr, {0.5, 0.5}, color_, background_)->bitmap(), nullptr);
}

}  // namespace
