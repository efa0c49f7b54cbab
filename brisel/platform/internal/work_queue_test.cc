#include "brisel/platform/internal/work_queue.h"

#include <atomic>
#include <thread>

#include <gtest/gtest.h>

namespace Brisel::Platform::internal {
namespace {

TEST(WorkQueue, TurnsNobodyAwayForARunThatFoundNothing) {
  WorkQueue queue;
  int lost = 0;
  for (int round = 0; round < 200; ++round) {
    std::atomic<bool> isRunningEmpty{false};
    std::atomic<bool> hasPushed{false};
    std::atomic<bool> hasRun{false};
    std::thread idle([&] {
      while (!hasPushed) {
        queue.run();
        isRunningEmpty = true;
      }
    });
    while (!isRunningEmpty) std::this_thread::yield();
    queue.push([&] { hasRun = true; });
    queue.run();
    hasPushed = true;
    idle.join();  // Who has turned us away has run what we pushed.
    lost += hasRun ? 0 : 1;
    queue.run();
  }
  EXPECT_EQ(lost, 0);
}

}  // namespace
}  // namespace Brisel::Platform::internal
