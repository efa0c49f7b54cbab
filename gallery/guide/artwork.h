// Pictures for specimens, composed of the library's colours, shapes, icons and type.
#pragma once

#include "brisel/platform/geometry.h"
#include "brisel/platform/image.h"

namespace Brisel::Gallery {

/// A low sun over hills, opaque, `side` points wide and high, at the main screen's scale.
Platform::ImagePtr landscape(Platform::CGFloat side);

/// That with an album's lettering: the cover of an album that never was.
Platform::ImagePtr albumCover(Platform::CGFloat side);

/// A listener, with nothing behind her: what is not drawn is transparent.
Platform::ImagePtr portrait(Platform::CGFloat side);

}  // namespace Brisel::Gallery
