// The cache against what one would take instead. Each is bounded by a count of 1,000 entries and by their cost, guarded
// by a mutex, and hands a shared pointer out by copy; the key is 104 bytes: a number and twelve doubles.
#include <QCache>
#include <QHashFunctions>
#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <list>
#include <memory>
#include <mutex>
#include <random>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>
#include <boost/container_hash/hash.hpp>
#include <boost/multi_index/hashed_index.hpp>
#include <boost/multi_index/member.hpp>
#include <boost/multi_index/sequenced_index.hpp>
#include <boost/multi_index_container.hpp>

#include "brisel/infrastructure/cache.h"
#include "brisel/platform/internal/hash.h"

#include "benchmarks/job.h"

namespace {

constexpr int kCapacity = 1'000;
constexpr std::size_t kStream = 4'096;

struct Key {
  int number;
  std::array<double, 12> parts;
  friend bool operator==(const Key&, const Key&) = default;
  template <class Hasher>
  friend void hashInto(Hasher& hasher, const Key& key) {
    hasher(key.number);
    for (const double part : key.parts) hasher(part);
  }
  friend std::size_t hash_value(const Key& key) {
    std::size_t seed = 0;
    boost::hash_combine(seed, key.number);
    boost::hash_range(seed, key.parts.begin(), key.parts.end());
    return seed;
  }
  friend std::size_t qHash(const Key& key, std::size_t seed) {
    const auto& p = key.parts;
    return qHashMulti(seed, key.number, p[0], p[1], p[2], p[3], p[4], p[5], p[6], p[7], p[8], p[9], p[10], p[11]);
  }
};
static_assert(sizeof(Key) == 104);

using Hash = Brisel::Platform::internal::FieldHash<Key>;
using Value = std::shared_ptr<const int>;

class Ours {
 public:
  static constexpr const char* kName = "ours";
  bool get(const Key& key) { return cache_.getValue(key).has_value(); }
  void set(const Key& key, const Value& value) { cache_.setValue(value, key, 1); }

 private:
  Brisel::Cache<Key, Value, Hash> cache_{kCapacity, std::numeric_limits<std::int64_t>::max(), nullptr};
};

class QtCache {
 public:
  static constexpr const char* kName = "QCache";
  bool get(const Key& key) {
    const std::lock_guard lock(mutex_);
    const Value* const found = cache_.object(key);
    Value copy = found ? *found : nullptr;
    return copy != nullptr;
  }
  void set(const Key& key, const Value& value) {
    auto* const kept = new Value(value);
    const std::lock_guard lock(mutex_);
    cache_.insert(key, kept, 1);
  }

 private:
  std::mutex mutex_;
  QCache<Key, Value> cache_{kCapacity};
};

class ListAndMap {
 public:
  static constexpr const char* kName = "list+unordered_map";
  bool get(const Key& key) {
    const std::lock_guard lock(mutex_);
    const auto found = map_.find(key);
    if (found == map_.end()) return false;
    list_.splice(list_.end(), list_, found->second);
    Value copy = found->second->value;
    return copy != nullptr;
  }
  void set(const Key& key, const Value& value) {
    const std::lock_guard lock(mutex_);
    if (const auto found = map_.find(key); found != map_.end()) {
      found->second->value = value;
      list_.splice(list_.end(), list_, found->second);
    } else {
      list_.push_back({key, value, 1});
      map_.emplace(key, std::prev(list_.end()));
      ++cost_;
    }
    while (map_.size() > kCapacity || cost_ > kMost) {
      cost_ -= list_.front().cost;
      map_.erase(list_.front().key);
      list_.pop_front();
    }
  }

 private:
  static constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
  struct Entry {
    Key key;
    Value value;
    std::int64_t cost;
  };
  std::mutex mutex_;
  std::list<Entry> list_;
  std::unordered_map<Key, std::list<Entry>::iterator, Hash> map_;
  std::int64_t cost_ = 0;
};

class MultiIndex {
 public:
  static constexpr const char* kName = "multi_index";
  bool get(const Key& key) {
    const std::lock_guard lock(mutex_);
    auto& byKey = entries_.get<1>();
    const auto found = byKey.find(key);
    if (found == byKey.end()) return false;
    entries_.relocate(entries_.end(), entries_.project<0>(found));
    Value copy = found->value;
    return copy != nullptr;
  }
  void set(const Key& key, const Value& value) {
    const std::lock_guard lock(mutex_);
    const auto [place, isNew] = entries_.push_back({key, value, 1});
    if (isNew) {
      ++cost_;
    } else {
      place->value = value;
      entries_.relocate(entries_.end(), place);
    }
    while (entries_.size() > kCapacity || cost_ > kMost) {
      cost_ -= entries_.front().cost;
      entries_.pop_front();
    }
  }

 private:
  static constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
  struct Entry {
    Key key;
    mutable Value value;
    std::int64_t cost;
  };
  std::mutex mutex_;
  boost::multi_index_container<
      Entry, boost::multi_index::indexed_by<
                 boost::multi_index::sequenced<>,
                 boost::multi_index::hashed_unique<boost::multi_index::member<Entry, Key, &Entry::key>>>>
      entries_;
  std::int64_t cost_ = 0;
};

Key keyOf(int number) {
  Key key{number, {}};
  for (std::size_t i = 0; i < key.parts.size(); ++i) key.parts[i] = number * 0.25 + static_cast<double>(i);
  return key;
}

// 4,096 keys at random among the first `stored`.
std::vector<Key> storedKeys(int seed, int stored) {
  std::minstd_rand random(static_cast<unsigned>(seed) + 1);
  std::vector<Key> keys;
  for (std::size_t i = 0; i < kStream; ++i)
    keys.push_back(keyOf(static_cast<int>(random() % static_cast<unsigned>(stored))));
  return keys;
}

// 4,096 keys of each thread's own; taken in turn, each has long been evicted when it comes again.
std::vector<Key> newKeys(int thread) {
  std::vector<Key> keys;
  for (std::size_t i = 0; i < kStream; ++i) keys.push_back(keyOf(20'000 + thread * 10'000 + static_cast<int>(i)));
  return keys;
}

template <class Cache>
Cache& filled() {
  static Cache& cache = *new Cache;
  return cache;
}

template <class Cache>
void fill() {
  const auto value = std::make_shared<const int>(1);
  for (int i = 0; i < kCapacity; ++i) filled<Cache>().set(keyOf(i), value);
}

template <class Cache>
void hit(benchmark::State& state) {
  const auto keys = storedKeys(state.thread_index(), kCapacity);
  std::size_t i = 0;
  for (auto _ : state) benchmark::DoNotOptimize(filled<Cache>().get(keys[i++ % kStream]));
}

template <class Cache>
void insert(benchmark::State& state) {
  const auto keys = newKeys(state.thread_index());
  const auto value = std::make_shared<const int>(1);
  std::size_t i = 0;
  for (auto _ : state) filled<Cache>().set(keys[i++ % kStream], value);
}

// Four look-ups among the keys that are used most, then a key that is new.
template <class Cache>
void mixed(benchmark::State& state) {
  const auto stored = storedKeys(state.thread_index(), kCapacity / 2);
  const auto fresh = newKeys(state.thread_index());
  const auto value = std::make_shared<const int>(1);
  std::size_t i = 0;
  for (auto _ : state) {
    const std::size_t turn = i++;
    if (turn % 5 == 4) {
      filled<Cache>().set(fresh[turn / 5 % kStream], value);
    } else {
      benchmark::DoNotOptimize(filled<Cache>().get(stored[turn % kStream]));
    }
  }
}

template <class Cache>
bool addRows() {
  using Row = void (*)(benchmark::State&);
  const std::pair<const char*, Row> rows[] = {
      {"cache_hit", hit<Cache>}, {"cache_insert", insert<Cache>}, {"cache_80_20", mixed<Cache>}};
  for (const auto& [name, row] : rows) {
    for (const int threads : {1, 2}) {
      const std::string full = name + std::string(threads == 1 ? "/" : "_2t/") + Cache::kName;
      Brisel::Benchmarks::addJob(full.c_str(), row)
          ->Setup([](const benchmark::State&) { fill<Cache>(); })
          ->Threads(threads)
          ->UseRealTime();
    }
  }
  return true;
}

[[maybe_unused]] const bool added =
    addRows<Ours>() && addRows<QtCache>() && addRows<ListAndMap>() && addRows<MultiIndex>();

}  // namespace
