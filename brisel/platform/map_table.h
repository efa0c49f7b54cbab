#pragma once

#include <algorithm>
#include <cstddef>
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
  /// A key as the table holds it.
  using Key = std::weak_ptr<const void>;

  NSMapTable() = default;
  NSMapTable(const NSMapTable&) = delete;
  NSMapTable& operator=(const NSMapTable&) = delete;

  /// `setObject:forKey:`: puts a value under a key, in the place of an earlier one. A key that no `shared_ptr` owns is
  /// a programming error.
  template <class T>
  void setObject(std::shared_ptr<V> object, const std::shared_ptr<T>& key) {
    if (!key || key.use_count() == 0) fatalError("A key of an NSMapTable must be an object held by a shared_ptr");
    // Doubling keeps the cost of sweeping in proportion to that of inserting.
    if (entries_.size() >= 2 * std::max(sizeAfterSweep_, kSmallest)) sweep([](const Key&) {});
    internal::WeakKey weakKey(key);
    Entry& entry = entries_[weakKey.address()];
    // What stood here, perhaps of a freed key with the same address, dies when the table is whole again.
    const Entry displaced = std::exchange(entry, Entry{std::move(weakKey), std::move(object)});
  }

  /// The value of a key, or null.
  template <class T>
  std::shared_ptr<V> objectForKey(const std::shared_ptr<T>& key) const {
    const internal::WeakKey weakKey(key);
    const auto found = entries_.find(weakKey.address());
    return found != entries_.end() && found->second.key == weakKey ? found->second.value : nullptr;
  }

  /// Forgets a key; harmless where it has no value.
  template <class T>
  void removeObjectForKey(const std::shared_ptr<T>& key) {
    const internal::WeakKey weakKey(key);
    const auto found = entries_.find(weakKey.address());
    if (found == entries_.end() || found->second.key != weakKey) return;
    const Entry removed = std::move(found->second);
    entries_.erase(found);
  }

  /// How many keys are alive.
  std::size_t count() const {
    std::size_t count = 0;
    for (const auto& [address, entry] : entries_) count += entry.key.isExpired() ? 0 : 1;
    return count;
  }

  /// How many entries take up room, freed keys included.
  std::size_t storedCount() const noexcept { return entries_.size(); }

  /// The keys that are alive now, in no particular order; what is locked of them may be given to `objectForKey`. Drops
  /// the entries of freed keys, as an insertion does by itself when the table has become twice as large as it was after
  /// the last time.
  std::vector<Key> sweptKeys() {
    std::vector<Key> keys;
    keys.reserve(entries_.size());
    sweep([&keys](const Key& key) { keys.push_back(key); });
    return keys;
  }

 private:
  struct Entry {
    internal::WeakKey key;
    std::shared_ptr<V> value;
  };
  static constexpr std::size_t kSmallest = 8;

  template <class ForLivingKey>
  void sweep(ForLivingKey forLivingKey) {
    std::vector<Entry> swept;  // dies last, when the table is whole again
    for (auto it = entries_.begin(); it != entries_.end();) {
      if (it->second.key.isExpired()) {
        swept.push_back(std::move(it->second));
        it = entries_.erase(it);
      } else {
        forLivingKey(it->second.key.weak());
        ++it;
      }
    }
    sizeAfterSweep_ = entries_.size();
  }

  std::unordered_map<const void*, Entry> entries_;  // by address
  std::size_t sizeAfterSweep_ = 0;
};

}  // namespace Brisel::Platform
