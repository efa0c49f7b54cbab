#include "brisel/platform/value.h"

#include <cmath>
#include <tuple>
#include <utility>

#include "brisel/platform/internal/hash.h"
#include "brisel/platform/internal/utf.h"

namespace Brisel::Platform {
namespace internal {

// What lists and dictionaries share. Storages that lose their last owner while another is being destroyed wait for it
// in a queue, so that the depth of a nesting costs no stack.
struct ValueStorage {
  ValueStorage() = default;
  ValueStorage(const ValueStorage&) = delete;
  ValueStorage& operator=(const ValueStorage&) = delete;
  virtual ~ValueStorage() = default;

  static void release(ValueStorage* storage) noexcept {
    static constinit thread_local ValueStorage* waiting = nullptr;
    static constinit thread_local bool isDestroying = false;
    storage->next = waiting;
    waiting = storage;
    if (isDestroying) return;
    isDestroying = true;
    while (waiting) {
      ValueStorage* doomed = waiting;
      waiting = doomed->next;
      delete doomed;
    }
    isDestroying = false;
  }

  ValueStorage* next = nullptr;
  std::size_t digest = 0;
};

struct ListStorage final : ValueStorage {
  explicit ListStorage(std::vector<Value> values) : elements(std::move(values)) {
    Hasher hasher;
    for (const Value& element : elements) hasher(internal::digest(element));
    digest = hasher.finish();
  }
  const std::vector<Value> elements;
};

struct DictionaryStorage final : ValueStorage {
  explicit DictionaryStorage(std::vector<DictionaryEntry> given);

  // The place of the entry whose key `matches`, or the number of entries.
  template <class Hash, class Matches>
  std::size_t find(Hash hash, Matches matches) const {
    if (slots.empty()) {
      std::size_t i = 0;
      while (i < entries.size() && !matches(entries[i].key)) ++i;
      return i;
    }
    const std::size_t mask = slots.size() - 1;
    for (std::size_t slot = hash() & mask; slots[slot] != kFree; slot = (slot + 1) & mask)
      if (matches(entries[slots[slot]].key)) return slots[slot];
    return entries.size();
  }
  std::size_t find(const Value& key) const {
    return find([&] { return key.hash(); }, [&](const Value& other) { return other == key; });
  }

  void add(std::vector<DictionaryEntry> given);

  static constexpr std::size_t kFree = SIZE_MAX;
  static constexpr std::size_t kSearchedInLine = 8;  // Up to so many keys, comparing is quicker than hashing.

  std::vector<DictionaryEntry> entries;
  std::vector<std::size_t> slots;  // an open table of places in `entries`; empty while these are few
};

// What equal values have alike, whatever their depth, as nestings keep theirs from their making on. Therefore objects
// and colours, which may change meanwhile, are all alike here.
std::size_t digest(const Value& value) {
  Hasher hasher;
  if (const std::string* text = value.asString())
    hasher(std::string_view(*text));
  else if (const std::optional<std::int64_t> integer = value.asInteger())
    hasher(*integer);
  else if (value.kind() == Value::Kind::real)
    hasher(*value.asDouble());
  else if (const List* list = value.asList(); list && list->storage_)
    return list->storage_->digest;
  else if (const Dictionary* dictionary = value.asDictionary(); dictionary && dictionary->storage_)
    return dictionary->storage_->digest;
  else
    hasher(value.kind());
  return hasher.finish();
}

bool hasRepeatedKey(const std::vector<DictionaryEntry>& entries) {
  for (std::size_t i = 1; i < entries.size(); ++i)
    for (std::size_t j = 0; j < i; ++j)
      if (entries[i].key == entries[j].key) return true;
  return false;
}

DictionaryStorage::DictionaryStorage(std::vector<DictionaryEntry> given) {
  if (given.size() <= kSearchedInLine && !hasRepeatedKey(given))
    entries = std::move(given);
  else
    add(std::move(given));
  for (const auto& [key, value] : entries) {
    Hasher hasher;
    hasher(internal::digest(key), internal::digest(value));
    digest += hasher.finish();  // A sum: equal dictionaries may differ in order.
  }
}

void DictionaryStorage::add(std::vector<DictionaryEntry> given) {
  if (given.size() > kSearchedInLine) {
    std::size_t size = 4 * kSearchedInLine;
    while (size < 2 * given.size()) size *= 2;
    slots.assign(size, kFree);
  }
  entries.reserve(given.size());
  for (DictionaryEntry& entry : given) {
    const std::size_t place = find(entry.key);
    if (place < entries.size()) {
      entries[place].value = std::move(entry.value);
      continue;
    }
    if (!slots.empty()) {
      std::size_t slot = entry.key.hash() & (slots.size() - 1);
      while (slots[slot] != kFree) slot = (slot + 1) & (slots.size() - 1);
      slots[slot] = place;
    }
    entries.push_back(std::move(entry));
  }
}

}  // namespace internal

namespace {

// Deep enough to tell any real values apart, shallow enough for any stack.
constexpr int kHashedLevels = 4;

template <class Storage, class Elements>
std::shared_ptr<const Storage> store(Elements elements) {
  if (elements.empty()) return nullptr;
  return std::shared_ptr<const Storage>(new Storage(std::move(elements)), [](const Storage* storage) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): made just above, and not as a constant.
    internal::ValueStorage::release(const_cast<Storage*>(storage));
  });
}

// The double as the integer that it exactly is.
std::optional<std::int64_t> exactInteger(double number) noexcept {
  constexpr double kLimit = 9'223'372'036'854'775'808.0;  // 2^63
  if (!(number >= -kLimit && number < kLimit) || std::trunc(number) != number) return std::nullopt;
  return static_cast<std::int64_t>(number);
}

}  // namespace

List::List(std::initializer_list<Value> elements) : List(std::vector<Value>(elements)) {}
List::List(std::vector<Value> elements) : storage_(store<internal::ListStorage>(std::move(elements))) {}

std::size_t List::size() const noexcept { return storage_ ? storage_->elements.size() : 0; }
const Value* List::begin() const noexcept { return storage_ ? storage_->elements.data() : nullptr; }
const Value* List::end() const noexcept { return begin() + size(); }
const Value& List::operator[](std::size_t index) const noexcept { return storage_->elements[index]; }
bool operator==(const List& a, const List& b) { return Value(a) == Value(b); }

Dictionary::Dictionary(std::initializer_list<Entry> entries) : Dictionary(std::vector<Entry>(entries)) {}
Dictionary::Dictionary(std::vector<Entry> entries) : storage_(store<internal::DictionaryStorage>(std::move(entries))) {}

std::size_t Dictionary::size() const noexcept { return storage_ ? storage_->entries.size() : 0; }
const DictionaryEntry* Dictionary::begin() const noexcept { return storage_ ? storage_->entries.data() : nullptr; }
const DictionaryEntry* Dictionary::end() const noexcept { return begin() + size(); }
bool operator==(const Dictionary& a, const Dictionary& b) { return Value(a) == Value(b); }

const Value* Dictionary::find(std::string_view key) const noexcept {
  if (!storage_) return nullptr;
  const auto hash = [key] {
    internal::Hasher hasher;
    hasher(key);
    return hasher.finish();
  };
  const auto matches = [key](const Value& other) {
    const std::string* text = other.asString();
    return text && *text == key;
  };
  const std::size_t place = storage_->find(hash, matches);
  return place < storage_->entries.size() ? &storage_->entries[place].value : nullptr;
}

const Value* Dictionary::findValue(const Value& key) const {
  if (const std::string* text = key.asString()) return find(*text);  // which most keys are, and found more quickly
  if (!storage_) return nullptr;
  const std::size_t place = storage_->find(key);
  return place < storage_->entries.size() ? &storage_->entries[place].value : nullptr;
}

// The entry whose key alone has the digest of this one; null where none has it, or several.
const DictionaryEntry* Dictionary::findOnlyOneLike(const Value& key) const {
  if (!storage_) return nullptr;
  const std::vector<Entry>& entries = storage_->entries;
  const std::size_t digest = internal::digest(key);
  const auto hash = [hash = storage_->slots.empty() ? 0 : key.hash()] { return hash; };
  const auto isAlike = [digest](const Value& other) { return internal::digest(other) == digest; };
  const std::size_t first = storage_->find(hash, isAlike);
  if (first == entries.size()) return nullptr;
  const std::size_t second =
      storage_->find(hash, [&](const Value& other) { return &other != &entries[first].key && isAlike(other); });
  return second == entries.size() ? &entries[first] : nullptr;
}

Dictionary Dictionary::with(Value key, Value value) const {
  std::vector<Entry> entries;
  entries.reserve(size() + 1);
  entries.assign(begin(), end());
  entries.push_back({std::move(key), std::move(value)});
  return Dictionary(std::move(entries));
}

Dictionary Dictionary::without(std::string_view key) const {
  const Value* removed = find(key);
  if (!removed) return *this;
  std::vector<Entry> entries;
  entries.reserve(size() - 1);
  for (const Entry& entry : *this)
    if (&entry.value != removed) entries.push_back(entry);
  return Dictionary(std::move(entries));
}

Dictionary Dictionary::mergedWith(const Dictionary& other) const {
  if (empty()) return other;
  if (other.empty()) return *this;
  std::vector<Entry> entries;
  entries.reserve(size() + other.size());
  entries.assign(begin(), end());
  entries.insert(entries.end(), other.begin(), other.end());
  return Dictionary(std::move(entries));
}

Value::Value(const char* text) {
  if (text) storage_ = internal::wellFormed(text);
}

Value::Value(std::string_view text) : storage_(internal::wellFormed(text)) {}

std::optional<bool> Value::asBool() const noexcept {
  const std::optional<std::int64_t> integer = asInteger();
  if (!integer || (*integer != 0 && *integer != 1)) return std::nullopt;
  return *integer == 1;
}

std::optional<std::int64_t> Value::asInteger() const noexcept {
  if (const auto* boolean = std::get_if<bool>(&storage_)) return *boolean ? 1 : 0;
  if (const auto* integer = std::get_if<std::int64_t>(&storage_)) return *integer;
  if (const auto* real = std::get_if<double>(&storage_)) return exactInteger(*real);
  return std::nullopt;
}

std::optional<double> Value::asDouble() const noexcept {
  if (const auto* boolean = std::get_if<bool>(&storage_)) return *boolean ? 1.0 : 0.0;
  if (const auto* integer = std::get_if<std::int64_t>(&storage_)) return static_cast<double>(*integer);
  if (const auto* real = std::get_if<double>(&storage_)) return *real;
  return std::nullopt;
}

bool operator==(const Value& a, const Value& b) {
  using Kind = Value::Kind;
  // Pairs that are still to be compared; a stack of our own, for nestings that exceed the thread's.
  std::vector<std::pair<const Value*, const Value*>> pairs;
  const Value* left = &a;
  const Value* right = &b;
  while (true) {
    const std::optional<std::int64_t> integer = left->asInteger();
    if (integer || left->kind() == Kind::real) {
      const bool equal = integer ? right->asInteger() == integer
                                 : right->kind() == Kind::real && *left->asDouble() == *right->asDouble();
      if (!equal) return false;
    } else if (left->kind() != right->kind()) {
      return false;
    } else if (const List* list = left->asList()) {
      const List& other = *right->asList();
      if (list->size() != other.size() || internal::digest(*left) != internal::digest(*right)) return false;
      if (list->begin() != other.begin())
        for (std::size_t i = list->size(); i-- > 0;) pairs.emplace_back(&(*list)[i], &other[i]);
    } else if (const Dictionary* dictionary = left->asDictionary()) {
      const Dictionary& other = *right->asDictionary();
      if (dictionary->size() != other.size() || internal::digest(*left) != internal::digest(*right)) return false;
      if (dictionary->begin() != other.begin()) {
        for (const DictionaryEntry& entry : *dictionary) {
          // A key that is a nesting itself is compared here too, unless others are like it.
          if (entry.key.asList() || entry.key.asDictionary()) {
            if (const DictionaryEntry* alike = other.findOnlyOneLike(entry.key)) {
              pairs.emplace_back(&entry.key, &alike->key);
              pairs.emplace_back(&entry.value, &alike->value);
              continue;
            }
          }
          const Value* value = other.find(entry.key);
          if (!value) return false;
          pairs.emplace_back(&entry.value, value);
        }
      }
    } else if (left->kind() == Kind::object) {
      if (!objectsAreEqual(left->as<NSObject>(), right->as<NSObject>())) return false;
    } else if (left->kind() == Kind::color) {
      if (!left->as<UIColor>()->isEqual(*right->as<UIColor>())) return false;
    } else if (left->kind() == Kind::string) {
      if (*left->asString() != *right->asString()) return false;
    }
    if (pairs.empty()) return true;
    std::tie(left, right) = pairs.back();
    pairs.pop_back();
  }
}

std::size_t Value::hash() const { return hash(kHashedLevels); }

std::size_t Value::hash(int levels) const {
  internal::Hasher hasher;
  if (const std::optional<std::int64_t> integer = asInteger()) {
    hasher(*integer);  // Whatever kind of number it is.
  } else if (const auto* real = std::get_if<double>(&storage_)) {
    hasher(*real);
  } else if (const std::string* text = asString()) {
    hasher(std::string_view(*text));  // Alone, so that a text is found without being made a value.
  } else if (const List* list = asList()) {
    hasher(list->size());
    if (levels > 0)
      for (const Value& element : *list) hasher(element.hash(levels - 1));
  } else if (const Dictionary* dictionary = asDictionary()) {
    std::size_t sum = dictionary->size();  // A sum: equal dictionaries may differ in order.
    if (levels > 0)
      for (const auto& [key, value] : *dictionary) {
        internal::Hasher entryHasher;
        entryHasher(key.hash(levels - 1), value.hash(levels - 1));
        sum += entryHasher.finish();
      }
    hasher(sum);
  } else if (const auto* object = std::get_if<std::shared_ptr<const NSObject>>(&storage_)) {
    hasher((*object)->objectHash());
  } else if (const ColorPtr* color = std::get_if<ColorPtr>(&storage_)) {
    hasher((*color)->objectHash());
  }
  return hasher.finish();
}

}  // namespace Brisel::Platform
