#include <array>
#include <cmath>
#include <cstddef>
#include <functional>
#include <latch>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <type_traits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "brisel/themes/catalogue.h"
#include "brisel/themes/internal/built_count.h"
#include "brisel/themes/internal/slot_reader.h"
#include "brisel/themes/theme.h"
#include "brisel/tokens/catalogue.h"
#include "brisel/tokens/color_parsing.h"
#include "brisel/tokens/internal/built_count.h"

namespace Brisel {
namespace {

using Campaign = Theme::ColorSet::Campaign;
using Platform::UIColor;
using Rgb = UIColor::RgbComponents;

static_assert(!std::is_default_constructible_v<Campaign>);
static_assert(std::is_same_v<decltype(Campaign::tierAurel()), const Theme::ColorSet&>);

template <class T>
concept HasEstivaAlternate = requires {
  T::tierEstivaAlternate();
};
static_assert(!HasEstivaAlternate<Campaign>);

// The design sheet. Its components are its labels' bytes to three decimals, which holds for every colour on it.
struct Row {
  std::string_view name, surface, highlight, press, foreground, brightAccent, subdued;
};
constexpr Row kRows[] = {
    {"halvornBrand", "#283EA3", "#253A98", "#0C1331", "#1ED760", "#FFFFFF", "#324DCB"},
    {"halvornBrandAlternate", "#1ED760", "#1FDF64", "#169C46", "#283EA3", "#000000", "#1ABC54"},
    {"halvornBrand2", "#C5F0C9", "#D9F5DB", "#32C340", "#CD1400", "#000000", "#A3E7A9"},
    {"halvornBrand2Alternate", "#CD1400", "#C31300", "#780C00", "#C5F0C9", "#FFFFFF", "#EE1700"},
    {"halvornBrand3", "#FCE54F", "#FDEE8E", "#C1A803", "#B02897", "#000000", "#E6C804"},
    {"halvornBrand3Alternate", "#B02897", "#A7268F", "#641756", "#FCE54F", "#FFFFFF", "#CD2FB0"},
    {"tierAurel", "#FFD2D7", "#FFDDE1", "#FF7988", "#000000", "#000000", "#FFB9C1"},
    {"tierAurelAlternate", "#000000", "#0D0D0D", "#3F3F3F", "#FFD2D7", "#FFFFFF", "#1F1F1F"},
    {"tierBexa", "#FFC862", "#FFD280", "#D48900", "#000000", "#000000", "#FFB223"},
    {"tierBexaAlternate", "#000000", "#0D0D0D", "#3F3F3F", "#FFFFFF", "#FFC862", "#1F1F1F"},
    {"tierCorvin", "#C4B1D4", "#CAB9D8", "#9978B5", "#000000", "#000000", "#B299C7"},
    {"tierCorvinAlternate", "#000000", "#0D0D0D", "#3F3F3F", "#C4B1D4", "#FFFFFF", "#1F1F1F"},
    {"tierDalmor", "#A5BBD1", "#AEC2D6", "#6389AF", "#000000", "#000000", "#88A5C2"},
    {"tierDalmorAlternate", "#000000", "#0D0D0D", "#3F3F3F", "#A5BBD1", "#FFFFFF", "#1F1F1F"},
    {"tierEstiva", "#CFF56A", "#E2F9A6", "#8BBA0C", "#000000", "#000000", "#A8E20F"},
};

Rgb designed(std::string_view label) {
  const Rgb bytes = colorFromRGBHexString(label)->getRed();
  const auto toThreeDecimals = [](double component) { return std::round(component * 1000) / 1000; };
  return {toThreeDecimals(bytes.red), toThreeDecimals(bytes.green), toThreeDecimals(bytes.blue), 1.0};
}

std::string_view labelOf(const Row& row, std::string_view slot) {
  if (slot == "background.highlight") return row.highlight;
  if (slot == "background.press") return row.press;
  if (slot.starts_with("background.")) return row.surface;
  if (slot.ends_with(".brightAccent")) return row.brightAccent;
  return slot == "decorative.subdued" ? row.subdued : row.foreground;
}

Rgb components(const Platform::ColorPtr& color) { return color->getRed(); }

constexpr Rgb kBlack{0.0, 0.0, 0.0, 1.0};
constexpr Rgb kWhite{1.0, 1.0, 1.0, 1.0};

const Theme::ColorSet& setAt(std::size_t index) { return Catalogue::campaignColorSets()[index].get(); }

// The colours of a set, in new instances.
std::vector<UIColor> cells(const Theme::ColorSet& set) {
  std::vector<UIColor> cells;
  for (const auto& slot : Catalogue::slots()) cells.push_back(*slot.get(set));
  return cells;
}

TEST(CampaignColorSets, StandInPublishedOrder) {
  const auto sets = Catalogue::campaignColorSets();
  ASSERT_EQ(sets.size(), 15U);
  for (std::size_t i = 0; i < sets.size(); ++i) EXPECT_EQ(sets[i].name, kRows[i].name);
}

TEST(CampaignColorSets, HaveTheColoursOfTheDesignSheetInEverySlot) {
  for (std::size_t i = 0; i < std::size(kRows); ++i) {
    for (const auto& slot : Catalogue::slots()) {
      EXPECT_EQ(components(slot.get(setAt(i))), designed(labelOf(kRows[i], slot.path)))
          << kRows[i].name << ' ' << slot.path;
    }
  }
}

TEST(CampaignColorSets, AreReachedUnderTheirNames) {
#define BRISEL_CAMPAIGN(name, ...) EXPECT_EQ(Catalogue::campaignColorSets()[index++].get, Campaign::name) << #name;
  std::size_t index = 0;
#include "brisel/themes/campaign.def"
  EXPECT_EQ(index, 15U);
}

TEST(CampaignColorSets, HaveComponentsThatRoundToTheirLabels) {
  const auto byteOf = [](double component) { return static_cast<double>(std::lround(component * 255.0)) / 255.0; };
  int labels = 0;
#define BRISEL_SHADE(label, red, green, blue, alpha)                                                 \
  if (const auto shade = colorFromRGBHexString(#label); std::string_view(#label).starts_with("x")) { \
    ASSERT_TRUE(shade) << #label;                                                                    \
    EXPECT_EQ(*shade, UIColor::rgb(byteOf(red), byteOf(green), byteOf(blue))) << #label;             \
    EXPECT_EQ(alpha, 1.0) << #label;                                                                 \
    ++labels;                                                                                        \
  }
#include "brisel/themes/campaign.def"
  EXPECT_EQ(labels, 47);
}

TEST(CampaignColorSets, FillTenSlotsWithTheirSurface) {
  for (std::size_t i = 0; i < std::size(kRows); ++i) {
    // All 28, in slot order; the surface is no other colour of its set.
    int surface = 0;
    for (const auto& slot : Catalogue::slots()) surface += *slot.get(setAt(i)) == *setAt(i).background().base() ? 1 : 0;
    EXPECT_EQ(surface, 10) << kRows[i].name;
  }
}

TEST(CampaignColorSets, SpreadSixColoursOverTheirSlots) {
  const auto& set = Campaign::halvornBrand();  // whose six differ
  const auto count = [&set](const Platform::ColorPtr& color) {
    int slots = 0;
    for (const auto& slot : Catalogue::slots()) slots += *slot.get(set) == *color ? 1 : 0;
    return slots;
  };
  EXPECT_EQ(count(set.background().base()), 10);
  EXPECT_EQ(count(set.background().highlight()), 1);
  EXPECT_EQ(count(set.background().press()), 1);
  EXPECT_EQ(count(set.text().base()), 13);
  EXPECT_EQ(count(set.text().brightAccent()), 2);
  EXPECT_EQ(count(set.decorative().subdued()), 1);
}

TEST(CampaignColorSets, KeepTheSurfaceInANamedStateThatIsPressed) {
  const auto& background = Campaign::halvornBrand().background();
  EXPECT_EQ(*background.tinted().press(), *background.base());
  EXPECT_EQ(components(background.base()), (Rgb{0.157, 0.243, 0.639, 1.0}));
  EXPECT_EQ(components(background.press()), (Rgb{0.047, 0.075, 0.192, 1.0}));
}

TEST(CampaignColorSets, SwapSurfaceAndForegroundBetweenABrandAndItsAlternate) {
  for (std::size_t i = 0; i < 6; i += 2) {
    const auto& brand = setAt(i);
    const auto& alternate = setAt(i + 1);
    EXPECT_EQ(*brand.background().base(), *alternate.text().base()) << kRows[i].name;
    EXPECT_EQ(*brand.text().base(), *alternate.background().base()) << kRows[i].name;
    // White on the darker surface, black on the lighter one.
    const bool isDarker = brand.background().base()->getWhite().white < alternate.background().base()->getWhite().white;
    EXPECT_EQ(components(brand.essential().brightAccent()), isDarker ? kWhite : kBlack) << kRows[i].name;
    EXPECT_EQ(components(alternate.essential().brightAccent()), isDarker ? kBlack : kWhite) << kRows[i].name;
  }
}

TEST(CampaignColorSets, PutBlackOnTheTiersColourAndTheTiersColourOnBlack) {
  for (std::size_t i = 6; i < std::size(kRows); ++i) {
    if (std::string_view(kRows[i].name).ends_with("Alternate")) continue;
    SCOPED_TRACE(kRows[i].name);
    const auto& tier = setAt(i);
    EXPECT_EQ(components(tier.text().base()), kBlack);
    EXPECT_EQ(components(tier.text().brightAccent()), kBlack);
    if (kRows[i].name == "tierEstiva") continue;  // the one without an alternate
    const auto& alternate = setAt(i + 1);
    const bool isReversed = kRows[i].name == "tierBexa";
    EXPECT_EQ(components(alternate.background().base()), kBlack);
    EXPECT_EQ(components(alternate.background().highlight()), (Rgb{0.051, 0.051, 0.051, 1.0}));
    EXPECT_EQ(components(alternate.background().press()), (Rgb{0.247, 0.247, 0.247, 1.0}));
    EXPECT_EQ(components(alternate.decorative().subdued()), (Rgb{0.122, 0.122, 0.122, 1.0}));
    const auto& text = alternate.text();
    EXPECT_EQ(*(isReversed ? text.brightAccent() : text.base()), *tier.background().base());
    EXPECT_EQ(components(isReversed ? text.base() : text.brightAccent()), kWhite);
  }
}

TEST(CampaignColorSets, ReverseTheForegroundsOfBexasAlternateAlone) {
  EXPECT_EQ(components(Campaign::tierBexaAlternate().text().base()), kWhite);
  EXPECT_EQ(components(Campaign::tierBexaAlternate().text().brightAccent()), (Rgb{1.0, 0.784, 0.384, 1.0}));
  EXPECT_EQ(components(Campaign::tierCorvinAlternate().text().base()), (Rgb{0.769, 0.694, 0.831, 1.0}));
  EXPECT_EQ(components(Campaign::tierCorvinAlternate().text().brightAccent()), kWhite);
}

TEST(CampaignColorSets, AreOpaqueInRgbFormAndReadNoPaletteColour) {
  for (const auto& set : Catalogue::campaignColorSets()) {
    for (const auto& slot : Catalogue::slots()) {
      EXPECT_EQ(slot.get(set.get())->form(), UIColor::Form::rgb) << set.name << ' ' << slot.path;
      EXPECT_EQ(slot.get(set.get())->alpha(), 1.0) << set.name << ' ' << slot.path;
    }
  }
  EXPECT_EQ(internal::builtPaletteColors(), 0U);
}

TEST(CampaignColorSets, ShareComponentsButNoColourWithThePalette) {
  std::map<std::string_view, std::set<std::string_view>> equal;
  for (const Row& row : kRows) {
    for (const auto label : {row.surface, row.highlight, row.press, row.foreground, row.brightAccent, row.subdued}) {
      for (const auto& entry : Catalogue::colors())
        if (components(entry.get().value()) == designed(label)) equal[label].insert(entry.name);
    }
  }
  const decltype(equal) expected{{"#000000", {"solidBlack0", "black"}},
                                 {"#1ED760", {"halvornGreen157", "green157"}},
                                 {"#283EA3", {"royalBlue55", "blueVioletDesat55"}},
                                 {"#A5BBD1", {"storm155", "blueDesat155"}},
                                 {"#B02897", {"violet84", "violetPink84"}},
                                 {"#C4B1D4", {"violetDesat155"}},
                                 {"#C5F0C9", {"powderGreen185", "greenDesat185"}},
                                 {"#CFF56A", {"citric186", "yellowGreen186"}},
                                 {"#FCE54F", {"factoryYellow184", "yellow184"}},
                                 {"#FFC862", {"sunflower172", "brownYellow172"}},
                                 {"#FFD2D7", {"rose180", "red180"}},
                                 {"#FFFFFF", {"solidWhite200", "white"}}};
  EXPECT_EQ(equal, expected);

  const auto& surface = Campaign::halvornBrand().background().base();
  EXPECT_EQ(*surface, *Color::royalBlue55().value());
  EXPECT_NE(surface.get(), Color::royalBlue55().value().get());
}

TEST(CampaignColorSets, ArePairwiseUnequal) {
  for (std::size_t i = 0; i < std::size(kRows); ++i) {
    for (std::size_t j = 0; j < std::size(kRows); ++j) {
      EXPECT_EQ(setAt(i) == setAt(j), i == j) << kRows[i].name << ' ' << kRows[j].name;
      EXPECT_EQ(std::hash<Theme::ColorSet>{}(setAt(i)) == std::hash<Theme::ColorSet>{}(setAt(j)), i == j)
          << kRows[i].name << ' ' << kRows[j].name;
    }
  }
}

TEST(CampaignColorSets, AreTheSameOnEveryReading) {
  for (const auto& set : Catalogue::campaignColorSets()) {
    EXPECT_EQ(&set.get(), &set.get()) << set.name;
    const Theme::ColorSet copy = set.get();  // NOLINT(performance-unnecessary-copy-initialization): it is the subject
    for (const auto& slot : Catalogue::slots())
      EXPECT_EQ(slot.get(copy).get(), slot.get(set.get()).get()) << set.name << ' ' << slot.path;
  }
}

TEST(CampaignColorSets, AreBuiltOneByOneOnFirstUse) {
  EXPECT_EQ(internal::builtCampaignColorSets(), 0U);
  Campaign::tierCorvinAlternate();
  EXPECT_EQ(internal::builtCampaignColorSets(), 1U);
  Campaign::tierCorvinAlternate();
  Campaign::tierCorvin();
  EXPECT_EQ(internal::builtCampaignColorSets(), 2U);
}

TEST(CampaignColorSets, AreBuiltOnceForEightThreadsThatReadThemAllAtOnce) {
  constexpr std::size_t kThreads = 8;
  std::array<std::vector<const UIColor*>, kThreads> seen;
  std::latch start(kThreads);
  std::vector<std::thread> threads;
  for (std::size_t thread = 0; thread < kThreads; ++thread) {
    threads.emplace_back([&start, &mine = seen[thread]] {
      start.arrive_and_wait();
      for (const auto& set : Catalogue::campaignColorSets())
        for (const auto& slot : Catalogue::slots()) mine.push_back(slot.get(set.get()).get());
    });
  }
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(seen[0].size(), 420U);
  EXPECT_THAT(seen, testing::Each(seen[0]));
  EXPECT_EQ(internal::builtCampaignColorSets(), 15U);
  for (std::size_t i = 0; i < std::size(kRows); ++i)
    EXPECT_EQ(seen[7][28 * i + 27]->getRed(), designed(kRows[i].subdued)) << kRows[i].name;
}

TEST(CampaignColorSets, EqualOnesOfTheSameColoursAndNoneThatDiffersInOneSlot) {
  EXPECT_TRUE(rc::check([] {
    const auto& set = setAt(*rc::gen::inRange<std::size_t>(0, std::size(kRows)));
    std::vector<UIColor> copies = cells(set);
    const auto built = [&copies] { return internal::SlotReader(copies.data(), 1).read<Theme::ColorSet>(); };
    RC_ASSERT(built() == set);
    RC_ASSERT(std::hash<Theme::ColorSet>{}(built()) == std::hash<Theme::ColorSet>{}(set));

    UIColor& changed = copies[*rc::gen::inRange<std::size_t>(0, copies.size())];
    const auto [red, green, blue, alpha] = changed.getRed();
    changed = UIColor::rgb(red, green, blue, alpha - 0.001);
    RC_ASSERT(!(built() == set));
  }));
}

}  // namespace
}  // namespace Brisel
