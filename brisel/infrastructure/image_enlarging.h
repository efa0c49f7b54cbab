// Images enlarged to be looked at closely.
#pragma once

#include <cstdint>

#include "brisel/platform/canvas.h"
#include "brisel/platform/color.h"
#include "brisel/platform/image.h"

namespace Brisel {

/// The image, `factor` times as wide and as high at the same scale, with lines a device pixel wide between what were
/// its pixels where a grid colour is given. It has alpha where the image has. With `CGInterpolationQuality::none` each
/// pixel becomes a square of pixels exactly like it.
///
/// Alpha info `only` counts as no alpha: the result is opaque. Pixels whose colours exceed their alpha, which is not
/// premultiplied, stay as they are with `none` and no grid; what else becomes of them is the port's affair.
///
/// There are as many horizontal lines as the image has pixels a row, and as many vertical ones as it has rows, less
/// one: deliberately crosswise, so in an image that is not square one direction has too few and the other some beyond
/// the edge. Null where the factor is 0, the image is empty, the result would exceed `Bitmap`'s greatest size, or there
/// is no memory for it.
Platform::ImagePtr imageByScaling(const Platform::UIImage& image, std::uint64_t factor,
                                  Platform::CGInterpolationQuality interpolation, const Platform::ColorPtr& gridColor);

}  // namespace Brisel
