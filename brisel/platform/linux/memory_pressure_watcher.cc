#include "brisel/platform/linux/memory_pressure_watcher.h"

#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string_view>

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace Brisel::Platform::Linux {
namespace {

using Channels = std::vector<MemoryPressureChannel>;

// The stalls that are worth telling: 150 ms in which some task waited for memory, 100 ms in which all did. Windows of
// two seconds need no privilege. The terminating zero is part of what the kernel is told.
constexpr char kWarningTrigger[] = "some 150000 2000000";
constexpr char kCriticalTrigger[] = "full 100000 2000000";

std::optional<std::string> environment(const char* name) {
  const char* const value = std::getenv(name);
  return value ? std::optional<std::string>(value) : std::nullopt;
}

bool writeAll(int fd, std::string_view bytes) {
  return ::write(fd, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
}

std::optional<std::string> decodeBase64(std::string_view text) {
  constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  while (!text.empty() && text.back() == '=') text.remove_suffix(1);
  if (text.size() % 4 == 1) return std::nullopt;
  std::string bytes;
  unsigned buffer = 0;
  int bits = 0;
  for (const char c : text) {
    const std::size_t digit = digits.find(c);
    if (digit == std::string_view::npos) return std::nullopt;
    buffer = (buffer << 6U | static_cast<unsigned>(digit)) & 0xFFFFU;
    bits += 6;
    if (bits < 8) continue;
    bits -= 8;
    bytes.push_back(static_cast<char>(buffer >> static_cast<unsigned>(bits) & 0xFFU));
  }
  return bytes;
}

std::optional<std::uint64_t> numberAtStartOf(std::string_view text) {
  std::uint64_t number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  return result.ec == std::errc() ? std::optional(number) : std::nullopt;
}

std::string_view firstWord(std::string_view text) { return text.substr(0, text.find(' ')); }

std::string_view afterFirstWord(std::string_view text) {
  const std::size_t space = text.find(' ');
  return space == std::string_view::npos ? std::string_view() : text.substr(space + 1);
}

// The microseconds that tasks have waited for memory so far: in the line of that name, "some avg10=0.00 … total=12".
std::optional<std::uint64_t> stalledSoFar(int fd, std::string_view name) {
  char bytes[512];
  const ssize_t count = ::pread(fd, bytes, sizeof bytes, 0);
  std::string_view lines(bytes, count > 0 ? static_cast<std::size_t>(count) : 0);
  constexpr std::string_view key = " total=";
  for (std::size_t end = lines.find('\n'); end != std::string_view::npos; end = lines.find('\n')) {
    const std::string_view line = lines.substr(0, end);
    lines.remove_prefix(end + 1);
    const std::size_t total = line.find(key);
    if (firstWord(line) == name && total != std::string_view::npos)
      return numberAtStartOf(line.substr(total + key.size()));
  }
  return std::nullopt;
}

// One trigger on a pressure file of the kernel; an empty one only listens. Its words are the name of a line of the
// file, the microseconds of a stall, and those of the window in which they are counted.
void addPressureFile(Channels& channels, const std::string& path, std::string_view trigger, MemoryPressureLevel level) {
  const int mode = trigger.empty() ? O_RDONLY : O_RDWR;
  FileDescriptor fd(::open(path.c_str(), mode | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
  if (!fd) return;
  const auto opened = std::chrono::steady_clock::now();
  const auto stalled = stalledSoFar(fd.get(), firstWord(trigger));
  channels.push_back({std::move(fd), POLLPRI, false, level, std::string(trigger), opened, stalled});
}

// A pressure file of the kernel, with one trigger for each level.
Channels openPressureFile(const std::string& path) {
  Channels channels;
  addPressureFile(channels, path, {kWarningTrigger, sizeof kWarningTrigger}, MemoryPressureLevel::warning);
  addPressureFile(channels, path, {kCriticalTrigger, sizeof kCriticalTrigger}, MemoryPressureLevel::critical);
  return channels;
}

FileDescriptor connectTo(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof address.sun_path) return FileDescriptor(-1);
  std::memcpy(address.sun_path, path.c_str(), path.size());
  FileDescriptor fd(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
  if (fd && ::connect(fd.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) return fd;
  return FileDescriptor(-1);
}

// What the service manager names. Its events carry no level, and count as warnings.
Channels openWatched(const std::string& path, const std::optional<std::string>& write) {
  struct stat status {};
  if (path.empty() || path.front() != '/' || ::stat(path.c_str(), &status) != 0) return {};
  std::string greeting;
  if (write) {
    auto decoded = decodeBase64(*write);
    if (!decoded) return {};
    greeting = std::move(*decoded);
  }
  Channels channels;
  if (S_ISREG(status.st_mode)) {
    addPressureFile(channels, path, greeting, MemoryPressureLevel::warning);
  } else if (S_ISFIFO(status.st_mode)) {
    // Open for writing too, so that it does not end when its writers leave; nothing is written, as we would read it.
    FileDescriptor fd(::open(path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
    if (fd) channels.push_back({std::move(fd), POLLIN, true, MemoryPressureLevel::warning});
  } else if (S_ISSOCK(status.st_mode)) {
    FileDescriptor fd = connectTo(path);
    const auto size = static_cast<ssize_t>(greeting.size());
    if (fd && (size == 0 || ::send(fd.get(), greeting.data(), greeting.size(), MSG_NOSIGNAL) == size))
      channels.push_back({std::move(fd), POLLIN, true, MemoryPressureLevel::warning});
  }
  return channels;
}

// The path of the process in the unified hierarchy: the line "0::/path".
std::optional<std::string> cgroupPath(const std::string& file) {
  std::ifstream lines(file);
  for (std::string line; std::getline(lines, line);)
    if (line.starts_with("0::/")) return line.substr(3);
  return std::nullopt;
}

// The directory of that cgroup. Its hierarchy is mounted at the fifth field of the mount that has the type cgroup2
// behind the separator, and shows what is below the fourth; in hybrid set-ups it stands beside older hierarchies.
std::optional<std::string> cgroupDirectory(const MemoryPressurePlaces& places) {
  const auto path = cgroupPath(places.cgroup);
  if (!path) return std::nullopt;
  std::ifstream lines(places.mountInfo);
  for (std::string line; std::getline(lines, line);) {
    const std::size_t separator = line.find(" - cgroup2 ");
    if (separator == std::string::npos) continue;
    std::istringstream fields(line.substr(0, separator));
    std::string id, parent, device, root, mountPoint;
    if (!(fields >> id >> parent >> device >> root >> mountPoint)) continue;
    if (root == "/") return mountPoint + *path;
    if (path->starts_with(root) && (path->size() == root.size() || (*path)[root.size()] == '/'))
      return mountPoint + path->substr(root.size());
  }
  return std::nullopt;
}

// Reads and throws away what has arrived; false where nothing will arrive any more. A writer that does not stop is left
// for the next time.
bool discard(int fd) {
  constexpr int kMostReads = 64;
  char bytes[4096];
  for (int i = 0; i < kMostReads; ++i) {
    const ssize_t count = ::read(fd, bytes, sizeof bytes);
    if (count == 0) return i > 0;
    if (count < 0) return errno == EAGAIN || errno == EINTR;
    if (count < static_cast<ssize_t>(sizeof bytes)) break;
  }
  return true;
}

}  // namespace

MemoryPressurePlaces MemoryPressurePlaces::ofThisProcess() {
  MemoryPressurePlaces places;
  places.watch = environment("MEMORY_PRESSURE_WATCH");
  places.write = environment("MEMORY_PRESSURE_WRITE");
  return places;
}

FileDescriptor::~FileDescriptor() {
  if (number_ >= 0) ::close(number_);
}

MemoryPressureChannels MemoryPressureChannels::open(const MemoryPressurePlaces& places, MemoryPressurePlace first) {
  if (first == MemoryPressurePlace::serviceManager && places.watch) {
    if (*places.watch == "/dev/null") return {{}, true};
    if (auto channels = openWatched(*places.watch, places.write); !channels.empty())
      return {std::move(channels), false, MemoryPressurePlace::cgroup};
  }
  if (first != MemoryPressurePlace::system)
    if (const auto directory = cgroupDirectory(places))
      if (auto channels = openPressureFile(*directory + "/memory.pressure"); !channels.empty())
        return {std::move(channels), false, MemoryPressurePlace::system};
  return {openPressureFile(places.system), false};
}

MemoryPressureNews arm(MemoryPressureChannel& channel) {
  const std::string trigger = std::exchange(channel.trigger, {});
  const auto stalled = stalledSoFar(channel.fd.get(), firstWord(trigger));
  const std::chrono::duration<double, std::micro> span = std::chrono::steady_clock::now() - channel.opened;
  if (!writeAll(channel.fd.get(), trigger)) return MemoryPressureNews::gone;
  const std::string_view lengths = afterFirstWord(trigger);
  const auto stall = numberAtStartOf(lengths);
  const auto window = numberAtStartOf(afterFirstWord(lengths));
  if (!stalled || !channel.stalled || !stall || !window) return MemoryPressureNews::none;
  const bool isWithinWindow = span.count() <= static_cast<double>(*window);
  return isWithinWindow && *stalled >= *channel.stalled + *stall ? MemoryPressureNews::event : MemoryPressureNews::none;
}

MemoryPressureNews newsOf(const MemoryPressureChannel& channel, short revents) {
  if ((revents & (POLLERR | POLLNVAL)) != 0) return MemoryPressureNews::gone;
  if ((revents & channel.events) == 0)
    return (revents & POLLHUP) != 0 ? MemoryPressureNews::gone : MemoryPressureNews::none;
  // A peer that has closed its end is readable, and has nothing to read.
  if (channel.isDiscarding && !discard(channel.fd.get())) return MemoryPressureNews::gone;
  return MemoryPressureNews::event;
}

}  // namespace Brisel::Platform::Linux
