#include "brisel/platform/notification_center.h"

#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Brisel::Platform {
namespace {

using testing::ElementsAre;

class Observer final : public NSObject {};

// What was heard, in order.
class NotificationCenter : public testing::Test {
 protected:
  NSNotificationCenter::Handler hear(std::string as) {
    return [this, as](const NSNotification&) { heard_.push_back(as); };
  }

  NSNotificationCenter center_;
  std::vector<std::string> heard_;
  std::shared_ptr<Observer> a_ = std::make_shared<Observer>();
  std::shared_ptr<Observer> b_ = std::make_shared<Observer>();
};

TEST_F(NotificationCenter, CallsTheObserversOfANameInOrder) {
  center_.addObserver(a_, "news", hear("a"));
  center_.addObserver(b_, "other", hear("other"));
  center_.addObserver(b_, "news", hear("b"));
  center_.postNotification("news");
  EXPECT_THAT(heard_, ElementsAre("a", "b"));
}

TEST_F(NotificationCenter, HandsOnNameSenderAndInformation) {
  NSNotification received;
  center_.addObserver(a_, "news", [&](const NSNotification& notification) { received = notification; });
  center_.postNotification("news", b_, {{"key", 1}});
  EXPECT_EQ(received.name, "news");
  EXPECT_EQ(received.object, b_);
  EXPECT_EQ(received.userInfo, (Dictionary{{"key", 1}}));
}

TEST_F(NotificationCenter, AsksForTheSenderWhereOneWasNamed) {
  center_.addObserver(a_, "news", hear("from b"), b_);
  center_.postNotification("news");
  center_.postNotification("news", a_);
  EXPECT_TRUE(heard_.empty());
  center_.postNotification("news", b_);
  EXPECT_THAT(heard_, ElementsAre("from b"));
}

TEST_F(NotificationCenter, ForgetsFreedObserversAndSenders) {
  const auto captured = std::make_shared<int>(0);
  center_.addObserver(a_, "news", [captured](const NSNotification&) { FAIL(); });
  center_.addObserver(a_, "other", [captured](const NSNotification&) { FAIL(); });
  center_.addObserverForName("news", b_, [captured](const NSNotification&) { FAIL(); });
  a_.reset();
  b_.reset();
  center_.postNotification("news");
  EXPECT_EQ(captured.use_count(), 1);
}

TEST_F(NotificationCenter, KeepsATokenUntilItIsRemoved) {
  std::weak_ptr<const NSObject> weak = center_.addObserverForName("news", nullptr, hear("token"));
  center_.postNotification("news");
  center_.removeObserver(weak.lock());
  center_.postNotification("news");
  EXPECT_THAT(heard_, ElementsAre("token"));
  EXPECT_TRUE(weak.expired());
}

TEST_F(NotificationCenter, RemovesAnObserverOfOneNameOrOfAll) {
  center_.addObserver(a_, "one", hear("one"));
  center_.addObserver(a_, "two", hear("two"));
  center_.addObserver(b_, "one", hear("b"));
  center_.removeObserver(a_, "one");
  center_.postNotification("one");
  center_.postNotification("two");
  EXPECT_THAT(heard_, ElementsAre("b", "two"));
  center_.removeObserver(a_);
  center_.postNotification("two");
  EXPECT_EQ(heard_.size(), 2U);
}

TEST_F(NotificationCenter, LetsAHandlerAddAndRemoveObservers) {
  const auto late = std::make_shared<Observer>();
  center_.addObserver(a_, "news", [&](const NSNotification&) {
    heard_.push_back("a");
    center_.removeObserver(b_);
    center_.addObserver(late, "news", hear("late"));
    center_.removeObserver(a_);
  });
  center_.addObserver(b_, "news", hear("b"));
  center_.postNotification("news");
  EXPECT_THAT(heard_, ElementsAre("a"));
  center_.postNotification("news");
  EXPECT_THAT(heard_, ElementsAre("a", "late"));
}

TEST_F(NotificationCenter, SkipsAnObserverThatAHandlerFrees) {
  center_.addObserver(a_, "news", [&](const NSNotification&) { b_.reset(); });
  center_.addObserver(b_, "news", hear("b"));
  center_.postNotification("news");
  EXPECT_TRUE(heard_.empty());
}

TEST_F(NotificationCenter, KeepsAnObserverAliveDuringItsHandler) {
  std::weak_ptr<Observer> weak = a_;
  center_.addObserver(a_, "news", [&](const NSNotification&) {
    a_.reset();
    EXPECT_FALSE(weak.expired());
  });
  center_.postNotification("news");
  EXPECT_TRUE(weak.expired());
}

TEST_F(NotificationCenter, LetsAHandlerPost) {
  center_.addObserver(a_, "outer", [&](const NSNotification&) {
    center_.postNotification("inner");
    heard_.push_back("outer");
  });
  center_.addObserver(b_, "inner", hear("inner"));
  center_.postNotification("outer");
  EXPECT_THAT(heard_, ElementsAre("inner", "outer"));
}

TEST_F(NotificationCenter, DestroysHandlersOutsideItsLock) {
  // Something whose destructor uses the centre.
  struct Captured {
    NSNotificationCenter& center;
    ~Captured() { center.postNotification("destroyed"); }
  };
  center_.addObserver(b_, "destroyed", hear("destroyed"));
  center_.addObserver(a_, "news", [held = std::shared_ptr<Captured>(new Captured{center_})](const NSNotification&) {});
  center_.removeObserver(a_);
  EXPECT_THAT(heard_, ElementsAre("destroyed"));
}

TEST_F(NotificationCenter, IgnoresAMissingObserverOrHandler) {
  center_.addObserver(std::shared_ptr<Observer>(), "news", hear("nobody"));
  center_.addObserver(a_, "news", nullptr);
  center_.postNotification("news");
  EXPECT_TRUE(heard_.empty());
}

TEST_F(NotificationCenter, MayBeUsedFromSeveralThreads) {
  std::atomic<int> calls{0};
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t)
    threads.emplace_back([&] {
      for (int i = 0; i < 200; ++i) {
        const auto observer = std::make_shared<Observer>();
        center_.addObserver(observer, "news", [&](const NSNotification&) { ++calls; });
        center_.postNotification("news");
        if (i % 2) center_.removeObserver(observer);
      }
    });
  for (std::thread& thread : threads) thread.join();
  EXPECT_GE(calls.load(), 800);  // Each hears at least itself.
}

TEST(DefaultNotificationCenter, IsOne) {
  EXPECT_EQ(&NSNotificationCenter::defaultCenter(), &NSNotificationCenter::defaultCenter());
}

}  // namespace
}  // namespace Brisel::Platform
