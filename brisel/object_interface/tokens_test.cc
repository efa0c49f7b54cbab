#include "brisel/object_interface/tokens.h"

#include <optional>

#include <gtest/gtest.h>

#include "brisel/platform/screen.h"
#include "brisel/tokens/color.h"
#include "brisel/tokens/internal/built_count.h"
#include "brisel/tokens/legacy_color.h"
#include "brisel/tokens/screen_scale.h"

namespace {

using Brisel::Platform::UIColor;

static_assert(noexcept(VLMBriselColors::gray7()));

TEST(VLMBriselColors, ReturnsThePalettesOwnInstances) {
  int names = 0;
#define BRISEL_SAME(name)                                                                 \
  EXPECT_EQ(VLMBriselColors::name().get(), Brisel::Color::name().value().get()) << #name; \
  ++names;
#define BRISEL_GREY(name, white, alpha) BRISEL_SAME(name)
#define BRISEL_RGB(name, red, green, blue, hex) BRISEL_SAME(name)
#include "brisel/tokens/palette.def"
#undef BRISEL_SAME
  EXPECT_EQ(names, 252);
}

TEST(VLMBriselColors, ReturnsOneInstanceForEachOlderName) {
  int names = 0;
#define BRISEL_SAME(name)                                                               \
  EXPECT_EQ(VLMBriselColors::name().get(), Brisel::LegacyColor::name().get()) << #name; \
  ++names;
#define BRISEL_GREY(name, white, alpha) BRISEL_SAME(name)
#define BRISEL_RGB(name, red, green, blue, hex) BRISEL_SAME(name)
#include "brisel/tokens/legacy_colors.def"
#undef BRISEL_SAME
  EXPECT_EQ(names, 60);
}

TEST(VLMBriselColors, BuildsOneColourForBothInterfaces) {
  VLMBriselColors::gray7();
  EXPECT_EQ(Brisel::internal::builtPaletteColors(), 1U);
  Brisel::Color::gray7();
  EXPECT_EQ(Brisel::internal::builtPaletteColors(), 1U);
}

TEST(VLMBriselColors, TellsTheOlderNamesFromThoseOfTheRamps) {
  EXPECT_EQ(VLMBriselColors::aquamarine()->getRed(), (UIColor::RgbComponents{0.608, 0.941, 0.882, 1.0}));
  EXPECT_EQ(VLMBriselColors::aquamarine180()->getRed(), (UIColor::RgbComponents{0.569, 0.933, 0.855, 1.0}));
}

TEST(TokenObjects, CanBeMadeAndAreDistinct) {
  EXPECT_NE(VLMBriselColors::init(), VLMBriselColors::init());
  EXPECT_NE(VLMBriselOpacities::init(), nullptr);
  EXPECT_NE(VLMBriselSpacers::init(), nullptr);
  EXPECT_NE(VLMBriselSwiftScreenScale::init(), nullptr);
  EXPECT_NE(VLMBriselScreenScale::init(), nullptr);
}

TEST(VLMBriselOpacities, GiveTheTokensNumbers) {
  EXPECT_EQ(VLMBriselOpacities::opacity0(), 0.0);
  EXPECT_EQ(VLMBriselOpacities::opacity10(), 0.1);
  EXPECT_EQ(VLMBriselOpacities::opacity30(), 0.3);
  EXPECT_EQ(VLMBriselOpacities::opacity50(), 0.5);
  EXPECT_EQ(VLMBriselOpacities::opacity70(), 0.7);
  EXPECT_EQ(VLMBriselOpacities::opacity90(), 0.9);
}

TEST(VLMBriselSpacers, GiveTheTokensNumbers) {
  EXPECT_EQ(VLMBriselSpacers::spacer4(), 4.0);
  EXPECT_EQ(VLMBriselSpacers::spacer8(), 8.0);
  EXPECT_EQ(VLMBriselSpacers::spacer12(), 12.0);
  EXPECT_EQ(VLMBriselSpacers::spacer16(), 16.0);
  EXPECT_EQ(VLMBriselSpacers::spacer20(), 20.0);
  EXPECT_EQ(VLMBriselSpacers::spacer24(), 24.0);
  EXPECT_EQ(VLMBriselSpacers::spacer32(), 32.0);
  EXPECT_EQ(VLMBriselSpacers::spacer40(), 40.0);
  EXPECT_EQ(VLMBriselSpacers::spacer48(), 48.0);
  EXPECT_EQ(VLMBriselSpacers::spacer56(), 56.0);
  EXPECT_EQ(VLMBriselSpacers::spacer64(), 64.0);
  EXPECT_EQ(VLMBriselSpacers::spacer72(), 72.0);
  EXPECT_EQ(VLMBriselSpacers::spacer80(), 80.0);
}

TEST(VLMBriselScreenScale, AgreesUnderEachOfItsNames) {
  for (const double scale : {3.0, 1.5}) {
    Brisel::Platform::UIScreen::mainScreen().setScale(scale);
    EXPECT_EQ(Brisel::Screen::scale(), scale);
    EXPECT_EQ(VLMBriselSwiftScreenScale::scale(), scale);
    EXPECT_EQ(VLMBriselScreenScale::scale(), scale);
  }
}

TEST(HexColors, AreNewObjectsOrNull) {
  const auto green = brisel_colorFromRGBHexString("#1ED760");
  ASSERT_NE(green, nullptr);
  EXPECT_EQ(*green, UIColor::rgb(30 / 255.0, 215 / 255.0, 96 / 255.0));
  EXPECT_NE(green, brisel_colorFromRGBHexString("#1ED760"));
  EXPECT_EQ(*brisel_colorFromRGBAHexString("FF000080"), UIColor::rgb(1.0, 0.0, 0.0, 128 / 255.0));
  EXPECT_EQ(*brisel_colorFromARGBHexString("FF000080"), UIColor::rgb(0.0, 0.0, 128 / 255.0, 1.0));
  EXPECT_EQ(brisel_colorFromRGBHexString("1ED7"), nullptr);
}

TEST(HexColors, ReadAnAbsentStringAsAnEmptyOne) {
  EXPECT_EQ(brisel_colorFromRGBHexString(std::nullopt), nullptr);
  EXPECT_EQ(brisel_colorFromRGBAHexString(std::nullopt), nullptr);
  EXPECT_EQ(brisel_colorFromARGBHexString(std::nullopt), nullptr);
  EXPECT_EQ(brisel_colorFromRGBHexString(nullptr), nullptr);
  EXPECT_EQ(brisel_colorFromRGBAHexString(nullptr), nullptr);
  EXPECT_EQ(brisel_colorFromARGBHexString(nullptr), nullptr);
  EXPECT_EQ(brisel_colorFromRGBHexString(""), nullptr);
}

TEST(HexColors, CompareWithinAPrecision) {
  const auto a = UIColor::initWithRed(0.75, 0.5, 0.5, 1.0), b = UIColor::initWithRed(0.5, 0.5, 0.5, 1.0);
  EXPECT_TRUE(brisel_equalToColor(*a, *b, 0.25));
  EXPECT_FALSE(brisel_equalToColor(*a, *b, 0.125));
  EXPECT_TRUE(brisel_equalToColor(*a, *a, -1.0));
}

}  // namespace
