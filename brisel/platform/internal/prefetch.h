#pragma once

#include <cstddef>
#include <cstdint>

namespace Brisel::Platform::internal {

/// A hint that so many bytes from an address on will be read soon, so that they may be fetched into the cache
/// meanwhile. Nothing happens where there is no memory.
inline void prefetch(std::uintptr_t address, std::size_t size) noexcept {
  constexpr std::uintptr_t kCacheLine = 64;
  for (std::uintptr_t line = address - address % kCacheLine; line < address + size; line += kCacheLine) {
    __builtin_prefetch(reinterpret_cast<const void*>(line));  // NOLINT(performance-no-int-to-ptr)
    asm volatile("");                                         // g++ 12 takes out loops that do nothing but prefetch
  }
}

/// The same of an object that `make_shared` has made, and of the counts that stand before it. The object may be gone.
template <class T>
void prefetchShared(const T* object) noexcept {
  constexpr std::size_t kCounts = 16;
  prefetch(reinterpret_cast<std::uintptr_t>(object) - kCounts, kCounts + sizeof(T));
}

}  // namespace Brisel::Platform::internal
