#include "brisel/platform/internal/work_queue.h"

#include <utility>

namespace Brisel::Platform::internal {

void WorkQueue::push(Work work) {
  const std::lock_guard lock(mutex_);
  work_.push_back(std::move(work));
}

bool WorkQueue::isEmpty() const {
  const std::lock_guard lock(mutex_);
  return work_.empty();
}

std::size_t WorkQueue::run() {
  std::size_t due = 0;
  {
    const std::lock_guard lock(mutex_);
    if (isRunning_) return 0;
    isRunning_ = true;
    due = work_.size();
  }
  // Also ends the run where a piece of work throws.
  struct End {
    WorkQueue& queue;
    ~End() {
      const std::lock_guard lock(queue.mutex_);
      queue.isRunning_ = false;
    }
  } end{*this};
  // Only a run takes work away, and there is one at a time, so `due` pieces are there.
  for (std::size_t i = 0; i < due; ++i) pop()();
  return due;
}

WorkQueue::Work WorkQueue::pop() {
  const std::lock_guard lock(mutex_);
  Work work = std::move(work_.front());
  work_.pop_front();
  return work;
}

}  // namespace Brisel::Platform::internal
