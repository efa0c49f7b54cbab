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
  EXPECT_EQ(table.find(key), nullptr);
  table.set(key, value(1));
  table.set(key, value(2));
  EXPECT_EQ(*table.find(key), 2);
  EXPECT_EQ(table.count(), 1U);
  table.remove(key);
  table.remove(key);
  EXPECT_EQ(table.find(key), nullptr);
}

TEST(MapTable, HoldsKeysWeaklyAndValuesStrongly) {
  NSMapTable<int> table;
  auto key = std::make_shared<Key>();
  std::weak_ptr<int> stored;
  {
    const auto number = value(1);
    stored = number;
    table.set(key, number);
  }
  EXPECT_EQ(key.use_count(), 1);
  EXPECT_FALSE(stored.expired());
  key.reset();
  EXPECT_EQ(table.count(), 0U);
  EXPECT_TRUE(table.keys().empty());
  table.sweep();
  EXPECT_TRUE(stored.expired());
}

TEST(MapTable, KnowsAnObjectBehindEachOfItsBases) {
  NSMapTable<int> table;
  const auto object = std::make_shared<Both>();
  table.set(std::shared_ptr<Left>(object), value(1));
  EXPECT_EQ(*table.find(std::shared_ptr<const Right>(object)), 1);
  EXPECT_EQ(*table.find(object), 1);
  table.set(std::shared_ptr<Right>(object), value(2));
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
  table.set(whole, value(1));
  table.set(member, value(2));
  EXPECT_EQ(*table.find(whole), 1);
  EXPECT_EQ(*table.find(member), 2);
}

TEST(MapTable, TellsANewObjectFromAFreedOneAtTheSameAddress) {
  NSMapTable<int> table;
  Key place;
  const auto ownedAgain = [&place] { return std::shared_ptr<Key>(&place, [](Key*) {}); };
  table.set(ownedAgain(), value(1));
  const auto second = ownedAgain();
  EXPECT_EQ(table.find(second), nullptr);
  table.remove(second);
  table.set(second, value(2));
  EXPECT_EQ(*table.find(second), 2);
}

TEST(MapTable, HandsOutKeysThatFindTheirValues) {
  NSMapTable<int> table;
  const auto object = std::make_shared<Both>();
  const auto key = std::make_shared<Key>();
  table.set(std::shared_ptr<Right>(object), value(1));
  table.set(key, value(2));
  int sum = 0;
  for (const auto& weak : table.keys())
    if (const auto alive = weak.lock()) sum += *table.find(alive);
  EXPECT_EQ(sum, 3);
}

TEST(MapTable, SweepsWhenAnInsertionFindsItDoubled) {
  NSMapTable<int> table;
  for (int i = 0; i < 1'000; ++i) {
    const auto key = std::make_shared<Key>();
    table.set(key, value(i));
    EXPECT_LE(table.storedCount(), 16U);
  }
  std::vector<std::shared_ptr<Key>> kept;
  for (int i = 0; i < 1'000; ++i) table.set(kept.emplace_back(std::make_shared<Key>()), value(i));
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
  table.set(a, std::make_shared<Curious>(table, seen));
  table.set(b, std::make_shared<Curious>(table, seen));
  table.set(a, nullptr);  // displaced
  table.remove(a);        // null, so silent
  b.reset();
  table.sweep();
  EXPECT_EQ(seen, (std::vector<std::size_t>{2, 0}));
}

TEST(MapTableDeathTest, RefusesAKeyThatNobodyOwns) {
  NSMapTable<int> table;
  EXPECT_DEATH(table.set(std::shared_ptr<Key>(), value(1)), "held by a shared_ptr");
  Key onTheStack;
  const std::shared_ptr<Key> unowned(std::shared_ptr<void>(), &onTheStack);
  EXPECT_DEATH(table.set(unowned, value(1)), "held by a shared_ptr");
}

}  // namespace
}  // namespace Brisel::Platform
