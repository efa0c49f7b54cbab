// Makes the program that includes it fail to allocate what is large, on demand. For one source file of a program, as it
// replaces the global operators.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <new>

// The thread sanitizer has operators of its own, which cannot be replaced.
#define BRISEL_CAN_REPLACE_OPERATORS 1
#if defined(__has_feature)
#if __has_feature(thread_sanitizer)
#undef BRISEL_CAN_REPLACE_OPERATORS
#define BRISEL_CAN_REPLACE_OPERATORS 0
#endif
#endif

namespace Brisel::Tests {

inline std::atomic<std::size_t> largestAllocation{std::numeric_limits<std::size_t>::max()};

/// While it lives, no allocation of more bytes than that succeeds.
class ScarceMemory {
 public:
  explicit ScarceMemory(std::size_t largest) { largestAllocation = largest; }
  ~ScarceMemory() { largestAllocation = std::numeric_limits<std::size_t>::max(); }
  ScarceMemory(const ScarceMemory&) = delete;
  ScarceMemory& operator=(const ScarceMemory&) = delete;

  /// Whether it does so in this build.
  static constexpr bool isPossible() { return BRISEL_CAN_REPLACE_OPERATORS; }
};

}  // namespace Brisel::Tests

#if BRISEL_CAN_REPLACE_OPERATORS

// Not inline, or the compiler would see memory of one kind given back as another.
[[gnu::noinline]] void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return size <= Brisel::Tests::largestAllocation ? std::malloc(size > 0 ? size : 1) : nullptr;
}
[[gnu::noinline]] void* operator new(std::size_t size) {
  if (void* const place = ::operator new(size, std::nothrow)) return place;
  throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* place) noexcept { std::free(place); }
[[gnu::noinline]] void operator delete(void* place, std::size_t) noexcept { std::free(place); }

#endif
