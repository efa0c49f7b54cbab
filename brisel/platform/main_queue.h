#pragma once

#include <cstddef>
#include <functional>

namespace Brisel::Platform {

/// The process's main queue: work runs serially, in the order of posting, on the thread that runs the host's main loop,
/// if that is the kind of loop that the port serves; other hosts call `runPending` now and then. Needs a port.
class MainQueue {
 public:
  /// Runs `work` later. May be called from any thread; nothing is lost while nobody runs the queue. Empty work is
  /// passed over.
  void async(std::function<void()> work) const;

  /// Runs on the calling thread what is due, memory-pressure events included, and returns how many pieces of work that
  /// was. Work posted meanwhile waits for the next call. From within such work it does nothing and returns 0.
  std::size_t runPending() const;
};

/// The main queue of the process. On any thread.
MainQueue mainQueue() noexcept;

}  // namespace Brisel::Platform
