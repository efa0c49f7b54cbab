// The cache as it is described, in the plainest way: what the real one is compared with.
#pragma once

#include <algorithm>
#include <cstdint>
#include <list>
#include <optional>

namespace Brisel::Tests {

template <class Key, class Value>
class CacheModel {
 public:
  CacheModel(std::int64_t capacity, std::int64_t memoryLimit) : capacity_(capacity), memoryLimit_(memoryLimit) {}

  void setValue(std::optional<Value> value, const Key& key, std::int64_t memoryUsage) {
    const auto found = find(key);
    if (!value) {
      if (found == entries_.end()) return;
      total_ -= found->memoryUsage;
      entries_.erase(found);
      return;
    }
    if (found != entries_.end()) {
      total_ -= found->memoryUsage;  // and the entry keeps its first usage
      found->value = *value;
      entries_.splice(entries_.end(), entries_, found);
    } else {
      entries_.push_back({key, *value, memoryUsage});
    }
    total_ += memoryUsage;
    while ((count() > capacity_ || total_ > memoryLimit_) && !entries_.empty()) {
      total_ -= entries_.front().memoryUsage;
      entries_.pop_front();
    }
  }

  std::optional<Value> getValue(const Key& key) {
    const auto found = find(key);
    if (found == entries_.end()) return std::nullopt;
    entries_.splice(entries_.end(), entries_, found);
    return found->value;
  }

  void purge() { entries_.clear(); }  // and the total stays
  std::int64_t count() const { return static_cast<std::int64_t>(entries_.size()); }

 private:
  struct Entry {
    Key key;
    Value value;
    std::int64_t memoryUsage;
  };

  auto find(const Key& key) {
    return std::find_if(entries_.begin(), entries_.end(), [&key](const Entry& entry) { return entry.key == key; });
  }

  std::int64_t capacity_;
  std::int64_t memoryLimit_;
  std::int64_t total_ = 0;
  std::list<Entry> entries_;  // the least recently used first
};

}  // namespace Brisel::Tests
