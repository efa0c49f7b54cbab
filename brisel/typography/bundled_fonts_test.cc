// Fonts of the bundle that ships, by the port that ships. The host's fonts are off.
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/platform/content_size_category.h"
#include "brisel/platform/font_descriptor.h"
#include "brisel/platform/port.h"
#include "brisel/platform/views/text_drawing.h"
#include "brisel/typography/font.h"
#include "brisel/typography/font_stacks.h"
#include "brisel/typography/styled_string.h"
#include "brisel/typography/type_style.h"

namespace Brisel {
namespace {

using namespace Platform;

class BundledFonts : public testing::Test {
 protected:
  void SetUp() override { engine().setUsesHostFonts(false); }

  static double width(std::string_view text, const TypeStyle& style) {
    const auto string = attributedString(text, style, UIContentSizeCategoryLarge);
    const double unlimited = std::numeric_limits<double>::max();
    return boundingRectWithSize(*string, {unlimited, unlimited}, NSStringDrawingUsesLineFragmentOrigin).size.width;
  }
};

TEST_F(BundledFonts, HaveAllTwentyFourNames) {
  for (const Font family : {Font::tondal, Font::tondalArab, Font::tondalHebr, Font::tondalCyrl, Font::tondalGrek,
                            Font::tondalDeva, Font::tondalTitle, Font::tondalTitleTall})
    for (const Font::Weight weight : Font::Weight::allCases()) {
      const auto font = Font::font(family, {}, weight, 16, {});
      EXPECT_EQ(font->typeface()->name(), font->fontName());
    }
}

TEST_F(BundledFonts, StandInForAMissingNameInTheNearestWeight) {
  Font::font(Font::tondal, {}, Font::Weight::book, 16, {});  // registers the files
  const auto substitute = [](std::string_view name) {
    return UIFont::fontWithDescriptor(UIFontDescriptor::fontDescriptorWithName(name, 16), 16)->typeface()->name();
  };
  EXPECT_EQ(substitute("Missing-Book"), "Tondal-Book");
  EXPECT_EQ(substitute("Missing-Bold"), "Tondal-Bold");
  EXPECT_EQ(substitute("Missing-Black"), "Tondal-Black");
}

TEST_F(BundledFonts, CoverTheScriptsThroughTheirCascade) {
  const auto alone = Font::font(Font::tondal, {}, Font::Weight::book, 16, {});
  for (const FontStack& stack : {FontStack::text, FontStack::title}) {
    const auto font =
        Font::font(stack.primaryFont, stack.fallbackFonts, Font::Weight::bold, 16, std::vector<Font::Feature>());
    for (const char32_t character : U"Aạبאжωक") {
      if (character == 0) continue;
      EXPECT_TRUE(font->hasCharacter(character)) << static_cast<unsigned>(character);
    }
  }
  EXPECT_FALSE(alone->hasCharacter(U'א'));
}

TEST_F(BundledFonts, SetDigitsInOneWidthOnDemand) {
  const TypeStyle& plain = TypeStyle::ballad();
  const TypeStyle monospaced =
      plain.withFontFeatures({Font::Feature::numberSpacing(Font::Feature::NumberSpacingOption::monospaced)});
  const TypeStyle default_ =
      plain.withFontFeatures({Font::Feature::numberSpacing(Font::Feature::NumberSpacingOption::default_)});
  EXPECT_LT(width("1111", plain), width("0000", plain) - 1.0);
  EXPECT_EQ(width("1111", default_), width("1111", plain));
  for (const char* digits : {"1111", "2222", "3333", "4444", "5555", "6666", "7777", "8888", "9999"})
    EXPECT_DOUBLE_EQ(width(digits, monospaced), width("0000", monospaced)) << digits;
}

TEST_F(BundledFonts, CapitalizeByFullMappings) {
  EXPECT_EQ(attributedString("straße ﬁ ǆ i", TypeStyle::minuet(), UIContentSizeCategoryLarge)->string(),
            "STRASSE FI Ǆ I");
}

TEST_F(BundledFonts, MayBeBuiltByManyThreads) {
  std::vector<std::vector<double>> heights(8);
  std::vector<std::thread> threads;
  for (auto& mine : heights)
    threads.emplace_back([&mine] {
      for (const TypeStyle& style : TypeStyle::allCases())
        for (const auto& category :
             {UIContentSizeCategorySmall, UIContentSizeCategoryLarge, UIContentSizeCategoryAccessibilityLarge})
          mine.push_back(style.font(category)->lineHeight());
    });
  for (auto& thread : threads) thread.join();
  EXPECT_GT(heights.front().front(), 14.0);
  EXPECT_THAT(heights, testing::Each(heights.front()));
}

}  // namespace
}  // namespace Brisel
