#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

#include "brisel/infrastructure/internal/lru_table.h"
#include "brisel/platform/fatal_error.h"

namespace Brisel::internal {

/// The state of a cache, and all that is done under its lock. Under the lock runs no code of the user's but the key's
/// equality and the copying of the value that a look-up hands out: keys are hashed and nodes made before, and what is
/// removed is destroyed after.
template <class Key, class Value, class Hash, class KeyEqual, class Mutex>
class CacheCore {
 public:
  CacheCore(std::int64_t capacity, std::int64_t memoryLimit) noexcept
      : capacity_(capacity), memoryLimit_(memoryLimit) {}

  std::int64_t capacity() const noexcept { return capacity_; }
  std::int64_t memoryLimit() const noexcept { return memoryLimit_; }

  std::int64_t count() const {
    const std::lock_guard lock(mutex_);
    return storedCount();
  }

  /// Inserts or replaces under one hold of the lock, and evicts under a second one.
  void set(Value&& value, const Key& key, std::int64_t memoryUsage) {
    auto node = std::make_unique<Node>(Hash{}(key), key, std::move(value), memoryUsage);
    store(std::move(node), memoryUsage);
    evict();
  }

  void remove(const Key& key) {
    const std::size_t hash = Hash{}(key);
    std::unique_ptr<Node> removed;
    const std::lock_guard lock(mutex_);
    Node* const found = table_.find(key, hash);
    if (!found) return;
    subtract(found->memoryUsage);
    removed = table_.remove(found);
  }

  template <class LookupKey>
  std::optional<Value> get(const LookupKey& key) {
    const std::size_t hash = Hash{}(key);
    const std::lock_guard lock(mutex_);
    Node* const found = table_.find(key, hash);
    if (!found) return std::nullopt;
    table_.touch(found);
    return std::optional<Value>(std::in_place, std::as_const(found->value));
  }

  /// Empties the cache without keeping its room. The running total is deliberately kept, so that it goes on counting
  /// the purged entries.
  void purge() {
    Table purged;
    const std::lock_guard lock(mutex_);
    table_.swap(purged);
  }

 private:
  using Node = LruNode<Key, Value>;
  using Table = LruTable<Node, KeyEqual>;

  std::int64_t storedCount() const noexcept { return static_cast<std::int64_t>(table_.count()); }

  void store(std::unique_ptr<Node> node, std::int64_t memoryUsage) {
    std::unique_ptr<Node> replaced;
    const std::lock_guard lock(mutex_);
    if (Node* const found = table_.find(node->key, node->hash)) {
      subtract(found->memoryUsage);
      // Deliberately the usage that the key was first set with, although the total takes the new one.
      node->memoryUsage = found->memoryUsage;
      replaced = table_.replace(found, std::move(node));
    } else {
      table_.insert(std::move(node));
    }
    add(memoryUsage);
  }

  void evict() {
    Evicted evicted;
    const std::lock_guard lock(mutex_);
    while (storedCount() > capacity_ || currentMemoryUsage_ > memoryLimit_) {
      Node* const oldest = table_.head();
      if (!oldest) break;  // The total may exceed the limit without any entry.
      subtract(oldest->memoryUsage);
      evicted.add(table_.remove(oldest));
    }
  }

  // Nodes on their way out, destroyed in the order of eviction.
  class Evicted {
   public:
    Evicted() = default;
    Evicted(const Evicted&) = delete;
    Evicted& operator=(const Evicted&) = delete;
    ~Evicted() {
      while (first_) delete std::exchange(first_, first_->next);
    }

    void add(std::unique_ptr<Node> node) noexcept {
      (last_ ? last_->next : first_) = node.get();
      last_ = node.release();
    }

   private:
    Node* first_ = nullptr;
    Node* last_ = nullptr;
  };

  void add(std::int64_t usage) {
    if (__builtin_add_overflow(currentMemoryUsage_, usage, &currentMemoryUsage_)) overflow();
  }
  void subtract(std::int64_t usage) {
    if (__builtin_sub_overflow(currentMemoryUsage_, usage, &currentMemoryUsage_)) overflow();
  }
  [[noreturn]] static void overflow() {
    Platform::fatalError("Cache: the total of the declared memory usage leaves the range of 64 bits");
  }

  const std::int64_t capacity_;
  const std::int64_t memoryLimit_;
  mutable Mutex mutex_;
  Table table_;
  std::int64_t currentMemoryUsage_ = 0;
};

}  // namespace Brisel::internal
