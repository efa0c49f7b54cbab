// The object interface of the image tools: blending, comparison, enlarging.
#pragma once

#include <cstdint>

#include "brisel/infrastructure/image_blending.h"
#include "brisel/platform/canvas.h"
#include "brisel/platform/image.h"

/// `brisel_imageByBlendingWithImage:usingRgbaBlock:`: see `Brisel::imageByBlendingUsingRgbaBlock`.
Brisel::Platform::ImagePtr brisel_imageByBlendingWithImageUsingRgbaBlock(const Brisel::Platform::UIImage& image,
                                                                         const Brisel::Platform::ImagePtr& otherImage,
                                                                         const Brisel::RgbaBlock& block);

/// `brisel_imageByBlendingWithImage:usingColorBlock:`: see `Brisel::imageByBlendingUsingColorBlock`.
Brisel::Platform::ImagePtr brisel_imageByBlendingWithImageUsingColorBlock(const Brisel::Platform::UIImage& image,
                                                                          const Brisel::Platform::ImagePtr& otherImage,
                                                                          const Brisel::ColorBlock& block);

/// `brisel_isEqualToPixelsInImage:accuracy:`: see `Brisel::isEqualToPixels`.
bool brisel_isEqualToPixelsInImage(const Brisel::Platform::UIImage& image, const Brisel::Platform::ImagePtr& otherImage,
                                   double accuracy);

/// `brisel_imageByScaling:withInterpolation:gridColor:`: see `Brisel::imageByScaling`.
Brisel::Platform::ImagePtr brisel_imageByScaling(const Brisel::Platform::UIImage& image, std::uint64_t factor,
                                                 Brisel::Platform::CGInterpolationQuality interpolation,
                                                 const Brisel::Platform::ColorPtr& gridColor);

namespace VLMBrisel {

/// `rgbaFromUint32:`: the pixel of the same four bytes in memory, red first. So which bits of the word are red depends
/// on the machine's byte order.
Brisel::Pixel rgbaFromUint32(std::uint32_t word) noexcept;

/// `uint32FromRgba:`: the word of the same four bytes in memory.
std::uint32_t uint32FromRgba(const Brisel::Pixel& pixel) noexcept;

}  // namespace VLMBrisel
