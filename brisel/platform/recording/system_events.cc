#include "brisel/platform/recording/system_events.h"

#include <utility>

namespace Brisel::Platform {

RecordingSystemEvents::RecordingSystemEvents() = default;
RecordingSystemEvents::~RecordingSystemEvents() = default;

bool RecordingSystemEvents::deliverMemoryPressure(MemoryPressureLevel level) {
  const std::lock_guard lock(mutex_);
  if (!handler_) return false;
  queue_.push([weak = std::weak_ptr(handler_), level] {
    if (const auto handler = weak.lock()) (*handler)(level);
  });
  return true;
}

std::size_t RecordingSystemEvents::watchCount() const {
  const std::lock_guard lock(mutex_);
  return watchCount_;
}

std::size_t RecordingSystemEvents::stopCount() const {
  const std::lock_guard lock(mutex_);
  return stopCount_;
}

void RecordingSystemEvents::onPost(Work work) { queue_.push(std::move(work)); }

std::size_t RecordingSystemEvents::onRunPending() { return queue_.run(); }

void RecordingSystemEvents::onWatchMemoryPressure(PressureHandler handler) {
  auto next = std::make_shared<const PressureHandler>(std::move(handler));
  const std::lock_guard lock(mutex_);
  handler_.swap(next);
  ++watchCount_;
}

void RecordingSystemEvents::onStopWatchingMemoryPressure() {
  std::shared_ptr<const PressureHandler> handler;  // destroyed without the lock
  const std::lock_guard lock(mutex_);
  handler.swap(handler_);
  ++stopCount_;
}

}  // namespace Brisel::Platform
