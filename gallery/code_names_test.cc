#include "gallery/code_names.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace Brisel::Gallery {
namespace {

TEST(CodeNames, AreThoseOfBothInterfaces) {
  const CodeNames opacity = codeNames(Catalogue::opacities().front());
  EXPECT_EQ(opacity.valueInterface, "Brisel::Opacity::x0()");
  EXPECT_EQ(opacity.objectInterface, "VLMBriselOpacities::opacity0()");
  const CodeNames spacer = codeNames(Catalogue::spacers().front());
  EXPECT_EQ(spacer.valueInterface, "Brisel::Spacer::x4()");
  EXPECT_EQ(spacer.objectInterface, "VLMBriselSpacers::spacer4()");
}

TEST(CodeNames, OfASlotAreTheCallsThatReadIt) {
  const auto slots = Catalogue::slots();
  const auto press = std::find_if(slots.begin(), slots.end(),
                                  [](const auto& slot) { return slot.path == "background.unsafeForSmallText.press"; });
  const CodeNames calls = slotCalls(*press);
  EXPECT_EQ(calls.valueInterface, ".background().unsafeForSmallText().press()");
  EXPECT_EQ(calls.objectInterface, "->background()->unsafeForSmallText()->press()");
}

TEST(ColorSets, AreTenOfTheThemeWithTheirRolesThenFifteenOfCampaigns) {
  const std::vector<NamedColorSet> sets = allColorSets();
  ASSERT_EQ(sets.size(), 25U);
  for (std::size_t i = 0; i < sets.size(); ++i) {
    EXPECT_EQ(sets[i].isCampaign, i >= 10) << sets[i].name;
    EXPECT_EQ(sets[i].role.empty(), i >= 10) << sets[i].name;
  }
  const NamedColorSet& muted = sets[8];
  EXPECT_EQ(muted.name, "mutedAccent");
  EXPECT_EQ(muted.role, "A muted accent surface");
  EXPECT_EQ(&muted.colors, &Theme::dark().mutedAccent());
  EXPECT_EQ(muted.code.valueInterface, "Brisel::Theme::dark().mutedAccent()");
  EXPECT_EQ(muted.code.objectInterface, "VLMBriselColorTheme::dark()->mutedAccent()");
  const auto tier = std::find_if(sets.begin(), sets.end(), [](const auto& set) { return set.name == "tierAurel"; });
  ASSERT_NE(tier, sets.end());
  EXPECT_EQ(&tier->colors, &Theme::ColorSet::Campaign::tierAurel());
  EXPECT_EQ(tier->code.valueInterface, "Brisel::Theme::ColorSet::Campaign::tierAurel()");
  EXPECT_EQ(tier->code.objectInterface, "VLMBriselColorTheme::campaign()->tierAurel()");
}

}  // namespace
}  // namespace Brisel::Gallery
