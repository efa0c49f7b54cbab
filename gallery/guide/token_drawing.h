#pragma once

#include "brisel/platform/canvas.h"
#include "brisel/platform/geometry.h"
#include "brisel/tokens/opacity.h"
#include "brisel/tokens/spacer.h"

namespace Brisel::Gallery {

/// Room for the widest spacer between two elements, in points.
inline constexpr Platform::CGSize kSpacerPicture{160, 40};

/// Draws two elements, and between them the spacer as a dimension line whose ends lie on the elements' edges.
void paintSpacer(Platform::Canvas& canvas, Spacer spacer);

/// A picture and chequers side by side, in points.
inline constexpr Platform::CGSize kOpacityPicture{160, 80};

/// Draws a white layer over a picture and over chequers.
void paintOpacity(Platform::Canvas& canvas, Opacity opacity);

/// Draws a white layer over what is there, with an outline that shows where it is when it shows nothing.
void paintLayer(Platform::Canvas& canvas, const Platform::CGRect& rect, Opacity opacity);

}  // namespace Brisel::Gallery
