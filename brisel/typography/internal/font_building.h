#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "brisel/platform/font.h"
#include "brisel/platform/font_descriptor.h"
#include "brisel/typography/font.h"
#include "brisel/typography/internal/font_configuration.h"

namespace Brisel::internal {

/// How many fonts are kept: two sizes of each type style.
inline constexpr std::int64_t kFontCacheCapacity = 38;

/// The PostScript name of a family in a weight, such as "TondalArab-Bold". Whether there is such a font is up to the
/// resource bundle.
std::string fontName(Font family, Font::Weight weight);

/// The description of a font: name and size, cascade list and feature settings; the two lists are there even when they
/// are empty.
std::shared_ptr<const Platform::UIFontDescriptor> fontDescriptor(const FontConfigurationView& configuration);

}  // namespace Brisel::internal
