// Every name of the colour themes.
#include "brisel/object_interface/themes.h"

#include <memory>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/platform/color.h"
#include "brisel/platform/object.h"
#include "brisel/themes/theme.h"

#include "tests/published_names/published_names.h"

namespace Brisel::Published {
namespace {

constexpr Name kNames[] = {
#include "brisel/themes/names.def"
};

static_assert(countOf(kNames, "Brisel::Theme::", "(const Theme::ColorSet&() const)") == 10);
static_assert(countOf(kNames, "VLMBriselColorTheme::", "(Ptr<VLMBriselColorThemeColorSet>() const)") == 10);
static_assert(countOf(kNames, "Brisel::Theme::ColorSet::Campaign::", "(const Theme::ColorSet&())") == 15);
static_assert(countOf(kNames, "VLMBriselCampaignColorSets::", "(const Ptr<VLMBriselColorThemeColorSet>&() const)") ==
              15);

// A colour set is 28 colours: of a background's three named states and its own, and of the other groups.
constexpr auto colorsOf(std::string_view group) { return countOf(kNames, group, "(const ColorPtr&() const)"); }
constexpr auto kStates = countOf(kNames, "Brisel::Theme::Background::", "(const Theme::State&() const)");
static_assert(kStates == 3);
static_assert(kStates * colorsOf("Brisel::Theme::State::") + colorsOf("Brisel::Theme::Background::") == 12);
static_assert(colorsOf("Brisel::Theme::Text::") == 7);
static_assert(colorsOf("Brisel::Theme::Essential::") == 7);
static_assert(colorsOf("Brisel::Theme::Decorative::") == 2);

static_assert(
    areKindsOf<NSObject, VLMBriselColorTheme, VLMBriselColorThemeColorSet, VLMBriselColorThemeBackgroundColors,
               VLMBriselColorThemeTextColors, VLMBriselColorThemeEssentialColors, VLMBriselColorThemeDecorativeColors,
               VLMBriselColorThemeColorState, VLMBriselCampaignColorSets>);

TEST(NamesOfThemes, AreListedOnceEach) { EXPECT_THAT(listedTwice(kNames), testing::IsEmpty()); }

}  // namespace
}  // namespace Brisel::Published
