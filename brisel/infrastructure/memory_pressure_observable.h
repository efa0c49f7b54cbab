#pragma once

#include <functional>
#include <memory>

namespace Brisel {

/// What a cache holds to learn that memory runs short; whoever derives from it can stand in the monitor's place.
class MemoryPressureObservable {
 public:
  MemoryPressureObservable(const MemoryPressureObservable&) = delete;
  MemoryPressureObservable& operator=(const MemoryPressureObservable&) = delete;
  /// Nothing is called once this has returned.
  virtual ~MemoryPressureObservable() = default;

  /// Sets what to call, without arguments, once for each event; the one action replaces the other. The cache that takes
  /// the object sets its purge in its constructor. An action may be called on any thread, and may outlive the cache.
  virtual void setOnEvent(std::function<void()> onEvent) = 0;

 protected:
  MemoryPressureObservable() = default;
};

namespace internal {

/// The monitor of the system's memory, as a cache gets it that is given no other. Needs a port (`Brisel::Core`), which
/// the rest of the cache does not.
std::unique_ptr<MemoryPressureObservable> makeMemoryPressureMonitor(std::function<void()> onEvent);

}  // namespace internal
}  // namespace Brisel
