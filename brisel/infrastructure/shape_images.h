// Images with a shape round, behind or on them, and the verified badge.
#pragma once

#include <cstdint>

#include "brisel/platform/color.h"
#include "brisel/platform/geometry.h"
#include "brisel/platform/image.h"

namespace Brisel {

// All make a new image with alpha at the main screen's scale, and leave the one they are given as it is. Lengths are
// points. An image without a bitmap counts as one of no size that draws nothing and cuts nothing out; where there can
// be no canvas of the size, the result is empty (see UIGraphicsImageRenderer). Null for a colour that is not optional
// is a programming error. May be called on any thread.

/// The image clipped to a circle, in the middle of a canvas that has room for both. The line lies within `diameter` and
/// is covered by the image where they meet. `fillColor`, which may be null, is what shows behind the image.
///
/// Where `isCuttingOutImage`, the image is not drawn: circle and line are, through the image's alpha, which is
/// stretched over the canvas. A line as wide as the diameter or wider leaves no circle, and so nothing at all.
Platform::ImagePtr withCircle(const Platform::UIImage& image, Platform::CGFloat diameter, Platform::CGFloat lineWidth,
                              const Platform::ColorPtr& lineColor, const Platform::ColorPtr& fillColor,
                              bool isCuttingOutImage);

/// The image clipped to a filled star behind it, one of whose `points` is on top, its notches on a circle of
/// `innerDiameter`. The image lies in the middle of the star.
///
/// Where `isCuttingOutImage`, the image is not drawn: the star is, through the image's alpha, which is stretched over
/// the canvas. There is no star of 0 points or fewer, and so nothing at all; 2^62 or more is a programming error, and
/// so is what lies below -2^62. Time and memory grow with `points`, without a bound: `std::bad_alloc` is thrown where
/// there is no memory for the star's outline.
Platform::ImagePtr withStar(const Platform::UIImage& image, Platform::CGFloat diameter, Platform::CGFloat innerDiameter,
                            std::int64_t points, const Platform::ColorPtr& fillColor, bool isCuttingOutImage);

/// The image with a filled dot on it, whose middle is at `position`. A `cutOutDiameter` above 0 erases a circle there
/// before, so that a gap is left round the dot.
Platform::ImagePtr withDot(const Platform::UIImage& image, Platform::CGFloat diameter, Platform::CGFloat cutOutDiameter,
                           Platform::CGPoint position, const Platform::ColorPtr& fillColor);

/// A rosette in `fillColor` with a white check mark of half its size on it. It is made for squares: elsewhere the
/// rosette takes its width from the height and its height from the width.
///
/// The check mark is an icon image (icons/icon_image.h), with the same programming error: half the height, cut to whole
/// pixels, must be below 2^63 tenths of a point where both sides are above 0 and finite, though such a badge would be
/// too large to draw.
Platform::ImagePtr verifiedIndicator(Platform::CGSize size, const Platform::ColorPtr& fillColor);

}  // namespace Brisel
