#include "brisel/object_interface/dictionaries.h"

#include "brisel/infrastructure/dictionary_difference.h"

Brisel::Platform::Dictionary brisel_diff(const Brisel::Platform::Dictionary& dictionary,
                                         const std::optional<Brisel::Platform::Dictionary>& other) {
  return Brisel::difference(dictionary, other);
}
