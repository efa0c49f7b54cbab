#include "brisel/infrastructure/dictionary_difference.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace Brisel {
namespace {

using Platform::Dictionary;
using Platform::Value;

std::string described(const Value& key) {
  if (const std::string* text = key.asString()) return "\"" + *text + "\"";
  if (const std::optional<std::int64_t> integer = key.asInteger()) return std::to_string(*integer);
  return "a key";
}

// A dictionary on the way down: a stack of our own, for nestings that exceed the thread's.
struct Level {
  const Dictionary* other;
  const Dictionary::Entry* next;  // the first entry that has not been compared
  const Dictionary::Entry* end;
  std::vector<Dictionary::Entry> differences;
};

}  // namespace

NotADictionary::NotADictionary(const Value& key)
    : std::logic_error("The dictionary under " + described(key) + " was compared with a value that is none") {}

Dictionary difference(const Dictionary& dictionary, const std::optional<Dictionary>& other) {
  if (!other) return dictionary;
  std::vector<Level> levels;
  levels.push_back({&*other, dictionary.begin(), dictionary.end(), {}});
  while (true) {
    Level& level = levels.back();
    if (level.next == level.end) {
      Dictionary differences(std::move(level.differences));
      levels.pop_back();
      if (levels.empty()) return differences;
      Level& above = levels.back();
      above.differences.push_back({above.next->key, std::move(differences)});
      ++above.next;
      continue;
    }
    const auto& [key, value] = *level.next;
    const Value* otherValue = level.other->find(key);
    const Dictionary* nested = value.asDictionary();
    if (nested && !nested->empty() && otherValue) {
      const Dictionary* otherNested = otherValue->asDictionary();
      if (!otherNested) throw NotADictionary(key);
      levels.push_back({otherNested, nested->begin(), nested->end(), {}});
      continue;
    }
    if (nested || !otherValue || value != *otherValue) level.differences.push_back(*level.next);
    ++level.next;
  }
}

}  // namespace Brisel
