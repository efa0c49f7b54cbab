#pragma once

#include <cstddef>

#include "brisel/platform/bundle.h"

namespace Brisel::internal {

/// Registers the font files of a bundle (its files that end in ".otf", in the bundle's order) for this process, and
/// returns how many there are. Those that are refused are passed over; a bundle that cannot be read is a programming
/// error.
std::size_t registerFontFiles(const Platform::NSBundle& bundle);

}  // namespace Brisel::internal
