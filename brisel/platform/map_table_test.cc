#include "brisel/platform/map_table.h"

#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/platform/object.h"

namespace Brisel::Platform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Key {
  int first = 0;
  Key() = default;
};
struct Left {
  virtual ~Left() = default;
  int left = 0;
};
struct Right {
  virtual ~Right() = default;
  int right = 0;
};
struct Both final : Left, Right {};

std::shared_ptr<int> value(int number) { return std::make_shared<int>(number); }

constexpr auto kNoApproach = [](std::size_t, const internal::WeakKey&, const auto&) {};

template <class V>
std::vector<V> valuesOf(NSMapTable<V>& table) {
  std::vector<V> values;
  table.enumerate([&values](const auto&, const auto& value) { values.push_back(*value); }, kNoApproach);
  return values;
}

TEST(MapTable, FindsTheLastValueOfAKey) {
  NSMapTable<int> table;
  const auto key = std::make_shared<Key>();
  EXPECT_EQ(table.objectForKey(key), nullptr);
  table.setObject(value(1), key);
  table.setObject(value(2), key);
  EXPECT_EQ(*table.objectForKey(key), 2);
  EXPECT_EQ(table.count(), 1U);
  table.removeObjectForKey(key);
  table.removeObjectForKey(key);
  EXPECT_EQ(table.objectForKey(key), nullptr);
}

TEST(MapTable, HoldsKeysWeaklyAndValuesStrongly) {
  NSMapTable<int> table;
  auto key = std::make_shared<Key>();
  std::weak_ptr<int> stored;
  {
    const auto number = value(1);
    stored = number;
    table.setObject(number, key);
  }
  EXPECT_EQ(key.use_count(), 1);
  EXPECT_FALSE(stored.expired());
  key.reset();
  EXPECT_EQ(table.count(), 0U);
  EXPECT_THAT(valuesOf(table), IsEmpty());
  EXPECT_TRUE(stored.expired());
}

TEST(MapTable, EnumeratesLivingKeysInTheOrderInWhichTheyCame) {
  NSMapTable<int> table;
  const auto a = std::make_shared<Key>(), b = std::make_shared<Key>(), c = std::make_shared<Key>();
  auto freed = std::make_shared<Key>();
  table.setObject(value(1), a);
  table.setObject(value(2), freed);
  table.setObject(value(3), b);
  table.setObject(value(4), c);
  table.setObject(value(5), a);  // keeps its place
  table.removeObjectForKey(b);
  table.setObject(value(6), b);  // has come again
  freed.reset();
  EXPECT_THAT(valuesOf(table), ElementsAre(5, 4, 6));
  EXPECT_EQ(table.storedCount(), 3U);
  EXPECT_EQ(*table.objectForKey(b), 6);
}

TEST(MapTable, HandsOutKeysAsTheyWereGiven) {
  NSMapTable<int> table;
  const auto object = std::make_shared<Both>();
  const std::shared_ptr<Right> right = object;
  table.setObject(value(1), std::shared_ptr<Left>(object));
  table.setObject(value(2), right);
  std::vector<const void*> keys;
  table.enumerate([&keys](const auto& key, const auto&) { keys.push_back(key.get()); }, kNoApproach);
  EXPECT_THAT(keys, ElementsAre(right.get()));
}

TEST(MapTable, MayChangeWhileItIsEnumerated) {
  NSMapTable<int> table;
  std::vector<std::shared_ptr<Key>> keys;
  for (int i = 0; i < 6; ++i) table.setObject(value(i), keys.emplace_back(std::make_shared<Key>()));
  std::vector<int> seen;
  table.enumerate(
      [&](const auto&, const auto& number) {
        seen.push_back(*number);
        if (*number != 1) return;
        keys[0].reset();                      // was visited
        keys[2].reset();                      // freed
        table.removeObjectForKey(keys[3]);    // removed
        table.setObject(value(40), keys[4]);  // replaced
        table.removeObjectForKey(keys[5]);
        table.setObject(value(50), keys[5]);  // is new now
        // So many that those who are gone are dropped meanwhile, and the others move.
        for (int i = 100; i < 200; ++i) table.setObject(value(i), keys.emplace_back(std::make_shared<Key>()));
      },
      kNoApproach);
  EXPECT_THAT(seen, ElementsAre(0, 1, 40));
  EXPECT_EQ(table.count(), 103U);
  EXPECT_EQ(*table.objectForKey(keys[5]), 50);
  EXPECT_EQ(*table.objectForKey(keys.back()), 199);
}

TEST(MapTable, EnumeratesWithinAnEnumeration) {
  NSMapTable<int> table;
  std::vector<std::shared_ptr<Key>> keys;
  for (int i = 0; i < 4; ++i) table.setObject(value(i), keys.emplace_back(std::make_shared<Key>()));
  std::vector<int> outer, inner;
  table.enumerate(
      [&](const auto&, const auto& number) {
        outer.push_back(*number);
        if (*number != 1) return;
        keys[0].reset();
        keys[1].reset();
        inner = valuesOf(table);  // drops what is before the one that is visited
      },
      kNoApproach);
  EXPECT_THAT(inner, ElementsAre(1, 2, 3));
  EXPECT_THAT(outer, ElementsAre(0, 1, 2, 3));
}

TEST(MapTable, ToldOfThoseThatComeNext) {
  NSMapTable<int> table;
  std::vector<std::shared_ptr<Key>> keys;
  for (int i = 0; i < 4; ++i) table.setObject(value(i), keys.emplace_back(std::make_shared<Key>()));
  keys[2].reset();
  std::vector<std::string> told;
  table.enumerate(
      [&told](const auto&, const auto& number) { told.push_back(std::to_string(*number)); },
      [&told](std::size_t steps, const internal::WeakKey& key, const auto& number) {
        told.push_back(std::to_string(*number) + (key.isExpired() ? " gone" : "") + " in " + std::to_string(steps));
      });
  EXPECT_THAT(told, ElementsAre("1 in 1", "2 gone in 2", "0", "2 gone in 1", "3 in 2", "1", "3 in 1", "3"));
}

TEST(MapTable, KnowsAnObjectBehindEachOfItsBases) {
  NSMapTable<int> table;
  const auto object = std::make_shared<Both>();
  table.setObject(value(1), std::shared_ptr<Left>(object));
  EXPECT_EQ(*table.objectForKey(std::shared_ptr<const Right>(object)), 1);
  EXPECT_EQ(*table.objectForKey(object), 1);
  table.setObject(value(2), std::shared_ptr<Right>(object));
  EXPECT_EQ(table.count(), 1U);
}

TEST(MapTable, TellsAnObjectFromAMemberWithTheSameOwner) {
  struct Whole {
    int padding = 0;
    Key member;
  };
  NSMapTable<int> table;
  const auto whole = std::make_shared<Whole>();
  const std::shared_ptr<Key> member(whole, &whole->member);
  table.setObject(value(1), whole);
  table.setObject(value(2), member);
  EXPECT_EQ(*table.objectForKey(whole), 1);
  EXPECT_EQ(*table.objectForKey(member), 2);
}

TEST(MapTable, TellsANewObjectFromAFreedOneAtTheSameAddress) {
  NSMapTable<int> table;
  Key place;
  const auto ownedAgain = [&place] { return std::shared_ptr<Key>(&place, [](Key*) {}); };
  table.setObject(value(1), ownedAgain());
  const auto second = ownedAgain();
  EXPECT_EQ(table.objectForKey(second), nullptr);
  table.removeObjectForKey(second);
  table.setObject(value(2), second);
  EXPECT_EQ(*table.objectForKey(second), 2);
}

TEST(MapTable, SweepsWhenAnInsertionFindsItDoubled) {
  NSMapTable<int> table;
  for (int i = 0; i < 1'000; ++i) {
    const auto key = std::make_shared<Key>();
    table.setObject(value(i), key);
    EXPECT_LE(table.storedCount(), 16U);
  }
  std::vector<std::shared_ptr<Key>> kept;
  for (int i = 0; i < 1'000; ++i) table.setObject(value(i), kept.emplace_back(std::make_shared<Key>()));
  EXPECT_EQ(table.count(), 1'000U);
}

TEST(MapTable, IsWholeWhenItsValuesAreDestroyed) {
  // A value whose destructor looks around in the table that held it.
  struct Curious {
    NSMapTable<Curious>& table;
    std::vector<std::size_t>& seen;
    Curious(NSMapTable<Curious>& t, std::vector<std::size_t>& s) : table(t), seen(s) {}
    ~Curious() { seen.push_back(table.storedCount()); }
  };
  std::vector<std::size_t> seen;
  NSMapTable<Curious> table;
  const auto a = std::make_shared<Key>();
  auto b = std::make_shared<Key>();
  table.setObject(std::make_shared<Curious>(table, seen), a);
  table.setObject(std::make_shared<Curious>(table, seen), b);
  table.setObject(nullptr, a);  // displaced
  table.removeObjectForKey(a);  // null, so silent
  b.reset();
  EXPECT_THAT(valuesOf(table), IsEmpty());
  EXPECT_EQ(seen, (std::vector<std::size_t>{2, 0}));
}

TEST(MapTableDeathTest, RefusesAKeyThatNobodyOwns) {
  NSMapTable<int> table;
  EXPECT_DEATH(table.setObject(value(1), std::shared_ptr<Key>()), "held by a shared_ptr");
  Key onTheStack;
  const std::shared_ptr<Key> unowned(std::shared_ptr<void>(), &onTheStack);
  EXPECT_DEATH(table.setObject(value(1), unowned), "held by a shared_ptr");
}

}  // namespace
}  // namespace Brisel::Platform
