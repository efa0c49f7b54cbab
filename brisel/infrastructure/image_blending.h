// Two images made into one, pixel by pixel, by a function of the caller's.
#pragma once

#include <functional>

#include "brisel/platform/color.h"
#include "brisel/platform/image.h"

namespace Brisel {

/// The four bytes of one pixel as they lie in a bitmap: premultiplied, red first.
struct Pixel {
  unsigned char red = 0;    ///< 0…255, as all four
  unsigned char green = 0;  ///< at most the alpha, as all colours
  unsigned char blue = 0;   ///< likewise
  unsigned char alpha = 0;  ///< 0 is clear, 255 opaque
  friend bool operator==(const Pixel&, const Pixel&) = default;
};

/// Makes one pixel of two, each null where its image has none: it writes `output`, which is fresh for each call, or
/// sets `stop`, which is false before each call.
using RgbaBlock = std::function<void(const Pixel* pixel, const Pixel* otherPixel, Pixel& output, bool& stop)>;

/// The same in colours, which are likewise null where there is no pixel. A null answer is a clear pixel.
using ColorBlock = std::function<Platform::ColorPtr(const Platform::ColorPtr& color,
                                                    const Platform::ColorPtr& otherColor, bool& stop)>;

/// The image that a block makes of two, laid on each other at their first row and column, at the first one's scale. The
/// result is as wide as the wider and as high as the higher; the block is called once for each position of it, row by
/// row, also where neither image has a pixel.
///
/// Null once the block has set `stop`, be it at the last pixel. A null `otherImage` has no pixels. Where the result has
/// none, would have more than `Bitmap::kMostPixels`, or finds no memory, it is an empty image and the block is not
/// called. What the block throws is passed on. An empty block is a programming error.
Platform::ImagePtr imageByBlendingUsingRgbaBlock(const Platform::UIImage& image, const Platform::ImagePtr& otherImage,
                                                 const RgbaBlock& block);

/// The same by colours. A pixel's colour has its bytes divided by 255 as components, premultiplied as they are; the
/// answer's are multiplied by 255, rounded (halves away from zero) and kept within 0…255, NaN being 0.
Platform::ImagePtr imageByBlendingUsingColorBlock(const Platform::UIImage& image, const Platform::ImagePtr& otherImage,
                                                  const ColorBlock& block);

}  // namespace Brisel
