#pragma once

#include <cstddef>
#include <memory>
#include <mutex>
#include <optional>

#include "brisel/platform/engine.h"
#include "brisel/platform/internal/work_queue.h"
#include "brisel/platform/linux/memory_pressure_watcher.h"

// As GLib declares it, whose headers stay out of ours.
typedef struct _GSource GSource;  // NOLINT(bugprone-reserved-identifier,modernize-use-using)

namespace Brisel::Platform::Linux {

/// The main queue as a source of GLib's default main context, and memory pressure as Linux tells it.
///
/// The kernel is told what to watch for a second after the watching has begun, by the loop or by `runPending`,
/// whichever is first to run then: short programs are spared what it takes to end that. What it would have told of by
/// then is told at once, unless so much time has passed that nobody knows. Where it refuses, the next place is asked. A
/// FIFO or socket of the service manager's is heard from the start.
///
/// `runPending` needs no GLib loop: it looks at the pressure descriptors itself, without waiting, and runs the queue. A
/// host may use both at once. Destroyed where no loop runs at the time.
class LinuxSystemEvents final : public SystemEvents {
 public:
  /// Pressure is looked for in `places`; where none are given in those of the process, read when the watching starts.
  explicit LinuxSystemEvents(std::optional<MemoryPressurePlaces> places = std::nullopt);
  ~LinuxSystemEvents() override;

 protected:
  void onPost(Work work) override;
  std::size_t onRunPending() override;
  void onWatchMemoryPressure(PressureHandler handler) override;
  void onStopWatchingMemoryPressure() override;

 private:
  struct Watch;

  std::size_t runQueue();
  void armWhenDue(Watch& watch);
  void armAll(Watch& watch);
  void take(Watch& watch, std::size_t channel, MemoryPressureNews news);
  void complainOnce();
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
