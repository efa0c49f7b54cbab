// Holds the catalogues of names (brisel/tokens/internal/names_begin.def) against the library. A test includes this and
// the headers of a subsystem, and then, as the elements of a constexpr array of Name, its names.def: it does not
// compile where a name is missing or has another signature.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace Brisel::Platform {}

namespace Brisel::Published {

using namespace Platform;

template <class T>
using Ptr = std::shared_ptr<const T>;

/// A name as it is listed: a type, a constant, or one overload of a function.
struct Name {
  std::string_view name;
  std::string_view signature;  ///< in parentheses; none for types and constants

  friend constexpr bool operator==(const Name&, const Name&) = default;
};

/// What only a name that is there can give.
struct Proof {};

// Given the address of a name, these pick the overload that has the signature.
template <class Signature>
constexpr Proof has(Signature*) {
  return {};
}
template <class Signature, class Class>
constexpr Proof has(Signature Class::*) {
  return {};
}
template <class MemberPointer>
requires std::is_member_pointer_v<MemberPointer>
constexpr Proof has(MemberPointer) { return {}; }

template <class Type, class... Arguments>
requires std::is_constructible_v<Type, Arguments...>
constexpr Proof isMadeFrom() { return {}; }

template <std::size_t sizeOfTypeOrConstant>
constexpr Proof isThere() {
  return {};
}

constexpr Name listed(Proof, std::string_view name, std::string_view signature) { return {name, signature}; }

/// How many of the names begin so, and how many of them have this signature.
template <std::size_t size>
constexpr std::ptrdiff_t countOf(const Name (&names)[size], std::string_view beginning) {
  return std::count_if(names, names + size, [=](const Name& name) { return name.name.starts_with(beginning); });
}
template <std::size_t size>
constexpr std::ptrdiff_t countOf(const Name (&names)[size], std::string_view beginning, std::string_view signature) {
  return std::count_if(names, names + size, [=](const Name& name) {
    return name.name.starts_with(beginning) && name.signature == signature;
  });
}

/// The names that stand in the list a second time, with the same signature.
template <std::size_t size>
std::vector<std::string> listedTwice(const Name (&names)[size]) {
  std::vector<std::string> found;
  for (const Name* name = names; name != names + size; ++name)
    if (std::find(names, name, *name) != name) found.push_back(std::string(name->name).append(name->signature));
  return found;
}

/// Whether the classes derive from this one.
template <class Base, class... Classes>
constexpr bool areKindsOf = (... && std::is_convertible_v<Classes*, Base*>);

}  // namespace Brisel::Published

#define BRISEL_IN_PARENTHESES(...) __VA_ARGS__

#define BRISEL_TYPES(value, object) BRISEL_VALUE_TYPE(value) BRISEL_OBJECT_TYPE(object)
#define BRISEL_VALUE_TYPE(value) listed(isThere<sizeof(value)>(), #value, {}),
#define BRISEL_OBJECT_TYPE(object) BRISEL_VALUE_TYPE(object)
#define BRISEL_FUNCTIONS(value, valueSignature, object, objectSignature) \
  BRISEL_VALUE_FUNCTION(value, valueSignature) BRISEL_OBJECT_FUNCTION(object, objectSignature)
#define BRISEL_VALUE_FUNCTION(value, signature) \
  listed(has<BRISEL_IN_PARENTHESES signature>(&value), #value, #signature),
#define BRISEL_OBJECT_FUNCTION(object, signature) BRISEL_VALUE_FUNCTION(object, signature)
#define BRISEL_VALUE_CONSTRUCTOR(type, arguments) \
  listed(isMadeFrom<type, BRISEL_IN_PARENTHESES arguments>(), #type, #arguments),
#define BRISEL_CONSTANTS(value, object) BRISEL_VALUE_CONSTANT(value) BRISEL_OBJECT_CONSTANT(object)
#define BRISEL_VALUE_CONSTANT(value) listed(isThere<sizeof(value)>(), #value, {}),
#define BRISEL_OBJECT_CONSTANT(object) BRISEL_VALUE_CONSTANT(object)
