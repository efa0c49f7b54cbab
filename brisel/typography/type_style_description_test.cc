#include <cstdio>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "brisel/typography/type_style.h"

#include "tests/decimal_comma.h"

namespace Brisel {
namespace {

using Range = TypeStyle::AccessibilityRange;
using Configuration = TypeStyle::Configuration;

const Font::Feature kMonospaced = Font::Feature::numberSpacing(Font::Feature::NumberSpacingOption::monospaced);
const Font::Feature kDefaultSpacing = Font::Feature::numberSpacing(Font::Feature::NumberSpacingOption::default_);

TEST(TypeStyleDescription, IsTheName) {
  EXPECT_EQ(TypeStyle::balladBold().description(), "Ballad Bold");
  EXPECT_EQ(TypeStyle::balladBold().withFontSize(3).description(), "Ballad Bold");
}

TEST(TypeStyleDescription, OfARangeNamesItsPoints) {
  EXPECT_EQ(TypeStyle::minuet().configuration().fontSize().description(), "min: 10.0 mid: 10.0 max: 16.0 axMax: 40.0");
  EXPECT_EQ(TypeStyle::forte().configuration().minimumScaleFactor().description(),
            "min: 0.3 mid: 0.35 max: 0.45 axMax: 0.85");
  EXPECT_EQ(Range(100000.0, 0.0001, -0.0, 1.0 / 3.0).description(),
            "min: 100000.0 mid: 0.0001 max: -0.0 axMax: 0.3333333333333333");
}

TEST(TypeStyleDescription, OfAConfigurationHasOneLineAField) {
  const std::string expected =
      "{\n"
      "    fontSize: min: 10.0 mid: 10.0 max: 16.0 axMax: 40.0,\n"
      "    minimumScaleFactor: min: 1.0 mid: 1.0 max: 1.0 axMax: 1.0,\n"
      "    usesUpperCaseLayout: true,\n"
      "    fontFeatures: []\n"
      "}";
  EXPECT_EQ(TypeStyle::minuet().configuration().description(), expected);
  EXPECT_EQ(TypeStyle::minuet().configuration().debugDescription(), "Brisel.TypeStyle.Configuration: " + expected);
}

TEST(TypeStyleDescription, EndsEachFeatureInAComma) {
  const auto described = [](std::vector<Font::Feature> features) {
    return Configuration(Range(1, 2, 3, 4), Range(1, 1, 1, 1), false, std::move(features)).description();
  };
  const std::string head =
      "{\n"
      "    fontSize: min: 1.0 mid: 2.0 max: 3.0 axMax: 4.0,\n"
      "    minimumScaleFactor: min: 1.0 mid: 1.0 max: 1.0 axMax: 1.0,\n"
      "    usesUpperCaseLayout: false,\n"
      "    fontFeatures: ";
  EXPECT_EQ(described({kMonospaced}), head + "[\n    numberSpacing: Monospaced,\n]\n}");
  EXPECT_EQ(described({kDefaultSpacing, kMonospaced}),
            head + "[\n    numberSpacing: Default,\n    numberSpacing: Monospaced,\n]\n}");
}

TEST(TypeStyleDebugDescription, HasAllFieldsButTheGroup) {
  EXPECT_EQ(TypeStyle::bass().withFallbackFonts({Font::tondalTitleTall, Font::tondalArab}).debugDescription(),
            "TypeStyle: \"Bass\"\n"
            "{\n"
            "    primaryFont: \"TondalTitle\"\n"
            "    fallbackFonts: [\"TondalTitleTall\", \"TondalArab\"]\n"
            "    fontWeight: Black\n"
            "    fontSize: 56.0\n"
            "    configuration: {\n"
            "    fontSize: min: 53.0 mid: 56.0 max: 62.0 axMax: 64.0,\n"
            "    minimumScaleFactor: min: 0.25 mid: 0.3 max: 0.4 axMax: 0.8,\n"
            "    usesUpperCaseLayout: false,\n"
            "    fontFeatures: []\n"
            "}\n"
            "}");
}

TEST(TypeStyleDebugDescription, PrintsAnEmptyListAsBrackets) {
  EXPECT_NE(TypeStyle::viola().withFallbackFonts({}).debugDescription().find("\n    fallbackFonts: []\n"),
            std::string::npos);
}

// --- Locales ---

constexpr const char* kThousands = "min: 1000.5 mid: 0.25 max: -12345.0 axMax: 1e-05";
std::string describedThousands() { return Range(1000.5, 0.25, -12345.0, 0.00001).description(); }

TEST(TypeStyleDescription, IsTheSameWhereStreamsWriteACommaInNumbers) {
  const DecimalCommaOfStreams comma;
  std::ostringstream stream;
  stream << 1000.5;
  ASSERT_EQ(stream.str(), "1.000,5");
  EXPECT_EQ(describedThousands(), kThousands);
}

TEST(TypeStyleDescription, IsTheSameWhereCWritesACommaInNumbers) {
  const DecimalCommaOfC comma;
  if (!comma.isSet()) GTEST_SKIP() << "This machine has no locale with a decimal comma.";
  char text[16];
  std::snprintf(text, sizeof text, "%.1f", 1000.5);
  ASSERT_STREQ(text, "1000,5");
  EXPECT_EQ(describedThousands(), kThousands);
}

}  // namespace
}  // namespace Brisel
