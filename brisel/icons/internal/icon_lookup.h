#pragma once

#include <cstdint>
#include <string_view>

#include "brisel/icons/icon.h"
#include "brisel/platform/geometry.h"

namespace Brisel::internal {

/// The catalogue icon that `Icon(name)` is a copy of; null where that throws.
const Icon* findIcon(std::string_view name);

/// The catalogue icon of a number (see icon_constants.h); null where there is none.
const Icon* iconOfNumber(std::uint64_t number) noexcept;

/// The icon's glyph for a size, or else the one whose size is nearest by rank. An icon without any glyph is a
/// programming error.
Icon::Glyph glyphForSize(const Icon& icon, Icon::GlyphSize size);

/// The size for text of so many points: `x16` up to 16.0; beyond, and for not-a-number, `x24`.
Icon::GlyphSize glyphSizeForPointSize(Platform::CGFloat pointSize) noexcept;

}  // namespace Brisel::internal
