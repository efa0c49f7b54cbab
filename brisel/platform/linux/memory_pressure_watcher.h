// Where Linux tells that memory runs short: pressure files of the kernel, or what the service manager names.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "brisel/platform/engine.h"

namespace Brisel::Platform::Linux {

/// Where to look, and when. Tests put their own places here.
struct MemoryPressurePlaces {
  std::optional<std::string> watch;  // $MEMORY_PRESSURE_WATCH
  std::optional<std::string> write;  // $MEMORY_PRESSURE_WRITE, in base64
  std::string cgroup = "/proc/self/cgroup";
  std::string mountInfo = "/proc/self/mountinfo";
  std::string system = "/proc/pressure/memory";
  // From the start of the watching until the kernel is told which stalls to watch for. It takes some ten milliseconds
  // to forget each of them, which a process would pay at its end without ever having lived to be told of one.
  std::chrono::milliseconds delay{1000};

  /// The places of this process, with its environment as it is now.
  static MemoryPressurePlaces ofThisProcess();
};

/// An open file descriptor.
class FileDescriptor {
 public:
  explicit FileDescriptor(int number) noexcept : number_(number) {}
  FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~FileDescriptor();

  int get() const noexcept { return number_; }
  explicit operator bool() const noexcept { return number_ >= 0; }

 private:
  int number_;
};

/// One descriptor that tells of pressure, of the level that it stands for.
struct MemoryPressureChannel {
  FileDescriptor fd;
  short events = 0;           // what to poll for
  bool isDiscarding = false;  // whether what arrives is to be read and thrown away; no pressure file is read for events
  MemoryPressureLevel level = MemoryPressureLevel::warning;
  std::string trigger{};  // what `arm` is to write first; there is nothing to poll for until then
  std::chrono::steady_clock::time_point opened{};
  std::optional<std::uint64_t> stalled{};  // microseconds that tasks had waited for memory when it was opened
};

/// What became of polling a channel.
enum class MemoryPressureNews { none, event, gone };

/// Who may tell of pressure, in the order in which they are asked.
enum class MemoryPressurePlace : std::uint8_t { serviceManager, cgroup, system };

/// The channels of the first place, from the given one on, that lets any be opened. None where no place does, or where
/// the service manager turns the watching off. Those of pressure files are yet to be armed.
struct MemoryPressureChannels {
  std::vector<MemoryPressureChannel> channels;
  bool isTurnedOff = false;
  std::optional<MemoryPressurePlace> next{};  // where to go on if none of them can be armed

  static MemoryPressureChannels open(const MemoryPressurePlaces& places,
                                     MemoryPressurePlace first = MemoryPressurePlace::serviceManager);
};

/// Tells the kernel what to watch for: gone where it refuses, an event where it would have told of one by now if it had
/// been told at the opening. More than the trigger's window later there is none, as nobody knows when tasks waited.
MemoryPressureNews arm(MemoryPressureChannel& channel);

/// Reads the outcome of a poll, and empties what has to be emptied.
MemoryPressureNews newsOf(const MemoryPressureChannel& channel, short revents);

}  // namespace Brisel::Platform::Linux
