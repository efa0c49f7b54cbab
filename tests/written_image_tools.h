// The image tools as they are told, without a short cut: what the quick ways must equal.
#pragma once

#include <cstdint>
#include <cstdlib>

#include "brisel/infrastructure/image_blending.h"
#include "brisel/platform/image.h"

namespace Brisel::Tests {

inline int pixelWidth(const Platform::UIImage* image) { return image && image->bitmap() ? image->bitmap()->width : 0; }
inline int pixelHeight(const Platform::UIImage* image) {
  return image && image->bitmap() ? image->bitmap()->height : 0;
}

/// By blending, with a block that stops at the first difference.
inline bool isEqualToPixelsAsWritten(const Platform::UIImage& image, const Platform::ImagePtr& other, double accuracy) {
  if (&image == other.get()) return true;
  if (!other) return false;
  if (pixelWidth(&image) != pixelWidth(other.get()) || pixelHeight(&image) != pixelHeight(other.get())) return false;
  bool result = true;
  imageByBlendingUsingRgbaBlock(image, other, [&](const Pixel* a, const Pixel* b, Pixel&, bool& stop) {
    const auto differs = [&](unsigned char one, unsigned char another) {
      return std::abs(int{one} - int{another}) > accuracy * 255.0;
    };
    if (!a || !b || differs(a->red, b->red) || differs(a->green, b->green) || differs(a->blue, b->blue) ||
        differs(a->alpha, b->alpha)) {
      result = false;
      stop = true;
    }
  });
  return result;
}

}  // namespace Brisel::Tests
