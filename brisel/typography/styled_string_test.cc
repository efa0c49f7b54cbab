#include "brisel/typography/styled_string.h"

#include <gtest/gtest.h>

#include "tests/recording_ports.h"

namespace Brisel {
namespace {

using namespace Platform;

class StyledString : public testing::Test {
 protected:
  void SetUp() override { recordingEngine(); }
};

TEST_F(StyledString, HasTheStylesFontAtTheCategory) {
  const auto string = attributedString("Hello", TypeStyle::ballad(), UIContentSizeCategorySmall);
  EXPECT_EQ(string->string(), "Hello");
  ASSERT_EQ(string->attributeRuns().size(), 1U);
  EXPECT_EQ(string->attributeRuns()[0].attributes, TypeStyle::ballad().stringAttributes(UIContentSizeCategorySmall));
}

TEST_F(StyledString, IsInCapitalsWhereTheStyleAsksForThem) {
  EXPECT_EQ(attributedString("Hello", TypeStyle::minuet(), UIContentSizeCategoryLarge)->string(), "HELLO");
  const TypeStyle lower = TypeStyle::minuet().withUsesUpperCaseLayout(false);
  EXPECT_EQ(attributedString("Hello", lower, UIContentSizeCategoryLarge)->string(), "Hello");
}

TEST_F(StyledString, KeepsTheBaseAttributesButTheFont) {
  const auto other = UIFont::fontWithDescriptor(UIFontDescriptor::fontDescriptorWithName("Other", 3), 3);
  const auto string = attributedString("Hello", TypeStyle::viola(), UIContentSizeCategoryLarge,
                                       {{NSFontAttributeName, other}, {NSKernAttributeName, 2.5}});
  const Dictionary& attributes = string->attributesAtIndex(0);
  EXPECT_EQ(attributes.size(), 2U);
  EXPECT_EQ(*attributes.find(NSKernAttributeName), Value(2.5));
  EXPECT_EQ(attributes.find(NSFontAttributeName)->as<UIFont>(), TypeStyle::viola().font(UIContentSizeCategoryLarge));
}

TEST_F(StyledString, MayBeEmpty) {
  EXPECT_EQ(attributedString("", TypeStyle::minuet(), UIContentSizeCategoryLarge)->length(), 0U);
}

TEST_F(StyledString, IsNewEachTimeAndMayBeChanged) {
  const auto one = attributedString("Hello", TypeStyle::viola(), UIContentSizeCategoryLarge);
  const auto other = attributedString("Hello", TypeStyle::viola(), UIContentSizeCategoryLarge);
  EXPECT_NE(one, other);
  EXPECT_TRUE(one->isEqual(*other));
  one->addAttribute(NSKernAttributeName, 1, {0, 5});
  EXPECT_FALSE(one->isEqual(*other));
}

TEST_F(StyledString, HasOtherFontsForCharactersThatItsOwnLacks) {
  recordingEngine().setMissingCharacters(U"lo", "Other");
  const auto string = attributedString("Hello", TypeStyle::viola(), UIContentSizeCategoryLarge);
  const auto font = [&](std::size_t index) { return string->attribute(NSFontAttributeName, index)->as<UIFont>(); };
  EXPECT_EQ(font(0), TypeStyle::viola().font(UIContentSizeCategoryLarge));
  EXPECT_EQ(font(2)->fontName(), "Other");
  EXPECT_EQ(font(4)->pointSize(), font(0)->pointSize());
}

}  // namespace
}  // namespace Brisel
