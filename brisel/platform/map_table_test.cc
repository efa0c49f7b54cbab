#include "brisel/platform/map_table.h"

#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "brisel/platform/object.h"

namespace Brisel::Platform {
namespace {

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
  EXPECT_TRUE(table.sweptKeys().empty());
  EXPECT_TRUE(stored.expired());
}

TEST(MapTable, HandsOutTheKeysThatItsSweepLeaves) {
  NSMapTable<int> table;
  const auto kept = std::make_shared<Key>();
  auto freed = std::make_shared<Key>();
  table.setObject(value(1), kept);
  table.setObject(value(2), freed);
  freed.reset();
  const auto keys = table.sweptKeys();
  ASSERT_EQ(keys.size(), 1U);
  EXPECT_EQ(keys.front().lock(), kept);
  EXPECT_EQ(table.storedCount(), 1U);
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

TEST(MapTable, HandsOutKeysThatFindTheirValues) {
  NSMapTable<int> table;
  const auto object = std::make_shared<Both>();
  const auto key = std::make_shared<Key>();
  table.setObject(value(1), std::shared_ptr<Right>(object));
  table.setObject(value(2), key);
  int sum = 0;
  for (const auto& weak : table.sweptKeys())
    if (const auto alive = weak.lock()) sum += *table.objectForKey(alive);
  EXPECT_EQ(sum, 3);
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
  EXPECT_TRUE(table.sweptKeys().empty());
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
