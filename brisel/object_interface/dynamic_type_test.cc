#include "brisel/object_interface/dynamic_type.h"

#include <limits>
#include <type_traits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Brisel::Platform;
using testing::ElementsAre;
using testing::IsEmpty;

class View : public NSObject {};

VLMBriselSwiftDynamicTypeMonitor& newer() { return *VLMBriselSwiftDynamicTypeMonitor::sharedInstance(); }
VLMBriselDynamicTypeMonitor& older() { return *VLMBriselDynamicTypeMonitor::defaultMonitor(); }

static_assert(!std::is_default_constructible_v<VLMBriselSwiftDynamicTypeMonitor>);

TEST(ObjectDynamicTypeMonitor, HasOneInstanceOfEachClass) {
  EXPECT_EQ(VLMBriselSwiftDynamicTypeMonitor::sharedInstance(), VLMBriselSwiftDynamicTypeMonitor::sharedInstance());
  EXPECT_EQ(VLMBriselDynamicTypeMonitor::defaultMonitor(), VLMBriselDynamicTypeMonitor::defaultMonitor());
  EXPECT_NE(VLMBriselDynamicTypeMonitor::init(), VLMBriselDynamicTypeMonitor::defaultMonitor());
}

TEST(ObjectDynamicTypeMonitorDeathTest, RefusesAPlainCreationAndNamesIt) {
  EXPECT_DEATH(VLMBriselSwiftDynamicTypeMonitor::init(), "VLMBriselSwiftDynamicTypeMonitor.*init\\(\\)");
}

TEST(ObjectDynamicTypeMonitor, ReportsLargeAndScaleZeroUntilItIsTold) {
  EXPECT_EQ(newer().preferredContentSizeCategory(), UIContentSizeCategoryLarge);
  EXPECT_EQ(older().contentSizeCategory(), UIContentSizeCategoryLarge);
  EXPECT_EQ(older().accessibilityScale(), 0.0);
}

TEST(ObjectDynamicTypeMonitor, SharesItsCategoryWithTheValueInterface) {
  newer().setupWithPreferredContentSizeCategory(UIContentSizeCategorySmall);
  EXPECT_EQ(Brisel::DynamicTypeMonitor::shared()->preferredContentSizeCategory(), UIContentSizeCategorySmall);
  EXPECT_EQ(older().accessibilityScale(), -0.666);
  older().forceSetContentSizeCategory(UIContentSizeCategoryAccessibilityLarge);
  EXPECT_EQ(newer().preferredContentSizeCategory(), UIContentSizeCategoryAccessibilityLarge);
  EXPECT_EQ(VLMBriselDynamicTypeMonitor::init()->accessibilityScale(), 1.4);
}

TEST(ObjectDynamicTypeMonitor, ReportsUnknownCategoriesAsTheyAreAndTheirScaleAsZero) {
  older().forceSetContentSizeCategory(UIContentSizeCategory("nonsense"));
  EXPECT_EQ(older().contentSizeCategory().string(), "nonsense");
  EXPECT_EQ(older().accessibilityScale(), 0.0);
}

TEST(ObjectDynamicTypeMonitor, TellsSubscribersTheCategoryAndOlderOnesItsScale) {
  const auto view = std::make_shared<View>(), other = std::make_shared<View>();
  std::vector<UIContentSizeCategory> categories;
  std::vector<double> scales;
  newer().subscribe(view, [&](const UIContentSizeCategory& category) { categories.push_back(category); });
  older().subscribe(*other, [&](double scale) { scales.push_back(scale); });
  EXPECT_THAT(categories, IsEmpty());
  EXPECT_THAT(scales, IsEmpty());
  older().forceSetContentSizeCategory(UIContentSizeCategoryMedium);
  newer().setupWithPreferredContentSizeCategory(UIContentSizeCategory("nonsense"));
  EXPECT_THAT(categories, ElementsAre(UIContentSizeCategoryMedium, UIContentSizeCategory("nonsense")));
  EXPECT_THAT(scales, ElementsAre(-0.333, 0.0));
}

TEST(ObjectDynamicTypeMonitor, SharesItsSubscribersBetweenTheClasses) {
  const auto view = std::make_shared<View>();
  int newerCalls = 0;
  std::vector<double> scales;
  newer().subscribe(view, [&](const UIContentSizeCategory&) { ++newerCalls; });
  older().subscribe(view, [&](double scale) { scales.push_back(scale); });
  newer().setupWithPreferredContentSizeCategory(UIContentSizeCategoryExtraLarge);
  EXPECT_EQ(newerCalls, 0);
  EXPECT_THAT(scales, ElementsAre(0.333));
  newer().unsubscribe(*view);
  newer().setupWithPreferredContentSizeCategory(UIContentSizeCategorySmall);
  EXPECT_THAT(scales, ElementsAre(0.333));
}

TEST(ObjectDynamicTypeMonitor, ForgetsUnsubscribedAndFreedObjects) {
  const auto view = std::make_shared<View>();
  auto freed = std::make_shared<View>();
  int calls = 0;
  older().subscribe(view, [&](double) { ++calls; });
  older().subscribe(freed, [&](double) { ++calls; });
  older().unsubscribe(view);
  freed.reset();
  older().forceSetContentSizeCategory(UIContentSizeCategorySmall);
  EXPECT_EQ(calls, 0);
}

TEST(ObjectDynamicTypeMonitor, NeverCallsAnEmptyBlock) {
  const auto view = std::make_shared<View>();
  int calls = 0;
  older().subscribe(view, [&](double) { ++calls; });
  older().subscribe(view, nullptr);
  older().forceSetContentSizeCategory(UIContentSizeCategorySmall);
  EXPECT_EQ(calls, 0);
}

TEST(ObjectDynamicTypeMonitor, ConvertsBetweenScalesAndCategories) {
  EXPECT_EQ(newer().contentSizeCategoryFromAccessibilityScale(0.5), UIContentSizeCategoryExtraExtraLarge);
  EXPECT_EQ(newer().contentSizeCategoryFromAccessibilityScale(-0.666), UIContentSizeCategorySmall);
  EXPECT_EQ(newer().accessibilityScaleFromContentSizeCategory(UIContentSizeCategoryAccessibilityMedium), 1.2);
  EXPECT_EQ(newer().accessibilityScaleFromContentSizeCategory(UIContentSizeCategoryUnspecified), 0.0);
  using Older = VLMBriselDynamicTypeMonitor;
  EXPECT_EQ(Older::contentSizeCategoryFromAccessibilityScale(5),
            UIContentSizeCategoryAccessibilityExtraExtraExtraLarge);
  EXPECT_EQ(Older::contentSizeCategoryFromAccessibilityScale(-3), UIContentSizeCategoryExtraSmall);
  EXPECT_EQ(Older::contentSizeCategoryFromAccessibilityScale(std::numeric_limits<double>::quiet_NaN()),
            UIContentSizeCategoryExtraSmall);
  EXPECT_EQ(Older::accessibilityScaleFromContentSizeCategory(UIContentSizeCategoryExtraSmall), -1.0);
}

}  // namespace
