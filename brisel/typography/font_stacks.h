#pragma once

#include <span>

#include "brisel/typography/font.h"

namespace Brisel {

/// A family and the families tried after it, in order.
struct FontStack {
  Font primaryFont;                     ///< what most characters are drawn in
  std::span<const Font> fallbackFonts;  ///< constant

  /// The stack of running text: `Font::tondal`, then the scripts.
  static const FontStack text;
  /// The tall cut comes before the scripts.
  static const FontStack title;
};

namespace internal {
inline constexpr Font kTitleFallbacks[] = {Font::tondalTitleTall, Font::tondalArab, Font::tondalHebr,
                                           Font::tondalCyrl,      Font::tondalGrek, Font::tondalDeva};
}  // namespace internal

inline constexpr FontStack FontStack::text{Font::tondal, std::span(internal::kTitleFallbacks).subspan(1)};
inline constexpr FontStack FontStack::title{Font::tondalTitle, internal::kTitleFallbacks};

}  // namespace Brisel
