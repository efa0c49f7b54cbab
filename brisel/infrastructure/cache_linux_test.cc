// From the service manager's pressure file through the port, the main queue and the monitor to a cache.
#include <cstdlib>
#include <filesystem>
#include <string>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "brisel/infrastructure/cache.h"
#include "brisel/platform/main_queue.h"

namespace Brisel {
namespace {

class CacheOnLinux : public ::testing::Test {
 protected:
  void SetUp() override {
    char pattern[] = "/tmp/brisel-cache-XXXXXX";
    ASSERT_NE(::mkdtemp(pattern), nullptr);
    directory_ = pattern;
    fifo_ = directory_ + "/pressure";
    ASSERT_EQ(::mkfifo(fifo_.c_str(), 0600), 0);
    ::setenv("MEMORY_PRESSURE_WATCH", fifo_.c_str(), 1);
  }
  void TearDown() override { std::filesystem::remove_all(directory_); }

  // Succeeds where somebody reads.
  int open() const { return ::open(fifo_.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC); }

  void cause() const {
    const int fd = open();
    ASSERT_GE(fd, 0);
    EXPECT_EQ(::write(fd, "x", 1), 1);
    ::close(fd);
  }

 private:
  std::string directory_;
  std::string fifo_;
};

TEST_F(CacheOnLinux, IsPurgedThroughAPressureFileWithoutAMainLoop) {
  Cache<int, int> cache(10, 100);
  Cache<int, int> other(10, 100);
  cache.setValue(1, 1, 1);
  other.setValue(1, 1, 1);
  Platform::mainQueue().runPending();
  EXPECT_EQ(cache.count(), 1);
  cause();
  EXPECT_EQ(cache.count(), 1);
  Platform::mainQueue().runPending();
  EXPECT_TRUE(cache.isEmpty());
  EXPECT_TRUE(other.isEmpty());
}

TEST_F(CacheOnLinux, LetsThePressureFileGoWithTheLastCache) {
  { const Cache<int, int> cache(10, 100); }
  EXPECT_EQ(open(), -1);
  const Cache<int, int> cache(10, 100);
  const int fd = open();
  EXPECT_GE(fd, 0);
  ::close(fd);
}

}  // namespace
}  // namespace Brisel
