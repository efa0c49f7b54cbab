#include "brisel/platform/linux/memory_pressure_watcher.h"

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <glib.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include "brisel/platform/linux/system_events.h"
#include "brisel/platform/log.h"

#include "tests/temporary_directory.h"

namespace Brisel::Platform::Linux {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

void runLoop() {
  while (g_main_context_iteration(nullptr, FALSE)) {
  }
}

std::atomic<int> logged{0};

// Places of the test's own in a directory of its own: nothing of the machine's.
class MemoryPressureWatching : public ::testing::Test {
 protected:
  void SetUp() override {
    places.cgroup = path("cgroup");
    places.mountInfo = path("mountinfo");
    places.system = path("system");
    logged = 0;
    setLogHandler([](std::string_view) { ++logged; });
  }
  void TearDown() override { setLogHandler(nullptr); }

  std::string path(std::string_view name) const { return temporary.path() / name; }

  void write(std::string_view name, std::string_view text) const { std::ofstream(path(name)) << text; }

  std::string read(std::string_view name) const {
    std::ifstream file(path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  // What becomes of poking a FIFO: a writer that leaves at once.
  void poke(std::string_view name) const {
    const FileDescriptor fd(::open(path(name).c_str(), O_WRONLY | O_NONBLOCK));
    ASSERT_EQ(::write(fd.get(), "x", 1), 1);
  }

  void makeFifo(std::string_view name) const { ASSERT_EQ(::mkfifo(path(name).c_str(), 0600), 0); }

  // A pressure file as the kernel writes it, with the microseconds in which some tasks and in which all have waited.
  void writeStalled(std::string_view name, int some, int full) const {
    const std::string averages = " avg10=0.00 avg60=0.00 avg300=0.00 total=";
    write(name, "some" + averages + std::to_string(some) + "\nfull" + averages + std::to_string(full) + "\n");
  }

  // The channels of the places, all of them armed.
  std::vector<MemoryPressureChannel> armed() const {
    auto opened = MemoryPressureChannels::open(places);
    for (MemoryPressureChannel& channel : opened.channels) EXPECT_EQ(arm(channel), MemoryPressureNews::none);
    return std::move(opened.channels);
  }

  LinuxSystemEvents::PressureHandler recording() {
    return [this](MemoryPressureLevel level) { told.push_back(level); };
  }

  const TemporaryDirectory temporary;
  MemoryPressurePlaces places;
  std::vector<MemoryPressureLevel> told;
};

// "some 150000 2000000" and a zero, in base64.
constexpr char kTriggerInBase64[] = "c29tZSAxNTAwMDAgMjAwMDAwMAA=";
// "some 150000 3600000000" and a zero.
constexpr char kTriggerOfAnHourInBase64[] = "c29tZSAxNTAwMDAgMzYwMDAwMDAwMAA=";
constexpr std::string_view kWarningTrigger("some 150000 2000000\0", 20);
constexpr std::string_view kCriticalTrigger("full 100000 2000000\0", 20);

TEST_F(MemoryPressureWatching, HearsAFifoWithoutAMainLoop) {
  makeFifo("fifo");
  places.watch = path("fifo");
  LinuxSystemEvents events(places);
  events.watchMemoryPressure(recording());
  EXPECT_EQ(events.runPending(), 0U);
  poke("fifo");
  EXPECT_EQ(events.runPending(), 1U);
  EXPECT_THAT(told, ElementsAre(MemoryPressureLevel::warning));
  EXPECT_EQ(events.runPending(), 0U) << "what arrived is to be thrown away";
  poke("fifo");
  EXPECT_EQ(events.runPending(), 1U) << "a writer that leaves does not end the watching";
}

TEST_F(MemoryPressureWatching, HearsAFifoInTheMainLoop) {
  makeFifo("fifo");
  places.watch = path("fifo");
  LinuxSystemEvents events(places);
  events.watchMemoryPressure(recording());
  runLoop();
  EXPECT_THAT(told, IsEmpty());
  poke("fifo");
  runLoop();
  EXPECT_THAT(told, ElementsAre(MemoryPressureLevel::warning));
  runLoop();
  EXPECT_THAT(told, SizeIs(1));
}

TEST_F(MemoryPressureWatching, DropsEventsThatAreUnderWayWhenItStops) {
  makeFifo("fifo");
  places.watch = path("fifo");
  LinuxSystemEvents events(places);
  events.stopWatchingMemoryPressure();  // harmless
  events.watchMemoryPressure(recording());
  events.post([&] { events.stopWatchingMemoryPressure(); });
  poke("fifo");
  EXPECT_EQ(events.runPending(), 2U);
  EXPECT_EQ(::open(path("fifo").c_str(), O_WRONLY | O_NONBLOCK), -1) << "nobody reads it any more";
  EXPECT_EQ(events.runPending(), 0U);
  EXPECT_THAT(told, IsEmpty());
}

TEST_F(MemoryPressureWatching, CanBeStartedAgain) {
  makeFifo("fifo");
  places.watch = path("fifo");
  LinuxSystemEvents events(places);
  events.watchMemoryPressure(recording());
  events.stopWatchingMemoryPressure();
  events.watchMemoryPressure(recording());
  poke("fifo");
  runLoop();
  EXPECT_THAT(told, SizeIs(1));
}

// A listening socket of the service manager's kind.
class Listener {
 public:
  explicit Listener(const std::string& path) : fd_(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    EXPECT_EQ(::bind(fd_.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(::listen(fd_.get(), 4), 0);
  }
  FileDescriptor accept() const { return FileDescriptor(::accept4(fd_.get(), nullptr, nullptr, SOCK_CLOEXEC)); }

 private:
  FileDescriptor fd_;
};

TEST_F(MemoryPressureWatching, HearsASocketUntilItsPeerLeaves) {
  const Listener listener(path("socket"));
  places.watch = path("socket");
  places.write = "aGVsbG8=";
  LinuxSystemEvents events(places);
  events.watchMemoryPressure(recording());
  {
    const FileDescriptor peer = listener.accept();
    char greeting[16]{};
    EXPECT_EQ(::read(peer.get(), greeting, sizeof greeting), 5);
    EXPECT_STREQ(greeting, "hello");
    ASSERT_EQ(::write(peer.get(), "x", 1), 1);
    EXPECT_EQ(events.runPending(), 1U);
    ASSERT_EQ(::write(peer.get(), "xy", 2), 2);
  }
  EXPECT_EQ(events.runPending(), 1U) << "sent before the peer left";
  EXPECT_EQ(events.runPending(), 0U);
  runLoop();  // would never end if the lost peer were still listened to
  EXPECT_THAT(told, SizeIs(2));
}

TEST_F(MemoryPressureWatching, WritesTheGivenTriggerIntoTheGivenFileAndReadsNoEventsFromIt) {
  write("file", "");
  places.watch = path("file");
  places.write = kTriggerInBase64;
  const auto channels = armed();
  ASSERT_THAT(channels, SizeIs(1));
  EXPECT_EQ(read("file"), kWarningTrigger);
  EXPECT_EQ(channels[0].events, POLLPRI);
  EXPECT_EQ(newsOf(channels[0], POLLPRI), MemoryPressureNews::event);
  EXPECT_EQ(::lseek(channels[0].fd.get(), 0, SEEK_CUR), 20) << "the place after what was written";
}

TEST_F(MemoryPressureWatching, TellsTheKernelNothingBeforeItIsTime) {
  write("system", "");
  places.delay = std::chrono::hours(1);
  LinuxSystemEvents events(places);
  events.watchMemoryPressure(recording());
  EXPECT_EQ(events.runPending(), 0U);
  runLoop();
  EXPECT_EQ(read("system"), "");
}

TEST_F(MemoryPressureWatching, TellsTheKernelInItsTimeWithoutAMainLoop) {
  write("system", "");
  places.delay = std::chrono::milliseconds(0);
  LinuxSystemEvents events(places);
  events.watchMemoryPressure(recording());
  EXPECT_EQ(read("system"), "");
  EXPECT_EQ(events.runPending(), 0U);
  EXPECT_EQ(read("system"), kWarningTrigger);  // an ordinary file keeps the last
  write("system", "");
  events.runPending();
  runLoop();
  EXPECT_EQ(read("system"), "") << "once is enough";
}

TEST_F(MemoryPressureWatching, TellsTheKernelInItsTimeInAMainLoopThatWaits) {
  write("system", "");
  places.delay = std::chrono::milliseconds(10);
  LinuxSystemEvents events(places);
  events.watchMemoryPressure(recording());
  while (read("system").empty()) g_main_context_iteration(nullptr, TRUE);
  EXPECT_EQ(read("system"), kWarningTrigger);
  EXPECT_THAT(told, IsEmpty());
}

TEST_F(MemoryPressureWatching, LearnsInItsTimeWhatItWasTooEarlyFor) {
  writeStalled("file", 1'000, 10);
  places.watch = path("file");
  places.write = kTriggerOfAnHourInBase64;  // however long the test takes
  places.delay = std::chrono::milliseconds(0);
  LinuxSystemEvents events(places);
  events.watchMemoryPressure(recording());
  writeStalled("file", 151'000, 10);
  EXPECT_EQ(events.runPending(), 1U);
  EXPECT_EQ(events.runPending(), 0U);
  EXPECT_THAT(told, ElementsAre(MemoryPressureLevel::warning));
}

TEST_F(MemoryPressureWatching, CountsAsEarlyEventsWhatItsTriggersSpeakOf) {
  for (const int more : {0, 1}) {
    writeStalled("system", 1'000, 10);
    auto opened = MemoryPressureChannels::open(places);
    ASSERT_THAT(opened.channels, SizeIs(2));
    for (auto& channel : opened.channels) channel.opened += std::chrono::hours(1);  // however long the test takes
    const auto expected = more == 0 ? MemoryPressureNews::none : MemoryPressureNews::event;
    writeStalled("system", 150'999 + more, 0);
    EXPECT_EQ(arm(opened.channels[0]), expected);
    writeStalled("system", 0, 100'009 + more);
    EXPECT_EQ(arm(opened.channels[1]), expected);
  }
}

TEST_F(MemoryPressureWatching, MakesUpForNothingThatMayHaveTakenLongerThanItsTriggersWindow) {
  writeStalled("file", 1'000, 10);
  places.watch = path("file");
  places.write = "c29tZSAxNTAwMDAgMTAwMAA=";  // "some 150000 1000" and a zero
  places.delay = std::chrono::milliseconds(0);
  LinuxSystemEvents events(places);
  events.watchMemoryPressure(recording());
  writeStalled("file", 900'000, 10);
  std::this_thread::sleep_for(std::chrono::milliseconds(2));
  EXPECT_EQ(events.runPending(), 0U);
  EXPECT_THAT(told, IsEmpty());
}

TEST_F(MemoryPressureWatching, GoesOnToTheNextPlaceWhereTheKernelRefuses) {
  const std::string refusing = "/proc/self/oom_score_adj";  // takes a number, and nothing else
  write("system", "");
  write("cgroup", "0::/app\n");
  write("mountinfo", "31 24 0:27 / " + path("mount") + " rw - cgroup2 cgroup2 rw\n");
  std::filesystem::create_directories(path("mount/app"));
  write("mount/app/memory.pressure", "");
  places.watch = refusing;
  places.write = kTriggerInBase64;
  places.delay = std::chrono::milliseconds(0);
  LinuxSystemEvents events(places);
  events.watchMemoryPressure(recording());
  events.runPending();
  EXPECT_EQ(read("mount/app/memory.pressure"), kWarningTrigger);  // an ordinary file keeps the last
  EXPECT_EQ(read("system"), "");

  std::filesystem::remove(path("mount/app/memory.pressure"));
  std::filesystem::create_symlink(refusing, path("mount/app/memory.pressure"));
  events.watchMemoryPressure(recording());
  runLoop();
  EXPECT_EQ(read("system"), kWarningTrigger);
  EXPECT_EQ(logged, 0);

  places.system = refusing;
  LinuxSystemEvents inVain(places);
  inVain.watchMemoryPressure(recording());
  runLoop();
  EXPECT_EQ(logged, 1);
}

TEST_F(MemoryPressureWatching, SaysOnceThatTheKernelRefuses) {
  places.system = "/dev/full";
  places.delay = std::chrono::milliseconds(0);
  LinuxSystemEvents events(places);
  for (int i = 0; i < 2; ++i) {
    events.watchMemoryPressure(recording());
    EXPECT_EQ(logged, i);
    events.runPending();
    EXPECT_EQ(logged, 1);
    events.stopWatchingMemoryPressure();
  }
}

TEST_F(MemoryPressureWatching, TakesAnErrorForTheEndOfAChannel) {
  write("file", "");
  places.watch = path("file");
  const auto opened = MemoryPressureChannels::open(places);
  ASSERT_THAT(opened.channels, SizeIs(1));
  EXPECT_EQ(newsOf(opened.channels[0], POLLERR | POLLPRI), MemoryPressureNews::gone);
  EXPECT_EQ(newsOf(opened.channels[0], POLLHUP), MemoryPressureNews::gone);
  EXPECT_EQ(newsOf(opened.channels[0], 0), MemoryPressureNews::none);
}

TEST_F(MemoryPressureWatching, IsTurnedOffByTheNullDevice) {
  write("system", "");
  places.watch = "/dev/null";
  const auto opened = MemoryPressureChannels::open(places);
  EXPECT_THAT(opened.channels, IsEmpty());
  EXPECT_TRUE(opened.isTurnedOff);
  EXPECT_EQ(read("system"), "");
}

TEST_F(MemoryPressureWatching, PrefersTheServiceManagerThenTheCgroupThenTheSystem) {
  write("system", "");
  write("cgroup", "4:memory:/old\n0::/app/ours\n");
  write("mountinfo", "30 24 0:26 / /elsewhere rw - cgroup cgroup rw,memory\n31 24 0:27 / " + path("unified") +
                         " rw,nosuid shared:9 - cgroup2 cgroup2 rw\n");
  std::filesystem::create_directories(path("unified/app/ours"));
  makeFifo("fifo");

  places.watch = path("fifo");
  ASSERT_THAT(armed(), SizeIs(1));

  for (const char* const unusable : {"", "relative", "/nowhere/at/all"}) {
    places.watch = unusable;
    std::ofstream(path("system"), std::ios::trunc).flush();
    ASSERT_THAT(armed(), SizeIs(2)) << unusable;
    EXPECT_THAT(read("system"), ::testing::Ne(""));  // there is no pressure file in the cgroup
  }

  std::ofstream(path("system"), std::ios::trunc).flush();
  write("unified/app/ours/memory.pressure", "");
  ASSERT_THAT(armed(), SizeIs(2));
  EXPECT_EQ(read("system"), "");
  EXPECT_EQ(read("unified/app/ours/memory.pressure"), kCriticalTrigger);  // an ordinary file keeps the last
}

TEST_F(MemoryPressureWatching, FindsItsCgroupBelowTheRootOfAMount) {
  write("cgroup", "0::/container/app\n");
  write("mountinfo", "31 24 0:27 /container " + path("mount") + " rw - cgroup2 cgroup2 rw\n");
  std::filesystem::create_directories(path("mount/app"));
  write("mount/app/memory.pressure", "");
  EXPECT_THAT(armed(), SizeIs(2));
  EXPECT_EQ(read("mount/app/memory.pressure"), kCriticalTrigger);
}

TEST_F(MemoryPressureWatching, HasAWarningAndACriticalChannelWithTheKernel) {
  write("system", "");
  const auto opened = MemoryPressureChannels::open(places);
  ASSERT_THAT(opened.channels, SizeIs(2));
  EXPECT_EQ(opened.channels[0].level, MemoryPressureLevel::warning);
  EXPECT_EQ(opened.channels[1].level, MemoryPressureLevel::critical);
  EXPECT_EQ(opened.channels[0].events, POLLPRI);
  EXPECT_FALSE(opened.channels[0].isDiscarding);
}

TEST_F(MemoryPressureWatching, RefusesWhatIsNotBase64) {
  write("file", "");
  places.watch = path("file");
  for (const char* const text : {"*", "A", "AAAAA", "c29 tZQ"}) {
    places.write = text;
    EXPECT_THAT(MemoryPressureChannels::open(places).channels, IsEmpty()) << text;
  }
  places.write = "";
  EXPECT_THAT(MemoryPressureChannels::open(places).channels, SizeIs(1));
}

TEST_F(MemoryPressureWatching, ReadsTheEnvironment) {
  ::unsetenv("MEMORY_PRESSURE_WATCH");
  ::unsetenv("MEMORY_PRESSURE_WRITE");
  EXPECT_EQ(MemoryPressurePlaces::ofThisProcess().watch, std::nullopt);
  ::setenv("MEMORY_PRESSURE_WATCH", "/a", 1);
  ::setenv("MEMORY_PRESSURE_WRITE", "AA==", 1);
  EXPECT_EQ(MemoryPressurePlaces::ofThisProcess().watch, "/a");
  EXPECT_EQ(MemoryPressurePlaces::ofThisProcess().write, "AA==");
}

TEST_F(MemoryPressureWatching, SaysOnceThatNothingCanBeWatched) {
  LinuxSystemEvents events(places);
  for (int i = 0; i < 3; ++i) {
    events.watchMemoryPressure(recording());
    events.stopWatchingMemoryPressure();
  }
  EXPECT_EQ(logged, 0) << "only from the main queue, where nobody holds a lock";
  runLoop();
  EXPECT_EQ(logged, 1);
}

TEST_F(MemoryPressureWatching, SaysNothingWhereItIsTurnedOff) {
  places.watch = "/dev/null";
  LinuxSystemEvents events(places);
  events.watchMemoryPressure(recording());
  runLoop();
  EXPECT_EQ(logged, 0);
}

}  // namespace
}  // namespace Brisel::Platform::Linux
