#include "brisel/object_interface/images.h"

#include <bit>

#include "brisel/infrastructure/image_comparison.h"
#include "brisel/infrastructure/image_enlarging.h"

using Brisel::Platform::CGInterpolationQuality;
using Brisel::Platform::ColorPtr;
using Brisel::Platform::ImagePtr;
using Brisel::Platform::UIImage;

ImagePtr brisel_imageByBlendingWithImageUsingRgbaBlock(const UIImage& image, const ImagePtr& otherImage,
                                                       const Brisel::RgbaBlock& block) {
  return Brisel::imageByBlendingUsingRgbaBlock(image, otherImage, block);
}

ImagePtr brisel_imageByBlendingWithImageUsingColorBlock(const UIImage& image, const ImagePtr& otherImage,
                                                        const Brisel::ColorBlock& block) {
  return Brisel::imageByBlendingUsingColorBlock(image, otherImage, block);
}

bool brisel_isEqualToPixelsInImage(const UIImage& image, const ImagePtr& otherImage, double accuracy) {
  return Brisel::isEqualToPixels(image, otherImage, accuracy);
}

ImagePtr brisel_imageByScaling(const UIImage& image, std::uint64_t factor, CGInterpolationQuality interpolation,
                               const ColorPtr& gridColor) {
  return Brisel::imageByScaling(image, factor, interpolation, gridColor);
}

namespace VLMBrisel {

Brisel::Pixel rgbaFromUint32(std::uint32_t word) noexcept { return std::bit_cast<Brisel::Pixel>(word); }

std::uint32_t uint32FromRgba(const Brisel::Pixel& pixel) noexcept { return std::bit_cast<std::uint32_t>(pixel); }

}  // namespace VLMBrisel
