#include "brisel/infrastructure/internal/spinning_mutex.h"

#include <chrono>
#include <mutex>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace Brisel::internal {
namespace {

TEST(SpinningMutex, LetsOneThreadInAtATime) {
  SpinningMutex mutex;
  int count = 0;
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t)
    threads.emplace_back([&] {
      for (int i = 0; i < 20'000; ++i) {
        const std::lock_guard lock(mutex);
        ++count;
      }
    });
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(count, 80'000);
}

TEST(SpinningMutex, WakesEveryThreadThatSleeps) {
  SpinningMutex mutex;
  int count = 0;
  std::vector<std::thread> threads;
  {
    const std::lock_guard lock(mutex);
    for (int t = 0; t < 4; ++t)
      threads.emplace_back([&] {
        const std::lock_guard inner(mutex);
        ++count;
      });
    std::this_thread::sleep_for(std::chrono::milliseconds(30));  // longer than anybody tries
    EXPECT_EQ(count, 0);
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(count, 4);
}

}  // namespace
}  // namespace Brisel::internal
