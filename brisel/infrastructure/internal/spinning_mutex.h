#pragma once

#include <mutex>

namespace Brisel::internal {

/// A mutex for very short holds: tries a little while before it sleeps, since going to sleep in the kernel costs many
/// times what the holder still needs.
class SpinningMutex {
 public:
  void lock() {
    for (int i = 0; i < kTries; ++i) {
      if (mutex_.try_lock()) return;
      pause();
    }
    mutex_.lock();
  }

  void unlock() { mutex_.unlock(); }

 private:
  static constexpr int kTries = 100;

  static void pause() noexcept {
#if defined(__x86_64__) || defined(__i386__)
    __builtin_ia32_pause();
#endif
  }

  std::mutex mutex_;
};

}  // namespace Brisel::internal
