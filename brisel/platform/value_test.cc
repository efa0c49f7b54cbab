#include "brisel/platform/value.h"

#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <unordered_set>

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "brisel/platform/internal/value_generator_test.h"

namespace Brisel::Platform {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();

class Plain final : public NSObject {};

class Named final : public NSObject {
 public:
  explicit Named(std::string name) : name_(std::move(name)) {}
  bool isEqual(const NSObject& other) const override {
    const auto* named = dynamic_cast<const Named*>(&other);
    return named && named->name_ == name_;
  }
  std::size_t objectHash() const override { return std::hash<std::string>{}(name_); }

 private:
  std::string name_;
};

static_assert(!std::is_convertible_v<int*, Value>);
static_assert(!std::is_constructible_v<Value, const void*>);
static_assert(!std::is_convertible_v<char, Value>);
static_assert(!std::is_convertible_v<char16_t, Value>);

TEST(Value, KnowsItsKind) {
  using Kind = Value::Kind;
  EXPECT_EQ(Value().kind(), Kind::null);
  EXPECT_EQ(Value(nullptr).kind(), Kind::null);
  EXPECT_EQ(Value(true).kind(), Kind::boolean);
  EXPECT_EQ(Value(1).kind(), Kind::integer);
  EXPECT_EQ(Value(1.0F).kind(), Kind::real);
  EXPECT_EQ(Value("true").kind(), Kind::string);
  EXPECT_EQ(Value(std::string("s")).kind(), Kind::string);
  EXPECT_EQ(Value(List{1}).kind(), Kind::list);
  EXPECT_EQ(Value(Dictionary{{"a", 1}}).kind(), Kind::dictionary);
  EXPECT_EQ(Value(std::make_shared<Plain>()).kind(), Kind::object);
  EXPECT_EQ(Value(UIColor::initWithWhite(1, 1)).kind(), Kind::color);
}

TEST(Value, IsNullForNullPointers) {
  EXPECT_TRUE(Value(static_cast<const char*>(nullptr)).isNull());
  EXPECT_TRUE(Value(std::shared_ptr<Plain>()).isNull());
  EXPECT_TRUE(Value(ColorPtr()).isNull());
}

TEST(Value, ComparesNumbersAcrossTheirKinds) {
  EXPECT_EQ(Value(1), Value(1.0));
  EXPECT_EQ(Value(1), Value(true));
  EXPECT_EQ(Value(1.0), Value(true));
  EXPECT_EQ(Value(0.0), Value(-0.0));
  EXPECT_EQ(Value(0), Value(false));
  EXPECT_NE(Value(2), Value(true));
  EXPECT_NE(Value(1), Value("1"));
  EXPECT_NE(Value(0), Value());
  EXPECT_NE(Value(1), Value(1.5));
}

TEST(Value, ComparesLargeIntegersExactly) {
  EXPECT_NE(Value(kMax), Value(9'223'372'036'854'775'808.0));  // 2^63, to which the integer would be rounded
  EXPECT_EQ(Value(kMin), Value(-9'223'372'036'854'775'808.0));
  EXPECT_NE(Value((std::int64_t{1} << 53) + 1), Value(9'007'199'254'740'992.0));
  EXPECT_EQ(Value(std::int64_t{1} << 53), Value(9'007'199'254'740'992.0));
}

TEST(Value, HoldsUnsignedNumbersBeyond64SignedBitsAsDoubles) {
  EXPECT_EQ(Value(std::numeric_limits<std::uint64_t>::max()).asDouble(), 18'446'744'073'709'551'616.0);
  EXPECT_EQ(Value(std::uint64_t{7}).asInteger(), 7);
}

TEST(Value, EqualsNothingWhenItIsNotANumber) {
  EXPECT_NE(Value(kNaN), Value(kNaN));
  const List list{kNaN};
  const List copy = list;
  EXPECT_EQ(list, copy);
  EXPECT_NE(list, List{kNaN});
}

TEST(Value, HashesEqualNumbersAlike) {
  EXPECT_EQ(Value(1).hash(), Value(1.0).hash());
  EXPECT_EQ(Value(1).hash(), Value(true).hash());
  EXPECT_EQ(Value(-0.0).hash(), Value(false).hash());
  EXPECT_EQ(Value(kMin).hash(), Value(-9'223'372'036'854'775'808.0).hash());
}

TEST(Value, ConvertsNumbers) {
  EXPECT_EQ(Value(1.0).asBool(), true);
  EXPECT_EQ(Value(2).asBool(), std::nullopt);
  EXPECT_EQ(Value(2.0).asInteger(), 2);
  EXPECT_EQ(Value(2.5).asInteger(), std::nullopt);
  EXPECT_EQ(Value(1e300).asInteger(), std::nullopt);
  EXPECT_EQ(Value(kNaN).asInteger(), std::nullopt);
  EXPECT_EQ(Value(true).asDouble(), 1.0);
  EXPECT_EQ(Value(3).asDouble(), 3.0);
  EXPECT_EQ(Value("3").asDouble(), std::nullopt);
}

TEST(Value, AnswersNullForAnotherKind) {
  const Value text("a");
  EXPECT_EQ(*text.asString(), "a");
  EXPECT_EQ(text.asList(), nullptr);
  EXPECT_EQ(text.asDictionary(), nullptr);
  EXPECT_EQ(text.as<Plain>(), nullptr);
  EXPECT_EQ(text.as<UIColor>(), nullptr);
  EXPECT_EQ(Value(std::make_shared<Plain>()).as<Named>(), nullptr);
}

TEST(Value, SharesItsObject) {
  const auto object = std::make_shared<const Named>("a");
  EXPECT_EQ(Value(object).as<Named>(), object);
  EXPECT_EQ(Value(object).as<NSObject>(), object);
  const ColorPtr color = UIColor::initWithRed(1, 0, 0, 1);
  EXPECT_EQ(Value(color).as<UIColor>(), color);
}

TEST(Value, AsksObjectsAndColoursForEquality) {
  EXPECT_EQ(Value(std::make_shared<Named>("a")), Value(std::make_shared<Named>("a")));
  EXPECT_NE(Value(std::make_shared<Named>("a")), Value(std::make_shared<Named>("b")));
  EXPECT_NE(Value(std::make_shared<Plain>()), Value(std::make_shared<Plain>()));
  EXPECT_EQ(Value(UIColor::initWithWhite(1, 1)), Value(UIColor::initWithWhite(1, 1)));
  EXPECT_NE(Value(UIColor::initWithWhite(1, 1)), Value(UIColor::initWithRed(1, 1, 1, 1)));
}

TEST(Value, ReplacesIllFormedText) { EXPECT_EQ(Value("a\xFF"), Value("a\xEF\xBF\xBD")); }

TEST(Value, EqualityIsAnEquivalenceThatTheHashRespects) {
  EXPECT_TRUE(rc::check([] {
    // Few enough values that equal ones meet.
    const int depth = *rc::gen::inRange(0, 3);
    const Value a = *genValue(depth);
    const Value b = *genValue(depth);
    const Value c = *genValue(depth);
    RC_ASSERT(a == a);
    RC_ASSERT((a == b) == (b == a));
    if (a == b && b == c) RC_ASSERT(a == c);
    if (a == b) RC_ASSERT(a.hash() == b.hash());
    RC_CLASSIFY(a == b, "equal");
  }));
}

TEST(List, KeepsItsElementsInOrder) {
  const List list{1, "two", nullptr};
  ASSERT_EQ(list.size(), 3U);
  EXPECT_EQ(list[0], Value(1));
  EXPECT_EQ(list[1], Value("two"));
  EXPECT_TRUE(list[2].isNull());
  EXPECT_NE(list, (List{"two", 1, nullptr}));
  EXPECT_TRUE(List().empty());
  EXPECT_EQ(List().begin(), List().end());
}

TEST(List, MayBeNestedAHundredThousandLevelsDeep) {
  const auto nest = [](std::int64_t core) {
    Value value(core);
    for (int i = 0; i < 100'000; ++i) value = i % 2 ? Value(List{value}) : Value(Dictionary{{"deeper", value}});
    return value;
  };
  const Value a = nest(1);
  const Value b = nest(1);
  const Value c = nest(2);
  EXPECT_TRUE(a == b);
  EXPECT_FALSE(a == c);
  EXPECT_EQ(a.hash(), b.hash());
}

TEST(Dictionary, MayBeNestedAHundredThousandLevelsDeepInItsKeys) {
  const auto nest = [](std::int64_t core) {
    Value value(core);
    for (int i = 0; i < 100'000; ++i) value = i % 2 ? Value(List{value}) : Value(Dictionary{{value, i}, {i, "plain"}});
    return value;
  };
  const Value a = nest(1);
  EXPECT_TRUE(a == nest(1));
  EXPECT_FALSE(a == nest(2));
}

TEST(Dictionary, TellsKeysApartThatAreAlikeInTheirOutermostLevels) {
  const auto nest = [](std::int64_t core) {
    Value value(core);
    for (int i = 0; i < 20; ++i) value = List{value};
    return value;
  };
  ASSERT_EQ(nest(1).hash(), nest(2).hash());
  const Dictionary both{{nest(1), "one"}, {nest(2), "two"}};
  EXPECT_EQ(both, (Dictionary{{nest(2), "two"}, {nest(1), "one"}}));
  EXPECT_NE(both, (Dictionary{{nest(1), "two"}, {nest(2), "one"}}));
  EXPECT_NE(both, (Dictionary{{nest(1), "one"}, {nest(3), "two"}}));
  EXPECT_NE(both, (Dictionary{{nest(1), "one"}, {2, "two"}}));
  EXPECT_NE((Dictionary{{nest(1), "one"}}), (Dictionary{{nest(2), "one"}}));
  EXPECT_EQ((Dictionary{{nest(1), "one"}}), (Dictionary{{nest(1), "one"}}));
}

TEST(Dictionary, MayBeNestedFiftyThousandLevelsDeepBesideKeysAlikeInTheirOutermostLevels) {
  const auto wrapped = [](Value value) {
    for (int i = 0; i < 5; ++i) value = List{value};
    return value;
  };
  const Value alike = wrapped("alike");
  ASSERT_EQ(wrapped(1).hash(), alike.hash());
  const auto nest = [&](std::int64_t core) {
    Value value(core);
    for (int i = 0; i < 50'000; ++i) value = Dictionary{{wrapped(value), 1}, {alike, 2}};
    return value;
  };
  const Value a = nest(1);
  EXPECT_TRUE(a == nest(1));
  EXPECT_FALSE(a == nest(2));
}

TEST(Dictionary, TellsKeysApartThatDifferInObjectsAlone) {
  const auto named = [](const char* name) { return Value(List{std::make_shared<Named>(name)}); };
  const Dictionary both{{named("a"), 1}, {named("b"), 2}};
  ASSERT_EQ(both.size(), 2U);
  EXPECT_EQ(both, (Dictionary{{named("b"), 2}, {named("a"), 1}}));
  EXPECT_NE(both, (Dictionary{{named("b"), 1}, {named("a"), 2}}));
  EXPECT_NE(both, (Dictionary{{named("a"), 1}, {named("c"), 2}}));
}

TEST(List, EqualsAnotherWhoseObjectBecameEqualSinceItWasMade) {
  class Changing final : public NSObject {
   public:
    explicit Changing(int initial) : state(initial) {}
    bool isEqual(const NSObject& other) const override {
      const auto* changing = dynamic_cast<const Changing*>(&other);
      return changing && changing->state == state;
    }
    std::size_t objectHash() const override { return static_cast<std::size_t>(state); }
    int state;
  };
  const auto one = std::make_shared<Changing>(1), other = std::make_shared<Changing>(2);
  const Value a(List{List{one}}), b(List{List{other}});
  EXPECT_NE(a, b);
  other->state = 1;
  EXPECT_EQ(a, b);
  EXPECT_EQ(a.hash(), b.hash());
}

TEST(Dictionary, FindsItsEntries) {
  const Dictionary dictionary{{"a", 1}, {2, "two"}, {nullptr, 3}};
  EXPECT_EQ(*dictionary.find("a"), Value(1));
  EXPECT_EQ(*dictionary.find(std::string_view("a")), Value(1));
  EXPECT_EQ(*dictionary.find(Value(2.0)), Value("two"));
  EXPECT_EQ(*dictionary.find(Value()), Value(3));
  EXPECT_EQ(dictionary.find("b"), nullptr);
  EXPECT_EQ(Dictionary().find("a"), nullptr);
  EXPECT_EQ(Dictionary().find(Value(1)), nullptr);
}

TEST(Dictionary, KeepsTheFirstPlaceAndTheLastValueOfARepeatedKey) {
  const Dictionary dictionary{{"a", 1}, {"b", 2}, {"a", 3}};
  ASSERT_EQ(dictionary.size(), 2U);
  EXPECT_EQ(dictionary.begin()->key, Value("a"));
  EXPECT_EQ(dictionary.begin()->value, Value(3));
}

TEST(Dictionary, EqualsAnotherWhateverTheOrder) {
  const Dictionary a{{"a", 1}, {"b", 2}};
  const Dictionary b{{"b", 2.0}, {"a", true}};
  EXPECT_EQ(a, b);
  EXPECT_EQ(Value(a).hash(), Value(b).hash());
  EXPECT_NE(a, (Dictionary{{"a", 1}, {"c", 2}}));
  EXPECT_NE(a, (Dictionary{{"a", 1}}));
}

TEST(Dictionary, MakesChangedCopies) {
  const Dictionary a{{"a", 1}, {"b", 2}};
  EXPECT_EQ(a.with("b", 3), (Dictionary{{"a", 1}, {"b", 3}}));
  EXPECT_EQ(a.without("a"), (Dictionary{{"b", 2}}));
  EXPECT_EQ(a.without("z"), a);
  EXPECT_EQ(a.mergedWith({{"b", 3}, {"c", 4}}), (Dictionary{{"a", 1}, {"b", 3}, {"c", 4}}));
  EXPECT_EQ(a, (Dictionary{{"a", 1}, {"b", 2}}));
}

TEST(Dictionary, FindsWhatAListOfItsEntriesHolds) {
  EXPECT_TRUE(rc::check([] {
    const auto count = *rc::gen::inRange(0, 40);  // On both sides of where hashing begins.
    std::vector<DictionaryEntry> model;
    std::vector<DictionaryEntry> given;
    for (int i = 0; i < count; ++i) {
      const DictionaryEntry entry{*genValue(1), i};
      given.push_back(entry);
      bool replaced = false;
      for (DictionaryEntry& old : model)
        if (old.key == entry.key) {
          old.value = entry.value;
          replaced = true;
        }
      if (!replaced) model.push_back(entry);
    }
    const Dictionary dictionary(given);
    RC_ASSERT(dictionary.size() == model.size());
    for (std::size_t i = 0; i < model.size(); ++i) {
      RC_ASSERT(dictionary.begin()[i].key == model[i].key);
      RC_ASSERT(dictionary.begin()[i].value == model[i].value);
      RC_ASSERT(*dictionary.find(model[i].key) == model[i].value);
      if (const std::string* text = model[i].key.asString())
        RC_ASSERT(*dictionary.find(std::string_view(*text)) == model[i].value);
    }
  }));
}

TEST(Dictionary, HoldsAKeyThatEqualsNothingButNeverFindsIt) {
  std::vector<DictionaryEntry> entries(100, {kNaN, 1});
  const Dictionary dictionary(entries);
  EXPECT_EQ(dictionary.size(), 100U);
  EXPECT_EQ(dictionary.find(Value(kNaN)), nullptr);
}

}  // namespace
}  // namespace Brisel::Platform
