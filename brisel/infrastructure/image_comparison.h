// Whether two images look the same.
#pragma once

#include "brisel/platform/image.h"

namespace Brisel {

/// Whether two images have as many pixels a row and as many rows, and no channel of any pixel differs by more than
/// `accuracy`, a fraction of full scale: 0 demands equal bytes, 1 accepts any two images of one size. Scales do not
/// matter. Premultiplied bytes are compared, so a clear pixel has one form only.
///
/// An image equals itself without a look at its pixels, whatever the accuracy. A negative accuracy makes any pixel
/// unequal; with NaN no difference is too great. A null `otherImage` has no pixels: it equals empty images only.
bool isEqualToPixels(const Platform::UIImage& image, const Platform::ImagePtr& otherImage, double accuracy);

}  // namespace Brisel
