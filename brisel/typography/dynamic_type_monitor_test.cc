#include "brisel/typography/dynamic_type_monitor.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

// Each test runs in a process of its own, and so begins with a new monitor.
namespace Brisel {
namespace {

using namespace Platform;
using testing::ElementsAre;
using testing::IsEmpty;

class View : public NSObject {};

struct Plain {
  int first = 0, second = 0;
};

DynamicTypeMonitor& monitor() { return *DynamicTypeMonitor::shared(); }

/// Writes down the categories that it is told.
class Listener {
 public:
  DynamicTypeMonitor::Update update() {
    return [this](const UIContentSizeCategory& category) { heard.emplace_back(category.string()); };
  }
  std::vector<std::string> heard;
};

void post(Dictionary userInfo) {
  NSNotificationCenter::defaultCenter().postNotificationName(UIContentSizeCategoryDidChangeNotification, nullptr,
                                                             std::move(userInfo));
}

TEST(DynamicTypeMonitor, IsOneForTheProcess) {
  EXPECT_NE(DynamicTypeMonitor::shared(), nullptr);
  EXPECT_EQ(DynamicTypeMonitor::shared(), DynamicTypeMonitor::shared());
}

TEST(DynamicTypeMonitor, ReportsLargeUntilItIsTold) {
  EXPECT_EQ(monitor().preferredContentSizeCategory(), UIContentSizeCategoryLarge);
}

TEST(DynamicTypeMonitor, CallsSubscribersFromTheNextChangeOn) {
  const auto view = std::make_shared<View>();
  Listener listener;
  monitor().setup(UIContentSizeCategorySmall);
  monitor().subscribe(view, listener.update());
  EXPECT_THAT(listener.heard, IsEmpty());
  monitor().setup(UIContentSizeCategoryMedium);
  EXPECT_THAT(listener.heard, ElementsAre("UIContentSizeCategoryMedium"));
  EXPECT_EQ(monitor().preferredContentSizeCategory(), UIContentSizeCategoryMedium);
}

TEST(DynamicTypeMonitor, NotifiesOfTheSameCategoryAgain) {
  const auto view = std::make_shared<View>();
  Listener listener;
  monitor().subscribe(view, listener.update());
  monitor().setup(UIContentSizeCategoryLarge);
  monitor().setup(UIContentSizeCategoryLarge);
  EXPECT_EQ(listener.heard.size(), 2U);
}

TEST(DynamicTypeMonitor, KeepsUnknownCategoriesAsTheyAre) {
  const auto view = std::make_shared<View>();
  Listener listener;
  monitor().subscribe(view, listener.update());
  monitor().setup(UIContentSizeCategory("nonsense"));
  EXPECT_EQ(monitor().preferredContentSizeCategory().string(), "nonsense");
  EXPECT_THAT(listener.heard, ElementsAre("nonsense"));
}

TEST(DynamicTypeMonitor, HearsTheNotificationFromAnySender) {
  const auto view = std::make_shared<View>();
  Listener listener;
  monitor().subscribe(view, listener.update());
  post({{UIContentSizeCategoryNewValueKey, UIContentSizeCategoryExtraLarge}});
  NSNotificationCenter::defaultCenter().postNotificationName(
      UIContentSizeCategoryDidChangeNotification, view,
      {{UIContentSizeCategoryNewValueKey, UIContentSizeCategoryExtraSmall}});
  EXPECT_THAT(listener.heard, ElementsAre("UIContentSizeCategoryExtraLarge", "UIContentSizeCategoryExtraSmall"));
  EXPECT_EQ(monitor().preferredContentSizeCategory(), UIContentSizeCategoryExtraSmall);
}

TEST(DynamicTypeMonitor, IgnoresNotificationsWithoutACategory) {
  const auto view = std::make_shared<View>();
  Listener listener;
  monitor().subscribe(view, listener.update());
  post({});
  post({{"another key", UIContentSizeCategorySmall}});
  for (const Value& value : {Value(), Value(true), Value(1.5), Value(List{UIContentSizeCategorySmall}), Value(view)})
    post({{UIContentSizeCategoryNewValueKey, value}});
  NSNotificationCenter::defaultCenter().postNotificationName(
      "another notification", nullptr, {{UIContentSizeCategoryNewValueKey, UIContentSizeCategorySmall}});
  EXPECT_THAT(listener.heard, IsEmpty());
  EXPECT_EQ(monitor().preferredContentSizeCategory(), UIContentSizeCategoryLarge);
}

TEST(DynamicTypeMonitor, HandsPayloadsThatAreNoCategoryOfOursOn) {
  monitor().setup(UIContentSizeCategorySmall);
  post({{UIContentSizeCategoryNewValueKey, "tiny"}});
  EXPECT_EQ(monitor().preferredContentSizeCategory().string(), "tiny");
}

TEST(DynamicTypeMonitor, KeepsOneEntryOfASubscriberTheLastOne) {
  const auto view = std::make_shared<View>();
  Listener first, second;
  monitor().subscribe(view, first.update());
  monitor().subscribe(*view, second.update());
  monitor().setup(UIContentSizeCategorySmall);
  EXPECT_THAT(first.heard, IsEmpty());
  EXPECT_THAT(second.heard, ElementsAre("UIContentSizeCategorySmall"));
}

TEST(DynamicTypeMonitor, StopsCallingOnceUnsubscribed) {
  const auto view = std::make_shared<View>(), other = std::make_shared<View>();
  Listener listener;
  monitor().subscribe(view, listener.update());
  monitor().subscribe(other, listener.update());
  monitor().unsubscribe(view);
  monitor().unsubscribe(*other);
  monitor().unsubscribe(other);  // once more: harmless
  monitor().setup(UIContentSizeCategorySmall);
  EXPECT_THAT(listener.heard, IsEmpty());
}

TEST(DynamicTypeMonitor, NeverCallsAFreedSubscriberAndKeepsNoneAlive) {
  auto view = std::make_shared<View>();
  const std::weak_ptr<View> alive = view;
  Listener listener;
  monitor().subscribe(view, listener.update());
  view.reset();
  EXPECT_TRUE(alive.expired());
  monitor().setup(UIContentSizeCategorySmall);
  EXPECT_THAT(listener.heard, IsEmpty());
}

TEST(DynamicTypeMonitor, TellsSubscribersApartThatShareAnOwner) {
  const auto whole = std::make_shared<Plain>();
  const std::shared_ptr<int> first(whole, &whole->first), second(whole, &whole->second);
  Listener forFirst, forSecond;
  monitor().subscribe(first, forFirst.update());
  monitor().subscribe(second, forSecond.update());
  monitor().unsubscribe(first);
  monitor().setup(UIContentSizeCategorySmall);
  EXPECT_THAT(forFirst.heard, IsEmpty());
  EXPECT_EQ(forSecond.heard.size(), 1U);
}

TEST(DynamicTypeMonitor, LetsGoOfTheClosuresOfFreedSubscribersAtTheNextNotification) {
  const auto captured = std::make_shared<int>();
  monitor().subscribe(std::shared_ptr<View>(std::make_shared<View>()), [captured](const auto&) {});
  EXPECT_EQ(captured.use_count(), 2);
  monitor().setup(UIContentSizeCategorySmall);
  EXPECT_EQ(captured.use_count(), 1);
}

TEST(DynamicTypeMonitor, NeverCallsAnEmptyClosure) {
  const auto view = std::make_shared<View>();
  Listener listener;
  monitor().subscribe(view, listener.update());
  monitor().subscribe(view, nullptr);
  monitor().setup(UIContentSizeCategorySmall);
  EXPECT_THAT(listener.heard, IsEmpty());
}

TEST(DynamicTypeMonitor, CallsSubscribersInTheOrderInWhichTheySubscribed) {
  std::vector<std::shared_ptr<View>> views;
  std::vector<int> called;
  for (int i = 0; i < 100; ++i)
    monitor().subscribe(views.emplace_back(std::make_shared<View>()),
                        [&called, i](const auto&) { called.push_back(i); });
  monitor().setup(UIContentSizeCategorySmall);
  EXPECT_EQ(called.size(), 100U);
  EXPECT_TRUE(std::is_sorted(called.begin(), called.end()));
}

// Each of these lets two of them do the same to each other.

TEST(DynamicTypeMonitor, SkipsASubscriberThatAnotherOneFrees) {
  auto a = std::make_shared<View>(), b = std::make_shared<View>();
  int calls = 0;
  monitor().subscribe(a, [&](const auto&) { ++calls, b.reset(); });
  monitor().subscribe(b, [&](const auto&) { ++calls, a.reset(); });
  monitor().setup(UIContentSizeCategorySmall);
  EXPECT_EQ(calls, 1);
  EXPECT_NE(a == nullptr, b == nullptr);
}

TEST(DynamicTypeMonitor, SkipsASubscriberThatAnotherOneUnsubscribes) {
  const auto a = std::make_shared<View>(), b = std::make_shared<View>();
  int calls = 0;
  monitor().subscribe(a, [&](const auto&) { ++calls, monitor().unsubscribe(b); });
  monitor().subscribe(b, [&](const auto&) { ++calls, monitor().unsubscribe(a); });
  monitor().setup(UIContentSizeCategorySmall);
  EXPECT_EQ(calls, 1);
}

TEST(DynamicTypeMonitor, CallsWhatASubscriberHasJustPutInThePlaceOfAnothersClosure) {
  const auto a = std::make_shared<View>(), b = std::make_shared<View>();
  int old = 0, replaced = 0;
  monitor().subscribe(a, [&](const auto&) { ++old, monitor().subscribe(b, [&](const auto&) { ++replaced; }); });
  monitor().subscribe(b, [&](const auto&) { ++old, monitor().subscribe(a, [&](const auto&) { ++replaced; }); });
  monitor().setup(UIContentSizeCategorySmall);
  EXPECT_EQ(old, 1);
  EXPECT_EQ(replaced, 1);
}

TEST(DynamicTypeMonitor, DoesNotCallThoseWhoSubscribeMeanwhileBeforeTheNextChange) {
  const auto view = std::make_shared<View>();
  std::vector<std::shared_ptr<View>> newcomers;
  Listener listener;
  monitor().subscribe(view, [&](const auto&) {
    for (int i = 0; i < 100; ++i)
      monitor().subscribe(newcomers.emplace_back(std::make_shared<View>()), listener.update());
  });
  monitor().setup(UIContentSizeCategorySmall);
  EXPECT_THAT(listener.heard, IsEmpty());
  monitor().unsubscribe(view);
  monitor().setup(UIContentSizeCategorySmall);
  EXPECT_EQ(listener.heard.size(), 100U);
}

TEST(DynamicTypeMonitor, KeepsASubscriberAliveWhileItsOwnClosureRuns) {
  auto view = std::make_shared<View>();
  const std::weak_ptr<View> weak = view;
  std::optional<bool> wasAlive;
  monitor().subscribe(view, [&](const auto&) {
    view.reset();
    wasAlive = !weak.expired();
  });
  monitor().setup(UIContentSizeCategorySmall);
  EXPECT_EQ(wasAlive, true);
  EXPECT_TRUE(weak.expired());
}

TEST(DynamicTypeMonitor, LetsAClosureReplaceAndRemoveItself) {
  const auto view = std::make_shared<View>();
  const auto captured = std::make_shared<int>(7);
  int seen = 0;
  monitor().subscribe(view, [&seen, &view, captured](const auto&) {
    monitor().subscribe(view, nullptr);
    monitor().unsubscribe(view);
    seen = *captured;  // the closure is still whole
  });
  monitor().setup(UIContentSizeCategorySmall);
  EXPECT_EQ(seen, 7);
  EXPECT_EQ(captured.use_count(), 1);
}

TEST(DynamicTypeMonitor, NotifiesWithinANotificationToo) {
  const auto view = std::make_shared<View>();
  Listener listener;
  monitor().subscribe(view, [&, write = listener.update()](const UIContentSizeCategory& category) {
    write(category);
    if (category == UIContentSizeCategorySmall) monitor().setup(UIContentSizeCategoryMedium);
  });
  monitor().setup(UIContentSizeCategorySmall);
  EXPECT_THAT(listener.heard, ElementsAre("UIContentSizeCategorySmall", "UIContentSizeCategoryMedium"));
  EXPECT_EQ(monitor().preferredContentSizeCategory(), UIContentSizeCategoryMedium);
}

TEST(DynamicTypeMonitor, TakesTheCategoryThatItReportsItself) {
  monitor().setup(UIContentSizeCategory("a name that is kept on the heap, being long enough"));
  monitor().setup(monitor().preferredContentSizeCategory());
  EXPECT_EQ(monitor().preferredContentSizeCategory().string(), "a name that is kept on the heap, being long enough");
}

TEST(DynamicTypeMonitorDeathTest, StopsAtASubscriberThatNobodyHolds) {
  struct Unheld : View {};
  Unheld onTheStack;
  EXPECT_DEATH(monitor().subscribe(onTheStack, [](const auto&) {}), "held by a shared_ptr");
  EXPECT_DEATH(monitor().subscribe(std::shared_ptr<View>(), [](const auto&) {}), "held by a shared_ptr");
}

TEST(DynamicTypeMonitor, IsMadeOnceByManyThreads) {
  std::vector<const DynamicTypeMonitor*> seen(8);
  std::vector<std::thread> threads;
  for (auto& mine : seen) threads.emplace_back([&mine] { mine = DynamicTypeMonitor::shared().get(); });
  for (auto& thread : threads) thread.join();
  EXPECT_THAT(seen, testing::Each(DynamicTypeMonitor::shared().get()));
  const auto view = std::make_shared<View>();
  Listener listener;
  monitor().subscribe(view, listener.update());
  post({{UIContentSizeCategoryNewValueKey, UIContentSizeCategorySmall}});
  EXPECT_EQ(listener.heard.size(), 1U);  // and so observes once
}

}  // namespace
}  // namespace Brisel
