#pragma once

#include <functional>
#include <memory>

#include "brisel/infrastructure/memory_pressure_observable.h"
#include "brisel/platform/memory_pressure_source.h"

namespace Brisel {

/// Turns the system's memory-pressure notifications into one callback: watches from construction to destruction.
class MemoryPressureMonitor final : public MemoryPressureObservable {
 public:
  /// `onEvent` is called on the main queue, once for each warning and once for each critical event, without telling
  /// which; it is owned by the monitor, and may destroy it.
  explicit MemoryPressureMonitor(std::function<void()> onEvent);

  /// After this returns nothing is called, not even for an event that is under way; a call that runs on another thread
  /// is waited for.
  ~MemoryPressureMonitor() override;

  void setOnEvent(std::function<void()> onEvent) override;

 private:
  Platform::MemoryPressureSource memoryPressure_;  // owns the action, as the handler of its events
};

}  // namespace Brisel
