// Where Linux tells that memory runs short: pressure files of the kernel, or what the service manager names.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "brisel/platform/engine.h"

namespace Brisel::Platform::Linux {

/// Where to look. Tests put their own places here.
struct MemoryPressurePlaces {
  std::optional<std::string> watch;  // $MEMORY_PRESSURE_WATCH
  std::optional<std::string> write;  // $MEMORY_PRESSURE_WRITE, in base64
  std::string cgroup = "/proc/self/cgroup";
  std::string mountInfo = "/proc/self/mountinfo";
  std::string system = "/proc/pressure/memory";

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
  bool isDiscarding = false;  // whether what arrives is to be read and thrown away; a pressure file is never read
  MemoryPressureLevel level = MemoryPressureLevel::warning;
};

/// What became of polling a channel.
enum class MemoryPressureNews { none, event, gone };

/// The channels of the first place that offers any: the service manager's, the process's cgroup, the system. None where
/// all refuse, or where the service manager turns the watching off.
struct MemoryPressureChannels {
  std::vector<MemoryPressureChannel> channels;
  bool isTurnedOff = false;

  static MemoryPressureChannels open(const MemoryPressurePlaces& places);
};

/// Reads the outcome of a poll, and empties what has to be emptied.
MemoryPressureNews newsOf(const MemoryPressureChannel& channel, short revents);

}  // namespace Brisel::Platform::Linux
