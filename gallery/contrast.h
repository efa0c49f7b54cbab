// Contrast between the colours of a colour set, after the Web Content Accessibility Guidelines (WCAG) 2.2.
//
// How it is measured:
// - Components are taken as designed, not as the bytes that a screen would show.
// - A translucent background lies over the set's own `background.base`. Where that is translucent too, the set is made
//   to lie on media: each of its backgrounds then lies on the media itself, taken once as black and once as white, and
//   the poorer ratio counts. For a foreground as light or as dark as any media, such as the white of overMedia, nothing
//   between the two is poorer.
// - A translucent foreground lies over the background that results.
// - One colour lies over another as canvases draw it: component by component, as encoded, without linear light.
#pragma once

#include <string>
#include <string_view>

#include "brisel/platform/color.h"
#include "brisel/themes/catalogue.h"
#include "brisel/themes/theme.h"

namespace Brisel::Gallery {

/// The same in brief, for readers of what the program writes.
extern const std::string_view kContrastMethod;

/// From 0 for black to 1 for white; alpha does not count. https://www.w3.org/TR/WCAG22/#dfn-relative-luminance
double relativeLuminance(const Platform::UIColor& color);

/// From 1 for the same luminance to 21 for black and white. https://www.w3.org/TR/WCAG22/#dfn-contrast-ratio
double contrastRatio(const Platform::UIColor& a, const Platform::UIColor& b);

/// "4.49" of 4.499: cut off after two decimals, so that no ratio seems to reach a limit that it misses.
std::string ratioText(double ratio);

/// What shows where `color` lies over an opaque ground.
Platform::UIColor composited(const Platform::UIColor& color, const Platform::UIColor& ground);

/// What a ratio suffices for. Limits are not rounded to: 4.499 is below 4.5.
enum class ContrastLevel {
  fail,     ///< neither text nor anything else that must be seen
  aaLarge,  ///< text of 18 points, or bold of 14 (3)
  aa,       ///< text of any size (4.5), or what is not text (3)
  aaa,      ///< text of any size, at the higher demand (7)
};

/// "fail", "AA large", "AA" or "AAA".
std::string_view levelName(ContrastLevel level);

ContrastLevel textLevel(double ratio);
/// Of icons and controls. The guidelines know one demand of them.
ContrastLevel essentialLevel(double ratio);

struct Contrast {
  double ratio;
  ContrastLevel level;
};

/// Whether the slot is one of text or essential, whose contrast matters.
bool isForeground(const Catalogue::SlotEntry& slot);
bool isBackground(const Catalogue::SlotEntry& slot);

/// Of a foreground slot on a background slot of a set.
Contrast contrastOf(const Theme::ColorSet& set, const Catalogue::SlotEntry& foreground,
                    const Catalogue::SlotEntry& background);

}  // namespace Brisel::Gallery
