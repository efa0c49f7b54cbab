#pragma once

#include <memory>

#include "brisel/platform/engine.h"
#include "brisel/platform/linux/host_fonts.h"

namespace Brisel::Platform::Linux {

/// Cuts a text into runs of one face, script and direction, and has HarfBuzz shape each. `host` is asked for characters
/// that a cascade lacks; null where the host's fonts are turned off. May be called from any thread.
std::shared_ptr<const ShapedText> shapeText(const ShapeRequest& request, HostFonts* host);

}  // namespace Brisel::Platform::Linux
