#pragma once

#include "brisel/platform/color.h"

namespace Brisel {

/// The 60 older colour names. They are published on the object interface alone, as members of `VLMBriselColors`, and
/// are colours of their own: none is an alias of a palette colour.
class LegacyColor {
 public:
  LegacyColor() = delete;

  // One accessor a name, with the palette's promises: built on first use, alone, and never destroyed.
#define BRISEL_GREY(name, white, alpha) static const Platform::ColorPtr& name() noexcept;
#define BRISEL_RGB(name, red, green, blue, hex) static const Platform::ColorPtr& name() noexcept;
#include "brisel/tokens/legacy_colors.def"
};

}  // namespace Brisel
