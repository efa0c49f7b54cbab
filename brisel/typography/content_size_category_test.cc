#include "brisel/typography/content_size_category.h"

#include <cmath>
#include <cstddef>
#include <limits>
#include <type_traits>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace Brisel {
namespace {

using namespace Platform;

struct Row {
  ContentSizeCategory category;
  double scale;
  const UIContentSizeCategory& platform;
};

const Row kRows[] = {
    {ContentSizeCategory::extraSmall, -1.0, UIContentSizeCategoryExtraSmall},
    {ContentSizeCategory::small, -0.666, UIContentSizeCategorySmall},
    {ContentSizeCategory::medium, -0.333, UIContentSizeCategoryMedium},
    {ContentSizeCategory::large, 0.0, UIContentSizeCategoryLarge},
    {ContentSizeCategory::extraLarge, 0.333, UIContentSizeCategoryExtraLarge},
    {ContentSizeCategory::extraExtraLarge, 0.666, UIContentSizeCategoryExtraExtraLarge},
    {ContentSizeCategory::extraExtraExtraLarge, 1.0, UIContentSizeCategoryExtraExtraExtraLarge},
    {ContentSizeCategory::accessibilityMedium, 1.2, UIContentSizeCategoryAccessibilityMedium},
    {ContentSizeCategory::accessibilityLarge, 1.4, UIContentSizeCategoryAccessibilityLarge},
    {ContentSizeCategory::accessibilityExtraLarge, 1.6, UIContentSizeCategoryAccessibilityExtraLarge},
    {ContentSizeCategory::accessibilityExtraExtraLarge, 1.8, UIContentSizeCategoryAccessibilityExtraExtraLarge},
    {ContentSizeCategory::accessibilityExtraExtraExtraLarge, 2.0,
     UIContentSizeCategoryAccessibilityExtraExtraExtraLarge},
};

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

static_assert(sizeof(ContentSizeCategory) == 1);
static_assert(!std::is_constructible_v<ContentSizeCategory, int>);
static_assert(!std::is_convertible_v<ContentSizeCategory, double>);
static_assert(!std::is_default_constructible_v<std::hash<ContentSizeCategory>>);

TEST(ContentSizeCategory, HasTwelveCasesWithTheirScalesAndPlatformCategories) {
  ASSERT_EQ(std::size(kRows), ContentSizeCategory::allCases().size());
  for (std::size_t i = 0; i < std::size(kRows); ++i) {
    EXPECT_EQ(ContentSizeCategory::allCases()[i], kRows[i].category);
    EXPECT_EQ(kRows[i].category.rawValue(), kRows[i].scale);
    EXPECT_EQ(kRows[i].category.platformCategory(), kRows[i].platform);
    EXPECT_EQ(ContentSizeCategory(kRows[i].platform), kRows[i].category);
  }
}

TEST(ContentSizeCategory, IsOrderedByScale) {
  for (const Row& a : kRows)
    for (const Row& b : kRows) {
      EXPECT_EQ(a.category == b.category, a.scale == b.scale);
      EXPECT_EQ(a.category < b.category, a.scale < b.scale);
      EXPECT_EQ(a.category >= b.category, a.scale >= b.scale);
    }
}

TEST(ContentSizeCategory, ReadsRawValuesThatAreExactlyAScale) {
  for (const Row& row : kRows) EXPECT_EQ(ContentSizeCategory::fromRawValue(row.scale), row.category);
  EXPECT_EQ(ContentSizeCategory::fromRawValue(-0.0), ContentSizeCategory::large);
  for (const double scale : {2.0 / 3.0, -2.0 / 3.0, 1.0 / 3.0, 0.5, -1.5, 2.1, kNaN, kInfinity, -kInfinity})
    EXPECT_EQ(ContentSizeCategory::fromRawValue(scale), std::nullopt) << scale;
}

TEST(ContentSizeCategory, TakesUnspecifiedAndUnknownCategoriesAsLarge) {
  EXPECT_EQ(ContentSizeCategory(UIContentSizeCategoryUnspecified), ContentSizeCategory::large);
  for (const char* name : {"", "nonsense", "large", "UIContentSizeCategoryLarge ", "uicontentsizecategorysmall"})
    EXPECT_EQ(ContentSizeCategory(UIContentSizeCategory(name)), ContentSizeCategory::large) << name;
}

TEST(ContentSizeCategory, ComparesPlatformCategoriesByTheirText) {
  EXPECT_EQ(ContentSizeCategory(UIContentSizeCategory("UIContentSizeCategorySmall")), ContentSizeCategory::small);
}

TEST(NearestContentSizeCategory, FindsTheNearestScale) {
  const auto nearest = nearestContentSizeCategory;
  for (const Row& row : kRows) EXPECT_EQ(nearest(row.scale), row.category);
  EXPECT_EQ(nearest(0.5), ContentSizeCategory::extraExtraLarge);
  EXPECT_EQ(nearest(2.0 / 3.0), ContentSizeCategory::extraExtraLarge);
  EXPECT_EQ(nearest(-2.0 / 3.0), ContentSizeCategory::small);
  EXPECT_EQ(nearest(5.0), ContentSizeCategory::accessibilityExtraExtraExtraLarge);
  EXPECT_EQ(nearest(-3.0), ContentSizeCategory::extraSmall);
}

TEST(NearestContentSizeCategory, KeepsTheSmallerOneOfTwoThatAreEquallyNear) {
  EXPECT_EQ(nearestContentSizeCategory(1.5), ContentSizeCategory::accessibilityLarge);
  EXPECT_EQ(nearestContentSizeCategory(0.1665), ContentSizeCategory::large);
  EXPECT_EQ(nearestContentSizeCategory(-0.1665), ContentSizeCategory::medium);
}

// In decimals these two lie in the middle, in doubles they do not.
TEST(NearestContentSizeCategory, ComparesDistancesWithoutTolerance) {
  EXPECT_EQ(nearestContentSizeCategory(1.1), ContentSizeCategory::accessibilityMedium);
  EXPECT_EQ(nearestContentSizeCategory(1.3), ContentSizeCategory::accessibilityLarge);
}

TEST(NearestContentSizeCategory, TakesNotANumberAsTheSmallest) {
  EXPECT_EQ(nearestContentSizeCategory(kNaN), ContentSizeCategory::extraSmall);
  EXPECT_EQ(nearestContentSizeCategory(-kNaN), ContentSizeCategory::extraSmall);
}

TEST(NearestContentSizeCategory, KnowsTheEndsHoweverFarAway) {
  for (const double scale : {2.5, 1e17, std::numeric_limits<double>::max(), kInfinity}) {
    EXPECT_EQ(nearestContentSizeCategory(scale), ContentSizeCategory::accessibilityExtraExtraExtraLarge) << scale;
    EXPECT_EQ(nearestContentSizeCategory(-scale), ContentSizeCategory::extraSmall) << -scale;
  }
}

RC_GTEST_PROP(NearestContentSizeCategory, IsNeverFartherThanAnyOther, ()) {
  const double scale = *rc::gen::inRange(-3'000'000, 4'000'000) / 1e6;
  const ContentSizeCategory nearest = nearestContentSizeCategory(scale);
  const double distance = std::fabs(nearest.rawValue() - scale);
  for (const ContentSizeCategory other : ContentSizeCategory::allCases()) {
    const double otherDistance = std::fabs(other.rawValue() - scale);
    RC_ASSERT((other < nearest ? otherDistance > distance : otherDistance >= distance));
  }
}

RC_GTEST_PROP(NearestContentSizeCategory, NeverFallsWhereTheScaleRises, (double a, double b)) {
  RC_PRE(a <= b);
  RC_ASSERT(nearestContentSizeCategory(a) <= nearestContentSizeCategory(b));
}

}  // namespace
}  // namespace Brisel
