#include "brisel/platform/content_size_category.h"

#include <string>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

namespace Brisel::Platform {
namespace {

// A strong type: a text is no category by accident, and a category no text.
static_assert(!std::is_convertible_v<std::string_view, UIContentSizeCategory>);
static_assert(!std::is_convertible_v<UIContentSizeCategory, std::string_view>);
// Usable before and after everything else.
static_assert(UIContentSizeCategoryLarge.string() == "UIContentSizeCategoryLarge");
static_assert(UIContentSizeCategoryLarge == UIContentSizeCategoryLarge);
static_assert(!(UIContentSizeCategoryLarge == UIContentSizeCategorySmall));

TEST(UIContentSizeCategory, HasItsNameAsString) {
  EXPECT_EQ(UIContentSizeCategoryExtraSmall.string(), "UIContentSizeCategoryExtraSmall");
  EXPECT_EQ(UIContentSizeCategoryAccessibilityExtraExtraExtraLarge.string(),
            "UIContentSizeCategoryAccessibilityExtraExtraExtraLarge");
  EXPECT_EQ(UIContentSizeCategoryUnspecified.string(), "UIContentSizeCategoryUnspecified");
}

TEST(UIContentSizeCategory, IsEqualByString) {
  EXPECT_EQ(UIContentSizeCategory("UIContentSizeCategoryLarge"), UIContentSizeCategoryLarge);
  EXPECT_EQ(UIContentSizeCategory("nonsense"), UIContentSizeCategory(std::string("nonsense")));
  EXPECT_EQ(std::hash<UIContentSizeCategory>{}(UIContentSizeCategory("nonsense")),
            std::hash<UIContentSizeCategory>{}(UIContentSizeCategory(std::string("nonsense"))));
}

TEST(UIContentSizeCategory, OwnsAnUnknownName) {
  auto name = std::make_unique<std::string>("a name that is longer than any small buffer");
  UIContentSizeCategory category(*name);
  name.reset();
  const UIContentSizeCategory copy = category;
  EXPECT_EQ(copy.string(), "a name that is longer than any small buffer");
  const UIContentSizeCategory moved = std::move(category);
  EXPECT_EQ(moved, copy);
  category = UIContentSizeCategoryLarge;
  EXPECT_EQ(category, UIContentSizeCategoryLarge);
  category = copy;
  EXPECT_EQ(category, moved);
}

TEST(UIContentSizeCategory, StaysWhatItIsWhenAConstantIsMoved) {
  UIContentSizeCategory category = UIContentSizeCategoryLarge;
  const UIContentSizeCategory moved = std::move(category);
  EXPECT_EQ(moved, UIContentSizeCategoryLarge);
}

TEST(UIContentSizeCategory, TravelsInAValueAsItsString) {
  const Dictionary information{{UIContentSizeCategoryNewValueKey, UIContentSizeCategorySmall}};
  EXPECT_EQ(UIContentSizeCategory::fromValue(*information.find(UIContentSizeCategoryNewValueKey)),
            UIContentSizeCategorySmall);
  EXPECT_EQ(UIContentSizeCategory::fromValue("nonsense"), UIContentSizeCategory("nonsense"));
  EXPECT_EQ(UIContentSizeCategory::fromValue(3), std::nullopt);
  EXPECT_EQ(UIContentSizeCategory::fromValue(Value()), std::nullopt);
  EXPECT_EQ(UIContentSizeCategory::fromValue(List{"UIContentSizeCategorySmall"}), std::nullopt);
}

}  // namespace
}  // namespace Brisel::Platform
