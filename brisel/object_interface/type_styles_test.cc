#include "brisel/object_interface/type_styles.h"

#include <cstddef>
#include <limits>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/platform/font_descriptor.h"
#include "brisel/typography/styled_string.h"

#include "tests/recording_ports.h"

namespace {

using namespace Brisel::Platform;
using Brisel::Font;
using Brisel::TypeStyle;
using testing::ElementsAre;
using testing::IsEmpty;
using Group = TypeStyle::Group;

class ObjectTypeStyle : public testing::Test {
 protected:
  void SetUp() override { Brisel::recordingEngine(); }
};

std::shared_ptr<const VLMBriselTypeStyle> recreated(const VLMBriselTypeStyle& style, std::string_view name) {
  return VLMBriselTypeStyle::createTypeStyleWithName(name, style.primaryFont(), style.fallbackFonts(),
                                                     style.fontWeight(), style.fontSize(), style.configuration());
}

TEST_F(ObjectTypeStyle, WrapsEachStyleOnce) {
  std::set<const VLMBriselTypeStyle*> distinct;
#define BRISEL_TYPE_STYLE(name, title, stack, weight, size, fontSizes, scaleFactors, upperCase, group) \
  EXPECT_EQ(VLMBriselTypeStyle::name(), VLMBriselTypeStyle::name());                                   \
  EXPECT_EQ(VLMBriselTypeStyle::name()->typeStyle(), TypeStyle::name());                               \
  distinct.insert(VLMBriselTypeStyle::name().get());
#include "brisel/typography/type_styles.def"
  EXPECT_EQ(distinct.size(), 19U);
}

TEST_F(ObjectTypeStyle, ListsItsSharedInstancesInOrder) {
  const auto& all = VLMBriselTypeStyle::allCases();
  ASSERT_EQ(all.size(), 19U);
  EXPECT_EQ(all.front(), VLMBriselTypeStyle::ballad());
  EXPECT_EQ(all.back(), VLMBriselTypeStyle::cello());
  for (std::size_t i = 0; i < all.size(); ++i) EXPECT_EQ(all[i]->typeStyle(), TypeStyle::allCases()[i]);
}

TEST_F(ObjectTypeStyle, HandsOutItsFieldsAsObjects) {
  const auto& style = *VLMBriselTypeStyle::forte();
  EXPECT_EQ(style.name(), "Forte");
  EXPECT_EQ(style.primaryFont(), VLMBriselSwiftFont::tondalTitle());
  EXPECT_THAT(style.fallbackFonts(),
              ElementsAre(VLMBriselSwiftFont::tondalTitleTall(), VLMBriselSwiftFont::tondalArab(),
                          VLMBriselSwiftFont::tondalHebr(), VLMBriselSwiftFont::tondalCyrl(),
                          VLMBriselSwiftFont::tondalGrek(), VLMBriselSwiftFont::tondalDeva()));
  EXPECT_EQ(style.fontWeight(), VLMBriselSwiftFontWeight::bold());
  EXPECT_EQ(style.fontSize(), 48.0);
  EXPECT_NE(style.configuration(), style.configuration());
  EXPECT_EQ(style.configuration()->fontSize()->min(), 45.0);
  EXPECT_EQ(style.configuration()->fontSize()->mid(), 48.0);
  EXPECT_EQ(style.configuration()->fontSize()->max(), 54.0);
  EXPECT_EQ(style.configuration()->fontSize()->axMax(), 62.0);
  EXPECT_EQ(style.configuration()->minimumScaleFactor()->axMax(), 0.85);
  EXPECT_FALSE(style.configuration()->usesUpperCaseLayout());
  EXPECT_TRUE(VLMBriselTypeStyle::minuet()->configuration()->usesUpperCaseLayout());
}

TEST_F(ObjectTypeStyle, IsCreatedFromItsParts) {
  using NumberSpacing = Font::Feature::NumberSpacingOption;
  const std::vector features{Font::Feature::numberSpacing(NumberSpacing::monospaced)};
  const auto sizes = VLMBriselTypeStyleAccessibilityRange::createAccessibilityRangeWithMin(1, 2, 3, 4);
  const auto factors = VLMBriselTypeStyleAccessibilityRange::createAccessibilityRangeWithMin(0.1, 0.2, 0.3, 0.4);
  const auto style = VLMBriselTypeStyle::createTypeStyleWithName(
      "Custom", VLMBriselSwiftFont::tondalGrek(), {VLMBriselSwiftFont::tondalHebr()}, VLMBriselSwiftFontWeight::black(),
      17,
      VLMBriselTypeStyleConfiguration::createConfigurationWithFontSize(
          sizes, factors, true, VLMBriselSwiftFontFeatures::createFontFeaturesWithFontFeatures(features)));
  EXPECT_EQ(style->typeStyle(),
            TypeStyle("Custom", Font::tondalGrek, {Font::tondalHebr}, Font::Weight::black, 17.0, Group::body,
                      TypeStyle::Configuration(TypeStyle::AccessibilityRange(1, 2, 3, 4),
                                               TypeStyle::AccessibilityRange(0.1, 0.2, 0.3, 0.4), true, features)));
}

// The group is found by identifiers, while a style has a human-readable name.
TEST_F(ObjectTypeStyle, LosesItsGroupWhenCreatedAnewUnlessThatIsBody) {
  int survivors = 0;
  for (const auto& style : VLMBriselTypeStyle::allCases()) {
    const auto copy = recreated(*style, style->name());
    EXPECT_EQ(copy->typeStyle().group(), Group::body) << style->name();
    EXPECT_EQ(copy->isEqual(*style), style->typeStyle().group() == Group::body) << style->name();
    survivors += copy->isEqual(*style) ? 1 : 0;
  }
  EXPECT_EQ(survivors, 6);
  EXPECT_EQ(recreated(*VLMBriselTypeStyle::cello(), "cello")->typeStyle().group(), Group::titles);
}

TEST_F(ObjectTypeStyle, KnowsGroupsByIdentifier) {
  EXPECT_EQ(VLMBriselTypeStyleGroup::convert("cello"), Group::titles);
  EXPECT_EQ(VLMBriselTypeStyleGroup::convert("Cello"), Group::body);
  EXPECT_EQ(VLMBriselTypeStyleGroup::convert("Ballad Bold"), Group::body);
  EXPECT_EQ(VLMBriselTypeStyleGroup::convert("bass"), Group::displayTitles);
  EXPECT_EQ(VLMBriselTypeStyleGroup::convert("metronome"), Group::smallText);
}

TEST_F(ObjectTypeStyle, IsEqualByValueAndToItsOwnClassOnly) {
  const auto& ballad = *VLMBriselTypeStyle::ballad();
  const auto same = ballad.copyWithZone();
  EXPECT_NE(same.get(), &ballad);
  EXPECT_TRUE(same->isEqual(ballad));
  EXPECT_EQ(same->objectHash(), ballad.objectHash());
  EXPECT_FALSE(ballad.isEqual(*VLMBriselTypeStyle::balladBold()));
  EXPECT_FALSE(VLMBriselTypeStyle::alto()->isEqual(*VLMBriselTypeStyle::altoBrio()));
  EXPECT_FALSE(ballad.isEqual(*ballad.configuration()));
  // As field by field equality has it, a style with a NaN is not even equal to itself.
  const auto unequal = ballad.withFontSize(std::numeric_limits<double>::quiet_NaN());
  EXPECT_FALSE(unequal->isEqual(*unequal));
}

TEST_F(ObjectTypeStyle, ReplacesItsFeaturesByMonospacedNumbers) {
  using NumberSpacing = Font::Feature::NumberSpacingOption;
  const auto monospaced = Font::Feature::numberSpacing(NumberSpacing::monospaced);
  const auto spaced = Font::Feature::numberSpacing(NumberSpacing::default_);
  const auto featured = VLMBriselTypeStyle::wrapping(TypeStyle::viola().withFontFeatures({spaced, spaced}));
  EXPECT_THAT(featured->withMonospacedNumbers()->typeStyle().configuration().fontFeatures(), ElementsAre(monospaced));
  EXPECT_THAT(featured->withFontSize(3)->typeStyle().configuration().fontFeatures(), IsEmpty());
  EXPECT_EQ(featured->withFontSize(3)->fontSize(), 3.0);
}

TEST_F(ObjectTypeStyle, ResolvesLikeTheValue) {
  const auto& ballad = *VLMBriselTypeStyle::ballad();
  EXPECT_EQ(ballad.fontWithContentSizeCategory(UIContentSizeCategorySmall)->pointSize(), 14.001999999999999);
  EXPECT_EQ(ballad.fontWithContentSizeCategory(UIContentSizeCategorySmall),
            TypeStyle::ballad().font(UIContentSizeCategorySmall));
  EXPECT_EQ(ballad.stringAttributesWithContentSizeCategory(UIContentSizeCategorySmall),
            TypeStyle::ballad().stringAttributes(UIContentSizeCategorySmall));
  EXPECT_EQ(ballad.configuration()->fontSize()->valueForScale(7), 38.800000000000004);
  EXPECT_EQ(ballad.configuration()->fontSize()->valueForScale(-5), 13.0);
}

TEST_F(ObjectTypeStyle, HasANominalFontThatKnowsNoFeatures) {
  const auto featureCount = [](const UIFont& font) {
    return font.fontDescriptor()->objectForKey(UIFontDescriptorFeatureSettingsAttribute)->asList()->size();
  };
  const auto style = VLMBriselTypeStyle::ballad()->withMonospacedNumbers();
  EXPECT_EQ(featureCount(*style->fontWithContentSizeCategory(UIContentSizeCategoryLarge)), 1U);
  EXPECT_EQ(featureCount(*style->font()), 0U);
  EXPECT_EQ(style->font(), VLMBriselTypeStyle::ballad()->fontWithContentSizeCategory(UIContentSizeCategoryLarge));
  // Its size is the nominal one, not that of the range.
  EXPECT_EQ(recreated(*style, "Ballad")->font()->pointSize(), 16.0);
  const auto odd = VLMBriselTypeStyle::createTypeStyleWithName("Odd", style->primaryFont(), {}, style->fontWeight(), 99,
                                                               style->configuration());
  EXPECT_EQ(odd->font()->pointSize(), 99.0);
  EXPECT_EQ(odd->fontWithContentSizeCategory(UIContentSizeCategoryLarge)->pointSize(), 16.0);
}

TEST_F(ObjectTypeStyle, StylesStringsLikeTheValue) {
  const auto string = briselSwift_attributedStringWithString("Hello", VLMBriselTypeStyle::minuet(),
                                                             UIContentSizeCategoryLarge, {{NSKernAttributeName, 2}});
  EXPECT_EQ(string->string(), "HELLO");
  EXPECT_TRUE(string->isEqual(
      *Brisel::attributedString("Hello", TypeStyle::minuet(), UIContentSizeCategoryLarge, {{NSKernAttributeName, 2}})));
}

using ObjectTypeStyleDeathTest = ObjectTypeStyle;

TEST_F(ObjectTypeStyleDeathTest, RefusesNullPointers) {
  const auto& style = *VLMBriselTypeStyle::ballad();
  EXPECT_DEATH(
      VLMBriselTypeStyle::createTypeStyleWithName("", nullptr, {}, style.fontWeight(), 1, style.configuration()),
      "null pointer");
  EXPECT_DEATH(VLMBriselTypeStyle::createTypeStyleWithName("", style.primaryFont(), {}, style.fontWeight(), 1, nullptr),
               "null pointer");
  EXPECT_DEATH(VLMBriselTypeStyleConfiguration::createConfigurationWithFontSize(nullptr, nullptr, false, nullptr),
               "null pointer");
  EXPECT_DEATH(briselSwift_attributedStringWithString("", nullptr, UIContentSizeCategoryLarge, {}), "null pointer");
}

}  // namespace
