// Values of any kind: text attributes, notification information, font descriptors, dictionaries.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <typeinfo>
#include <utility>
#include <variant>
#include <vector>

#include "brisel/platform/color.h"
#include "brisel/platform/object.h"

namespace Brisel::Platform {

class Value;
struct DictionaryEntry;
namespace internal {
struct ListStorage;
struct DictionaryStorage;
std::size_t digest(const Value& value);
}  // namespace internal

/// An immutable sequence of values. Copies share their elements. Any nesting may be hashed, destroyed and compared,
/// except that comparing costs stack where, thousands of levels deep, dictionaries stand in keys of dictionaries beside
/// keys that differ from these in objects, colours or NaNs alone.
class List {
 public:
  List() noexcept = default;
  /// A list of one list is written List{Value(list)}: compilers disagree on whether List{list} is a copy.
  List(std::initializer_list<Value> elements);
  /// A list of these elements.
  explicit List(std::vector<Value> elements);

  /// How many elements there are.
  std::size_t size() const noexcept;
  /// Whether there are none.
  bool empty() const noexcept { return size() == 0; }
  /// The first element, for loops.
  const Value* begin() const noexcept;
  /// Behind the last one.
  const Value* end() const noexcept;
  /// `index` must be below the size.
  const Value& operator[](std::size_t index) const noexcept;

  /// Equal sizes and, in order, equal elements. A list always equals its copies, even with a NaN in it.
  friend bool operator==(const List& a, const List& b);

 private:
  friend std::size_t internal::digest(const Value& value);
  std::shared_ptr<const internal::ListStorage> storage_;  // null when empty
};

/// An immutable map from values to values, enumerated in the order of insertion. Copies share their entries. Where a
/// key is given twice, the first one's place and the last one's value stand.
class Dictionary {
 public:
  /// A key and its value.
  using Entry = DictionaryEntry;

  Dictionary() noexcept = default;
  /// A dictionary of these entries.
  Dictionary(std::initializer_list<Entry> entries);
  explicit Dictionary(std::vector<Entry> entries);

  /// How many entries there are.
  std::size_t size() const noexcept;
  /// Whether there are none.
  bool empty() const noexcept { return size() == 0; }
  /// The first entry, for loops.
  const Entry* begin() const noexcept;
  /// Behind the last one.
  const Entry* end() const noexcept;

  /// The value of a key, or null. Looking up a text allocates nothing.
  const Value* find(std::string_view key) const noexcept;
  const Value* find(const std::same_as<Value> auto& key) const { return findValue(key); }

  /// The same entries and this one, which replaces the one of an equal key.
  Dictionary with(Value key, Value value) const;
  /// The same entries but the one of this key.
  Dictionary without(std::string_view key) const;
  /// The entries of both; where both have a key, the value is that of `other`.
  Dictionary mergedWith(const Dictionary& other) const;

  /// Equal sizes and, under each key, equal values; order does not count. A dictionary always equals its copies.
  friend bool operator==(const Dictionary& a, const Dictionary& b);

 private:
  friend std::size_t internal::digest(const Value& value);
  friend bool operator==(const Value& a, const Value& b);
  const Value* findValue(const Value& key) const;
  const Entry* findOnlyOneLike(const Value& key) const;
  std::shared_ptr<const internal::DictionaryStorage> storage_;  // null when empty
};

namespace internal {
template <class T>
concept CharacterType = std::same_as<T, char> || std::same_as<T, wchar_t> || std::same_as<T, char8_t> ||
    std::same_as<T, char16_t> || std::same_as<T, char32_t>;
template <class T>
concept IntegerType = std::integral<T> && !std::same_as<T, bool> && !CharacterType<T>;
}  // namespace internal

/// Null, a boolean, an integer, a double, a text, a list, a dictionary, an object or a colour. Immutable but for
/// assignment. Equality is the platform's: numbers are equal when they are the same number, so that 1, 1.0 and true are
/// equal and NaN equals nothing; objects and colours are asked; values of other kinds are never equal.
class Value {
 public:
  /// The kinds of values.
  enum class Kind : std::uint8_t {
    null,        ///< nothing
    boolean,     ///< true or false
    integer,     ///< 64 bits, signed
    real,        ///< a double
    string,      ///< a text in UTF-8
    list,        ///< a `List`
    dictionary,  ///< a `Dictionary`
    object,      ///< an `NSObject`
    color,       ///< a `UIColor`
  };

  Value() noexcept = default;
  /// A null value.
  Value(std::nullptr_t) noexcept {}
  /// A boolean. A template, as the numbers are, so that neither a pointer nor a text becomes one.
  Value(std::same_as<bool> auto boolean) noexcept : storage_(boolean) {}
  /// What exceeds 64 signed bits becomes the nearest double.
  template <internal::IntegerType Integer>
  Value(Integer integer) noexcept;
  /// A number; a float is widened.
  template <std::floating_point Real>
  Value(Real real) noexcept : storage_(static_cast<double>(real)) {}
  /// A text; its ill-formed bytes are replaced. A null pointer makes a null value.
  Value(const char* text);
  Value(std::string_view text);
  Value(const std::string& text) : Value(std::string_view(text)) {}
  /// A list, whose elements are shared.
  Value(List list) noexcept : storage_(std::move(list)) {}
  /// A dictionary, whose entries are shared.
  Value(Dictionary dictionary) noexcept : storage_(std::move(dictionary)) {}
  /// An object, which is shared, not copied. A null pointer makes a null value.
  template <std::derived_from<NSObject> Object>
  Value(std::shared_ptr<Object> object) noexcept {
    if (object) storage_ = std::shared_ptr<const NSObject>(std::move(object));
  }
  /// A colour, which is shared. A null pointer makes a null value.
  Value(ColorPtr color) noexcept {
    if (color) storage_ = std::move(color);
  }

  /// Which kind this is.
  Kind kind() const noexcept { return static_cast<Kind>(storage_.index()); }
  /// Whether it is null.
  bool isNull() const noexcept { return kind() == Kind::null; }

  /// The number as another kind of number; nothing for what is no number, or cannot be said exactly in that kind
  /// (`asDouble` alone rounds: integers beyond 2⁵³ to the nearest double).
  std::optional<bool> asBool() const noexcept;
  /// The number as an integer, by the same rule.
  std::optional<std::int64_t> asInteger() const noexcept;
  /// The number as a double, rounded where it must be.
  std::optional<double> asDouble() const noexcept;

  /// The text, list or dictionary; null for other kinds. Lives as long as this value is not assigned to.
  const std::string* asString() const noexcept { return std::get_if<std::string>(&storage_); }
  /// The list, likewise.
  const List* asList() const noexcept { return std::get_if<List>(&storage_); }
  /// The dictionary, likewise.
  const Dictionary* asDictionary() const noexcept { return std::get_if<Dictionary>(&storage_); }

  /// The object of this class (`UIColor` for colours); null for another class or kind.
  template <class T>
  std::shared_ptr<const T> as() const noexcept {
    if constexpr (std::same_as<T, UIColor>) {
      const ColorPtr* color = std::get_if<ColorPtr>(&storage_);
      return color ? *color : nullptr;
    } else {
      const auto* object = std::get_if<std::shared_ptr<const NSObject>>(&storage_);
      if (!object) return nullptr;
      // Mostly it is of just that class, which is told far more quickly.
      if (const NSObject& found = **object; typeid(found) == typeid(T))
        return std::static_pointer_cast<const T>(*object);
      return std::dynamic_pointer_cast<const T>(*object);
    }
  }

  friend bool operator==(const Value& a, const Value& b);
  /// Agrees with `==`. Of deep nestings only the outermost levels count.
  std::size_t hash() const;

 private:
  std::size_t hash(int levels) const;

  // In the order of Kind.
  std::variant<std::monostate, bool, std::int64_t, double, std::string, List, Dictionary,
               std::shared_ptr<const NSObject>, ColorPtr>
      storage_;
};

/// A key and its value.
struct DictionaryEntry {
  Value key;    ///< equal to no other of its dictionary
  Value value;  ///< null too
};

template <internal::IntegerType Integer>
Value::Value(Integer integer) noexcept {
  if (std::in_range<std::int64_t>(integer))
    storage_ = static_cast<std::int64_t>(integer);
  else
    storage_ = static_cast<double>(integer);
}

}  // namespace Brisel::Platform

template <>
struct std::hash<Brisel::Platform::Value> {
  std::size_t operator()(const Brisel::Platform::Value& value) const { return value.hash(); }
};
