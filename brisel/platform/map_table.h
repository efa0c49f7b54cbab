#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

#include "brisel/platform/fatal_error.h"
#include "brisel/platform/internal/weak_key.h"

namespace Brisel::Platform {

/// A table that holds its keys weakly and its values strongly: an entry whose key has been freed is as good as gone.
/// Keys are compared by identity, whatever the type through which they are given. For one thread at a time; but values
/// may use the table while they are destroyed.
template <class V>
class NSMapTable {
 public:
  NSMapTable() = default;
  NSMapTable(const NSMapTable&) = delete;
  NSMapTable& operator=(const NSMapTable&) = delete;

  /// `setObject:forKey:`: puts a value under a key, in the place of an earlier one. A key that no `shared_ptr` owns is
  /// a programming error.
  template <class T>
  void setObject(std::shared_ptr<V> object, const std::shared_ptr<T>& key) {
    if (!key || key.use_count() == 0) fatalError("A key of an NSMapTable must be an object held by a shared_ptr");
    // Doubling keeps the cost of sweeping in proportion to that of inserting.
    if (entries_.size() >= 2 * std::max(sizeAfterSweep_, kSmallest)) sweep();
    internal::WeakKey weakKey(key);
    const auto [place, isNew] = places_.try_emplace(weakKey.address(), entries_.size());
    Entry displaced;  // dies when the table is whole again
    if (!isNew) {
      Entry& earlier = entries_[place->second];
      displaced = std::exchange(earlier, Entry{earlier.number, {}, nullptr});
      if (displaced.key == weakKey) {
        earlier.key = std::move(weakKey);
        earlier.value = std::move(object);
        return;
      }
      place->second = entries_.size();  // that was a freed key at the same address
    }
    entries_.push_back({nextNumber_++, std::move(weakKey), std::move(object)});
  }

  /// The value of a key, or null.
  template <class T>
  std::shared_ptr<V> objectForKey(const std::shared_ptr<T>& key) const {
    const internal::WeakKey weakKey(key);
    const auto place = places_.find(weakKey.address());
    if (place == places_.end() || entries_[place->second].key != weakKey) return nullptr;
    return entries_[place->second].value;
  }

  /// Forgets a key; harmless where it has no value.
  template <class T>
  void removeObjectForKey(const std::shared_ptr<T>& key) {
    const internal::WeakKey weakKey(key);
    const auto place = places_.find(weakKey.address());
    if (place == places_.end() || entries_[place->second].key != weakKey) return;
    const Entry removed = std::move(entries_[place->second]);
    places_.erase(place);
  }

  /// How many keys are alive.
  std::size_t count() const {
    std::size_t count = 0;
    for (const Entry& entry : entries_) count += entry.key.isExpired() ? 0 : 1;
    return count;
  }

  /// How many entries take up room, freed and removed keys included. They are dropped after an enumeration that has met
  /// one, and by an insertion that finds the table twice as large as it was after the last time.
  std::size_t storedCount() const noexcept { return entries_.size(); }

  /// `keyEnumerator` with the values: calls `visit(key, value)` for each key that is in the table now, in the order in
  /// which they came, if it is alive and has been in the table all the time when its turn comes, with the value that it
  /// has then. The key is the pointer that was given, kept alive for the call. `visit` may change the table.
  ///
  /// Ahead of each visit, `approach(steps, key, value)` is called for the keys that come one and two steps later, gone
  /// ones too: a place to prefetch what a visit reads, since the walk through a large table is mostly waiting for
  /// memory. It must not change the table.
  template <class Visit, class Approach>
  void enumerate(Visit visit, Approach approach) {
    const std::uint64_t end = nextNumber_;
    bool hasDropped = false;
    for (std::size_t i = 0; i < entries_.size() && entries_[i].number < end;) {
      for (std::size_t steps = 1; steps <= kStepsAhead && i + steps < entries_.size(); ++steps)
        approach(steps, entries_[i + steps].key, entries_[i + steps].value);
      const std::uint64_t number = entries_[i].number;
      if (const auto key = entries_[i].key.lock()) {
        const auto value = entries_[i].value;
        visit(key, value);
      } else {
        hasDropped = true;
      }
      i = i < entries_.size() && entries_[i].number == number ? i + 1 : placeBehind(number);
    }
    if (hasDropped) sweep();
  }

 private:
  // One that was removed is left without a key until the next sweep.
  struct Entry {
    std::uint64_t number = 0;  // ascends
    internal::WeakKey key;
    std::shared_ptr<V> value;
  };
  static constexpr std::size_t kSmallest = 8;
  static constexpr std::size_t kStepsAhead = 2;

  std::size_t placeBehind(std::uint64_t number) const {
    const auto found = std::upper_bound(entries_.begin(), entries_.end(), number,
                                        [](std::uint64_t a, const Entry& b) { return a < b.number; });
    return static_cast<std::size_t>(found - entries_.begin());
  }

  void sweep() {
    std::vector<Entry> swept;  // dies last, when the table is whole again
    std::size_t size = 0;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
      Entry& entry = entries_[i];
      if (!entry.key.isExpired()) {
        if (size < i) {
          places_[entry.key.address()] = size;
          entries_[size] = std::move(entry);
        }
        ++size;
        continue;
      }
      const auto place = places_.find(entry.key.address());
      if (place != places_.end() && place->second == i) places_.erase(place);
      swept.push_back(std::move(entry));
    }
    entries_.resize(size);
    sizeAfterSweep_ = size;
  }

  std::vector<Entry> entries_;                           // by number
  std::unordered_map<const void*, std::size_t> places_;  // in entries_, by address
  std::uint64_t nextNumber_ = 0;
  std::size_t sizeAfterSweep_ = 0;
};

}  // namespace Brisel::Platform
