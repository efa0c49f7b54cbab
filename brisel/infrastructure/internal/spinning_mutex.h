#pragma once

#include <atomic>
#include <cstdint>

namespace Brisel::internal {

/// A mutex for very short holds. Taking it when it is free, and giving it back when nobody waits, is one instruction
/// each; who finds it taken tries a little while before sleeping, since sleep costs many times what the holder still
/// needs. Not recursive.
class SpinningMutex {
 public:
  void lock() noexcept {
    if (!tryLock()) [[unlikely]]
      wait();
  }

  void unlock() noexcept {
    if (state_.exchange(kFree, std::memory_order_release) == kAwaited) [[unlikely]]
      state_.notify_one();
  }

 private:
  enum State : std::uint32_t { kFree, kTaken, kAwaited };  // awaited: taken, and somebody may sleep

  bool tryLock() noexcept {
    std::uint32_t free = kFree;
    return state_.compare_exchange_strong(free, kTaken, std::memory_order_acquire, std::memory_order_relaxed);
  }

  [[gnu::noinline]] void wait() noexcept {
    // Each try waits twice as long as the one before: who holds the lock is then left alone for a while, and takes it
    // several times in a row instead of having what it guards torn from one processor's cache to the other's.
    constexpr int kLongestWait = 256;
    for (int length = 1; length <= kLongestWait; length *= 2) {
      for (int i = 0; i < length; ++i) pause();
      if (state_.load(std::memory_order_relaxed) == kFree && tryLock()) return;
    }
    // Taken as awaited from here on: others may sleep too, and one wake too many does no harm.
    while (state_.exchange(kAwaited, std::memory_order_acquire) != kFree) state_.wait(kAwaited);
  }

  static void pause() noexcept {
#if defined(__x86_64__) || defined(__i386__)
    __builtin_ia32_pause();
#elif defined(__aarch64__)
    asm volatile("yield");
#endif
  }

  std::atomic<std::uint32_t> state_{kFree};
};

}  // namespace Brisel::internal
