#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>

namespace Brisel::Platform::internal {

/// Work in the order of posting, run serially. The heart of a port's main queue; all members may be called from any
/// thread.
class WorkQueue {
 public:
  using Work = std::function<void()>;

  void push(Work work);
  bool isEmpty() const;

  /// Runs what is queued now, and returns how many pieces that was; work that is pushed meanwhile waits for the next
  /// call. Does nothing, and returns 0, while a run is under way. Work that throws is gone; what follows it stays.
  std::size_t run();

 private:
  Work pop();

  mutable std::mutex mutex_;
  std::deque<Work> work_;
  bool isRunning_ = false;
};

}  // namespace Brisel::Platform::internal
