#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace Brisel::Platform::internal {

/// A vector of which only the entries that are not zero are kept, in the order of their keys. A sum that cancels down
/// to rounding errors is zero.
class SparseVector {
 public:
  struct Entry {
    std::uint64_t key = 0;
    double amount = 0;
  };

  auto begin() const noexcept { return entries_.begin(); }
  auto end() const noexcept { return entries_.end(); }
  bool isEmpty() const noexcept { return entries_.empty(); }
  void clear() noexcept { entries_.clear(); }

  /// The amount under a key; 0 where there is none.
  double operator[](std::uint64_t key) const;
  /// Puts an amount under a key that has none.
  void insert(std::uint64_t key, double amount);
  /// Puts another amount under a key that has one.
  void set(std::uint64_t key, double amount) { place(key)->amount = amount; }
  void erase(std::uint64_t key);
  void add(std::uint64_t key, double amount);
  void divide(double divisor);

  /// Adds an entry in any order, any number of them under one key; `addUp` must follow before anything else.
  void append(std::uint64_t key, double amount) { entries_.push_back({key, amount}); }
  void addUp();

  /// Adds factor × other, and tells `changed(key, isThere)` which entries have appeared or gone. `scratch` is
  /// overwritten.
  template <class Changed>
  void addMultiple(double factor, const SparseVector& other, SparseVector& scratch, Changed changed);

  /// Whether the first entry is below zero.
  bool isNegative() const noexcept { return !entries_.empty() && entries_.front().amount < 0; }

  /// Less than, equal to or greater than 0 as a / aScale is to b / bScale under the first key where they differ by more
  /// than `noise`, relatively.
  static int compare(const SparseVector& a, double aScale, const SparseVector& b, double bScale, double noise);

 private:
  static constexpr double kCancelled = 1e-11;
  static bool isZeroSum(double sum, double a, double b) {
    return std::fabs(sum) <= kCancelled * std::max(std::fabs(a), std::fabs(b));
  }
  std::vector<Entry>::iterator place(std::uint64_t key);

  std::vector<Entry> entries_;
};

template <class Changed>
void SparseVector::addMultiple(double factor, const SparseVector& other, SparseVector& scratch, Changed changed) {
  if (other.isEmpty()) return;
  std::vector<Entry>& merged = scratch.entries_;
  merged.clear();
  merged.reserve(entries_.size() + other.entries_.size());
  auto at = entries_.begin();
  for (const auto& [key, share] : other.entries_) {
    for (; at != entries_.end() && at->key < key; ++at) merged.push_back(*at);
    const double added = factor * share;
    if (at == entries_.end() || at->key != key) {
      merged.push_back({key, added});
      changed(key, true);
      continue;
    }
    const double sum = at->amount + added;
    if (isZeroSum(sum, at->amount, added)) {
      changed(key, false);
    } else {
      merged.push_back({key, sum});
    }
    ++at;
  }
  merged.insert(merged.end(), at, entries_.end());
  entries_.swap(merged);
}

}  // namespace Brisel::Platform::internal
