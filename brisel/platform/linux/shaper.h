#pragma once

#include <memory>

#include "brisel/platform/engine.h"
#include "brisel/platform/linux/host_fonts.h"
#include "brisel/platform/linux/pool.h"
#include "brisel/platform/linux/unicode.h"

namespace Brisel::Platform::Linux {

/// Cuts texts into runs of one face, script and direction, and has HarfBuzz shape each. May be called from any thread.
class Shaper {
 public:
  Shaper();
  ~Shaper();

  /// `host` is asked for characters that a cascade lacks; null where the host's fonts are turned off.
  std::shared_ptr<const ShapedText> shape(const ShapeRequest& request, HostFonts* host);

 private:
  struct Workshop;
  class Shaping;

  Pool<Workshop> workshops_;
};

}  // namespace Brisel::Platform::Linux
