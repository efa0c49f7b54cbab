// A pressure source for tests, in the place of the monitor.
#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "brisel/infrastructure/memory_pressure_observable.h"

namespace Brisel::Tests {

/// The other end of a source that fires when the test says so.
class ManualPressure {
 public:
  /// The source to hand to a cache. The cache may go first.
  std::unique_ptr<MemoryPressureObservable> source() { return std::make_unique<Source>(onEvent_); }

  /// Calls the action, be its owner alive or not, as an event that is under way would.
  void fire() const { (*onEvent_)(); }

 private:
  using Action = std::function<void()>;

  class Source final : public MemoryPressureObservable {
   public:
    explicit Source(std::shared_ptr<Action> action) : action_(std::move(action)) {}
    void setOnEvent(Action onEvent) override { *action_ = std::move(onEvent); }

   private:
    std::shared_ptr<Action> action_;
  };

  std::shared_ptr<Action> onEvent_ = std::make_shared<Action>();
};

}  // namespace Brisel::Tests
