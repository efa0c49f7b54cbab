#include "brisel/object_interface/themes.h"

#include <array>
#include <concepts>
#include <cstddef>
#include <latch>
#include <memory>
#include <set>
#include <string_view>
#include <thread>
#include <type_traits>
#include <typeinfo>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/themes/catalogue.h"
#include "brisel/themes/internal/built_count.h"

namespace {

using Brisel::Theme;
using Brisel::Platform::ColorPtr;
using Brisel::Platform::NSObject;
using Brisel::Platform::UIColor;
using Campaign = Theme::ColorSet::Campaign;
using ColorSetPtr = std::shared_ptr<const VLMBriselColorThemeColorSet>;

template <class Object, class Value>
constexpr bool isWrapper = std::is_base_of_v<NSObject, Object>&& std::is_final_v<Object> &&
                           !std::is_default_constructible_v<Object> && !std::is_constructible_v<Object, const Value&> &&
                           !std::is_copy_constructible_v<Object> && !std::equality_comparable<Object>;
static_assert(isWrapper<VLMBriselColorTheme, Theme>);
static_assert(isWrapper<VLMBriselColorThemeColorSet, Theme::ColorSet>);
static_assert(isWrapper<VLMBriselColorThemeBackgroundColors, Theme::Background>);
static_assert(isWrapper<VLMBriselColorThemeTextColors, Theme::Text>);
static_assert(isWrapper<VLMBriselColorThemeEssentialColors, Theme::Essential>);
static_assert(isWrapper<VLMBriselColorThemeDecorativeColors, Theme::Decorative>);
static_assert(isWrapper<VLMBriselColorThemeColorState, Theme::State>);
static_assert(std::is_base_of_v<NSObject, VLMBriselCampaignColorSets>);
static_assert(!std::is_default_constructible_v<VLMBriselCampaignColorSets>);
static_assert(!std::equality_comparable<VLMBriselCampaignColorSets>);

struct NamedSet {
  std::string_view name;
  ColorSetPtr (VLMBriselColorTheme::*object)() const;
  const Theme::ColorSet& (Theme::*value)() const noexcept;
};
#define BRISEL_NAMED(name) \
  { #name, &VLMBriselColorTheme::name, &Theme::name }
constexpr NamedSet kSets[] = {BRISEL_NAMED(base),         BRISEL_NAMED(brightAccent),  BRISEL_NAMED(negative),
                              BRISEL_NAMED(warning),      BRISEL_NAMED(positive),      BRISEL_NAMED(announcement),
                              BRISEL_NAMED(invertedDark), BRISEL_NAMED(invertedLight), BRISEL_NAMED(mutedAccent),
                              BRISEL_NAMED(overMedia)};
#undef BRISEL_NAMED

template <class Foreground>
std::vector<const UIColor*> foregroundColors(const Foreground& colors) {
  return {colors.base().get(),    colors.subdued().get(),  colors.brightAccent().get(), colors.negative().get(),
          colors.warning().get(), colors.positive().get(), colors.announcement().get()};
}

// All 28, in slot order.
std::vector<const UIColor*> colors(const VLMBriselColorThemeColorSet& set) {
  std::vector<const UIColor*> colors;
  const auto background = set.background();
  for (const auto& state : {background->elevated(), background->tinted(), background->unsafeForSmallText()})
    colors.insert(colors.end(), {state->base().get(), state->highlight().get(), state->press().get()});
  colors.insert(colors.end(), {background->base().get(), background->highlight().get(), background->press().get()});
  for (const auto& part : {foregroundColors(*set.text()), foregroundColors(*set.essential())})
    colors.insert(colors.end(), part.begin(), part.end());
  colors.insert(colors.end(), {set.decorative()->base().get(), set.decorative()->subdued().get()});
  return colors;
}

std::vector<const UIColor*> colors(const Theme::ColorSet& set) {
  std::vector<const UIColor*> colors;
  for (const auto& slot : Brisel::Catalogue::slots()) colors.push_back(slot.get(set).get());
  return colors;
}

std::vector<ColorSetPtr> colorSets(const VLMBriselCampaignColorSets& campaign) {
  return {
#define BRISEL_CAMPAIGN(name, ...) campaign.name(),
#include "brisel/themes/campaign.def"
  };
}

TEST(ObjectTheme, HasTheColoursOfTheValueInEverySlotOfEverySet) {
  for (const auto& set : kSets)
    EXPECT_EQ(colors(*(*VLMBriselColorTheme::dark().*set.object)()), colors((Theme::dark().*set.value)())) << set.name;
#define BRISEL_CAMPAIGN(name, ...) \
  EXPECT_EQ(colors(*VLMBriselColorTheme::campaign()->name()), colors(Campaign::name())) << #name;
#include "brisel/themes/campaign.def"
}

TEST(ObjectTheme, GivesItsValuesBack) {
  EXPECT_EQ(VLMBriselColorTheme::dark()->theme(), Theme::dark());
  for (const auto& set : kSets) {
    const ColorSetPtr object = (*VLMBriselColorTheme::dark().*set.object)();
    const Theme::ColorSet& value = (Theme::dark().*set.value)();
    EXPECT_EQ(object->colorSet(), value) << set.name;
    EXPECT_EQ(object->text()->text(), value.text()) << set.name;
    EXPECT_EQ(object->essential()->essential(), value.essential()) << set.name;
    EXPECT_EQ(object->decorative()->decorative(), value.decorative()) << set.name;
    const auto background = object->background();
    EXPECT_EQ(background->background(), value.background()) << set.name;
    EXPECT_EQ(background->elevated()->state(), value.background().elevated()) << set.name;
    EXPECT_EQ(background->tinted()->state(), value.background().tinted()) << set.name;
    EXPECT_EQ(background->unsafeForSmallText()->state(), value.background().unsafeForSmallText()) << set.name;
  }
#define BRISEL_CAMPAIGN(name, ...) \
  EXPECT_EQ(VLMBriselColorTheme::campaign()->name()->colorSet(), Campaign::name()) << #name;
#include "brisel/themes/campaign.def"
}

TEST(ObjectTheme, IsOneObjectOnEveryReading) {
  const auto first = VLMBriselColorTheme::dark();
  EXPECT_EQ(first, VLMBriselColorTheme::dark());
  EXPECT_EQ(VLMBriselColorTheme::campaign(), VLMBriselColorTheme::campaign());
  EXPECT_EQ(colorSets(*VLMBriselColorTheme::campaign()), colorSets(*VLMBriselColorTheme::campaign()));
  EXPECT_EQ(VLMBriselColorTheme::campaign()->tierAurel(), VLMBriselColorTheme::campaign()->tierAurel());
}

TEST(ObjectTheme, MakesANewObjectOnEveryOtherReading) {
  const auto& dark = *VLMBriselColorTheme::dark();
  for (const auto& set : kSets) EXPECT_NE((dark.*set.object)(), (dark.*set.object)()) << set.name;
  for (const ColorSetPtr& set : {dark.base(), VLMBriselColorTheme::campaign()->tierAurel()}) {
    EXPECT_NE(set->background(), set->background());
    EXPECT_NE(set->text(), set->text());
    EXPECT_NE(set->essential(), set->essential());
    EXPECT_NE(set->decorative(), set->decorative());
    const auto background = set->background();
    EXPECT_NE(background->elevated(), background->elevated());
    EXPECT_NE(background->tinted(), background->tinted());
    EXPECT_NE(background->unsafeForSmallText(), background->unsafeForSmallText());
  }
}

TEST(ObjectTheme, HandsOutTheSameColoursFromNewObjects) {
  EXPECT_EQ(VLMBriselColorTheme::dark()->base()->background()->base().get(),
            VLMBriselColorTheme::dark()->base()->background()->base().get());
  for (const auto& set : kSets) {
    const auto& dark = *VLMBriselColorTheme::dark();
    EXPECT_EQ(colors(*(dark.*set.object)()), colors(*(dark.*set.object)())) << set.name;
  }
}

TEST(ObjectTheme, HandsOutColoursAndPartsThatOutliveTheObjectsTheyWereReadFrom) {
  const ColorPtr& color = VLMBriselColorTheme::dark()->overMedia()->background()->unsafeForSmallText()->press();
  EXPECT_EQ(color->getRed(), (UIColor::RgbComponents{0.0, 0.0, 0.0, 0.61}));
  const auto text = VLMBriselCampaignColorSets::init()->tierBexa()->text();
  EXPECT_EQ(text->base()->getRed(), (UIColor::RgbComponents{0.0, 0.0, 0.0, 1.0}));
}

TEST(ObjectTheme, TellsTheBackgroundsBaseFromTheElevatedOne) {
  const auto background = VLMBriselColorTheme::dark()->base()->background();
  EXPECT_NE(*background->base(), *background->elevated()->base());
}

TEST(ObjectTheme, IsEqualToItselfAlone) {
  const auto& dark = *VLMBriselColorTheme::dark();
  const auto one = dark.base(), other = dark.base();
  EXPECT_EQ(one->colorSet(), other->colorSet());
  const auto expectIdentity = [](const NSObject& a, const NSObject& b) {
    EXPECT_TRUE(a.isEqual(a));
    EXPECT_FALSE(a.isEqual(b)) << typeid(a).name();
  };
  expectIdentity(*one, *other);
  expectIdentity(*one->background(), *one->background());
  expectIdentity(*one->text(), *one->text());
  expectIdentity(*one->essential(), *one->essential());
  expectIdentity(*one->decorative(), *one->decorative());
  expectIdentity(*one->background()->tinted(), *one->background()->tinted());
  expectIdentity(*VLMBriselCampaignColorSets::init(), *VLMBriselCampaignColorSets::init());
  EXPECT_TRUE(Brisel::Platform::objectsAreEqual(VLMBriselColorTheme::dark(), VLMBriselColorTheme::dark()));
}

TEST(ObjectCampaign, IsMadeAnewByItsInitializer) {
  const auto one = VLMBriselCampaignColorSets::init(), other = VLMBriselCampaignColorSets::init();
  EXPECT_NE(one, other);
  std::set<ColorSetPtr> distinct;
  for (const auto& campaign : {one, other, VLMBriselColorTheme::campaign()}) {
    const auto sets = colorSets(*campaign);
    EXPECT_EQ(sets, colorSets(*campaign));
    distinct.insert(sets.begin(), sets.end());
  }
  EXPECT_EQ(distinct.size(), 45U);
  EXPECT_EQ(colors(*one->halvornBrand2()), colors(*other->halvornBrand2()));
}

TEST(ObjectCampaign, WrapsAllColorSetsAtOnceOnFirstUse) {
  VLMBriselColorTheme::dark()->base();
  EXPECT_EQ(Brisel::internal::builtCampaignColorSets(), 0U);
  VLMBriselColorTheme::campaign();
  EXPECT_EQ(Brisel::internal::builtCampaignColorSets(), 15U);
}

TEST(ObjectTheme, IsMadeOnceForEightThreadsThatReadItAtOnce) {
  constexpr std::size_t kThreads = 8;
  std::array<std::vector<const void*>, kThreads> seen;
  std::latch start(kThreads);
  std::vector<std::thread> threads;
  for (std::size_t thread = 0; thread < kThreads; ++thread) {
    threads.emplace_back([&start, &mine = seen[thread]] {
      start.arrive_and_wait();
      mine = {VLMBriselColorTheme::dark().get(), VLMBriselColorTheme::campaign().get()};
      for (const ColorSetPtr& set : colorSets(*VLMBriselColorTheme::campaign())) mine.push_back(set.get());
      for (const UIColor* color : colors(*VLMBriselColorTheme::dark()->overMedia())) mine.push_back(color);
    });
  }
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(seen[0].size(), 45U);
  EXPECT_THAT(seen, testing::Each(seen[0]));
}

TEST(ObjectThemeDeathTest, RefusesAPlainCreationAndNamesTheClass) {
  EXPECT_DEATH(VLMBriselColorTheme::init(), "VLMBriselColorTheme has no initializer init\\(\\)");
  EXPECT_DEATH(VLMBriselColorThemeColorSet::init(), "VLMBriselColorThemeColorSet has no initializer");
  EXPECT_DEATH(VLMBriselColorThemeBackgroundColors::init(), "VLMBriselColorThemeBackgroundColors has no initializer");
  EXPECT_DEATH(VLMBriselColorThemeTextColors::init(), "VLMBriselColorThemeTextColors has no initializer");
  EXPECT_DEATH(VLMBriselColorThemeEssentialColors::init(), "VLMBriselColorThemeEssentialColors has no initializer");
  EXPECT_DEATH(VLMBriselColorThemeDecorativeColors::init(), "VLMBriselColorThemeDecorativeColors has no initializer");
  EXPECT_DEATH(VLMBriselColorThemeColorState::init(), "VLMBriselColorThemeColorState has no initializer");
}

}  // namespace
