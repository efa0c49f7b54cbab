#include "brisel/platform/attributed_string.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "brisel/platform/internal/compared_object_test.h"
#include "brisel/platform/internal/utf.h"

namespace Brisel::Platform {
namespace {

constexpr std::string_view kNote = "\U0001F3B5";  // two code units

std::vector<NSRange> ranges(const NSAttributedString& string) {
  std::vector<NSRange> found;
  string.enumerateAttributesInRange({0, string.length()},
                                    [&](NSRange range, const Dictionary&) { found.push_back(range); });
  return found;
}

TEST(AttributedString, CountsUtf16CodeUnits) {
  const auto string = NSAttributedString::initWithString("aé\U0001F3B5");
  EXPECT_EQ(string->length(), 4U);
  EXPECT_EQ(string->string(), "aé\U0001F3B5");
  EXPECT_EQ(string->utf16(), u"aé\U0001F3B5");
}

TEST(AttributedString, RepairsIllFormedText) {
  EXPECT_EQ(NSAttributedString::initWithString("a\xFFz")->string(), "a\xEF\xBF\xBDz");
}

TEST(AttributedString, HasNoRunsWhereItHasNoText) {
  const auto string = NSAttributedString::initWithString("", {{"a", 1}});
  EXPECT_EQ(string->length(), 0U);
  EXPECT_TRUE(string->attributeRuns().empty());
}

TEST(AttributedString, AnswersTheAttributesOfACharacter) {
  const auto string = NSMutableAttributedString::initWithString("abcd", {{"a", 1}});
  string->addAttribute("b", 2, {1, 2});
  NSRange range;
  EXPECT_EQ(string->attributesAtIndex(1, &range), (Dictionary{{"a", 1}, {"b", 2}}));
  EXPECT_EQ(range, (NSRange{1, 2}));
  EXPECT_EQ(*string->attribute("a", 3), Value(1));
  EXPECT_EQ(string->attribute("b", 3), nullptr);
}

TEST(AttributedString, JoinsNeighboursWithEqualAttributes) {
  const auto string = NSMutableAttributedString::initWithString("abcdef", {{"a", 1}});
  string->addAttribute("b", 2, {2, 2});
  EXPECT_EQ(ranges(*string), (std::vector<NSRange>{{0, 2}, {2, 2}, {4, 2}}));
  string->removeAttribute("b", {0, 6});
  EXPECT_EQ(ranges(*string), (std::vector<NSRange>{{0, 6}}));
  string->addAttribute("a", 1.0, {0, 3});  // the same number
  EXPECT_EQ(ranges(*string).size(), 1U);
}

TEST(AttributedString, NeverCutsASurrogatePair) {
  const auto string = NSMutableAttributedString::initWithString("a" + std::string(kNote) + "z");
  string->addAttribute("a", 1, {2, 1});  // the second half
  EXPECT_EQ(ranges(*string), (std::vector<NSRange>{{0, 1}, {1, 2}, {3, 1}}));
  EXPECT_EQ(string->attributedSubstringFromRange({0, 2})->string(), "a" + std::string(kNote));
  string->replaceCharactersInRange({2, 0}, "b");  // before the pair, not within it
  EXPECT_EQ(string->string(), "ab" + std::string(kNote) + "z");
  string->replaceCharactersInRange({3, 1}, "");
  EXPECT_EQ(string->string(), "abz");
}

TEST(AttributedString, GivesInsertedTextTheAttributesBeforeIt) {
  const auto string = NSMutableAttributedString::initWithString("ab");
  string->addAttribute("a", 1, {0, 1});
  string->addAttribute("b", 1, {1, 1});
  string->replaceCharactersInRange({1, 0}, "x");
  EXPECT_NE(string->attribute("a", 1), nullptr);
  string->replaceCharactersInRange({0, 0}, "y");
  EXPECT_NE(string->attribute("a", 0), nullptr);
  string->replaceCharactersInRange({3, 1}, "z");  // what is replaced counts first
  EXPECT_NE(string->attribute("b", 3), nullptr);
}

TEST(AttributedString, AppendsItself) {
  const auto string = NSMutableAttributedString::initWithString("ab", {{"a", 1}});
  string->appendAttributedString(*string);
  EXPECT_TRUE(string->isEqual(*NSAttributedString::initWithString("abab", {{"a", 1}})));
}

TEST(AttributedString, IsEqualByTextAndAttributes) {
  const auto a = NSAttributedString::initWithString("a", {{"a", 1}});
  EXPECT_TRUE(a->isEqual(*a->mutableCopy()));
  EXPECT_EQ(a->objectHash(), a->mutableCopy()->objectHash());
  EXPECT_FALSE(a->isEqual(*NSAttributedString::initWithString("b", {{"a", 1}})));
  EXPECT_FALSE(a->isEqual(*NSAttributedString::initWithString("a", {{"a", 2}})));
}

TEST(AttributedString, CopiesAreIndependent) {
  const auto string = NSMutableAttributedString::initWithString("a");
  const auto copy = string->copy();
  string->replaceCharactersInRange({0, 1}, "b");
  EXPECT_EQ(copy->string(), "a");
}

TEST(AttributedString, ThatNobodyCanChangeIsItsOwnCopy) {
  const auto string = NSAttributedString::initWithString("a", {{"a", 1}});
  EXPECT_EQ(string->copy(), string);
  const std::shared_ptr<const NSAttributedString> changeable = string->mutableCopy();
  EXPECT_NE(changeable->copy(), changeable);
}

TEST(AttributedString, WithOtherAttributesSharesItsCharacters) {
  const auto string = NSMutableAttributedString::initWithString("a\U0001F300", {{"a", 1}});
  string->addAttribute("b", 2, {0, 1});
  const auto other = string->withAttributes({{"c", 3}});
  EXPECT_TRUE(other->isEqual(*NSAttributedString::initWithString("a\U0001F300", {{"c", 3}})));
  EXPECT_EQ(other->sharedUtf16(), string->sharedUtf16());
  string->replaceCharactersInRange({0, 1}, "b");
  EXPECT_EQ(other->string(), "a\U0001F300");
}

TEST(AttributedString, MayBeChangedWhileItIsEnumerated) {
  const auto string = NSMutableAttributedString::initWithString("ab");
  string->addAttribute("a", 1, {0, 1});
  int runs = 0;
  string->enumerateAttributesInRange({0, 2}, [&](NSRange, const Dictionary&) {
    ++runs;
    string->setAttributes({}, {0, 2});
  });
  EXPECT_EQ(runs, 2);
}

TEST(AttributedString, EnumeratesThePartsOfItsRunsThatLieInARange) {
  const auto string = NSMutableAttributedString::initWithString("abcde");
  string->addAttribute("a", 1, {0, 2});
  string->addAttribute("b", 1, {4, 1});
  std::vector<NSRange> found;
  std::vector<Dictionary> attributes;
  string->enumerateAttributesInRange({1, 3}, [&](NSRange range, const Dictionary& run) {
    found.push_back(range);
    attributes.push_back(run);
  });
  EXPECT_EQ(found, (std::vector<NSRange>{{1, 1}, {2, 2}}));
  EXPECT_EQ(attributes, (std::vector<Dictionary>{{{"a", 1}}, {}}));
  string->enumerateAttributesInRange({2, 0}, [](NSRange, const Dictionary&) { FAIL(); });
}

TEST(AttributedString, ChangesTheAttributesOfEachPartOfARange) {
  const auto string = NSMutableAttributedString::initWithString("abcde");
  string->addAttribute("a", 1, {0, 2});
  string->addAttribute("b", 1, {4, 1});
  std::vector<NSRange> found;
  string->changeAttributesInRange({1, 3}, [&](NSRange part, const Dictionary& attributes) {
    found.push_back(part);
    return attributes.with("c", static_cast<std::int64_t>(part.location));
  });
  EXPECT_EQ(found, (std::vector<NSRange>{{1, 1}, {2, 2}}));
  EXPECT_EQ(ranges(*string), (std::vector<NSRange>{{0, 1}, {1, 1}, {2, 2}, {4, 1}}));
  EXPECT_EQ(string->attributesAtIndex(0), (Dictionary{{"a", 1}}));
  EXPECT_EQ(string->attributesAtIndex(1), (Dictionary{{"a", 1}, {"c", 1}}));
  EXPECT_EQ(string->attributesAtIndex(3), (Dictionary{{"c", 2}}));
  EXPECT_EQ(string->attributesAtIndex(4), (Dictionary{{"b", 1}}));
  string->changeAttributesInRange({0, 5}, [](NSRange, const Dictionary&) { return Dictionary(); });
  EXPECT_EQ(ranges(*string), (std::vector<NSRange>{{0, 5}}));
}

TEST(AttributedString, ChangesAllOfItsRunsInOneWalk) {
  const auto string = textOfRuns(std::string(200, 'a'), {});
  string->changeAttributesInRange({0, 200},
                                  [](NSRange, const Dictionary& attributes) { return attributes.with("b", 1); });
  EXPECT_EQ(string->attributeRuns().size(), 200U);
  EXPECT_LE(ComparedObject::comparisons, 400U);
}

TEST(AttributedStringDeathTest, RefusesPositionsBeyondTheText) {
  const auto string = NSMutableAttributedString::initWithString("ab");
  EXPECT_DEATH(string->attributesAtIndex(2), "beyond");
  EXPECT_DEATH((string->addAttribute("a", 1, {1, 2})), "beyond");
  EXPECT_DEATH((string->replaceCharactersInRange({3, 0}, "")), "beyond");
  EXPECT_DEATH((string->setAttributes({}, {1, SIZE_MAX})), "beyond");
  EXPECT_DEATH((string->enumerateAttributesInRange({0, 3}, [](NSRange, const Dictionary&) {})), "beyond");
}

TEST(AttributeKeys, AreTheirOwnNames) {
  EXPECT_EQ(NSFontAttributeName, "NSFontAttributeName");
  EXPECT_EQ(NSForegroundColorAttributeName, "NSForegroundColorAttributeName");
  EXPECT_EQ(NSBackgroundColorAttributeName, "NSBackgroundColorAttributeName");
  EXPECT_EQ(NSParagraphStyleAttributeName, "NSParagraphStyleAttributeName");
  EXPECT_EQ(NSKernAttributeName, "NSKernAttributeName");
  EXPECT_EQ(NSBaselineOffsetAttributeName, "NSBaselineOffsetAttributeName");
}

// The same thing, character by character.
class Model {
 public:
  explicit Model(const std::vector<std::u16string>& characters = {}) {
    for (const std::u16string& character : characters) characters_.emplace_back(character, Dictionary());
  }

  // The characters that a range of code units touches; an empty range touches none, but has its place.
  std::pair<std::size_t, std::size_t> touched(NSRange range) const {
    std::size_t first = 0;
    std::size_t position = 0;
    while (first < characters_.size() && position + characters_[first].first.size() <= range.location)
      position += characters_[first++].first.size();
    std::size_t last = first;
    if (range.length > 0)
      while (last < characters_.size() && position < range.end()) position += characters_[last++].first.size();
    return {first, last};
  }

  void replace(NSRange range, const std::vector<std::u16string>& with) {
    const auto [first, last] = touched(range);
    Dictionary attributes;
    if (first < last)
      attributes = characters_[first].second;
    else if (first > 0)
      attributes = characters_[first - 1].second;
    else if (!characters_.empty())
      attributes = characters_[0].second;
    std::vector<std::pair<std::u16string, Dictionary>> inserted;
    for (const std::u16string& character : with) inserted.emplace_back(character, attributes);
    characters_.erase(characters_.begin() + static_cast<std::ptrdiff_t>(first),
                      characters_.begin() + static_cast<std::ptrdiff_t>(last));
    characters_.insert(characters_.begin() + static_cast<std::ptrdiff_t>(first), inserted.begin(), inserted.end());
  }

  template <class Change>
  void change(NSRange range, Change change) {
    const auto [first, last] = touched(range);
    for (std::size_t i = first; i < last; ++i) characters_[i].second = change(characters_[i].second);
  }

  void check(const NSAttributedString& string) const {
    std::u16string text;
    for (const auto& [character, attributes] : characters_) text += character;
    RC_ASSERT(string.utf16() == text);
    RC_ASSERT(string.string() == internal::toUtf8(text));
    std::size_t position = 0;
    for (const auto& [character, attributes] : characters_) {
      for (std::size_t i = 0; i < character.size(); ++i)
        RC_ASSERT(string.attributesAtIndex(position + i) == attributes);
      position += character.size();
    }
    std::size_t end = 0;
    const Dictionary* before = nullptr;
    for (const AttributeRun& run : string.attributeRuns()) {
      RC_ASSERT(run.range.location == end);
      RC_ASSERT(run.range.length > 0U);
      if (before) RC_ASSERT(!(*before == run.attributes));
      before = &run.attributes;
      end = run.range.end();
    }
    RC_ASSERT(end == text.size());
  }

 private:
  std::vector<std::pair<std::u16string, Dictionary>> characters_;
};

std::string joined(const std::vector<std::u16string>& characters) {
  std::u16string text;
  for (const std::u16string& character : characters) text += character;
  return internal::toUtf8(text);
}

TEST(AttributedString, ChangesAsAListOfCharactersDoes) {
  EXPECT_TRUE(rc::check([] {
    const auto genCharacters =
        rc::gen::resize(8, rc::gen::container<std::vector<std::u16string>>(
                               rc::gen::element<std::u16string>(u"a", u"é", u"\U0001F3B5", u"\U0001F9D1", u"文")));
    const auto initial = *genCharacters;
    Model model(initial);
    const auto string = NSMutableAttributedString::initWithString(joined(initial));
    const int steps = *rc::gen::inRange(0, 12);
    for (int step = 0; step < steps; ++step) {
      const auto location = *rc::gen::inRange<std::size_t>(0, string->length() + 1);
      const NSRange range{location, *rc::gen::inRange<std::size_t>(0, string->length() - location + 1)};
      const std::string key = *rc::gen::element<std::string>("a", "b");
      const Value value = *rc::gen::element<Value>(1, 2.0, true, "x");
      switch (*rc::gen::inRange(0, 4)) {
        case 0: {
          const auto text = *genCharacters;
          string->replaceCharactersInRange(range, joined(text));
          model.replace(range, text);
          break;
        }
        case 1:
          string->addAttribute(key, value, range);
          model.change(range, [&](const Dictionary& old) { return old.with(key, value); });
          break;
        case 2:
          string->setAttributes({{key, value}}, range);
          model.change(range, [&](const Dictionary&) { return Dictionary{{key, value}}; });
          break;
        default:
          string->removeAttribute(key, range);
          model.change(range, [&](const Dictionary& old) { return old.without(key); });
          break;
      }
      model.check(*string);
    }
  }));
}

TEST(AttributedString, IsTheSumOfItsParts) {
  EXPECT_TRUE(rc::check([] {
    const std::string text = internal::wellFormed(*rc::gen::arbitrary<std::string>()) + std::string(kNote);
    const auto string = NSMutableAttributedString::initWithString(text);
    const auto cut = *rc::gen::inRange<std::size_t>(0, string->length());
    string->addAttribute("a", 1, {0, cut});
    const auto head = string->attributedSubstringFromRange({0, cut});
    const auto sum = head->mutableCopy();
    sum->appendAttributedString(
        *string->attributedSubstringFromRange({head->length(), string->length() - head->length()}));
    RC_ASSERT(sum->isEqual(*string));
    RC_ASSERT(sum->objectHash() == string->objectHash());
  }));
}

}  // namespace
}  // namespace Brisel::Platform
