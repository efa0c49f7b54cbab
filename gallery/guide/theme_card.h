#pragma once

#include "brisel/platform/canvas.h"
#include "brisel/platform/geometry.h"
#include "brisel/themes/theme.h"

namespace Brisel::Gallery {

/// How large a card is, in points.
inline constexpr Platform::CGSize kThemeCard{328, 668};

/// Draws a colour set as it is used, from the canvas's upper left corner: texts, icons, a decoration and buttons in
/// all states, on the set's own background. A set whose background is translucent is laid over a picture.
void paintThemeCard(Platform::Canvas& canvas, const Theme::ColorSet& set);

/// How large a tile is, in points.
inline constexpr Platform::CGSize kThemeTile{98, 84};

/// Draws no more of a colour set than tells it from others: a text, an icon and the accents, on the set's background.
void paintThemeTile(Platform::Canvas& canvas, const Theme::ColorSet& set, Platform::CGPoint at);

}  // namespace Brisel::Gallery
