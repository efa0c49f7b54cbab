#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>

namespace Brisel::internal {

/// An entry of a cache. Its usage is fixed when it is made; the links belong to the table.
template <class Key, class Value>
struct LruNode {
  LruNode(std::size_t hashOfKey, const Key& k, Value&& v, std::int64_t usage)
      : hash(hashOfKey), memoryUsage(usage), key(k), value(std::move(v)) {}

  std::size_t hash;
  LruNode* prev = nullptr;
  LruNode* next = nullptr;
  std::int64_t memoryUsage;
  Key key;
  Value value;
};

/// Nodes by key, and in the order of use: an open table with linear probing, and a doubly linked list through the nodes
/// from the least to the most recently used one. It owns its nodes. Not for several threads.
///
/// Nodes are removed by identity and never by key, so that a key that does not equal itself does no harm.
template <class Node, class KeyEqual>
class LruTable {
 public:
  LruTable() = default;
  LruTable(const LruTable&) = delete;
  LruTable& operator=(const LruTable&) = delete;

  /// Destroys the nodes, the least recently used first.
  ~LruTable() {
    while (head_) delete std::exchange(head_, head_->next);
  }

  void swap(LruTable& other) noexcept {
    slots_.swap(other.slots_);
    std::swap(mask_, other.mask_);
    std::swap(shift_, other.shift_);
    std::swap(count_, other.count_);
    std::swap(head_, other.head_);
    std::swap(tail_, other.tail_);
  }

  std::size_t count() const noexcept { return count_; }

  /// The least recently used node, or null.
  Node* head() const noexcept { return head_; }

  /// The node of the key with this hash, or null.
  template <class LookupKey>
  Node* find(const LookupKey& key, std::size_t hash) const {
    if (!slots_) return nullptr;
    for (std::size_t i = home(hash); slots_[i].node; i = after(i))
      if (slots_[i].hash == hash && KeyEqual{}(slots_[i].node->key, key)) return slots_[i].node;
    return nullptr;
  }

  /// Takes a node whose key is not there, as the most recently used one.
  Node* insert(std::unique_ptr<Node> fresh) {
    if ((count_ + 1) * 8 > slotCount() * kMostTaken) grow();
    place({fresh->hash, fresh.get()});
    ++count_;
    append(fresh.get());
    return fresh.release();
  }

  /// Puts a node in the place of another one of an equal key, as the most recently used one, and hands that one out.
  std::unique_ptr<Node> replace(Node* node, std::unique_ptr<Node> fresh) noexcept {
    slots_[slotOf(node)].node = fresh.get();
    unlink(node);
    append(fresh.release());
    return std::unique_ptr<Node>(node);
  }

  /// Takes a node out.
  std::unique_ptr<Node> remove(Node* node) noexcept {
    vacate(slotOf(node));
    --count_;
    unlink(node);
    return std::unique_ptr<Node>(node);
  }

  /// Makes a node the most recently used one.
  void touch(Node* node) noexcept {
    if (node == tail_) return;
    unlink(node);
    append(node);
  }

 private:
  struct Slot {
    std::size_t hash = 0;
    Node* node = nullptr;
  };

  static constexpr std::size_t kFirstSlots = 8;
  // In eighths of the slots. Measured: so roomy a table finds most keys at once, which is worth more than its memory.
  static constexpr std::size_t kMostTaken = 3;

  // Multiplies by 2^64 over the golden ratio and takes the upper bits, since std::hash of an integer is the integer.
  std::size_t home(std::size_t hash) const noexcept {
    return static_cast<std::size_t>((std::uint64_t{hash} * 0x9E3779B97F4A7C15U) >> shift_);
  }

  std::size_t after(std::size_t slot) const noexcept { return (slot + 1) & mask_; }

  std::size_t slotOf(const Node* node) const noexcept {
    std::size_t i = home(node->hash);
    while (slots_[i].node != node) i = after(i);
    return i;
  }

  void place(Slot slot) noexcept {
    std::size_t i = home(slot.hash);
    while (slots_[i].node) i = after(i);
    slots_[i] = slot;
  }

  // Closes the gap with what would otherwise not be found behind it.
  void vacate(std::size_t gap) noexcept {
    for (std::size_t i = after(gap); slots_[i].node; i = after(i)) {
      if (((i - home(slots_[i].hash)) & mask_) < ((i - gap) & mask_)) continue;
      slots_[gap] = slots_[i];
      gap = i;
    }
    slots_[gap] = {};
  }

  std::size_t slotCount() const noexcept { return slots_ ? mask_ + 1 : 0; }

  void grow() {
    const std::size_t before = slotCount();
    const std::size_t larger = before == 0 ? kFirstSlots : before * 2;
    const auto old = std::exchange(slots_, std::make_unique<Slot[]>(larger));
    mask_ = larger - 1;
    shift_ = 64 - std::countr_zero(larger);
    for (std::size_t i = 0; i < before; ++i)
      if (old[i].node) place(old[i]);
  }

  void unlink(Node* node) noexcept {
    (node->prev ? node->prev->next : head_) = node->next;
    (node->next ? node->next->prev : tail_) = node->prev;
    node->prev = node->next = nullptr;
  }

  void append(Node* node) noexcept {
    node->prev = tail_;
    (tail_ ? tail_->next : head_) = node;
    tail_ = node;
  }

  std::unique_ptr<Slot[]> slots_;  // a power of two of them, or none
  std::size_t mask_ = 0;
  int shift_ = 64;
  std::size_t count_ = 0;
  Node* head_ = nullptr;
  Node* tail_ = nullptr;
};

}  // namespace Brisel::internal
