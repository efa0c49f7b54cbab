// Whether two images look the same.
#pragma once

#include "brisel/platform/image.h"

namespace Brisel {

/// Whether two images have as many pixels a row and as many rows, and no channel of any pixel differs by more than
/// `accuracy`, a fraction of full scale: 0 demands equal bytes, 1 accepts any two images of one size. Scales do not
/// matter. The bytes of the bitmaps are compared as they are, so a clear pixel of (255, 255, 255, 0), which a caller's
/// bitmap may hold, is not one of (0, 0, 0, 0).
///
/// An image equals itself without a look at its pixels, whatever the accuracy. A negative accuracy makes any pixel
/// unequal; with NaN no difference is too great. Nothing equals a null `otherImage`; two empty images are equal.
bool isEqualToPixels(const Platform::UIImage& image, const Platform::ImagePtr& otherImage, double accuracy);

}  // namespace Brisel
