#include "brisel/platform/image.h"

#include <cmath>
#include <utility>

namespace Brisel::Platform {
namespace {

bool isOpaque(CGImageAlphaInfo alphaInfo) {
  switch (alphaInfo) {
    case CGImageAlphaInfo::none:
    case CGImageAlphaInfo::noneSkipLast:
    case CGImageAlphaInfo::noneSkipFirst:
      return true;
    case CGImageAlphaInfo::premultipliedLast:
    case CGImageAlphaInfo::premultipliedFirst:
    case CGImageAlphaInfo::last:
    case CGImageAlphaInfo::first:
    case CGImageAlphaInfo::only:
      return false;
  }
  return false;
}

}  // namespace

ImagePtr UIImage::init() {
  return ImagePtr(new UIImage(nullptr, 1, CGImageAlphaInfo::none, UIImageRenderingMode::automatic));
}

ImagePtr UIImage::imageWithBitmap(Bitmap bitmap, CGFloat scale, CGImageAlphaInfo alphaInfo) {
  if (isOpaque(alphaInfo)) {
    for (std::size_t i = 3; i < bitmap.rgba.size(); i += 4) bitmap.rgba[i] = 255;
  }
  return imageWithFittingBitmap(std::move(bitmap), scale, alphaInfo);
}

ImagePtr UIImage::imageWithFittingBitmap(Bitmap bitmap, CGFloat scale, CGImageAlphaInfo alphaInfo) {
  if (!bitmap.isValid()) return init();
  if (!(std::isfinite(scale) && scale > 0)) scale = 1;
  return ImagePtr(new UIImage(std::make_shared<const Bitmap>(std::move(bitmap)), scale, alphaInfo,
                              UIImageRenderingMode::automatic));
}

CGSize UIImage::size() const noexcept {
  if (!bitmap_) return {};
  return {bitmap_->width / scale_, bitmap_->height / scale_};
}

ImagePtr UIImage::imageWithRenderingMode(UIImageRenderingMode renderingMode) const {
  return ImagePtr(new UIImage(bitmap_, scale_, alphaInfo_, renderingMode));
}

}  // namespace Brisel::Platform
