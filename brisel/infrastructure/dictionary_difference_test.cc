#include "brisel/infrastructure/dictionary_difference.h"

#include <cmath>
#include <concepts>
#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace Brisel {
namespace {

using Platform::Dictionary;
using Platform::List;
using Platform::Value;

TEST(DictionaryDifference, HasTheEntriesThatDiffer) {
  const Dictionary dictionary{{"a", 1}, {"b", 2}};
  const Dictionary other{{"a", 1}, {"b", 3}, {"c", 4}};
  EXPECT_EQ(difference(dictionary, other), (Dictionary{{"b", 2}}));
}

TEST(DictionaryDifference, KeepsABranchInWhichNothingDiffers) {
  const Dictionary dictionary{{"n", Dictionary{{"x", 1}}}};
  EXPECT_EQ(difference(dictionary, dictionary), (Dictionary{{"n", Dictionary{}}}));
}

TEST(DictionaryDifference, HasAWholeBranchThatTheOtherLacks) {
  const Dictionary dictionary{{"n", Dictionary{{"x", 1}}}};
  EXPECT_EQ(difference(dictionary, Dictionary{}), dictionary);
}

TEST(DictionaryDifference, IsTheDictionaryItselfWithoutAnother) {
  const Dictionary dictionary{{"a", 1}, {"n", Dictionary{{"x", 1}}}};
  EXPECT_EQ(difference(dictionary, std::nullopt), dictionary);
}

TEST(DictionaryDifference, OfNothingIsNothing) {
  EXPECT_EQ(difference({}, Dictionary{{"a", 1}}), Dictionary{});
  EXPECT_EQ(difference({}, std::nullopt), Dictionary{});
}

TEST(DictionaryDifference, ComparesByTheEqualityOfValues) {
  const Dictionary dictionary{{"number", 1}, {"list", List{1, "a"}}, {"nan", std::nan("")}, {"null", nullptr}};
  const Dictionary other{{"number", true}, {"list", List{1.0, "a"}}, {"nan", std::nan("")}, {"null", nullptr}};
  const Dictionary found = difference(dictionary, other);
  EXPECT_EQ(found.size(), 1U);
  EXPECT_NE(found.find("nan"), nullptr);
}

TEST(DictionaryDifference, HasAMissingNull) {
  EXPECT_EQ(difference({{"null", nullptr}}, Dictionary{}), (Dictionary{{"null", nullptr}}));
}

TEST(DictionaryDifference, TakesKeysOfAnyKind) {
  const Dictionary dictionary{{1, "a"}, {List{2}, "b"}, {Dictionary{{3, 4}}, "c"}};
  const Dictionary other{{1.0, "a"}, {List{2}, "B"}, {Dictionary{{3, 4}}, "c"}};
  EXPECT_EQ(difference(dictionary, other), (Dictionary{{List{2}, "b"}}));
}

TEST(DictionaryDifference, KeepsTheOrderOfTheFirst) {
  const Dictionary found = difference({{"c", 1}, {"a", 2}, {"b", 3}}, Dictionary{{"a", 2}});
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found.begin()[0].key, Value("c"));
  EXPECT_EQ(found.begin()[1].key, Value("b"));
}

TEST(DictionaryDifference, ThrowsWhereABranchMeetsAnotherKindOfValue) {
  const Dictionary dictionary{{"n", Dictionary{{"x", 1}}}};
  EXPECT_THROW(difference(dictionary, Dictionary{{"n", 5}}), NotADictionary);
  EXPECT_THROW(difference(dictionary, Dictionary{{"n", nullptr}}), NotADictionary);
  EXPECT_THROW(difference({{"m", dictionary}}, Dictionary{{"m", Dictionary{{"n", List{}}}}}), std::logic_error);
}

std::string complaint(const Dictionary& dictionary, const Dictionary& other) {
  try {
    difference(dictionary, other);
  } catch (const NotADictionary& error) {
    return error.what();
  }
  return "none";
}

TEST(DictionaryDifference, ThrowsForTheFirstBranchInTheOrderOfTheEntries) {
  static_assert(std::derived_from<NotADictionary, std::logic_error>);
  const Dictionary branch{{"x", 1}};
  const Dictionary other{{1, 5}, {"b", 5}, {"a", 5}, {List{}, 5}};
  EXPECT_EQ(complaint({{"b", branch}, {"a", branch}}, other),
            "The dictionary under \"b\" was compared with a value that is none");
  EXPECT_EQ(complaint({{1, branch}, {"b", branch}}, other),
            "The dictionary under 1 was compared with a value that is none");
  EXPECT_EQ(complaint({{"b", Dictionary{}}, {List{}, branch}}, other),
            "The dictionary under a key was compared with a value that is none");
  // What lies below an entry comes before the next one.
  EXPECT_EQ(complaint({{"n", Dictionary{{"below", branch}}}, {"a", branch}}, other.with("n", Dictionary{{"below", 5}})),
            "The dictionary under \"below\" was compared with a value that is none");
}

TEST(DictionaryDifference, PassesAnEmptyBranchWhateverItMeets) {
  const Dictionary dictionary{{"n", Dictionary{}}};
  EXPECT_EQ(difference(dictionary, Dictionary{{"n", 5}}), dictionary);
  EXPECT_EQ(difference(dictionary, Dictionary{{"n", Dictionary{{"x", 1}}}}), dictionary);
  EXPECT_EQ(difference(dictionary, Dictionary{}), dictionary);
}

TEST(DictionaryDifference, HasAPlainValueWhereTheOtherHasABranch) {
  const Dictionary dictionary{{"n", 5}};
  EXPECT_EQ(difference(dictionary, Dictionary{{"n", Dictionary{{"x", 1}}}}), dictionary);
}

TEST(DictionaryDifference, DescendsAHundredThousandLevels) {
  const auto nest = [](int innermost) {
    Dictionary dictionary{{"value", innermost}};
    for (int level = 1; level < 100'000; ++level) dictionary = Dictionary{{"below", dictionary}};
    return dictionary;
  };
  const Dictionary first = nest(1), second = nest(2), sameAsFirst = nest(1);
  EXPECT_EQ(difference(first, second), sameAsFirst);
  EXPECT_NE(difference(first, sameAsFirst), first);  // The branches are there, the value is not.
  EXPECT_EQ(difference(first, std::nullopt), sameAsFirst);
}

TEST(DictionaryDifference, FindsKeysOfAHundredThousandLevels) {
  const auto nest = [] {
    Dictionary dictionary{{"innermost", 1}};
    for (int level = 1; level < 100'000; ++level) dictionary = Dictionary{{dictionary, 1}};
    return dictionary;
  };
  EXPECT_TRUE(difference({{nest(), 1}}, Dictionary{{nest(), 1}}).empty());
}

TEST(DictionaryDifference, ThrowsFromAHundredThousandLevelsBelow) {
  const auto nest = [](const Value& innermost) {
    Dictionary dictionary{{"value", innermost}};
    for (int level = 1; level < 100'000; ++level) dictionary = Dictionary{{"plain", 1}, {"below", dictionary}};
    return dictionary;
  };
  EXPECT_THROW(difference(nest(Dictionary{{"x", 1}}), nest(1)), NotADictionary);
}

// The same by the design's own words, descending on the thread's stack.
Dictionary differenceAsDesigned(const Dictionary& dictionary, const std::optional<Dictionary>& other) {
  if (!other) return dictionary;
  Dictionary result;
  for (const auto& [key, value] : dictionary) {
    const Value* otherValue = other->find(key);
    if (const Dictionary* nested = value.asDictionary()) {
      std::optional<Dictionary> otherNested;
      if (otherValue && !otherValue->asDictionary() && !nested->empty()) throw NotADictionary(key);
      if (otherValue) otherNested = otherValue->asDictionary() ? *otherValue->asDictionary() : Dictionary{};
      result = result.with(key, differenceAsDesigned(*nested, otherNested));
    } else if (!otherValue || value != *otherValue) {
      result = result.with(key, value);
    }
  }
  return result;
}

// Few keys and values, so that many meet.
Dictionary drawnDictionary(int levels) {
  std::vector<Dictionary::Entry> entries(static_cast<std::size_t>(*rc::gen::inRange(0, 6)));
  for (Dictionary::Entry& entry : entries) {
    entry.key = *rc::gen::inRange(0, 4);
    if (levels > 0 && *rc::gen::arbitrary<bool>())
      entry.value = drawnDictionary(levels - 1);
    else
      entry.value = *rc::gen::element<Value>(0, 1, 1.0, true, "1", nullptr);
  }
  return Dictionary(std::move(entries));
}

TEST(DictionaryDifference, IsWhatTheDesignSays) {
  EXPECT_TRUE(rc::check([] {
    const int levels = *rc::gen::inRange(0, 4);
    const Dictionary first = drawnDictionary(levels), second = drawnDictionary(levels);
    std::optional<Dictionary> expected;
    std::string error = "none";
    try {
      expected = differenceAsDesigned(first, second);
    } catch (const NotADictionary& complaint) {
      error = complaint.what();
    }
    RC_ASSERT(complaint(first, second) == error);
    if (expected) RC_ASSERT(difference(first, second) == *expected);
  }));
}

}  // namespace
}  // namespace Brisel
