// The bundle's fonts, for ours and the peers alike.
#pragma once

#include <cstddef>
#include <iterator>
#include <memory>

#include <fontconfig/fontconfig.h>
#include <pango/pango.h>

#include "brisel/platform/font.h"

namespace Brisel::Benchmarks {

struct Unref {
  void operator()(void* object) const noexcept { g_object_unref(object); }
};
struct FreeDescription {
  void operator()(PangoFontDescription* description) const noexcept { pango_font_description_free(description); }
};
template <class T>
using GPtr = std::unique_ptr<T, Unref>;
using DescriptionPtr = std::unique_ptr<PangoFontDescription, FreeDescription>;

/// The families of running text, from the primary one to the one asked last.
inline constexpr const char* kFamilies[] = {"Tondal",     "TondalArab", "TondalHebr",
                                            "TondalCyrl", "TondalGrek", "TondalDeva"};

/// A configuration that knows the bundle's font files and nothing else. It is the process's own too, so that Qt finds
/// no other fonts.
FcConfig* fontConfig();

/// A context on these fonts. Owned by the process.
PangoContext* pangoContext();

/// The families at a size, in pixels.
DescriptionPtr pangoDescription(double size);

/// The same of ours, or the primary family with the first few of the others behind it.
std::shared_ptr<const Platform::UIFont> font(double size, std::size_t fallbacks = std::size(kFamilies) - 1);

}  // namespace Brisel::Benchmarks
