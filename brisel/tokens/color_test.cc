#include "brisel/tokens/color.h"

#include <cmath>
#include <concepts>
#include <set>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/tokens/catalogue.h"
#include "brisel/tokens/legacy_color.h"

namespace Brisel {
namespace {

using Platform::UIColor;

template <class T>
concept Hashable = requires(const T& value) {
  std::hash<T>{}(value);
};

// A palette colour can neither be made nor compared, only copied.
static_assert(!std::is_default_constructible_v<Color>);
static_assert(!std::is_constructible_v<Color, Platform::ColorPtr>);
static_assert(!std::equality_comparable<Color>);
static_assert(!Hashable<Color>);
static_assert(std::copyable<Color>);
static_assert(std::is_same_v<decltype(std::declval<const Color&>().value()), const Platform::ColorPtr&>);

UIColor::RgbComponents rgb(const Color& color) { return color.value()->getRed(); }
UIColor::RgbComponents rgb(const Platform::ColorPtr& color) { return color->getRed(); }

// Each component times 255, rounded: how the design prints a colour for orientation.
constexpr unsigned byteOf(double component) { return static_cast<unsigned>(component * 255.0 + 0.5); }
constexpr unsigned hexOf(double red, double green, double blue) {
  return byteOf(red) << 16 | byteOf(green) << 8 | byteOf(blue);
}

#define BRISEL_RGB(name, red, green, blue, hex) \
  static_assert(hexOf(red, green, blue) == hex, "the components of " #name " do not round to their hex");
#include "brisel/tokens/palette.def"
#define BRISEL_RGB(name, red, green, blue, hex) \
  static_assert(hexOf(red, green, blue) == hex, "the components of " #name " do not round to their hex");
#include "brisel/tokens/legacy_colors.def"

TEST(Palette, Has252NamesInFiveSections) {
  std::vector<std::pair<std::string_view, std::size_t>> sections;
  for (const auto& family : Catalogue::colorFamilies()) {
    if (sections.empty() || sections.back().first != family.section) sections.emplace_back(family.section, 0);
    sections.back().second += family.colors.size();
  }
  EXPECT_THAT(sections,
              testing::ElementsAre(testing::Pair("Grey levels", 12), testing::Pair("Translucent and solid", 18),
                                   testing::Pair("Named hues", 29), testing::Pair("Hue ramps", 183),
                                   testing::Pair("Brand partner and fluorescent", 10)));
  EXPECT_EQ(Catalogue::colors().size(), 252U);
  EXPECT_EQ(Catalogue::legacyColors().size(), 60U);
}

TEST(Palette, OffersEachNameOnce) {
  std::set<std::string_view> names;
  for (const auto& entry : Catalogue::colors()) names.insert(entry.objectName);
  for (const auto& entry : Catalogue::legacyColors()) names.insert(entry.objectName);
  EXPECT_EQ(names.size(), 312U);
}

TEST(Palette, HasOneInstanceForEachName) {
  std::set<const UIColor*> instances;
  for (const auto& entry : Catalogue::colors()) instances.insert(entry.get().value().get());
  for (const auto& entry : Catalogue::legacyColors()) instances.insert(entry.get().get());
  EXPECT_EQ(instances.size(), 312U);
  EXPECT_EQ(Color::gray7().value().get(), Color::gray7().value().get());
  EXPECT_EQ(&Color::gray7(), &Color::gray7());
}

TEST(Palette, ListsItsNamesInPublishedOrder) {
  const auto colors = Catalogue::colors();
  EXPECT_EQ(colors.front().name, "gray7");
  EXPECT_EQ(colors[11].name, "halvornBlack7");
  EXPECT_EQ(colors[12].name, "opacityBlack0");
  EXPECT_EQ(colors[29].name, "white");
  EXPECT_EQ(colors[30].name, "midnight35");
  EXPECT_EQ(colors[58].name, "electricSeafoam167");
  EXPECT_EQ(colors[59].name, "redOrange25");
  EXPECT_EQ(colors[241].name, "redDesat180");
  EXPECT_EQ(colors[242].name, "blueFacebook100");
  EXPECT_EQ(colors.back().name, "fluorescentPink119");
  EXPECT_EQ(Catalogue::legacyColors().front().objectName, "aquamarine");
  EXPECT_EQ(Catalogue::legacyColors().back().objectName, "orangeLight");
}

TEST(Palette, NamesEachRampAfterItsFamilyAndRisesInLightness) {
  for (const auto& family : Catalogue::colorFamilies()) {
    if (family.section != "Hue ramps") continue;
    const std::string_view stem = family.colors[0].name.substr(0, family.colors[0].name.find_first_of("0123456789"));
    int previous = 0;
    for (const auto& entry : family.colors) {
      ASSERT_TRUE(entry.name.starts_with(stem)) << entry.name << " in " << family.title;
      const int step = std::stoi(std::string(entry.name.substr(stem.size())));
      EXPECT_GT(step, previous) << entry.name;
      previous = step;
    }
  }
}

TEST(Palette, KeepsTheStepsInWhichRampsDiffer) {
  const auto stepsOf = [](std::string_view title) {
    std::vector<std::string_view> steps;
    for (const auto& family : Catalogue::colorFamilies())
      if (family.title == title)
        for (const auto& entry : family.colors)
          steps.push_back(entry.name.substr(entry.name.find_first_of("0123456789")));
    return steps;
  };
  using testing::ElementsAre;
  EXPECT_THAT(stepsOf("Red orange"), ElementsAre("25", "55", "75", "100", "120", "135", "155", "180"));
  EXPECT_THAT(stepsOf("Brown"), ElementsAre("25", "55", "75", "100", "123", "135", "155", "180"));
  EXPECT_THAT(stepsOf("Brown yellow"), ElementsAre("25", "55", "75", "100", "135", "155", "172", "180"));
  EXPECT_THAT(stepsOf("Yellow"), ElementsAre("25", "55", "75", "100", "135", "155", "184"));
  EXPECT_THAT(stepsOf("Yellow green"), ElementsAre("25", "55", "75", "100", "135", "155", "186"));
  EXPECT_THAT(stepsOf("Green"), ElementsAre("25", "55", "75", "100", "135", "157", "180"));
  EXPECT_THAT(stepsOf("Green, desaturated"), ElementsAre("25", "55", "75", "100", "135", "155", "185"));
  EXPECT_THAT(stepsOf("Green blue, desaturated"), ElementsAre("25", "55", "75", "100", "114", "135", "155", "180"));
  EXPECT_THAT(stepsOf("Blue violet"), ElementsAre("25", "55", "61", "75", "100", "135", "155", "180"));
  EXPECT_THAT(stepsOf("Blue violet, desaturated"), ElementsAre("25", "35", "55", "75", "100", "135", "155", "180"));
  EXPECT_THAT(stepsOf("Violet, desaturated"), ElementsAre("25", "46", "75", "100", "135", "155", "180"));
  EXPECT_THAT(stepsOf("Violet pink"), ElementsAre("25", "55", "75", "84", "100", "135", "155", "180"));
  EXPECT_THAT(stepsOf("Violet pink, desaturated"), ElementsAre("25", "55", "67", "100", "135", "155", "180"));
  EXPECT_THAT(stepsOf("Pink"), ElementsAre("25", "55", "75", "100", "115", "135", "155", "180"));
  EXPECT_THAT(stepsOf("Orange"), ElementsAre("25", "55", "75", "100", "135", "155", "180"));
}

TEST(Palette, KeepsGreysInGreyFormAndHuesInRgbForm) {
  for (const auto& family : Catalogue::colorFamilies()) {
    const bool grey = family.section == "Grey levels" || family.section == "Translucent and solid";
    for (const auto& entry : family.colors) {
      const UIColor& color = *entry.get().value();
      EXPECT_EQ(color.form() == UIColor::Form::grey, grey) << entry.name;
      if (!grey) {
        EXPECT_EQ(color.alpha(), 1.0) << entry.name;
      }
    }
  }
  EXPECT_EQ(LegacyColor::white5()->form(), UIColor::Form::grey);
  EXPECT_EQ(LegacyColor::green()->form(), UIColor::Form::rgb);
}

TEST(Palette, HasGreysThatAreNotTheirNominalPercentage) {
  const auto level = [](const Color& color) { return color.value()->getWhite(); };
  using Grey = UIColor::GreyComponents;
  EXPECT_EQ(level(Color::gray7()), (Grey{0.071, 1.0}));
  EXPECT_EQ(level(Color::gray10()), (Grey{0.094, 1.0}));
  EXPECT_EQ(level(Color::gray15()), (Grey{0.157, 1.0}));
  EXPECT_EQ(level(Color::gray30()), (Grey{0.325, 1.0}));
  EXPECT_EQ(level(Color::gray50()), (Grey{0.498, 1.0}));
  EXPECT_EQ(level(Color::gray85()), (Grey{0.851, 1.0}));
  EXPECT_EQ(level(Color::gray90()), (Grey{0.933, 1.0}));
  EXPECT_EQ(level(Color::gray95()), (Grey{0.973, 1.0}));
}

TEST(Palette, ReadsAGreyAsEqualRedGreenAndBlue) {
  EXPECT_EQ(rgb(Color::gray30()), (UIColor::RgbComponents{0.325, 0.325, 0.325, 1.0}));
  EXPECT_EQ(rgb(Color::opacityWhite30()), (UIColor::RgbComponents{1.0, 1.0, 1.0, 0.3}));
}

TEST(Palette, KeepsTheLevelUnderFullTransparency) {
  using Grey = UIColor::GreyComponents;
  EXPECT_EQ(Color::opacityWhite0().value()->getWhite(), (Grey{1.0, 0.0}));
  EXPECT_EQ(Color::opacityBlack0().value()->getWhite(), (Grey{0.0, 0.0}));
  EXPECT_EQ(LegacyColor::white0()->getWhite(), (Grey{1.0, 0.0}));
  EXPECT_EQ(LegacyColor::black0()->getWhite(), (Grey{0.0, 0.0}));
  EXPECT_EQ(Color::opacityBlack90().value()->getWhite(), (Grey{0.0, 0.9}));
  EXPECT_EQ(LegacyColor::white5()->getWhite(), (Grey{1.0, 0.05}));
}

TEST(Palette, HasComponentsExactlyAsDesigned) {
  using Rgb = UIColor::RgbComponents;
  EXPECT_EQ(rgb(Color::halvornGreen157()), (Rgb{0.118, 0.843, 0.376, 1.0}));
  EXPECT_EQ(rgb(Color::aquamarine180()), (Rgb{0.569, 0.933, 0.855, 1.0}));
  EXPECT_EQ(rgb(Color::fluorescentYellow194()), (Rgb{0.953, 1.0, 0.275, 1.0}));
  EXPECT_EQ(rgb(Color::fluorescentCyan185()), (Rgb{0.0, 1.0, 1.0, 1.0}));
  EXPECT_EQ(rgb(Color::fluorescentRed109()).red, 1.0);
  EXPECT_EQ(rgb(Color::fluorescentOrange144()).red, 1.0);
  EXPECT_EQ(rgb(Color::fluorescentPink119()).red, 1.0);
  EXPECT_EQ(rgb(Color::fluorescentBlueViolet69()).blue, 1.0);
  EXPECT_EQ(rgb(Color::fluorescentViolet111()).blue, 1.0);
  EXPECT_EQ(rgb(LegacyColor::aquamarine()), (Rgb{0.608, 0.941, 0.882, 1.0}));
  EXPECT_EQ(rgb(LegacyColor::aubergine()), (Rgb{0.314, 0.216, 0.314, 1.0}));
}

TEST(Palette, HasHuesThatEqualARampStepAndAreStillTheirOwn) {
  const std::pair<const Color&, const Color&> pairs[] = {
      {Color::midnight35(), Color::blueVioletDesat35()},
      {Color::aubergine46(), Color::violetDesat46()},
      {Color::maroon55(), Color::redDesat55()},
      {Color::royalBlue55(), Color::blueVioletDesat55()},
      {Color::kleinBlue61(), Color::blueViolet61()},
      {Color::forest75(), Color::greenBlue75()},
      {Color::chocolate75(), Color::brown75()},
      {Color::violet84(), Color::violetPink84()},
      {Color::brightRed100(), Color::red100()},
      {Color::spearmint114(), Color::greenBlueDesat114()},
      {Color::fuchsia115(), Color::pink115()},
      {Color::tangerine120(), Color::redOrange120()},
      {Color::bole123(), Color::brown123()},
      {Color::salmon135(), Color::pinkDesat135()},
      {Color::lavender135(), Color::violetDesat135()},
      {Color::azure135(), Color::blue135()},
      {Color::pumpkin135(), Color::orange135()},
      {Color::tan135(), Color::brownDesat135()},
      {Color::storm155(), Color::blueDesat155()},
      {Color::gold155(), Color::brownYellow155()},
      {Color::halvornGreen157(), Color::green157()},
      {Color::sunflower172(), Color::brownYellow172()},
      {Color::rose180(), Color::red180()},
      {Color::aquamarine180(), Color::greenBlue180()},
      {Color::factoryYellow184(), Color::yellow184()},
      {Color::powderGreen185(), Color::greenDesat185()},
      {Color::citric186(), Color::yellowGreen186()},
      {Color::neonGreen176(), Color::fluorescentGreen176()},
      {Color::electricSeafoam167(), Color::fluorescentGreenBlue167()},
      {Color::halvornBlack7(), Color::gray7()},
      {Color::solidWhite200(), Color::white()},
      {Color::solidBlack0(), Color::black()},
  };
  for (const auto& [hue, step] : pairs) {
    EXPECT_EQ(*hue.value(), *step.value());
    EXPECT_NE(hue.value().get(), step.value().get());
  }
}

TEST(LegacyColors, AreNeverAliases) {
  EXPECT_NE(*LegacyColor::aquamarine(), *Color::aquamarine180().value());
  EXPECT_NE(*LegacyColor::green(), *Color::green157().value());
  EXPECT_NE(*LegacyColor::blueFacebook(), *Color::blueFacebook100().value());
  EXPECT_EQ(*LegacyColor::black10(), *Color::opacityBlack10().value());
  EXPECT_NE(LegacyColor::black10().get(), Color::opacityBlack10().value().get());
  EXPECT_EQ(*LegacyColor::greenLight(), *Color::green157().value());
  EXPECT_NE(LegacyColor::greenLight().get(), Color::green157().value().get());
}

TEST(LegacyColors, EqualAPaletteColourInEighteenCases) {
  std::size_t equal = 0;
  for (const auto& legacy : Catalogue::legacyColors()) {
    bool found = false;
    for (const auto& entry : Catalogue::colors()) found = found || *entry.get().value() == *legacy.get();
    equal += found ? 1 : 0;
  }
  EXPECT_EQ(equal, 18U);
}

}  // namespace
}  // namespace Brisel
