#include "brisel/platform/linux/system_events.h"

#include <atomic>
#include <stdexcept>
#include <thread>
#include <vector>

#include <glib.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Brisel::Platform::Linux {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;

void runLoop() {
  while (g_main_context_iteration(nullptr, FALSE)) {
  }
}

TEST(LinuxSystemEvents, RunsItsQueueInTheMainLoop) {
  LinuxSystemEvents events;
  std::vector<int> ran;
  for (int i = 0; i < 3; ++i) events.post([&ran, i] { ran.push_back(i); });
  runLoop();
  EXPECT_THAT(ran, ElementsAre(0, 1, 2));
  EXPECT_EQ(events.runPending(), 0U);
}

TEST(LinuxSystemEvents, RunsItsQueueWithoutAMainLoopAndNothingTwice) {
  LinuxSystemEvents events;
  std::vector<int> ran;
  for (int i = 0; i < 3; ++i) events.post([&ran, i] { ran.push_back(i); });
  EXPECT_EQ(events.runPending(), 3U);
  EXPECT_THAT(ran, ElementsAre(0, 1, 2));
  runLoop();
  EXPECT_THAT(ran, SizeIs(3));
}

TEST(LinuxSystemEvents, RunsWhatItsWorkPostsInALaterTurn) {
  LinuxSystemEvents events;
  std::vector<int> ran;
  events.post([&] {
    events.post([&] { ran.push_back(2); });
    EXPECT_EQ(events.runPending(), 0U);
    runLoop();  // a nested loop, as of a dialogue
    ran.push_back(1);
  });
  EXPECT_EQ(events.runPending(), 1U);
  EXPECT_THAT(ran, ElementsAre(1));
  runLoop();
  EXPECT_THAT(ran, ElementsAre(1, 2));
}

TEST(LinuxSystemEvents, StaysSerialInALoopNestedInTheMainLoop) {
  LinuxSystemEvents events;
  std::vector<int> ran;
  events.post([&] {
    events.post([&] { ran.push_back(2); });
    runLoop();
    ran.push_back(1);
  });
  runLoop();
  EXPECT_THAT(ran, ElementsAre(1, 2));
}

TEST(LinuxSystemEvents, WakesAMainLoopThatWaits) {
  LinuxSystemEvents events;
  GMainLoop* const loop = g_main_loop_new(nullptr, FALSE);
  std::thread posting([&] { events.post([&] { g_main_loop_quit(loop); }); });
  g_main_loop_run(loop);
  posting.join();
  g_main_loop_unref(loop);
}

TEST(LinuxSystemEvents, RunsEachPieceOnceAndSeriallyWhereALoopAndRunPendingCompete) {
  LinuxSystemEvents events;
  constexpr int kCount = 2'000;
  std::atomic<int> inside{0};
  std::atomic<int> ran{0};
  std::atomic<int> overlaps{0};
  std::thread loop([&] {
    while (ran < kCount) g_main_context_iteration(nullptr, FALSE);
  });
  for (int i = 0; i < kCount; ++i) {
    events.post([&] {
      if (++inside != 1) ++overlaps;
      ++ran;
      --inside;
    });
    events.runPending();
  }
  loop.join();
  EXPECT_EQ(events.runPending(), 0U);
  EXPECT_EQ(ran, kCount);
  EXPECT_EQ(overlaps, 0);
}

TEST(LinuxSystemEvents, LeavesTheMainLoopArmedWhereWorkThrows) {
  LinuxSystemEvents events;
  bool hasRun = false;
  events.post([&] {
    events.post([&] { hasRun = true; });
    runLoop();  // uses up the wake-up
    throw std::runtime_error("thrown by a piece of work");
  });
  EXPECT_THROW(events.runPending(), std::runtime_error);
  runLoop();
  EXPECT_TRUE(hasRun);
}

TEST(LinuxSystemEvents, LosesNoWakeUpToACallOfRunPendingThatFindsNothing) {
  LinuxSystemEvents events;
  constexpr int kRounds = 100;
  int lost = 0;
  for (int round = 0; round < kRounds; ++round) {
    std::atomic<bool> hasRun{false};
    std::atomic<bool> isPosted{false};
    std::atomic<int> ready{0};
    std::atomic<int> done{0};
    std::thread pending([&] {
      for (++ready; !isPosted;) events.runPending();
      ++done;
    });
    std::thread poster([&] {
      for (++ready; ready < 2;) std::this_thread::yield();
      events.post([&] { hasRun = true; });
      isPosted = true;
      ++done;
    });
    while (done < 2) g_main_context_iteration(nullptr, FALSE);
    pending.join();
    poster.join();
    runLoop();
    lost += hasRun ? 0 : 1;
    events.runPending();
  }
  EXPECT_EQ(lost, 0);
}

}  // namespace
}  // namespace Brisel::Platform::Linux
