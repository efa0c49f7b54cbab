#pragma once

#include <cstddef>
#include <fstream>

#include <malloc.h>
#include <sys/resource.h>
#include <unistd.h>

namespace Brisel::Platform {

/// While it lives, the process gets only so many bytes beyond the memory that it has.
class ScarceMemory {
 public:
  explicit ScarceMemory(std::size_t bytes) {
    malloc_trim(0);
    std::size_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    getrlimit(RLIMIT_AS, &before_);
    rlimit now = before_;
    now.rlim_cur = pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE)) + bytes;
    setrlimit(RLIMIT_AS, &now);
  }
  ~ScarceMemory() { setrlimit(RLIMIT_AS, &before_); }
  ScarceMemory(const ScarceMemory&) = delete;
  ScarceMemory& operator=(const ScarceMemory&) = delete;

  /// Sanitizers keep memory of their own, and end the process where they get no more.
  static constexpr bool isPossible() {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    return false;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
    return false;
#else
    return true;
#endif
#else
    return true;
#endif
  }

 private:
  rlimit before_{};
};

}  // namespace Brisel::Platform
