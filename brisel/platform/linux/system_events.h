#pragma once

#include <cstddef>
#include <memory>
#include <mutex>
#include <optional>

#include "brisel/platform/engine.h"
#include "brisel/platform/internal/work_queue.h"
#include "brisel/platform/linux/memory_pressure_watcher.h"

typedef struct _GSource GSource;

namespace Brisel::Platform::Linux {

/// The main queue as a source of GLib's default main context, and memory pressure as Linux tells it.
///
/// `runPending` needs no GLib loop: it looks at the pressure descriptors itself, without waiting, and runs the queue. A
/// host may use both at once. Destroyed where no loop runs at the time.
class SystemEvents final : public Platform::SystemEvents {
 public:
  /// Pressure is looked for in `places`; where none are given in those of the process, read when the watching starts.
  explicit SystemEvents(std::optional<MemoryPressurePlaces> places = std::nullopt);
  ~SystemEvents() override;

 protected:
  void onPost(Work work) override;
  std::size_t onRunPending() override;
  void onWatchMemoryPressure(PressureHandler handler) override;
  void onStopWatchingMemoryPressure() override;

 private:
  struct Watch;

  std::size_t runQueue();
  void take(Watch& watch, std::size_t channel, short revents);
  static int dispatchQueue(void* self);
  static int dispatchPressure(void* self);

  const std::optional<MemoryPressurePlaces> places_;
  internal::WorkQueue queue_;
  GSource* const queueSource_;

  std::mutex mutex_;  // guards what follows
  std::unique_ptr<Watch> watch_;
  bool hasComplained_ = false;
};

}  // namespace Brisel::Platform::Linux
