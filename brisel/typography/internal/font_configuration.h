#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

#include "brisel/platform/geometry.h"
#include "brisel/platform/internal/hash.h"
#include "brisel/typography/font.h"

namespace Brisel {

/// What a font is asked for with: the key of the font cache.
struct FontConfiguration {
  Font primaryFont;
  std::vector<Font> fallbackFonts;
  Font::Weight weight;
  Platform::CGFloat size;
  std::vector<Font::Feature> fontFeatures;

  friend bool operator==(const FontConfiguration&, const FontConfiguration&) = default;
};

namespace internal {

/// A configuration in its caller's memory, so that looking one up allocates nothing.
struct FontConfigurationView {
  Font primaryFont;
  std::span<const Font> fallbackFonts;
  Font::Weight weight;
  Platform::CGFloat size;
  std::span<const Font::Feature> fontFeatures;

  FontConfigurationView(Font primary, std::span<const Font> fallbacks, Font::Weight fontWeight,
                        Platform::CGFloat pointSize, std::span<const Font::Feature> features) noexcept
      : primaryFont(primary), fallbackFonts(fallbacks), weight(fontWeight), size(pointSize), fontFeatures(features) {}
  FontConfigurationView(const FontConfiguration& configuration) noexcept
      : FontConfigurationView(configuration.primaryFont, configuration.fallbackFonts, configuration.weight,
                              configuration.size, configuration.fontFeatures) {}

  FontConfiguration configuration() const {
    return {primaryFont,
            {fallbackFonts.begin(), fallbackFonts.end()},
            weight,
            size,
            {fontFeatures.begin(), fontFeatures.end()}};
  }

  friend bool operator==(const FontConfigurationView& a, const FontConfigurationView& b) noexcept {
    return a.primaryFont == b.primaryFont && std::ranges::equal(a.fallbackFonts, b.fallbackFonts) &&
           a.weight == b.weight && a.size == b.size && std::ranges::equal(a.fontFeatures, b.fontFeatures);
  }
  friend void hashInto(Platform::internal::Hasher& hasher, const FontConfigurationView& view) {
    hasher(view.primaryFont, view.fallbackFonts, view.weight, view.size, view.fontFeatures);
  }
};

/// Hash and equality of configurations and views alike, which are the same for both.
struct FontConfigurationHash : Platform::internal::FieldHash<FontConfigurationView> {
  using is_transparent = void;
};
struct FontConfigurationEqual {
  using is_transparent = void;
  bool operator()(const FontConfigurationView& a, const FontConfigurationView& b) const noexcept { return a == b; }
};

}  // namespace internal
}  // namespace Brisel

template <>
struct std::hash<Brisel::FontConfiguration> : Brisel::internal::FontConfigurationHash {};
