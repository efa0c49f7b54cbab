#include <utility>

#include "brisel/platform/image.h"
#include "brisel/platform/port.h"

namespace Brisel::Platform {

ImagePtr UIImage::imageWithData(std::span<const std::uint8_t> data, CGFloat scale, std::string* problem) {
  PngPicture picture = engine().decodePng(data);
  if (!picture.bitmap.isValid()) {
    if (problem) *problem = std::move(picture.problem);
    return nullptr;
  }
  return imageWithFittingBitmap(std::move(picture.bitmap), scale,
                                picture.hasAlpha ? CGImageAlphaInfo::last : CGImageAlphaInfo::noneSkipLast);
}

std::vector<std::uint8_t> UIImagePNGRepresentation(const UIImage& image) {
  return image.bitmap() ? engine().encodePng(*image.bitmap()) : std::vector<std::uint8_t>();
}

}  // namespace Brisel::Platform
