#include "gallery/desktop/text_size.h"

#include <cmath>
#include <limits>
#include <vector>

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "brisel/platform/notification_center.h"
#include "brisel/typography/dynamic_type_monitor.h"

namespace Brisel::Gallery {
namespace {

using Category = ContentSizeCategory;

// How large running text is at each category, against `large`.
struct Ratio {
  Category category;
  double ratio;
};
constexpr Ratio kRatios[] = {
    {Category::extraSmall, 0.82},
    {Category::small, 0.88},
    {Category::medium, 0.94},
    {Category::large, 1},
    {Category::extraLarge, 1.12},
    {Category::extraExtraLarge, 1.24},
    {Category::extraExtraExtraLarge, 1.35},
    {Category::accessibilityMedium, 1.65},
    {Category::accessibilityLarge, 1.94},
    {Category::accessibilityExtraLarge, 2.35},
    {Category::accessibilityExtraExtraLarge, 2.76},
    {Category::accessibilityExtraExtraExtraLarge, 3.12},
};
constexpr double kBoundaries[] = {0.85, 0.91, 0.97, 1.06, 1.18, 1.295, 1.5, 1.795, 2.145, 2.555, 2.94};

TEST(TextScalingFactor, OfADesktopsOwnStepsGivesTheCategoryThatReadersExpect) {
  EXPECT_EQ(categoryForTextScalingFactor(1), Category::large);
  EXPECT_EQ(categoryForTextScalingFactor(1.25), Category::extraExtraLarge);  // the switch "Large Text"
  EXPECT_EQ(categoryForTextScalingFactor(0.5), Category::extraSmall);
  EXPECT_EQ(categoryForTextScalingFactor(2), Category::accessibilityLarge);
  EXPECT_EQ(categoryForTextScalingFactor(3), Category::accessibilityExtraExtraExtraLarge);
}

TEST(TextScalingFactor, OfACategorysOwnRatioGivesThatCategory) {
  for (const Ratio& row : kRatios) {
    if (row.ratio > 3) continue;  // which no desktop offers
    EXPECT_EQ(categoryForTextScalingFactor(row.ratio), row.category) << row.ratio;
  }
}

TEST(TextScalingFactor, TurnsTheCategoryAtTheMiddleBetweenTwoRatiosWhichIsTheSmallerOnes) {
  for (std::size_t i = 0; i < std::size(kBoundaries); ++i) {
    const double middle = kBoundaries[i];
    EXPECT_NEAR(middle, (kRatios[i].ratio + kRatios[i + 1].ratio) / 2, 1e-15);
    EXPECT_EQ(categoryForTextScalingFactor(std::nextafter(middle, 0)), kRatios[i].category) << middle;
    EXPECT_EQ(categoryForTextScalingFactor(middle), kRatios[i].category) << middle;
    EXPECT_EQ(categoryForTextScalingFactor(std::nextafter(middle, 4)), kRatios[i + 1].category) << middle;
  }
}

TEST(TextScalingFactor, ThatNoDesktopOffersGivesNone) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double factor :
       {std::nextafter(0.5, 0.0), std::nextafter(3.0, 4.0), 0.0, -1.0, 100.0, infinity, -infinity, std::nan("")}) {
    EXPECT_EQ(categoryForTextScalingFactor(factor), std::nullopt) << factor;
  }
}

TEST(TextScalingFactor, NeverGivesASmallerCategoryForALargerFactor) {
  EXPECT_TRUE(rc::check([] {
    const double one = 0.5 + *rc::gen::inRange(0, 2501) / 1000.0, other = 0.5 + *rc::gen::inRange(0, 2501) / 1000.0;
    RC_ASSERT((one <= other) <= (*categoryForTextScalingFactor(one) <= *categoryForTextScalingFactor(other)));
  }));
}

TEST(Desktops, AreThoseWhoseTextSizeTheSettingIs) {
  for (const auto* desktops : {"GNOME", "ubuntu:GNOME", "GNOME-Classic:GNOME", "Unity:Unity7:ubuntu", "Budgie:GNOME",
                               "Pantheon", ":GNOME", "GNOME:"}) {
    EXPECT_TRUE(hasTextScalingFactor(desktops)) << desktops;
  }
  for (const auto* desktops : {"", "KDE", "COSMIC", "XFCE", "X-Cinnamon", "gnome", "GNOMELIKE", ":", "KDE:XFCE"}) {
    EXPECT_FALSE(hasTextScalingFactor(desktops)) << desktops;
  }
}

TEST(AnnouncedTextSize, ReachesAMonitorThatNobodyHasUsedYet) {
  announceTextSize(Category::accessibilityMedium);
  EXPECT_EQ(DynamicTypeMonitor::shared()->preferredContentSizeCategory(),
            Platform::UIContentSizeCategoryAccessibilityMedium);
}

}  // namespace
}  // namespace Brisel::Gallery
