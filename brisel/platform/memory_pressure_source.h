// How the process learns that memory runs short.
#pragma once

#include <functional>
#include <initializer_list>
#include <memory>

#include "brisel/platform/engine.h"

namespace Brisel::Platform {
namespace internal {
class MemoryPressureSourceState;
}

/// A source of memory-pressure events, delivered on the main queue.
///
/// The process watches its system once for all sources: from the first that is resumed to the last that is cancelled.
/// Sources in between cost no system call. All members may be called from any thread.
class MemoryPressureSource {
 public:
  /// A source of the events of the levels in `eventMask`. It is silent until it is resumed.
  explicit MemoryPressureSource(std::initializer_list<MemoryPressureLevel> eventMask);
  MemoryPressureSource(const MemoryPressureSource&) = delete;
  MemoryPressureSource& operator=(const MemoryPressureSource&) = delete;
  /// Cancels the source.
  ~MemoryPressureSource();

  /// What runs on each event; replaces the handler before. An empty one ignores events.
  void setEventHandler(std::function<void()> handler);

  /// Starts the delivery. Resuming again changes nothing.
  void resume();

  /// Ends the delivery for good: no call of the handler is made after this returns, not even for an event that is under
  /// way. A call that runs on another thread is waited for; the handler itself may cancel its source.
  void cancel();

 private:
  // Shared with the delivery, which may be under way while the source is destroyed.
  std::shared_ptr<internal::MemoryPressureSourceState> state_;
};

/// The host's own word that memory runs short: delivers one event to every live source, on the main queue. May be
/// called from any thread.
void reportMemoryPressure(MemoryPressureLevel level);

}  // namespace Brisel::Platform
