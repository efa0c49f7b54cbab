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
  Result (*get)() noexcept;     ///< the accessor
};

/// A colour of the palette, by its two names.
using ColorEntry = Entry<const Color&>;
/// An older colour name, which the object interface alone has: `name` is empty.
using LegacyColorEntry = Entry<const Platform::ColorPtr&>;  ///< `name` is empty: the object interface alone has it
/// An opacity, by its two names.
using OpacityEntry = Entry<Opacity>;
/// A spacing step, by its two names.
using SpacerEntry = Entry<Spacer>;

/// Palette colours that belong together, such as one hue ramp.
struct ColorFamily {
  std::string_view section;            ///< such as "Hue ramps"; neighbouring families share it
  std::string_view title;              ///< such as "Red orange"
  std::span<const ColorEntry> colors;  ///< in published order
};

// Each list is in published order, is constant and lives until the process ends.
/// The palette.
std::span<const ColorEntry> colors() noexcept;
/// The palette's families; joined, they are `colors()`.
std::span<const ColorFamily> colorFamilies() noexcept;
/// The 60 older names.
std::span<const LegacyColorEntry> legacyColors() noexcept;
/// The opacities, from none to 0.9.
std::span<const OpacityEntry> opacities() noexcept;
/// The spacing steps, from the smallest to the largest.
std::span<const SpacerEntry> spacers() noexcept;

}  // namespace Brisel::Catalogue
