// Dictionaries, under the names of the object interface.
#pragma once

#include <optional>

#include "brisel/platform/value.h"

/// `brisel_diff:`: what of a dictionary differs from another; see `Brisel::difference`. Throws `Brisel::NotADictionary`
/// where that does.
Brisel::Platform::Dictionary brisel_diff(const Brisel::Platform::Dictionary& dictionary,
                                         const std::optional<Brisel::Platform::Dictionary>& other);
