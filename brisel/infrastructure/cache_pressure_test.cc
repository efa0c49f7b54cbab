// Real memory pressure, where the machine allows it: a child process reads at random in a file that is several times as
// large as the memory that its cgroup may use, until the cache of this process is purged.
//
// The pages must be a file's: without swap, anonymous memory beyond the limit is killed and not reclaimed.
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include "brisel/infrastructure/cache.h"
#include "brisel/platform/main_queue.h"

namespace Brisel {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr std::size_t kLimit = 64U << 20U;      // bytes the child may use
constexpr std::size_t kFileSize = 320U << 20U;  // bytes it reads in
constexpr auto kPatience = 12s;

bool writeTo(const fs::path& file, std::string_view text) {
  std::ofstream stream(file);
  stream << text;
  return static_cast<bool>(stream.flush());
}

// The directory of this process's cgroup in the hierarchy of the given controller; "" for the unified one.
std::optional<fs::path> cgroupOf(std::string_view controller) {
  std::ifstream cgroups("/proc/self/cgroup");
  std::string path;
  for (std::string line; std::getline(cgroups, line);) {
    const std::size_t first = line.find(':');
    const std::size_t second = line.find(':', first + 1);
    if (line.substr(first + 1, second - first - 1) == controller) path = line.substr(second + 1);
  }
  if (path.empty()) return std::nullopt;
  for (const std::string_view mount : {"/sys/fs/cgroup/memory", "/sys/fs/cgroup/unified", "/sys/fs/cgroup"}) {
    const bool isUnified = fs::exists(fs::path(mount) / "cgroup.controllers");
    const fs::path directory = fs::path(mount).concat(path);
    if (isUnified == controller.empty() && fs::exists(directory / "cgroup.procs")) return directory;
  }
  return std::nullopt;
}

// A cgroup for the time of the test.
class Cgroup {
 public:
  explicit Cgroup(const std::optional<fs::path>& parent) {
    if (!parent) return;
    directory_ = *parent / ("brisel-pressure-" + std::to_string(::getpid()));
    std::error_code error;
    if (!fs::create_directory(directory_, error)) directory_.clear();
  }
  Cgroup(const Cgroup&) = delete;
  Cgroup& operator=(const Cgroup&) = delete;
  ~Cgroup() {
    if (isUsable()) ::rmdir(directory_.c_str());
  }

  bool isUsable() const { return !directory_.empty(); }
  fs::path file(std::string_view name) const { return directory_ / name; }
  bool limit() const {
    return writeTo(file("memory.max"), std::to_string(kLimit)) ||
           writeTo(file("memory.limit_in_bytes"), std::to_string(kLimit));
  }
  bool take(pid_t process) const { return writeTo(file("cgroup.procs"), std::to_string(process)); }

 private:
  fs::path directory_;
};

// A file on a disk that is in nobody's memory: pages that are there stay charged to whoever wrote them.
class LargeFile {
 public:
  LargeFile() : path_(fs::current_path() / ("brisel-pressure-" + std::to_string(::getpid()))) {
    fd_ = ::open(path_.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    const std::vector<char> block(1U << 20U, 'x');
    for (std::size_t size = 0; size < kFileSize && isUsable_; size += block.size())
      isUsable_ = ::write(fd_, block.data(), block.size()) == static_cast<ssize_t>(block.size());
    isUsable_ = isUsable_ && ::fdatasync(fd_) == 0 && ::posix_fadvise(fd_, 0, 0, POSIX_FADV_DONTNEED) == 0;
  }
  LargeFile(const LargeFile&) = delete;
  LargeFile& operator=(const LargeFile&) = delete;
  ~LargeFile() {
    ::close(fd_);
    ::unlink(path_.c_str());
  }

  bool isUsable() const { return isUsable_; }

  // Never returns.
  [[noreturn]] void readAtRandom() const {
    const auto* const bytes =
        static_cast<const volatile char*>(::mmap(nullptr, kFileSize, PROT_READ, MAP_SHARED, fd_, 0));
    if (bytes == MAP_FAILED) ::_exit(1);
    for (unsigned seed = 0; seed < 4; ++seed)
      std::thread([bytes, seed] {
        std::minstd_rand random(seed + 1);
        for (;;) static_cast<void>(bytes[random() % kFileSize]);
      }).detach();
    for (;;) ::pause();
  }

 private:
  fs::path path_;
  int fd_ = -1;
  bool isUsable_ = true;
};

// How long some task of the cgroup has waited for memory so far.
std::chrono::microseconds stalled(const Cgroup& cgroup) {
  std::ifstream file(cgroup.file("memory.pressure"));
  std::string line;
  std::getline(file, line);
  const std::size_t total = line.find("total=");
  return std::chrono::microseconds(total == std::string::npos ? 0 : std::stoll(line.substr(total + 6)));
}

TEST(MemoryPressure, OfARealMachinePurgesTheCache) {
  if (::geteuid() != 0) GTEST_SKIP() << "making cgroups needs root";
  ::unsetenv("MEMORY_PRESSURE_WATCH");
  const auto home = cgroupOf("");
  const Cgroup watched(home);
  if (!watched.isUsable() || !fs::exists(watched.file("memory.pressure")))
    GTEST_SKIP() << "no cgroup with a pressure file can be made here";
  std::optional<Cgroup> older;  // where the memory controller still is of the first version
  const Cgroup* limited = &watched;
  if (!watched.limit()) limited = &older.emplace(cgroupOf("memory"));
  if (older && !(limited->isUsable() && limited->limit()))
    GTEST_SKIP() << "no cgroup with a memory limit can be made here";
  const LargeFile file;
  if (!file.isUsable()) GTEST_SKIP() << "no room for a file of " << kFileSize << " bytes";
  if (!watched.take(::getpid())) GTEST_SKIP() << "this process cannot be moved to another cgroup";

  bool isPurged = false;
  auto waited = stalled(watched);
  {
    Cache<int, int> cache(10, 100);
    cache.setValue(1, 1, 1);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      if (limited != &watched && !limited->take(::getpid())) ::_exit(1);
      file.readAtRandom();
    }
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (!isPurged && std::chrono::steady_clock::now() < end) {
      std::this_thread::sleep_for(50ms);
      Platform::mainQueue().runPending();
      isPurged = cache.isEmpty();
    }
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
  }
  waited = stalled(watched) - waited;
  EXPECT_TRUE(writeTo(*home / "cgroup.procs", std::to_string(::getpid())));
  RecordProperty("stalled_us", std::to_string(waited.count()));
  if (!isPurged && waited < 1s)
    GTEST_SKIP() << "the machine did not come under pressure: " << waited.count() << " us of waiting";
  EXPECT_TRUE(isPurged) << waited.count() << " us of waiting, and no event";
}

}  // namespace
}  // namespace Brisel
