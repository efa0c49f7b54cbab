#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "brisel/themes/catalogue.h"
#include "brisel/themes/theme.h"
#include "brisel/tokens/color.h"
#include "brisel/tokens/color_parsing.h"
#include "brisel/tokens/internal/built_count.h"

namespace Brisel {
namespace {

using Platform::ColorPtr;
using Platform::UIColor;
using Rgb = UIColor::RgbComponents;

const Rgb kBlack{0.0, 0.0, 0.0, 1.0};
const Rgb kWhite{1.0, 1.0, 1.0, 1.0};
const Rgb kGreen{0.118, 0.843, 0.376, 1.0};

Rgb blackAt(double alpha) { return {0.0, 0.0, 0.0, alpha}; }
Rgb whiteAt(double alpha) { return {1.0, 1.0, 1.0, alpha}; }
Rgb grey(double level) { return {level, level, level, 1.0}; }

std::vector<Rgb> colors(const Theme::State& state) {
  return {state.base()->getRed(), state.highlight()->getRed(), state.press()->getRed()};
}

// The paths of the slots in which two colour sets differ.
std::vector<std::string_view> differences(const Theme::ColorSet& a, const Theme::ColorSet& b) {
  std::vector<std::string_view> paths;
  for (const auto& slot : Catalogue::slots())
    if (*slot.get(a) != *slot.get(b)) paths.push_back(slot.path);
  return paths;
}

TEST(DarkTheme, HasComponentsThatRoundToTheirLabels) {
  const auto byteOf = [](double component) { return static_cast<int>(component * 255.0 + 0.5) / 255.0; };
  int labels = 0;
#define BRISEL_SHADE(label, red, green, blue, alpha)                                                 \
  if (const auto shade = colorFromRGBHexString(#label); std::string_view(#label).starts_with("x")) { \
    ASSERT_TRUE(shade) << #label;                                                                    \
    EXPECT_EQ(*shade, UIColor::rgb(byteOf(red), byteOf(green), byteOf(blue))) << #label;             \
    EXPECT_EQ(alpha, 1.0) << #label;                                                                 \
    ++labels;                                                                                        \
  }
#include "brisel/themes/dark_theme.def"
  EXPECT_EQ(labels, 37);
}

TEST(DarkTheme, UsesFiftyColours) {
  std::vector<Rgb> distinct;
  for (const auto& set : Catalogue::colorSets())
    for (const auto& slot : Catalogue::slots()) {
      const Rgb color = slot.get((Theme::dark().*set.get)())->getRed();
      if (std::find(distinct.begin(), distinct.end(), color) == distinct.end()) distinct.push_back(color);
    }
  EXPECT_EQ(distinct.size(), 50U);
}

TEST(DarkTheme, IsOneValueEqualToItself) {
  EXPECT_EQ(&Theme::dark(), &Theme::dark());
  EXPECT_EQ(Theme::dark(), Theme::dark());
  const Theme copy = Theme::dark();
  EXPECT_EQ(copy, Theme::dark());
  EXPECT_EQ(std::hash<Theme>{}(copy), std::hash<Theme>{}(Theme::dark()));
}

TEST(DarkTheme, DiffersFromOneWithAnotherDecorativeColourOverMedia) {
  const Theme& dark = Theme::dark();
  const Theme::ColorSet& media = dark.overMedia();
  const Theme other(dark.base(), dark.brightAccent(), dark.negative(), dark.warning(), dark.positive(),
                    dark.announcement(), dark.invertedDark(), dark.invertedLight(), dark.mutedAccent(),
                    Theme::ColorSet(media.background(), media.text(), media.essential(),
                                    Theme::Decorative(media.decorative().base(), media.decorative().base())));
  EXPECT_FALSE(other == dark);
  EXPECT_NE(std::hash<Theme>{}(other), std::hash<Theme>{}(dark));
}

TEST(DarkTheme, IsInRgbFormThroughoutAndReadsNoPaletteColour) {
  for (const auto& set : Catalogue::colorSets())
    for (const auto& slot : Catalogue::slots())
      EXPECT_EQ(slot.get((Theme::dark().*set.get)())->form(), UIColor::Form::rgb) << set.name << ' ' << slot.path;
  EXPECT_EQ(internal::builtPaletteColors(), 0U);
}

TEST(DarkTheme, IsNotMadeOfPaletteColours) {
  const auto& background = Theme::dark().base().background().base();
  EXPECT_EQ(background->getRed(), Color::gray7().value()->getRed());
  EXPECT_NE(*background, *Color::gray7().value());  // the other form
  const auto& green = Theme::dark().base().text().brightAccent();
  EXPECT_EQ(*green, *Color::green157().value());
  EXPECT_NE(green, Color::green157().value());
}

TEST(DarkTheme, HandsOutPointersThatDoNotCount) {
  const ColorPtr copy = Theme::dark().base().text().base();
  EXPECT_EQ(copy.use_count(), 0);
}

TEST(DarkTheme, HasBaseBackgroundsThatAreNotFlat) {
  const auto& background = Theme::dark().base().background();
  EXPECT_EQ(background.base()->getRed(), grey(0.071));
  EXPECT_EQ(background.highlight()->getRed(), grey(0.102));
  EXPECT_EQ(background.press()->getRed(), kBlack);
  EXPECT_THAT(colors(background.elevated()), testing::ElementsAre(grey(0.141), grey(0.165), kBlack));
  EXPECT_THAT(colors(background.tinted()), testing::ElementsAre(whiteAt(0.07), whiteAt(0.1), whiteAt(0.04)));
  EXPECT_THAT(colors(background.unsafeForSmallText()), testing::ElementsAre(grey(0.071), grey(0.071), grey(0.071)));
}

TEST(DarkTheme, TellsThePlainBackgroundFromTheElevatedOne) {
  EXPECT_NE(*Theme::dark().base().background().base(), *Theme::dark().base().background().elevated().base());
}

TEST(DarkTheme, HasFlatNamedStatesElsewhereButForTwo) {
  std::vector<std::string> notFlat;
  for (const auto& set : Catalogue::colorSets()) {
    const auto& background = (Theme::dark().*set.get)().background();
    const std::pair<std::string_view, const Theme::State&> states[] = {
        {"elevated", background.elevated()},
        {"tinted", background.tinted()},
        {"unsafeForSmallText", background.unsafeForSmallText()}};
    for (const auto& [name, state] : states)
      if (*state.base() != *state.highlight() || *state.base() != *state.press())
        notFlat.push_back(std::string(set.name) + '.' + std::string(name));
  }
  EXPECT_THAT(notFlat, testing::ElementsAre("base.elevated", "base.tinted", "mutedAccent.tinted",
                                            "overMedia.unsafeForSmallText"));
}

TEST(DarkTheme, IsBlackOfVariousAlphasOverMedia) {
  const auto& set = Theme::dark().overMedia();
  const auto& background = set.background();
  const auto flat = testing::ElementsAre(blackAt(0.54), blackAt(0.54), blackAt(0.54));
  EXPECT_THAT(colors(background.elevated()), flat);
  EXPECT_THAT(colors(background.tinted()), flat);
  EXPECT_THAT(colors(background.unsafeForSmallText()),
              testing::ElementsAre(blackAt(0.42), blackAt(0.44), blackAt(0.61)));
  EXPECT_EQ(background.base()->getRed(), blackAt(0.54));
  EXPECT_EQ(background.highlight()->getRed(), blackAt(0.56));
  EXPECT_EQ(background.press()->getRed(), blackAt(0.72));
  for (std::size_t i = 12; i < 27; ++i) EXPECT_EQ(Catalogue::slots()[i].get(set)->getRed(), kWhite) << i;
  EXPECT_EQ(set.decorative().subdued()->getRed(), whiteAt(0.13));
}

TEST(DarkTheme, HasOneForegroundInEachAccentSet) {
  const std::pair<const Theme::ColorSet&, Rgb> sets[] = {{Theme::dark().brightAccent(), kBlack},
                                                         {Theme::dark().negative(), kWhite},
                                                         {Theme::dark().warning(), kBlack},
                                                         {Theme::dark().positive(), kBlack},
                                                         {Theme::dark().announcement(), kWhite}};
  // From text.base to decorative.base.
  for (const auto& [set, color] : sets)
    for (std::size_t i = 12; i < 27; ++i) EXPECT_EQ(Catalogue::slots()[i].get(set)->getRed(), color) << i;
}

TEST(DarkTheme, HasTheSameColoursForBrightAccentAndPositive) {
  EXPECT_EQ(Theme::dark().brightAccent(), Theme::dark().positive());
  EXPECT_EQ(std::hash<Theme::ColorSet>{}(Theme::dark().brightAccent()),
            std::hash<Theme::ColorSet>{}(Theme::dark().positive()));
  EXPECT_NE(Theme::dark().brightAccent().text().base().get(), Theme::dark().positive().text().base().get());
}

TEST(DarkTheme, TellsTheMutedAccentFromTheDarkInvertedSurfaceInFiveSlots) {
  const auto& muted = Theme::dark().mutedAccent();
  const auto& inverted = Theme::dark().invertedDark();
  EXPECT_THAT(differences(muted, inverted),
              testing::ElementsAre("background.tinted.base", "background.tinted.highlight", "background.tinted.press",
                                   "text.subdued", "essential.subdued"));
  EXPECT_THAT(colors(muted.background().tinted()), testing::ElementsAre(whiteAt(0.1), whiteAt(0.13), whiteAt(0.06)));
  EXPECT_THAT(colors(inverted.background().tinted()), testing::ElementsAre(kBlack, kBlack, kBlack));
  EXPECT_EQ(muted.text().subdued()->getRed(), grey(0.620));
  EXPECT_EQ(muted.essential().subdued()->getRed(), grey(0.416));
}

TEST(DarkTheme, HasDarkerGreensOnTheLightInvertedSurface) {
  EXPECT_EQ(Theme::dark().invertedDark().text().brightAccent()->getRed(), kGreen);
  EXPECT_EQ(Theme::dark().invertedDark().essential().brightAccent()->getRed(), kGreen);
  EXPECT_EQ(Theme::dark().invertedLight().text().brightAccent()->getRed(), (Rgb{0.071, 0.514, 0.227, 1.0}));
  EXPECT_EQ(Theme::dark().invertedLight().essential().brightAccent()->getRed(), (Rgb{0.090, 0.643, 0.286, 1.0}));
}

TEST(DarkTheme, HasLighterTintsForTextOnTheBaseSurface) {
  const auto& text = Theme::dark().base().text();
  const auto& essential = Theme::dark().base().essential();
  EXPECT_EQ(*text.base(), *essential.base());
  EXPECT_EQ(*text.brightAccent(), *essential.brightAccent());
  EXPECT_EQ(*text.warning(), *essential.warning());
  EXPECT_EQ(*text.positive(), *essential.positive());
  EXPECT_EQ(text.negative()->getRed(), (Rgb{0.945, 0.369, 0.424, 1.0}));
  EXPECT_EQ(essential.negative()->getRed(), (Rgb{0.914, 0.078, 0.161, 1.0}));
  EXPECT_EQ(text.announcement()->getRed(), (Rgb{0.239, 0.569, 0.957, 1.0}));
  EXPECT_EQ(essential.announcement()->getRed(), (Rgb{0.051, 0.447, 0.918, 1.0}));
  EXPECT_EQ(text.subdued()->getRed(), grey(0.655));
  EXPECT_EQ(essential.subdued()->getRed(), grey(0.447));
}

TEST(DarkTheme, HasPressedColoursThatAreDesignedAndNotDerived) {
  EXPECT_EQ(Theme::dark().warning().background().press()->getRed(), (Rgb{0.773, 0.443, 0.000, 1.0}));
  EXPECT_EQ(Theme::dark().negative().background().press()->getRed(), (Rgb{0.573, 0.051, 0.102, 1.0}));
  EXPECT_NE(*Theme::dark().negative().background().press(), *Color::red55().value());
  EXPECT_EQ(*Theme::dark().announcement().background().press(), *Color::blue55().value());
}

TEST(DarkTheme, IsBuiltOnceForConcurrentFirstReaders) {
  std::vector<const Theme*> seen(8);
  std::vector<std::thread> threads;
  for (auto& mine : seen) threads.emplace_back([&mine] { mine = &Theme::dark(); });
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(std::set<const Theme*>(seen.begin(), seen.end()).size(), 1U);
  EXPECT_EQ(seen[0]->base().background().base()->getRed(), grey(0.071));
}

TEST(DarkTheme, CanBeReadInAnExitHandler) {
  EXPECT_EXIT(
      {
        std::atexit([] { ::_exit(Theme::dark().base().text().base()->getRed() == kWhite ? 7 : 1); });
        std::exit(0);
      },
      testing::ExitedWithCode(7), "");
}

}  // namespace
}  // namespace Brisel
