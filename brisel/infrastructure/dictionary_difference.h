// What of a dictionary differs from another.
#pragma once

#include <optional>
#include <stdexcept>

#include "brisel/platform/value.h"

namespace Brisel {

/// What `difference` throws where a nested dictionary that is not empty meets a value that is no dictionary.
class NotADictionary final : public std::logic_error {
 public:
  /// Names the key in its message, where it is a text or an integer.
  explicit NotADictionary(const Platform::Value& key);
};

/// The entries of a dictionary whose values are not equal to those of another under the same keys, in the order of the
/// first; keys of the other alone do not count. Nested dictionaries are compared in turn, and are always in the result,
/// empty where nothing below them differs. Without another, the dictionary itself. Any nesting may be compared that
/// `==` takes.
///
/// Throws `NotADictionary` for the first nested dictionary, in the order of the entries, that it cannot compare.
Platform::Dictionary difference(const Platform::Dictionary& dictionary,
                                const std::optional<Platform::Dictionary>& other);

}  // namespace Brisel
