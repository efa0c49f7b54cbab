#include "brisel/platform/internal/sparse_vector.h"

namespace Brisel::Platform::internal {

std::vector<SparseVector::Entry>::iterator SparseVector::place(std::uint64_t key) {
  return std::lower_bound(entries_.begin(), entries_.end(), key,
                          [](const Entry& entry, std::uint64_t k) { return entry.key < k; });
}

double SparseVector::operator[](std::uint64_t key) const {
  const auto at = std::lower_bound(entries_.begin(), entries_.end(), key,
                                   [](const Entry& entry, std::uint64_t k) { return entry.key < k; });
  return at != entries_.end() && at->key == key ? at->amount : 0;
}

void SparseVector::insert(std::uint64_t key, double amount) {
  const bool isLast = entries_.empty() || entries_.back().key < key;  // as a new one mostly is
  entries_.insert(isLast ? entries_.end() : place(key), {key, amount});
}

void SparseVector::erase(std::uint64_t key) {
  if (const auto at = place(key); at != entries_.end() && at->key == key) entries_.erase(at);
}

void SparseVector::add(std::uint64_t key, double amount) {
  const auto at = place(key);
  if (at == entries_.end() || at->key != key) {
    entries_.insert(at, {key, amount});
  } else if (const double sum = at->amount + amount; isZeroSum(sum, at->amount, amount)) {
    entries_.erase(at);
  } else {
    at->amount = sum;
  }
}

void SparseVector::divide(double divisor) {
  for (Entry& entry : entries_) entry.amount /= divisor;
}

void SparseVector::addUp() {
  std::sort(entries_.begin(), entries_.end(), [](const Entry& a, const Entry& b) { return a.key < b.key; });
  auto kept = entries_.begin();
  for (auto it = entries_.begin(); it != entries_.end();) {
    const std::uint64_t key = it->key;
    double sum = 0;
    double largest = 0;
    for (; it != entries_.end() && it->key == key; ++it) {
      sum += it->amount;
      largest = std::max(largest, std::fabs(it->amount));
    }
    if (!isZeroSum(sum, largest, 0)) *kept++ = {key, sum};
  }
  entries_.erase(kept, entries_.end());
}

int SparseVector::compare(const SparseVector& a, double aScale, const SparseVector& b, double bScale, double noise) {
  auto itA = a.begin();
  auto itB = b.begin();
  while (itA != a.end() || itB != b.end()) {
    const bool hasA = itB == b.end() || (itA != a.end() && itA->key <= itB->key);
    const bool hasB = itA == a.end() || (itB != b.end() && itB->key <= itA->key);
    const double ofA = hasA ? itA++->amount / aScale : 0;
    const double ofB = hasB ? itB++->amount / bScale : 0;
    if (std::fabs(ofA - ofB) > noise * std::max(std::fabs(ofA), std::fabs(ofB))) return ofA < ofB ? -1 : 1;
  }
  return 0;
}

}  // namespace Brisel::Platform::internal
