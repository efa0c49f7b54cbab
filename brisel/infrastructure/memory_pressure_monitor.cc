#include "brisel/infrastructure/memory_pressure_monitor.h"

#include <utility>

namespace Brisel {

MemoryPressureMonitor::MemoryPressureMonitor(std::function<void()> onEvent)
    : memoryPressure_({Platform::MemoryPressureLevel::warning, Platform::MemoryPressureLevel::critical}) {
  memoryPressure_.setEventHandler(std::move(onEvent));
  memoryPressure_.resume();
}

MemoryPressureMonitor::~MemoryPressureMonitor() { memoryPressure_.cancel(); }

void MemoryPressureMonitor::setOnEvent(std::function<void()> onEvent) {
  memoryPressure_.setEventHandler(std::move(onEvent));
}

namespace internal {

std::unique_ptr<MemoryPressureObservable> makeMemoryPressureMonitor(std::function<void()> onEvent) {
  return std::make_unique<MemoryPressureMonitor>(std::move(onEvent));
}

}  // namespace internal
}  // namespace Brisel
