#pragma once

#include "brisel/platform/bundle.h"

namespace Brisel::internal {

/// Registers the font files of a bundle (its files that end in ".otf", in the bundle's order) for this process. Files
/// that are refused are passed over in silence; a bundle that cannot be read is a programming error.
void registerFontFiles(const Platform::NSBundle& bundle);

}  // namespace Brisel::internal
