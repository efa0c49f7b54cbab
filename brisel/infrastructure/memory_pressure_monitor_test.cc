#include "brisel/infrastructure/memory_pressure_monitor.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <memory>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/infrastructure/cache.h"
#include "brisel/platform/main_queue.h"
#include "brisel/platform/port.h"
#include "brisel/platform/recording/system_events.h"

namespace Brisel {
namespace {

using Platform::MemoryPressureLevel;
using Platform::MemoryPressureSource;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// The events of this process, installed once.
Platform::RecordingSystemEvents& events() {
  static const auto installed = [] {
    auto made = std::make_shared<Platform::RecordingSystemEvents>();
    Platform::setSystemEvents(made);
    return made;
  }();
  return *installed;
}

class MemoryPressure : public ::testing::Test {
 protected:
  void SetUp() override { events(); }

  static void happens(MemoryPressureLevel level) {
    ASSERT_TRUE(events().deliverMemoryPressure(level));
    events().runPending();
  }
};

using MemoryPressureMonitorTest = MemoryPressure;

TEST_F(MemoryPressureMonitorTest, CallsOnceForAWarningAndOnceForACriticalEvent) {
  int calls = 0;
  const MemoryPressureMonitor monitor([&] { ++calls; });
  happens(MemoryPressureLevel::warning);
  EXPECT_EQ(calls, 1);
  happens(MemoryPressureLevel::critical);
  EXPECT_EQ(calls, 2);
}

TEST_F(MemoryPressureMonitorTest, IsCalledOnTheMainQueueOnly) {
  int calls = 0;
  const MemoryPressureMonitor monitor([&] { ++calls; });
  Platform::reportMemoryPressure(MemoryPressureLevel::warning);
  EXPECT_EQ(calls, 0);
  EXPECT_EQ(Platform::mainQueue().runPending(), 1U);
  EXPECT_EQ(calls, 1);
}

TEST_F(MemoryPressureMonitorTest, CallsNothingOnceItIsReleased) {
  int calls = 0;
  const MemoryPressureMonitor other([] {});  // keeps the system watched
  auto monitor = std::make_unique<MemoryPressureMonitor>([&] { ++calls; });
  monitor.reset();
  happens(MemoryPressureLevel::critical);
  EXPECT_EQ(calls, 0);
}

TEST_F(MemoryPressureMonitorTest, CallsNothingForAnEventThatWasUnderWayWhenItWasReleased) {
  int calls = 0;
  const MemoryPressureMonitor other([] {});
  auto monitor = std::make_unique<MemoryPressureMonitor>([&] { ++calls; });
  ASSERT_TRUE(events().deliverMemoryPressure(MemoryPressureLevel::warning));
  Platform::reportMemoryPressure(MemoryPressureLevel::critical);
  monitor.reset();
  EXPECT_EQ(events().runPending(), 2U);
  EXPECT_EQ(calls, 0);
}

TEST_F(MemoryPressureMonitorTest, CallsNothingForTheLastMonitorsEventUnderWay) {
  int calls = 0;
  auto monitor = std::make_unique<MemoryPressureMonitor>([&] { ++calls; });
  ASSERT_TRUE(events().deliverMemoryPressure(MemoryPressureLevel::warning));
  monitor.reset();
  events().runPending();
  EXPECT_EQ(calls, 0);
  EXPECT_FALSE(events().deliverMemoryPressure(MemoryPressureLevel::warning));
}

TEST_F(MemoryPressureMonitorTest, MayBeReleasedByItsOwnAction) {
  auto note = std::make_shared<int>(0);
  std::unique_ptr<MemoryPressureMonitor> monitor;
  monitor = std::make_unique<MemoryPressureMonitor>([&monitor, note] {
    monitor.reset();
    ++*note;  // the captures are still there
  });
  Platform::reportMemoryPressure(MemoryPressureLevel::warning);
  Platform::reportMemoryPressure(MemoryPressureLevel::warning);
  events().runPending();
  EXPECT_EQ(*note, 1);
  EXPECT_EQ(note.use_count(), 1);
}

TEST_F(MemoryPressureMonitorTest, MayBeReleasedByTheActionOfAnother) {
  int calls = 0;
  std::unique_ptr<MemoryPressureMonitor> second;
  const MemoryPressureMonitor first([&] { second.reset(); });
  second = std::make_unique<MemoryPressureMonitor>([&] { ++calls; });
  happens(MemoryPressureLevel::warning);
  EXPECT_EQ(calls, 0);
}

TEST_F(MemoryPressureMonitorTest, CallsNothingAfterItsReleaseOnAnotherThread) {
  for (int round = 0; round < 300; ++round) {
    std::atomic<bool> isReleased{false};
    std::atomic<int> late{0};
    auto monitor = std::make_unique<MemoryPressureMonitor>([&] { late += isReleased ? 1 : 0; });
    Platform::reportMemoryPressure(MemoryPressureLevel::critical);
    std::thread releasing([&] {
      monitor.reset();
      isReleased = true;
    });
    events().runPending();
    releasing.join();
    ASSERT_EQ(late, 0);
  }
}

TEST_F(MemoryPressureMonitorTest, WaitsForACallThatRunsOnAnotherThread) {
  std::atomic<bool> hasBegun{false};
  std::atomic<bool> hasEnded{false};
  auto monitor = std::make_unique<MemoryPressureMonitor>([&] {
    hasBegun = true;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    hasEnded = true;
  });
  Platform::reportMemoryPressure(MemoryPressureLevel::warning);
  std::thread mainLoop([] { events().runPending(); });
  while (!hasBegun) std::this_thread::yield();
  monitor.reset();
  EXPECT_TRUE(hasEnded);
  mainLoop.join();
}

TEST_F(MemoryPressureMonitorTest, TakesAnotherAction) {
  int first = 0;
  int second = 0;
  MemoryPressureMonitor monitor([&] { ++first; });
  monitor.setOnEvent([&] { ++second; });
  happens(MemoryPressureLevel::warning);
  EXPECT_EQ(first, 0);
  EXPECT_EQ(second, 1);
}

TEST_F(MemoryPressureMonitorTest, PurgesTheCacheThatIsGivenNoOtherSource) {
  Cache<int, int> cache(10, 100);
  cache.setValue(1, 1, 60);
  Platform::reportMemoryPressure(MemoryPressureLevel::warning);
  EXPECT_EQ(cache.count(), 1);
  Platform::mainQueue().runPending();
  EXPECT_TRUE(cache.isEmpty());
  cache.setValue(2, 2, 41);
  EXPECT_TRUE(cache.isEmpty());
  cache.setValue(3, 3, 40);
  EXPECT_EQ(cache.count(), 1);
}

TEST_F(MemoryPressureMonitorTest, LetsTheCacheGoBeforeItsEvent) {
  auto value = std::make_shared<int>(1);
  auto cache = std::make_unique<Cache<int, std::shared_ptr<int>>>(10, 100);
  cache->setValue(value, 1, 0);
  Platform::reportMemoryPressure(MemoryPressureLevel::warning);
  cache.reset();
  EXPECT_EQ(value.use_count(), 1);
  EXPECT_EQ(events().runPending(), 1U);
}

using MemoryPressureSourceTest = MemoryPressure;

TEST_F(MemoryPressureSourceTest, TellsOnlyTheLevelsOfItsMask) {
  std::vector<char> calls;
  MemoryPressureSource warnings({MemoryPressureLevel::warning});
  warnings.setEventHandler([&] { calls.push_back('w'); });
  warnings.resume();
  MemoryPressureSource criticals({MemoryPressureLevel::critical});
  criticals.setEventHandler([&] { calls.push_back('c'); });
  criticals.resume();
  happens(MemoryPressureLevel::critical);
  EXPECT_THAT(calls, ElementsAre('c'));
  happens(MemoryPressureLevel::warning);
  EXPECT_THAT(calls, ElementsAre('c', 'w'));
}

TEST_F(MemoryPressureSourceTest, IsSilentBeforeItIsResumedAndWithoutAHandler) {
  int calls = 0;
  MemoryPressureSource source({MemoryPressureLevel::warning});
  source.setEventHandler([&] { ++calls; });
  Platform::reportMemoryPressure(MemoryPressureLevel::warning);
  events().runPending();
  EXPECT_EQ(calls, 0);
  source.resume();
  source.resume();
  happens(MemoryPressureLevel::warning);
  EXPECT_EQ(calls, 1);
  source.setEventHandler({});
  happens(MemoryPressureLevel::warning);
  EXPECT_EQ(calls, 1);
}

TEST_F(MemoryPressureSourceTest, StaysCancelled) {
  int calls = 0;
  const MemoryPressureMonitor other([] {});
  MemoryPressureSource source({MemoryPressureLevel::warning});
  source.cancel();
  source.setEventHandler([&] { ++calls; });
  source.resume();
  happens(MemoryPressureLevel::warning);
  EXPECT_EQ(calls, 0);
}

TEST_F(MemoryPressureSourceTest, WatchesTheSystemOnceForAllSources) {
  const std::size_t watched = events().watchCount();
  const std::size_t stopped = events().stopCount();
  auto first = std::make_unique<MemoryPressureMonitor>([] {});
  EXPECT_EQ(events().watchCount(), watched + 1);
  auto second = std::make_unique<MemoryPressureMonitor>([] {});
  first.reset();
  first = std::make_unique<MemoryPressureMonitor>([] {});
  EXPECT_EQ(events().watchCount(), watched + 1);
  EXPECT_EQ(events().stopCount(), stopped);
  first.reset();
  second.reset();
  EXPECT_EQ(events().stopCount(), stopped + 1);
  const MemoryPressureMonitor third([] {});
  EXPECT_EQ(events().watchCount(), watched + 2);
}

TEST_F(MemoryPressureSourceTest, IsToldInTheOrderOfResumingAndNotWhenResumedMeanwhile) {
  std::vector<int> calls;
  std::unique_ptr<MemoryPressureMonitor> third;
  const MemoryPressureMonitor first([&] {
    calls.push_back(1);
    if (!third) third = std::make_unique<MemoryPressureMonitor>([&] { calls.push_back(3); });
  });
  const MemoryPressureMonitor second([&] { calls.push_back(2); });
  happens(MemoryPressureLevel::warning);
  EXPECT_THAT(calls, ElementsAre(1, 2));
  calls.clear();
  happens(MemoryPressureLevel::warning);
  EXPECT_THAT(calls, ElementsAre(1, 2, 3));
}

using MainQueueTest = MemoryPressure;

TEST_F(MainQueueTest, RunsInTheOrderOfPostingAndNothingTwice) {
  const Platform::MainQueue queue = Platform::mainQueue();
  std::vector<int> ran;
  for (int i = 0; i < 5; ++i) queue.async([&ran, i] { ran.push_back(i); });
  queue.async({});
  EXPECT_THAT(ran, IsEmpty());
  EXPECT_EQ(queue.runPending(), 5U);
  EXPECT_THAT(ran, ElementsAre(0, 1, 2, 3, 4));
  EXPECT_EQ(queue.runPending(), 0U);
}

TEST_F(MainQueueTest, DoesNothingFromWithinItsWork) {
  const Platform::MainQueue queue = Platform::mainQueue();
  std::vector<int> ran;
  queue.async([&] {
    queue.async([&] { ran.push_back(3); });
    EXPECT_EQ(queue.runPending(), 0U);
    ran.push_back(1);
  });
  queue.async([&] { ran.push_back(2); });
  EXPECT_EQ(queue.runPending(), 2U);
  EXPECT_THAT(ran, ElementsAre(1, 2));
  EXPECT_EQ(queue.runPending(), 1U);
  EXPECT_THAT(ran, ElementsAre(1, 2, 3));
}

TEST_F(MainQueueTest, LosesNothingThatSeveralThreadsPost) {
  const Platform::MainQueue queue = Platform::mainQueue();
  constexpr int kEach = 500;
  std::vector<std::vector<int>> ran(3);
  std::vector<std::thread> threads;
  for (std::size_t t = 0; t < ran.size(); ++t)
    threads.emplace_back([&, t] {
      for (int i = 0; i < kEach; ++i) queue.async([&ran, t, i] { ran[t].push_back(i); });
    });
  std::size_t count = 0;
  while (count < ran.size() * kEach) count += queue.runPending();
  for (std::thread& thread : threads) thread.join();
  for (const auto& numbers : ran)
    for (int i = 0; i < kEach; ++i) ASSERT_EQ(numbers.at(static_cast<std::size_t>(i)), i);
}

}  // namespace
}  // namespace Brisel
