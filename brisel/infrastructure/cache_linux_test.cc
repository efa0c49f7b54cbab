// From the service manager's pressure file through the port, the main queue and the monitor to a cache.
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "brisel/infrastructure/cache.h"
#include "brisel/platform/linux/system_events.h"
#include "brisel/platform/log.h"
#include "brisel/platform/main_queue.h"
#include "brisel/platform/port.h"

#include "tests/temporary_directory.h"

namespace Brisel {
namespace {

class CacheOnLinux : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(::mkfifo(fifo_.c_str(), 0600), 0);
    ::setenv("MEMORY_PRESSURE_WATCH", fifo_.c_str(), 1);
  }

  // Succeeds where somebody reads.
  int open() const { return ::open(fifo_.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC); }

  void cause() const {
    const int fd = open();
    ASSERT_GE(fd, 0);
    EXPECT_EQ(::write(fd, "x", 1), 1);
    ::close(fd);
  }

 private:
  const TemporaryDirectory directory_;
  const std::string fifo_ = directory_.path() / "pressure";
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

std::optional<Cache<int, int>> madeByTheLogHandler;

TEST(CacheWhereNothingCanBeWatched, MayBeMadeByTheLogHandlerThatIsToldSo) {
  const TemporaryDirectory nothing;
  Platform::Linux::MemoryPressurePlaces places;
  places.cgroup = places.mountInfo = places.system = nothing.path() / "missing";
  Platform::setSystemEvents(std::make_shared<Platform::Linux::LinuxSystemEvents>(places));
  Platform::setLogHandler([](std::string_view) { madeByTheLogHandler.emplace(10, 100); });
  const Cache<int, int> cache(10, 100);
  Platform::mainQueue().runPending();
  EXPECT_TRUE(madeByTheLogHandler);
}

}  // namespace
}  // namespace Brisel
