#include "brisel/typography/font.h"

#include <cstddef>
#include <functional>
#include <string>
#include <type_traits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "brisel/typography/font_stacks.h"
#include "brisel/typography/internal/font_building.h"

namespace Brisel {
namespace {

using testing::ElementsAre;
using NumberSpacing = Font::Feature::NumberSpacingOption;

constexpr Font kTypefaces[] = {Font::tondal,     Font::tondalArab, Font::tondalHebr,  Font::tondalCyrl,
                               Font::tondalGrek, Font::tondalDeva, Font::tondalTitle, Font::tondalTitleTall};
constexpr const char* kFamilyNames[] = {"Tondal",     "TondalArab", "TondalHebr",  "TondalCyrl",
                                        "TondalGrek", "TondalDeva", "TondalTitle", "TondalTitleTall"};

static_assert(sizeof(Font) == 1 && sizeof(Font::Weight) == 1 && sizeof(Font::Feature) == 1 &&
              sizeof(NumberSpacing) == 1);

template <class A, class B>
concept Comparable = requires(A a, B b) {
  a == b;
};
template <class T>
concept Ordered = requires(T a, T b) {
  a < b;
};
static_assert(Comparable<Font, Font> && !Ordered<Font> && !std::is_convertible_v<Font, int>);
static_assert(!Comparable<Font, Font::Weight> && !Ordered<Font::Weight>);
static_assert(!std::is_constructible_v<Font, int> && !std::is_default_constructible_v<Font>);

TEST(Font, HasItsNumbersAndFamilyNames) {
  for (std::size_t i = 0; i < std::size(kTypefaces); ++i) {
    EXPECT_EQ(static_cast<std::size_t>(Font::Case(kTypefaces[i])), i);
    EXPECT_EQ(kTypefaces[i].description(), kFamilyNames[i]);
  }
}

TEST(Font, IsDescribedForDebuggingInQuotes) {
  EXPECT_EQ(Font::tondalArab.debugDescription(), "font name: \"TondalArab\"");
}

TEST(Font, IsEqualToItselfAlone) {
  for (const Font a : kTypefaces)
    for (const Font b : kTypefaces) {
      EXPECT_EQ(a == b, a.description() == b.description());
      EXPECT_EQ(std::hash<Font>()(a) == std::hash<Font>()(b), a == b);
    }
}

TEST(FontWeight, HasThreeCasesInOrder) {
  EXPECT_THAT(Font::Weight::allCases(), ElementsAre(Font::Weight::book, Font::Weight::bold, Font::Weight::black));
  EXPECT_EQ(static_cast<int>(Font::Weight::Case(Font::Weight::book)), 0);
  EXPECT_EQ(static_cast<int>(Font::Weight::Case(Font::Weight::bold)), 1);
  EXPECT_EQ(static_cast<int>(Font::Weight::Case(Font::Weight::black)), 2);
}

TEST(FontFeature, IsDescribedWithItsOption) {
  EXPECT_EQ(Font::Feature::numberSpacing(NumberSpacing::default_).description(), "numberSpacing: Default");
  EXPECT_EQ(Font::Feature::numberSpacing(NumberSpacing::monospaced).description(), "numberSpacing: Monospaced");
  EXPECT_EQ(NumberSpacing::default_.description(), "Default");
  EXPECT_EQ(NumberSpacing::monospaced.description(), "Monospaced");
}

TEST(FontFeature, KeepsItsOption) {
  for (const NumberSpacing a : {NumberSpacing::default_, NumberSpacing::monospaced})
    for (const NumberSpacing b : {NumberSpacing::default_, NumberSpacing::monospaced}) {
      const Font::Feature one = Font::Feature::numberSpacing(a), other = Font::Feature::numberSpacing(b);
      EXPECT_EQ(one.numberSpacingOption(), a);
      EXPECT_EQ(one == other, a == b);
      EXPECT_EQ(std::hash<Font::Feature>()(one) == std::hash<Font::Feature>()(other), a == b);
      EXPECT_EQ(std::hash<NumberSpacing>()(a) == std::hash<NumberSpacing>()(b), a == b);
    }
  EXPECT_EQ(static_cast<int>(NumberSpacing::Case(NumberSpacing::default_)), 0);
  EXPECT_EQ(static_cast<int>(NumberSpacing::Case(NumberSpacing::monospaced)), 1);
}

TEST(FontName, IsTheFamilyAHyphenAndTheWeight) {
  using internal::fontName;
  for (std::size_t i = 0; i < std::size(kTypefaces); ++i) {
    const std::string family = kFamilyNames[i];
    EXPECT_EQ(fontName(kTypefaces[i], Font::Weight::book), family + "-Book");
    EXPECT_EQ(fontName(kTypefaces[i], Font::Weight::bold), family + "-Bold");
    EXPECT_EQ(fontName(kTypefaces[i], Font::Weight::black), family + "-Black");
  }
}

TEST(FontStack, PutsTheTallCutBeforeTheScripts) {
  EXPECT_EQ(FontStack::text.primaryFont, Font::tondal);
  EXPECT_THAT(FontStack::text.fallbackFonts,
              ElementsAre(Font::tondalArab, Font::tondalHebr, Font::tondalCyrl, Font::tondalGrek, Font::tondalDeva));
  EXPECT_EQ(FontStack::title.primaryFont, Font::tondalTitle);
  EXPECT_THAT(FontStack::title.fallbackFonts, ElementsAre(Font::tondalTitleTall, Font::tondalArab, Font::tondalHebr,
                                                          Font::tondalCyrl, Font::tondalGrek, Font::tondalDeva));
}

// --- FontConfiguration ---

FontConfiguration configuration(double size = 16.0) {
  return {Font::tondal,
          {Font::tondalArab, Font::tondalHebr},
          Font::Weight::bold,
          size,
          {Font::Feature::numberSpacing(NumberSpacing::monospaced)}};
}

std::size_t hash(const FontConfiguration& value) { return std::hash<FontConfiguration>()(value); }

TEST(FontConfiguration, AsksEveryFieldAndTheOrderOfLists) {
  const FontConfiguration one = configuration();
  EXPECT_EQ(one, configuration());
  EXPECT_EQ(hash(one), hash(configuration()));
  FontConfiguration others[] = {one, one, one, one, one, one};
  others[0].primaryFont = Font::tondalTitle;
  others[1].fallbackFonts = {Font::tondalHebr, Font::tondalArab};
  others[2].fallbackFonts = {Font::tondalArab};
  others[3].weight = Font::Weight::book;
  others[4].size = 16.000000000000004;
  others[5].fontFeatures = {Font::Feature::numberSpacing(NumberSpacing::default_)};
  for (const FontConfiguration& other : others) {
    EXPECT_NE(one, other);
    EXPECT_NE(hash(one), hash(other));
    EXPECT_FALSE(internal::FontConfigurationView(one) == internal::FontConfigurationView(other));
  }
}

TEST(FontConfiguration, TakesZerosAsEqualWhateverTheirSign) {
  EXPECT_EQ(configuration(0.0), configuration(-0.0));
  EXPECT_EQ(hash(configuration(0.0)), hash(configuration(-0.0)));
}

// A fallback that becomes a feature, or the other way round, is another configuration.
TEST(FontConfiguration, DoesNotMixItsLists) {
  const FontConfiguration a{Font::tondal, {Font::tondalArab}, Font::Weight::book, 16.0, {}};
  const FontConfiguration b{
      Font::tondal, {}, Font::Weight::book, 16.0, {Font::Feature::numberSpacing(NumberSpacing::monospaced)}};
  EXPECT_NE(a, b);
  EXPECT_NE(hash(a), hash(b));
}

RC_GTEST_PROP(FontConfiguration, IsFoundByItsView, (double size)) {
  std::vector<Font> fallbacks;
  for (const int index : *rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 8)))
    fallbacks.push_back(kTypefaces[index]);
  const FontConfiguration value{kTypefaces[*rc::gen::inRange(0, 8)],
                                fallbacks,
                                Font::Weight::allCases()[static_cast<std::size_t>(*rc::gen::inRange(0, 3))],
                                size,
                                {}};
  const internal::FontConfigurationView view(value.primaryFont, fallbacks, value.weight, size, {});
  RC_ASSERT(internal::FontConfigurationHash()(view) == hash(value));
  RC_ASSERT(internal::FontConfigurationEqual()(view, value));
  RC_ASSERT((view.configuration() == value));
}

}  // namespace
}  // namespace Brisel
