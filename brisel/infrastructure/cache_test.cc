#include "brisel/infrastructure/cache.h"

#include <atomic>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "tests/cache_model.h"
#include "tests/manual_pressure.h"

namespace Brisel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Tests::CacheModel;
using Tests::ManualPressure;

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();

using StringCache = Cache<std::string, int>;

TEST(Cache, TellsItsBoundsAndStartsEmpty) {
  const StringCache cache(7, -3, nullptr);
  EXPECT_EQ(cache.capacity(), 7);
  EXPECT_EQ(cache.memoryLimit(), -3);
  EXPECT_EQ(cache.count(), 0);
  EXPECT_TRUE(cache.isEmpty());
}

TEST(Cache, IsAReferenceTypeThatNobodyDerivesFrom) {
  EXPECT_TRUE(std::is_final_v<StringCache>);
  EXPECT_FALSE(std::is_copy_constructible_v<StringCache>);
  EXPECT_FALSE(std::is_move_constructible_v<StringCache>);
}

TEST(Cache, EvictsTheLeastRecentlyUsedEntry) {
  StringCache cache(2, kMost, nullptr);
  cache.setValue(1, "A", 0);
  cache.setValue(2, "B", 0);
  EXPECT_EQ(cache.getValue("A"), 1);
  cache.setValue(3, "C", 0);
  EXPECT_EQ(cache.getValue("B"), std::nullopt);
  EXPECT_EQ(cache.getValue("A"), 1);
  EXPECT_EQ(cache.getValue("C"), 3);
}

TEST(Cache, DoesNotTakeCountingForUse) {
  StringCache cache(2, kMost, nullptr);
  cache.setValue(1, "A", 0);
  cache.setValue(2, "B", 0);
  EXPECT_EQ(cache.count(), 2);
  EXPECT_FALSE(cache.isEmpty());
  cache.setValue(3, "C", 0);
  EXPECT_EQ(cache.getValue("A"), std::nullopt);
}

TEST(Cache, EvictsTheOldestEntryAboveTheMemoryLimit) {
  StringCache cache(10, 100, nullptr);
  cache.setValue(1, "A", 60);
  cache.setValue(2, "B", 50);
  EXPECT_EQ(cache.count(), 1);
  EXPECT_EQ(cache.getValue("A"), std::nullopt);
  EXPECT_EQ(cache.getValue("B"), 2);
}

TEST(Cache, HoldsATotalThatJustReachesTheLimit) {
  StringCache cache(10, 100, nullptr);
  cache.setValue(1, "A", 60);
  cache.setValue(2, "B", 40);
  EXPECT_EQ(cache.count(), 2);
}

TEST(Cache, EvictsAtOnceWhatIsLargerThanTheLimit) {
  StringCache cache(10, 100, nullptr);
  cache.setValue(1, "A", 101);
  EXPECT_EQ(cache.getValue("A"), std::nullopt);
  EXPECT_TRUE(cache.isEmpty());
}

// A total cannot be read; it shows in the largest usage that still finds room.
TEST(Cache, KeepsOldUsageWhenAKeyIsSetAgain) {
  StringCache cache(10, 100, nullptr);
  cache.setValue(1, "A", 10);
  cache.setValue(2, "A", 30);  // total 30, the entry keeps 10
  EXPECT_EQ(cache.getValue("A"), 2);
  cache.setValue(std::nullopt, "A", 0);  // total 20
  cache.setValue(3, "B", 80);
  EXPECT_EQ(cache.getValue("B"), 3);
  cache.setValue(std::nullopt, "B", 80);
  cache.setValue(4, "B", 81);
  EXPECT_EQ(cache.getValue("B"), std::nullopt);
}

TEST(Cache, SubtractsTheFirstUsageAtEverySettingAgain) {
  StringCache cache(10, 100, nullptr);
  cache.setValue(1, "A", 10);
  cache.setValue(2, "A", 30);  // total 30
  cache.setValue(3, "A", 50);  // total 70, and not 50
  cache.setValue(4, "B", 30);
  EXPECT_EQ(cache.count(), 2);
  cache.setValue(5, "C", 1);  // 101 evicts A, which lowers the total by 10
  EXPECT_EQ(cache.getValue("A"), std::nullopt);
  EXPECT_EQ(cache.count(), 2);
}

TEST(Cache, MovesAKeyThatIsSetAgainToTheEnd) {
  StringCache cache(2, kMost, nullptr);
  cache.setValue(1, "A", 0);
  cache.setValue(2, "B", 0);
  cache.setValue(3, "A", 0);
  cache.setValue(4, "C", 0);
  EXPECT_EQ(cache.getValue("A"), 3);
  EXPECT_EQ(cache.getValue("B"), std::nullopt);
}

TEST(Cache, EvictsAKeyThatIsSetAgainOnlyLast) {
  StringCache cache(10, 100, nullptr);
  cache.setValue(1, "A", 10);
  cache.setValue(2, "B", 50);
  cache.setValue(3, "A", 60);  // 110, and 60 without B
  EXPECT_EQ(cache.getValue("B"), std::nullopt);
  EXPECT_EQ(cache.getValue("A"), 3);
  cache.setValue(4, "A", 111);  // 161, and 151 without A: nothing is left to evict
  EXPECT_TRUE(cache.isEmpty());
}

TEST(Cache, RemovesByTheAbsentValue) {
  StringCache cache(10, 100, nullptr);
  cache.setValue(1, "A", 100);
  cache.setValue(std::nullopt, "A", 3);
  EXPECT_TRUE(cache.isEmpty());
  cache.setValue(2, "B", 100);
  EXPECT_EQ(cache.getValue("B"), 2);
}

TEST(Cache, IgnoresTheRemovalOfAnUnknownKeyWhateverItsUsage) {
  StringCache cache(10, 100, nullptr);
  cache.setValue(1, "A", 100);
  cache.setValue(std::nullopt, "B", 50);
  cache.setValue(std::nullopt, "B", -50);
  cache.setValue(std::nullopt, "B", kMost);
  cache.setValue(std::nullopt, "B", kLeast);
  EXPECT_EQ(cache.getValue("A"), 1);
  cache.setValue(2, "B", 0);
  EXPECT_EQ(cache.count(), 2);
}

TEST(Cache, DoesNotEvictOnRemoval) {
  StringCache cache(10, 100, nullptr);
  cache.setValue(1, "debt", -50);
  cache.setValue(2, "A", 100);
  cache.setValue(3, "B", 50);               // 100 in all
  cache.setValue(std::nullopt, "debt", 0);  // 150
  EXPECT_EQ(cache.count(), 2);
  cache.setValue(4, "C", 0);
  EXPECT_EQ(cache.getValue("A"), std::nullopt);
  EXPECT_EQ(cache.count(), 2);
}

TEST(Cache, EvictsEverythingAtACapacityOfZeroOrLess) {
  for (const std::int64_t capacity : {std::int64_t{0}, std::int64_t{-1}, kLeast}) {
    StringCache cache(capacity, kMost, nullptr);
    cache.setValue(1, "A", 0);
    EXPECT_TRUE(cache.isEmpty()) << capacity;
    EXPECT_EQ(cache.getValue("A"), std::nullopt);
  }
}

TEST(Cache, EvictsEverythingUnderANegativeLimit) {
  StringCache cache(10, -1, nullptr);
  cache.setValue(1, "A", 0);
  EXPECT_TRUE(cache.isEmpty());
  cache.setValue(2, "B", -1);
  EXPECT_EQ(cache.getValue("B"), 2);
}

TEST(Cache, StoresANullPointerAndAnEmptyOptional) {
  Cache<int, std::shared_ptr<int>> pointers(1, 0, nullptr);
  pointers.setValue(std::shared_ptr<int>(), 1, 0);
  ASSERT_TRUE(pointers.getValue(1).has_value());
  EXPECT_EQ(*pointers.getValue(1), nullptr);

  Cache<int, std::optional<int>> optionals(1, 0, nullptr);
  optionals.setValue(std::make_optional(std::optional<int>()), 1, 0);
  ASSERT_TRUE(optionals.getValue(1).has_value());
  EXPECT_EQ(*optionals.getValue(1), std::nullopt);
}

TEST(Cache, IsEmptiedByTheSourceInTheMonitorsPlace) {
  ManualPressure pressure;
  StringCache cache(10, 100, pressure.source());
  cache.setValue(1, "A", 60);
  pressure.fire();
  EXPECT_EQ(cache.count(), 0);
  EXPECT_TRUE(cache.isEmpty());
  EXPECT_EQ(cache.getValue("A"), std::nullopt);
}

TEST(Cache, KeepsItsTotalThroughAPurge) {
  ManualPressure pressure;
  StringCache cache(10, 100, pressure.source());
  cache.setValue(1, "A", 60);
  pressure.fire();
  cache.setValue(2, "B", 50);  // 110, and 60 once it is evicted
  EXPECT_EQ(cache.getValue("B"), std::nullopt);
  cache.setValue(3, "C", 40);
  EXPECT_EQ(cache.getValue("C"), 3);
}

TEST(Cache, EvictsEveryInsertWhereAPurgeLeavesTheTotalAboveTheLimit) {
  ManualPressure pressure;
  StringCache cache(10, 100, pressure.source());
  cache.setValue(1, "debt", -100);
  cache.setValue(2, "A", 150);
  cache.setValue(3, "B", 50);               // 100
  cache.setValue(std::nullopt, "debt", 0);  // 200
  pressure.fire();
  cache.setValue(4, "C", 0);
  cache.setValue(5, "D", 0);
  EXPECT_TRUE(cache.isEmpty());
}

TEST(Cache, OutlivedByItsSourceIgnoresEvents) {
  ManualPressure pressure;
  auto value = std::make_shared<int>(1);
  {
    Cache<int, std::shared_ptr<int>> cache(10, 100, pressure.source());
    cache.setValue(value, 1, 0);
  }
  EXPECT_EQ(value.use_count(), 1);  // the action does not keep the cache alive
  pressure.fire();
}

TEST(CacheDeathTest, EndsTheProcessWhereTheTotalOverflowsOnAnAddition) {
  StringCache cache(10, kMost, nullptr);
  cache.setValue(1, "A", kMost);
  EXPECT_DEATH(cache.setValue(2, "B", 1), "Cache: .*memory usage");
}

TEST(CacheDeathTest, EndsTheProcessWhereTheTotalOverflowsOnARemoval) {
  StringCache cache(10, kMost, nullptr);
  cache.setValue(1, "A", kLeast);
  cache.setValue(2, "A", kMost);  // 0 + most, while the entry keeps the least
  EXPECT_DEATH(cache.setValue(std::nullopt, "A", 0), "Cache: .*memory usage");
}

TEST(CacheDeathTest, EndsTheProcessWhereTheTotalOverflowsOnSettingAgain) {
  StringCache cache(10, kMost, nullptr);
  cache.setValue(1, "A", 1);
  cache.setValue(2, "A", kLeast);  // the least, while the entry keeps 1
  EXPECT_DEATH(cache.setValue(3, "A", 0), "Cache: .*memory usage");
}

TEST(CacheDeathTest, EndsTheProcessWhereTheTotalOverflowsInAnEviction) {
  StringCache cache(1, kMost, nullptr);
  cache.setValue(1, "A", kLeast);
  cache.setValue(2, "A", kMost);
  EXPECT_DEATH(cache.setValue(3, "B", 0), "Cache: .*memory usage");
}

TEST(Cache, ErasesKeysThatDoNotEqualThemselves) {
  Cache<double, int> cache(2, kMost, nullptr);
  for (int i = 0; i < 1'000; ++i) cache.setValue(i, std::nan(""), 0);
  EXPECT_EQ(cache.count(), 2);
  EXPECT_EQ(cache.getValue(std::nan("")), std::nullopt);
  cache.setValue(7, 1.5, 0);
  cache.setValue(8, 2.5, 0);
  EXPECT_EQ(cache.getValue(1.5), 7);
  EXPECT_EQ(cache.getValue(2.5), 8);
}

// A key of text, hashed and compared like any view of it, that counts how often it is made.
struct Name {
  explicit Name(std::string_view t) : text(t) { ++made; }
  std::string text;
  static inline int made = 0;
  friend bool operator==(const Name& a, const Name& b) { return a.text == b.text; }
  friend bool operator==(const Name& a, std::string_view b) { return a.text == b; }
};

struct NameHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
  std::size_t operator()(const Name& name) const { return (*this)(name.text); }
};

TEST(Cache, LooksUpByWhatHashesAndComparesLikeTheKey) {
  Cache<Name, int, NameHash> cache(2, kMost, nullptr);
  cache.setValue(1, Name("A"), 0);
  cache.setValue(2, Name("B"), 0);
  const int made = Name::made;
  EXPECT_EQ(cache.getValue(std::string_view("A")), 1);
  EXPECT_EQ(cache.getValue(std::string_view("Z")), std::nullopt);
  EXPECT_EQ(Name::made, made);
  cache.setValue(3, Name("C"), 0);  // evicts B, as A has been used
  EXPECT_EQ(cache.getValue(std::string_view("B")), std::nullopt);
}

// Keys of one hash, so that all of them stand in one row of the table.
struct Colliding {
  std::size_t operator()(int) const { return 42; }
};

TEST(Cache, HoldsWhereAllKeysHashAlike) {
  Cache<int, int, Colliding> cache(50, kMost, nullptr);
  for (int i = 0; i < 100; ++i) cache.setValue(i, i, 0);
  for (int i = 50; i < 100; i += 2) cache.setValue(std::nullopt, i, 0);
  for (int i = 0; i < 100; ++i) EXPECT_EQ(cache.getValue(i), i >= 50 && i % 2 == 1 ? std::optional(i) : std::nullopt);
}

// ---- What runs without the lock -------------------------------------------------------------------------------------

class Bell;
using BellCache = Cache<int, std::shared_ptr<Bell>>;

// Calls the cache when it is destroyed; under the lock that would never return.
class Bell {
 public:
  Bell(BellCache& cache, int name, std::vector<int>& rung) : cache_(cache), name_(name), rung_(rung) {}
  Bell(const Bell&) = delete;
  Bell& operator=(const Bell&) = delete;
  ~Bell() {
    rung_.push_back(name_);
    cache_.getValue(0);
    cache_.count();
  }

 private:
  BellCache& cache_;
  int name_;
  std::vector<int>& rung_;
};

TEST(Cache, DestroysWhatItDropsWithoutItsLockAndTheOldestFirst) {
  ManualPressure pressure;
  std::vector<int> rung;
  BellCache cache(10, 10, pressure.source());
  const auto set = [&](int name, int key, std::int64_t usage) {
    cache.setValue(std::make_shared<Bell>(cache, name, rung), key, usage);
  };
  set(1, 1, 1);
  set(2, 1, 1);  // replaces
  EXPECT_THAT(rung, ElementsAre(1));
  cache.setValue(std::nullopt, 1, 0);
  EXPECT_THAT(rung, ElementsAre(1, 2));
  rung.clear();
  for (int i = 1; i <= 5; ++i) set(i, i, 2);
  EXPECT_THAT(rung, IsEmpty());
  set(6, 6, 6);  // evicts three
  EXPECT_THAT(rung, ElementsAre(1, 2, 3));
  rung.clear();
  pressure.fire();
  EXPECT_THAT(rung, ElementsAre(4, 5, 6));
}

// A key whose hash calls the cache.
struct Nosy {
  int value;
  Cache<int, int>* cache;
  friend bool operator==(const Nosy& a, const Nosy& b) { return a.value == b.value; }
};

struct NosyHash {
  std::size_t operator()(const Nosy& key) const;
};

Cache<Nosy, int, NosyHash>* nosyCache = nullptr;

std::size_t NosyHash::operator()(const Nosy& key) const {
  return static_cast<std::size_t>(key.value + nosyCache->count() * 0);
}

TEST(Cache, HashesWithoutItsLock) {
  Cache<Nosy, int, NosyHash> cache(2, kMost, nullptr);
  nosyCache = &cache;
  for (int i = 0; i < 20; ++i) cache.setValue(i, Nosy{i, nullptr}, 0);  // through several sizes of the table
  EXPECT_EQ(cache.getValue(Nosy{19, nullptr}), 19);
  cache.setValue(std::nullopt, Nosy{19, nullptr}, 0);
  EXPECT_EQ(cache.count(), 1);
}

// Counts its holds, and refuses to be locked twice by one thread.
struct CountingMutex {
  void lock() {
    ASSERT_FALSE(isHeld);
    isHeld = true;
    ++holds;
  }
  void unlock() { isHeld = false; }
  static inline bool isHeld = false;
  static inline int holds = 0;
};

// Asserts that it is destroyed, moved and made without the lock.
struct Watchful {
  explicit Watchful(int v) : value(v) { EXPECT_FALSE(CountingMutex::isHeld); }
  Watchful(const Watchful& other) : value(other.value) {}  // a look-up copies under the lock
  Watchful(Watchful&& other) noexcept : value(other.value) { EXPECT_FALSE(CountingMutex::isHeld); }
  Watchful& operator=(const Watchful&) = delete;
  ~Watchful() { EXPECT_FALSE(CountingMutex::isHeld); }
  int value;
};

struct WatchfulKey {
  explicit WatchfulKey(int v) : value(v) {}
  WatchfulKey(const WatchfulKey& other) : value(other.value) { EXPECT_FALSE(CountingMutex::isHeld); }
  WatchfulKey& operator=(const WatchfulKey&) = delete;
  ~WatchfulKey() { EXPECT_FALSE(CountingMutex::isHeld); }
  int value;
  friend bool operator==(const WatchfulKey& a, const WatchfulKey& b) { return a.value == b.value; }
};

struct WatchfulHash {
  std::size_t operator()(const WatchfulKey& key) const {
    EXPECT_FALSE(CountingMutex::isHeld);
    return static_cast<std::size_t>(key.value);
  }
};

TEST(Cache, TakesItsLockTwiceToSetAndOnceForTheRest) {
  internal::CacheCore<WatchfulKey, Watchful, WatchfulHash, std::equal_to<>, CountingMutex> core(2, kMost);
  const auto holdsOf = [](auto&& operation) {
    const int before = CountingMutex::holds;
    operation();
    return CountingMutex::holds - before;
  };
  EXPECT_EQ(holdsOf([&] { core.set(Watchful(1), WatchfulKey(1), 0); }), 2);
  EXPECT_EQ(holdsOf([&] { core.set(Watchful(2), WatchfulKey(1), 0); }), 2);  // replaces
  core.set(Watchful(3), WatchfulKey(2), 0);
  EXPECT_EQ(holdsOf([&] { core.set(Watchful(4), WatchfulKey(3), 0); }), 2);  // evicts
  EXPECT_EQ(holdsOf([&] { EXPECT_EQ(core.get(WatchfulKey(3))->value, 4); }), 1);
  EXPECT_EQ(holdsOf([&] { EXPECT_FALSE(core.get(WatchfulKey(1))); }), 1);
  EXPECT_EQ(holdsOf([&] { core.remove(WatchfulKey(3)); }), 1);
  EXPECT_EQ(holdsOf([&] { core.remove(WatchfulKey(3)); }), 1);
  EXPECT_EQ(holdsOf([&] { EXPECT_EQ(core.count(), 1); }), 1);
  EXPECT_EQ(holdsOf([&] { core.purge(); }), 1);
}

// ---- Against the plain model ----------------------------------------------------------------------------------------

TEST(Cache, DoesWhatThePlainModelDoes) {
  EXPECT_TRUE(rc::check([] {
    const auto capacity = *rc::gen::inRange<std::int64_t>(-1, 20);
    const auto limit = *rc::gen::inRange<std::int64_t>(-20, 200);
    const auto steps = *rc::gen::container<std::vector<std::tuple<int, int, std::int64_t>>>(
        rc::gen::tuple(rc::gen::inRange(0, 20), rc::gen::inRange(0, 40), rc::gen::inRange<std::int64_t>(-20, 60)));
    ManualPressure pressure;
    Cache<int, int> cache(capacity, limit, pressure.source());
    CacheModel<int, int> model(capacity, limit);
    int value = 0;
    for (const auto& [operation, key, usage] : steps) {
      if (operation < 10) {
        ++value;
        cache.setValue(value, key, usage);
        model.setValue(value, key, usage);
      } else if (operation < 13) {
        cache.setValue(std::nullopt, key, usage);
        model.setValue(std::nullopt, key, usage);
      } else if (operation < 19) {
        RC_ASSERT(cache.getValue(key) == model.getValue(key));
      } else {
        pressure.fire();
        model.purge();
      }
      RC_ASSERT(cache.count() == model.count());
      RC_ASSERT(cache.isEmpty() == (model.count() == 0));
    }
    for (int key = 0; key < 40; ++key) RC_ASSERT(cache.getValue(key) == model.getValue(key));
  }));
}

// ---- Several threads ------------------------------------------------------------------------------------------------

TEST(Cache, IsSafeToUseFromSeveralThreadsWithPurgesInBetween) {
  ManualPressure pressure;
  Cache<int, std::shared_ptr<const int>> cache(50, 1'000, pressure.source());
  std::atomic<int> wrong{0};
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([&, t] {
      for (int i = 0; i < 5'000; ++i) {
        const int key = (i * 7 + t * 13) % 100;
        if (i % 3 == 0) cache.setValue(std::make_shared<const int>(key), key, 10);
        if (i % 11 == 0) cache.setValue(std::nullopt, key, 0);
        const auto value = cache.getValue(key);
        if (value && **value != key) ++wrong;
        if (cache.count() > 50 + 4) ++wrong;  // each thread may be between its two holds
      }
    });
  }
  for (int i = 0; i < 200; ++i) pressure.fire();
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(wrong, 0);
  EXPECT_LE(cache.count(), 50);
}

TEST(Cache, MayBeDestroyedWhileAnEventIsUnderWay) {
  for (int round = 0; round < 200; ++round) {
    ManualPressure pressure;
    auto cache = std::make_unique<Cache<int, std::shared_ptr<int>>>(10, 100, pressure.source());
    for (int i = 0; i < 10; ++i) cache->setValue(std::make_shared<int>(i), i, 1);
    std::thread event([&] { pressure.fire(); });
    cache.reset();
    event.join();
  }
}

}  // namespace
}  // namespace Brisel
