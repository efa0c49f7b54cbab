// Sizes are compared with ==: they are exact to the bit. A compiler that fuses a multiplication with an addition gets
// 14.002 for `ballad` at `small`, 15.001 at `medium`, 19.996 at `extraExtraLarge`, and 11.998 for `minuet`.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "brisel/platform/attributed_string.h"
#include "brisel/platform/content_size_category.h"
#include "brisel/platform/font_descriptor.h"
#include "brisel/typography/content_size_category.h"
#include "brisel/typography/type_style.h"

#include "tests/recording_ports.h"

namespace Brisel {
namespace {

using namespace Platform;
using Range = TypeStyle::AccessibilityRange;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
const Font::Feature kMonospaced = Font::Feature::numberSpacing(Font::Feature::NumberSpacingOption::monospaced);

// In the order of the categories, the smallest first.
using Sizes = std::array<double, 12>;
constexpr Sizes kBallad = {13.0,
                           14.001999999999999,
                           15.001000000000001,
                           16.0,
                           17.998,
                           19.996000000000002,
                           22.0,
                           27.599999999999998,
                           33.199999999999996,
                           38.800000000000004,
                           38.800000000000004,
                           38.800000000000004};
constexpr Sizes kMinuet = {10.0,
                           10.0,
                           10.0,
                           10.0,
                           11.998000000000001,
                           13.996,
                           16.0,
                           20.799999999999997,
                           25.599999999999998,
                           30.400000000000002,
                           30.400000000000002,
                           30.400000000000002};
constexpr Sizes kBass = {53.0, 54.002, 55.001, 56.0, 57.998, 59.996, 62.0, 62.4, 62.8, 63.2, 63.2, 63.2};

const Range kBalladRange(13.0, 16.0, 22.0, 50.0);

TEST(AccessibilityRange, GivesTheDesignedSizesInEveryCategory) {
  for (const auto& [style, sizes] : {std::pair(&TypeStyle::ballad(), &kBallad),
                                     std::pair(&TypeStyle::minuet(), &kMinuet), std::pair(&TypeStyle::bass(), &kBass)})
    for (std::size_t i = 0; i < sizes->size(); ++i) {
      const ContentSizeCategory category = ContentSizeCategory::allCases()[i];
      const Range& range = style->configuration().fontSize();
      EXPECT_EQ(range.value(category.rawValue()), (*sizes)[i]) << style->name() << ' ' << i;
      EXPECT_EQ(range.value(category.platformCategory()), (*sizes)[i]) << style->name() << ' ' << i;
    }
}

TEST(AccessibilityRange, TakesUnknownCategoriesAsLarge) {
  EXPECT_EQ(kBalladRange.value(UIContentSizeCategoryUnspecified), 16.0);
  EXPECT_EQ(kBalladRange.value(UIContentSizeCategory("nonsense")), 16.0);
}

TEST(AccessibilityRange, StopsAtItsEnds) {
  const double last = 22.0 + (1.6 - 1.0) * (50.0 - 22.0);
  EXPECT_EQ(last, 38.800000000000004);
  for (const double scale : {-5.0, -1.0, -kInfinity}) EXPECT_EQ(kBalladRange.value(scale), 13.0) << scale;
  for (const double scale : {1.6, 7.0, 2.0, kInfinity, kNaN, -kNaN})
    EXPECT_EQ(kBalladRange.value(scale), last) << scale;
}

TEST(AccessibilityRange, MeetsItsPointsExactly) {
  EXPECT_EQ(kBalladRange.value(0.0), 16.0);
  EXPECT_EQ(kBalladRange.value(-0.0), 16.0);
  EXPECT_EQ(kBalladRange.value(1.0), 22.0);
  // The three parts meet at their ends, and each is reached by its own points only.
  const Range range(1.0, 10.0, 100.0, 1000.0);
  EXPECT_EQ(range.value(-0.5), 5.5);
  EXPECT_EQ(range.value(0.5), 55.0);
  EXPECT_EQ(range.value(1.5), 550.0);
}

// Not (1 - t) * a + t * b, not a rounded value, not another order.
TEST(AccessibilityRange, TakesTheDifferenceThenTheProductThenTheSum) {
  const Range range(0.1, 0.7, 0.30000000000000004, 0.9);
  volatile double difference = 0.7 - 0.1;
  volatile double product = (-0.333 + 1.0) * difference;
  EXPECT_EQ(range.value(-0.333), 0.1 + product);
  difference = 0.30000000000000004 - 0.7;
  product = 0.666 * difference;
  EXPECT_EQ(range.value(0.666), 0.7 + product);
  difference = 0.9 - 0.30000000000000004;
  product = (1.4 - 1.0) * difference;
  EXPECT_EQ(range.value(1.4), 0.30000000000000004 + product);
}

TEST(AccessibilityRange, ResolvesScaleFactorsToo) {
  const Range& factors = TypeStyle::bass().configuration().minimumScaleFactor();
  EXPECT_EQ(factors.value(UIContentSizeCategoryExtraSmall), 0.25);
  EXPECT_EQ(factors.value(UIContentSizeCategoryLarge), 0.3);
  EXPECT_EQ(factors.value(UIContentSizeCategoryExtraExtraExtraLarge), 0.4);
}

RC_GTEST_PROP(AccessibilityRange, NeverFallsWhereTheRangeRises, ()) {
  const auto size = rc::gen::inRange(0, 100'000);
  std::array<double, 4> points{};
  for (double& point : points) point = *size / 100.0;
  std::sort(points.begin(), points.end());
  const Range range(points[0], points[1], points[2], points[3]);
  double a = *rc::gen::inRange(-3000, 3000) / 1000.0, b = *rc::gen::inRange(-3000, 3000) / 1000.0;
  if (a > b) std::swap(a, b);
  RC_ASSERT(range.value(a) <= range.value(b));
  RC_ASSERT(range.value(a) >= range.min());
  RC_ASSERT(range.value(b) <= range.axMax());
}

RC_GTEST_PROP(AccessibilityRange, IsTheSameEverywhereWhereAllPointsAre, (double point, double scale)) {
  RC_ASSERT(Range(point, point, point, point).value(scale) == point);
}

// --- Fonts and attributes ---

class TypeStyleFont : public testing::Test {
 protected:
  void SetUp() override { recordingEngine(); }
};

std::size_t featureCount(const UIFont& font) {
  const Value* settings = font.fontDescriptor()->objectForKey(UIFontDescriptorFeatureSettingsAttribute);
  return settings && settings->asList() ? settings->asList()->size() : 999;
}

TEST_F(TypeStyleFont, HasTheStylesStackWeightAndSize) {
  const auto font = TypeStyle::bass().font(UIContentSizeCategorySmall);
  EXPECT_EQ(font->fontName(), "TondalTitle-Black");
  EXPECT_EQ(font->pointSize(), 54.002);
  const Value* cascade = font->fontDescriptor()->objectForKey(UIFontDescriptorCascadeListAttribute);
  ASSERT_TRUE(cascade && cascade->asList());
  EXPECT_EQ(cascade->asList()->size(), 6U);
}

TEST_F(TypeStyleFont, IsNotRoundedToPoints) {
  EXPECT_EQ(TypeStyle::ballad().font(UIContentSizeCategorySmall)->pointSize(), 14.001999999999999);
  EXPECT_EQ(TypeStyle::ballad().font(UIContentSizeCategory("nonsense"))->pointSize(), 16.0);
}

TEST_F(TypeStyleFont, FollowsTheRangeAndNotTheNominalSize) {
  const TypeStyle& ballad = TypeStyle::ballad();
  const TypeStyle odd(ballad.name(), ballad.primaryFont(), ballad.fallbackFonts(), ballad.fontWeight(), 99.0,
                      ballad.group(), ballad.configuration());
  EXPECT_EQ(odd.font(UIContentSizeCategoryLarge)->pointSize(), 16.0);
}

TEST_F(TypeStyleFont, AsksForTheStylesFeatures) {
  EXPECT_EQ(featureCount(*TypeStyle::viola().font(UIContentSizeCategoryLarge)), 0U);
  EXPECT_EQ(featureCount(*TypeStyle::viola().withFontFeatures({kMonospaced}).font(UIContentSizeCategoryLarge)), 1U);
}

TEST_F(TypeStyleFont, IsTheOnlyAttribute) {
  for (const TypeStyle& style : TypeStyle::allCases()) {
    const Dictionary attributes = style.stringAttributes(UIContentSizeCategoryAccessibilityMedium);
    ASSERT_EQ(attributes.size(), 1U) << style.name();
    const Value* font = attributes.find(NSFontAttributeName);
    ASSERT_TRUE(font);
    EXPECT_EQ(font->as<UIFont>(), style.font(UIContentSizeCategoryAccessibilityMedium)) << style.name();
  }
}

}  // namespace
}  // namespace Brisel
