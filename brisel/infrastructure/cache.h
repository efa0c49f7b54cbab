#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include "brisel/infrastructure/internal/cache_core.h"
#include "brisel/infrastructure/internal/spinning_mutex.h"
#include "brisel/infrastructure/memory_pressure_observable.h"

namespace Brisel {

/// A cache bounded by a number of entries and by the memory that its callers declare for them. The least recently used
/// entries go first, and all of them when the system runs short of memory.
///
///     Brisel::Cache<std::string, std::shared_ptr<const Picture>> pictures(100, 20'000'000);
///     pictures.setValue(picture, "cover", picture->byteCount());
///     if (auto picture = pictures.getValue("cover")) draw(**picture);
///
/// All members may be called from any thread. Keys are hashed, and keys and values destroyed, without the lock, so that
/// a hash or a destructor may call the cache; a key's equality and a value's copy constructor must not, as they run
/// under it. After an event the contents are destroyed on the thread that delivers it: the main queue's.
template <class Key, class Value, class Hash = std::hash<Key>, class KeyEqual = std::equal_to<>>
class Cache final {
 public:
  /// A cache of at most `capacity` entries, whose declared usages total at most `memoryLimit` (in the caller's unit).
  /// Neither is checked: a capacity of 0 or less evicts every entry as it is set. The cache watches the system's
  /// memory, and so needs a port.
  Cache(std::int64_t capacity, std::int64_t memoryLimit)
      : core_(std::make_shared<Core>(capacity, memoryLimit)),
        memoryPressureMonitor_(internal::makeMemoryPressureMonitor(purgeAction())) {}

  /// The same with another source of pressure events, or with none.
  Cache(std::int64_t capacity, std::int64_t memoryLimit,
        std::unique_ptr<MemoryPressureObservable> memoryPressureMonitor)
      : core_(std::make_shared<Core>(capacity, memoryLimit)), memoryPressureMonitor_(std::move(memoryPressureMonitor)) {
    if (memoryPressureMonitor_) memoryPressureMonitor_->setOnEvent(purgeAction());
  }

  Cache(const Cache&) = delete;
  Cache& operator=(const Cache&) = delete;
  ~Cache() = default;

  /// Inserts or replaces the key's value, then evicts the oldest entries until both bounds hold; `nullopt` removes the
  /// key. A key that is set again keeps the usage of its first time for its removal, while the total takes the new one.
  /// A total beyond 64 bits ends the process.
  void setValue(std::optional<Value> value, const Key& key, std::int64_t memoryUsage) {
    if (value) {
      core_->set(std::move(*value), key, memoryUsage);
    } else {
      core_->remove(key);
    }
  }

  /// A copy of the key's value, which becomes the most recently used one; `nullopt` where there is none.
  std::optional<Value> getValue(const Key& key) { return core_->get(key); }

  /// The same by anything that hashes and compares like the key, so that no key need be built for a look-up. For a hash
  /// and an equality that are declared transparent.
  template <class LookupKey>
  requires requires {
    typename Hash::is_transparent;
    typename KeyEqual::is_transparent;
  }
  std::optional<Value> getValue(const LookupKey& key) { return core_->get(key); }

  /// How many entries there are.
  std::int64_t count() const { return core_->count(); }
  /// Whether there are none.
  bool isEmpty() const { return count() == 0; }
  /// The most entries, as the cache was made with it.
  std::int64_t capacity() const noexcept { return core_->capacity(); }
  /// The largest total of declared usages, as the cache was made with it.
  std::int64_t memoryLimit() const noexcept { return core_->memoryLimit(); }

 private:
  using Core = internal::CacheCore<Key, Value, Hash, KeyEqual, internal::SpinningMutex>;

  // Held weakly, so that an event that comes while the cache is destroyed finds either all of it or nothing.
  std::function<void()> purgeAction() const {
    return [weak = std::weak_ptr<Core>(core_)] {
      if (const auto core = weak.lock()) core->purge();
    };
  }

  std::shared_ptr<Core> core_;
  std::unique_ptr<MemoryPressureObservable> memoryPressureMonitor_;  // behind the core, so that it goes first
};

}  // namespace Brisel
