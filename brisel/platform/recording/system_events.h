#pragma once

#include <cstddef>
#include <memory>
#include <mutex>

#include "brisel/platform/engine.h"
#include "brisel/platform/internal/work_queue.h"

namespace Brisel::Platform {

/// Events for tests: a main queue that runs when `runPending` says so, and memory pressure on demand. All members may
/// be called from any thread.
class RecordingSystemEvents final : public SystemEvents {
 public:
  /// Events of which none has happened.
  RecordingSystemEvents();
  /// What has been posted and not run is dropped.
  ~RecordingSystemEvents() override;

  /// As if the system ran short of memory: posts one event for whoever watches at the time. Whether anybody does.
  bool deliverMemoryPressure(MemoryPressureLevel level);

  /// How often the watching of memory has been started, and stopped.
  std::size_t watchCount() const;
  /// How often the watching of memory has been stopped.
  std::size_t stopCount() const;

 protected:
  void onPost(Work work) override;
  std::size_t onRunPending() override;
  void onWatchMemoryPressure(PressureHandler handler) override;
  void onStopWatchingMemoryPressure() override;

 private:
  internal::WorkQueue queue_;

  mutable std::mutex mutex_;  // guards what follows
  std::shared_ptr<const PressureHandler> handler_;
  std::size_t watchCount_ = 0;
  std::size_t stopCount_ = 0;
};

}  // namespace Brisel::Platform
