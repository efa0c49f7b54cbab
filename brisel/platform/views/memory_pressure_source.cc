#include "brisel/platform/memory_pressure_source.h"

#include <condition_variable>
#include <cstdint>
#include <map>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

#include "brisel/platform/port.h"

namespace Brisel::Platform {
namespace internal {

class MemoryPressureSourceState {
 public:
  using Handler = std::function<void()>;

  explicit MemoryPressureSourceState(std::initializer_list<MemoryPressureLevel> eventMask) {
    for (const MemoryPressureLevel level : eventMask) mask_ |= bit(level);
  }

  void setHandler(Handler handler) {
    auto next = handler ? std::make_shared<const Handler>(std::move(handler)) : nullptr;
    const std::lock_guard lock(mutex_);
    if (!isCancelled_) handler_.swap(next);
  }

  void fire(MemoryPressureLevel level) {
    // Held by the call, so that a handler that cancels its source does not destroy itself.
    std::shared_ptr<const Handler> handler;
    {
      const std::lock_guard lock(mutex_);
      if (!handler_ || (mask_ & bit(level)) == 0) return;
      handler = handler_;
      ++callsUnderWay_;
      caller_ = std::this_thread::get_id();
    }
    struct End {
      MemoryPressureSourceState& state;
      ~End() {
        const std::lock_guard lock(state.mutex_);
        --state.callsUnderWay_;
        state.callEnded_.notify_all();
      }
    } end{*this};
    (*handler)();
  }

  void cancel() {
    std::shared_ptr<const Handler> handler;  // destroyed without the lock
    std::unique_lock lock(mutex_);
    isCancelled_ = true;
    handler.swap(handler_);
    callEnded_.wait(lock, [this] { return callsUnderWay_ == 0 || caller_ == std::this_thread::get_id(); });
  }

  enum class Stage : std::uint8_t { made, live, cancelled };
  Stage stage = Stage::made;  // The registry's, as is the number.
  std::uint64_t number = 0;

 private:
  static unsigned bit(MemoryPressureLevel level) { return 1U << static_cast<unsigned>(level); }

  std::mutex mutex_;
  std::condition_variable callEnded_;
  std::shared_ptr<const Handler> handler_;
  std::thread::id caller_;  // The main queue is serial, so calls under way at one time are nested on one thread.
  int callsUnderWay_ = 0;
  unsigned mask_ = 0;
  bool isCancelled_ = false;
};

namespace {

// The live sources of the process in the order of resuming, and the one watching of the system that serves them all.
class Registry {
 public:
  // Never destroyed, since sources may be cancelled late in the process.
  static Registry& shared() {
    static Registry& registry = *new Registry;
    return registry;
  }

  // The system is told under the lock, so that its watching starts and stops in the order of the sources.
  void add(const std::shared_ptr<MemoryPressureSourceState>& state) {
    const std::lock_guard lock(mutex_);
    if (state->stage != MemoryPressureSourceState::Stage::made) return;
    state->stage = MemoryPressureSourceState::Stage::live;
    state->number = nextNumber_++;
    live_.emplace(state->number, state);
    if (live_.size() == 1) systemEvents().watchMemoryPressure([this](MemoryPressureLevel level) { deliver(level); });
  }

  void remove(MemoryPressureSourceState& state) {
    const std::lock_guard lock(mutex_);
    const bool wasLive = state.stage == MemoryPressureSourceState::Stage::live;
    state.stage = MemoryPressureSourceState::Stage::cancelled;
    if (!wasLive) return;
    live_.erase(state.number);
    if (live_.empty()) systemEvents().stopWatchingMemoryPressure();
  }

  // Calls no source that a handler cancels before its turn, and none that a handler resumes.
  void deliver(MemoryPressureLevel level) {
    std::vector<std::weak_ptr<MemoryPressureSourceState>> sources;
    {
      const std::lock_guard lock(mutex_);
      for (const auto& [number, state] : live_) sources.push_back(state);
    }
    for (const auto& weak : sources)
      if (const auto state = weak.lock()) state->fire(level);
  }

 private:
  std::mutex mutex_;
  std::map<std::uint64_t, std::weak_ptr<MemoryPressureSourceState>> live_;
  std::uint64_t nextNumber_ = 0;
};

}  // namespace
}  // namespace internal

MemoryPressureSource::MemoryPressureSource(std::initializer_list<MemoryPressureLevel> eventMask)
    : state_(std::make_shared<internal::MemoryPressureSourceState>(eventMask)) {}

MemoryPressureSource::~MemoryPressureSource() { cancel(); }

void MemoryPressureSource::setEventHandler(std::function<void()> handler) { state_->setHandler(std::move(handler)); }

void MemoryPressureSource::resume() { internal::Registry::shared().add(state_); }

void MemoryPressureSource::cancel() {
  internal::Registry::shared().remove(*state_);
  state_->cancel();
}

void reportMemoryPressure(MemoryPressureLevel level) {
  systemEvents().post([level] { internal::Registry::shared().deliver(level); });
}

}  // namespace Brisel::Platform
