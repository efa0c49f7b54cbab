#include "gallery/desktop/desktop_text_size.h"

#include <chrono>
#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/platform/notification_center.h"
#include "brisel/typography/content_size_category.h"
#include "brisel/typography/dynamic_type_monitor.h"

#include "gallery/desktop/mock_portal_test.h"

namespace Brisel::Gallery {
namespace {

using namespace std::chrono_literals;
using Manner = MockPortal::Manner;
using Category = ContentSizeCategory;
using testing::ElementsAre;
using testing::IsEmpty;

bool waitFor(const std::function<bool()>& isSo, std::chrono::milliseconds time = 20s) {
  const auto deadline = std::chrono::steady_clock::now() + time;
  // Wakes the loop now and then, in which nothing may be due any more.
  const guint tick = g_timeout_add(
      5, [](gpointer) -> gboolean { return G_SOURCE_CONTINUE; }, nullptr);
  while (!isSo() && std::chrono::steady_clock::now() < deadline) g_main_context_iteration(nullptr, TRUE);
  g_source_remove(tick);
  return isSo();
}

// A session bus of its own, and all text sizes that have been announced.
class DesktopTextSizes : public testing::Test {
 protected:
  DesktopTextSizes() {
    g_test_dbus_up(bus_);
    observer_ = Platform::NSNotificationCenter::defaultCenter().addObserverForName(
        Platform::UIContentSizeCategoryDidChangeNotification, nullptr, [this](const Platform::NSNotification& news) {
          const auto* category = news.userInfo.find(Platform::UIContentSizeCategoryNewValueKey);
          ASSERT_NE(category, nullptr);
          announced_.emplace_back(*Platform::UIContentSizeCategory::fromValue(*category));
        });
  }
  ~DesktopTextSizes() override {
    Platform::NSNotificationCenter::defaultCenter().removeObserver(observer_);
    desktop_.reset();
    stopBus();
    g_object_unref(bus_);
  }

  void stopBus() {
    if (std::exchange(isUp_, false)) g_test_dbus_stop(bus_);
  }
  const char* address() const { return g_test_dbus_get_bus_address(bus_); }
  std::unique_ptr<MockPortal> portal(Manner manner, GVariant* value = nullptr) const {
    return std::make_unique<MockPortal>(address(), manner, value);
  }
  void listen(const char* desktops = "GNOME") { desktop_ = std::make_unique<DesktopTextSize>(desktops); }

  bool isAnnounced(std::size_t count) {
    return waitFor([&] { return announced_.size() >= count; });
  }
  // Nothing that was sent before is still on its way when this change arrives.
  void expectOnlyAfter(MockPortal& portal) {
    portal.change(g_variant_new_double(2));
    ASSERT_TRUE(isAnnounced(1));
    EXPECT_THAT(announced_, ElementsAre(Category::accessibilityLarge));
  }

  GTestDBus* const bus_ = g_test_dbus_new(G_TEST_DBUS_NONE);
  bool isUp_ = true;
  std::shared_ptr<const Platform::NSObject> observer_;
  std::vector<Category> announced_;
  std::unique_ptr<DesktopTextSize> desktop_;
};

TEST_F(DesktopTextSizes, AreThoseOfTheSettingAndReachTheMonitor) {
  const auto& monitor = *DynamicTypeMonitor::shared();
  const auto settings = portal(Manner::answers, g_variant_new_double(1.25));
  listen();
  ASSERT_TRUE(isAnnounced(1));
  EXPECT_THAT(announced_, ElementsAre(Category::extraExtraLarge));
  EXPECT_EQ(monitor.preferredContentSizeCategory(), Platform::UIContentSizeCategoryExtraExtraLarge);
}

TEST_F(DesktopTextSizes, ComeFromPortalsOfTheFirstVersionToo) {
  const auto settings = portal(Manner::answersOlderMethodOnly, g_variant_new_double(1.25));
  listen();
  ASSERT_TRUE(isAnnounced(1));
  EXPECT_THAT(announced_, ElementsAre(Category::extraExtraLarge));
  EXPECT_EQ(settings->questions(), 1);
}

TEST_F(DesktopTextSizes, AreAnnouncedWhenTheCategoryChangesAndNotWithEachFactor) {
  const auto settings = portal(Manner::answers, g_variant_new_double(1));
  listen();
  ASSERT_TRUE(waitFor([&] { return settings->questions() == 1; }));
  for (const double factor : {1.0, 1.05, 1.25, 1.2, 1.0}) settings->change(g_variant_new_double(factor));
  ASSERT_TRUE(isAnnounced(2));
  EXPECT_THAT(announced_, ElementsAre(Category::extraExtraLarge, Category::large));
}

TEST_F(DesktopTextSizes, DoNotFollowOtherSettings) {
  const auto settings = portal(Manner::answers, g_variant_new_double(1));
  listen();
  ASSERT_TRUE(waitFor([&] { return settings->questions() == 1; }));
  settings->change("org.gnome.desktop.interface", "cursor-size", g_variant_new_double(3));
  settings->change("org.gnome.desktop.background", "text-scaling-factor", g_variant_new_double(3));
  expectOnlyAfter(*settings);
}

TEST_F(DesktopTextSizes, StayWhereTheSettingIsAbsent) {
  const auto settings = portal(Manner::hasNoSuchSetting);
  listen();
  ASSERT_TRUE(waitFor([&] { return settings->questions() == 1; }));
  expectOnlyAfter(*settings);
}

TEST_F(DesktopTextSizes, StayWhereTheValueIsOfAnotherTypeOrOutOfRange) {
  const double infinity = std::numeric_limits<double>::infinity();
  GVariant* const values[] = {g_variant_new_string("1.5"), g_variant_new_int32(2),     g_variant_new_boolean(TRUE),
                              g_variant_new_double(0.49),  g_variant_new_double(3.01), g_variant_new_double(-2),
                              g_variant_new_double(0),     g_variant_new_double(NAN),  g_variant_new_double(infinity)};
  for (GVariant* value : values) {
    announced_.clear();
    auto settings = portal(Manner::answers, value);
    listen();
    ASSERT_TRUE(waitFor([&] { return settings->questions() == 1; }));
    expectOnlyAfter(*settings);
  }
}

TEST_F(DesktopTextSizes, FallBackToTheDefaultWhenAValueBecomesOfNoUse) {
  const auto settings = portal(Manner::answers, g_variant_new_double(2));
  listen();
  ASSERT_TRUE(isAnnounced(1));
  settings->change(g_variant_new_string("huge"));
  settings->change(g_variant_new_double(3));
  settings->change(g_variant_new_double(NAN));
  ASSERT_TRUE(isAnnounced(4));
  EXPECT_THAT(announced_, ElementsAre(Category::accessibilityLarge, Category::large,
                                      Category::accessibilityExtraExtraExtraLarge, Category::large));
}

TEST_F(DesktopTextSizes, DoNotWaitForAPortalThatNeverAnswersAndFollowItsChanges) {
  const auto settings = portal(Manner::neverAnswers);
  const auto start = std::chrono::steady_clock::now();
  listen();
  EXPECT_LT(std::chrono::steady_clock::now() - start, 1s);
  ASSERT_TRUE(waitFor([&] { return settings->questions() == 1; }));
  expectOnlyAfter(*settings);
}

TEST_F(DesktopTextSizes, AreNotAnnouncedOnceNobodyListens) {
  const auto settings = portal(Manner::neverAnswers);
  listen();
  ASSERT_TRUE(waitFor([&] { return settings->questions() == 1; }));
  desktop_.reset();
  settings->answerLate(g_variant_new_double(2));
  settings->change(g_variant_new_double(2));
  EXPECT_FALSE(waitFor([&] { return !announced_.empty(); }, 200ms));
}

TEST_F(DesktopTextSizes, StayWhenThePortalLeavesAndAreReadAgainWhenItIsBack) {
  auto settings = portal(Manner::answers, g_variant_new_double(2));
  listen();
  ASSERT_TRUE(isAnnounced(1));
  settings.reset();
  EXPECT_FALSE(waitFor([&] { return announced_.size() > 1; }, 200ms));
  settings = portal(Manner::answers, g_variant_new_double(1.25));
  ASSERT_TRUE(isAnnounced(2));
  settings->change(g_variant_new_double(3));
  ASSERT_TRUE(isAnnounced(3));
  settings.reset();
  settings = portal(Manner::hasNoSuchSetting);
  ASSERT_TRUE(isAnnounced(4));
  EXPECT_THAT(announced_, ElementsAre(Category::accessibilityLarge, Category::extraExtraLarge,
                                      Category::accessibilityExtraExtraExtraLarge, Category::large));
}

TEST_F(DesktopTextSizes, AreHeardFromAPortalThatComesLater) {
  listen();
  EXPECT_FALSE(waitFor([&] { return !announced_.empty(); }, 100ms));
  const auto settings = portal(Manner::answers, g_variant_new_double(2));
  ASSERT_TRUE(isAnnounced(1));
  EXPECT_THAT(announced_, ElementsAre(Category::accessibilityLarge));
}

TEST_F(DesktopTextSizes, AreNotAskedForOnADesktopWithAnotherSetting) {
  const auto settings = portal(Manner::answers, g_variant_new_double(2));
  listen("KDE");
  settings->change(g_variant_new_double(2));
  EXPECT_FALSE(waitFor([&] { return settings->questions() > 0 || !announced_.empty(); }, 200ms));
}

TEST_F(DesktopTextSizes, OutliveTheBus) {
  const auto settings = portal(Manner::answers, g_variant_new_double(2));
  listen();
  ASSERT_TRUE(isAnnounced(1));
  stopBus();
  EXPECT_FALSE(waitFor([&] { return announced_.size() > 1; }, 200ms));
}

TEST(DesktopTextSizeWithoutABus, IsQuietlyTheDefault) {
  bool isAnnounced = false;
  Platform::NSNotificationCenter::defaultCenter().addObserverForName(
      Platform::UIContentSizeCategoryDidChangeNotification, nullptr,
      [&](const Platform::NSNotification&) { isAnnounced = true; });
  g_unsetenv("DISPLAY");  // or GLib would look for a bus there
  for (const char* address : {"unix:path=/nowhere/bus", "nonsense", ""}) {
    g_setenv("DBUS_SESSION_BUS_ADDRESS", address, TRUE);
    testing::internal::CaptureStderr();
    {
      const DesktopTextSize desktop("GNOME");
      EXPECT_FALSE(waitFor([&] { return isAnnounced; }, 100ms)) << address;
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  }
}

}  // namespace
}  // namespace Brisel::Gallery
