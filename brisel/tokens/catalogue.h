// All tokens, by name: what style guides, exports and tests walk through.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "brisel/platform/color.h"
#include "brisel/tokens/color.h"
#include "brisel/tokens/opacity.h"
#include "brisel/tokens/spacer.h"

namespace Brisel::Catalogue {

/// A named token. `get` is its accessor, so that walking the names builds nothing.
template <class Result>
struct Entry {
  std::string_view name;        ///< on the value-type interface, such as "x16"
  std::string_view objectName;  ///< on the object interface, such as "spacer16"
  Result (*get)() noexcept;
};

using ColorEntry = Entry<const Color&>;
using LegacyColorEntry = Entry<const Platform::ColorPtr&>;  ///< `name` is empty: the object interface alone has it
using OpacityEntry = Entry<Opacity>;
using SpacerEntry = Entry<Spacer>;

/// Palette colours that belong together, such as one hue ramp.
struct ColorFamily {
  std::string_view section;  ///< such as "Hue ramps"; neighbouring families share it
  std::string_view title;    ///< such as "Red orange"
  std::span<const ColorEntry> colors;
};

// Each list is in published order, is constant and lives until the process ends.
std::span<const ColorEntry> colors() noexcept;
std::span<const ColorFamily> colorFamilies() noexcept;
std::span<const LegacyColorEntry> legacyColors() noexcept;
std::span<const OpacityEntry> opacities() noexcept;
std::span<const SpacerEntry> spacers() noexcept;

}  // namespace Brisel::Catalogue
