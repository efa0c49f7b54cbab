#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "brisel/platform/engine.h"
#include "brisel/platform/linux/font_registry.h"
#include "brisel/platform/linux/host_fonts.h"
#include "brisel/platform/linux/pool.h"
#include "brisel/platform/linux/unicode.h"

namespace Brisel::Platform::Linux {

/// A stretch of a text that its typeface lacks, and a face that has it.
struct FaceForText {
  std::uint32_t begin;
  std::uint32_t end;
  std::shared_ptr<const FontFace> face;
};

/// Cuts texts into runs of one face, script and direction, and has HarfBuzz shape each. May be called from any thread.
class Shaper {
 public:
  Shaper();
  ~Shaper();

  /// `host` is asked for characters that a cascade lacks; null where the host's fonts are turned off.
  std::shared_ptr<const ShapedText> shape(const ShapeRequest& request, HostFonts* host);

  /// Faces for the user-perceived characters whose base no face of the typeface has, out of the registry or the host's.
  std::vector<FaceForText> facesForLacking(const ShapeRequest& request, const FontRegistry& registry, HostFonts* host);

 private:
  struct Workshop;
  class Shaping;

  Pool<Workshop> workshops_;
};

}  // namespace Brisel::Platform::Linux
