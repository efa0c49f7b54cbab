#include "gallery/window/icon_view.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "brisel/icons/icon_image.h"
#include "brisel/platform/views/image_renderer.h"

namespace Brisel::Gallery {
namespace {

Platform::ImagePtr mirrored(const Platform::UIImage& image) {
  if (!image.bitmap()) return Platform::UIImage::init();
  Platform::Bitmap bitmap = *image.bitmap();
  for (int y = 0; y < bitmap.height; ++y) {
    for (int left = 0, right = bitmap.width - 1; left < right; ++left, --right) {
      const auto at = [&](int x) { return bitmap.rgba.begin() + (bitmap.pixel(x, y) - bitmap.rgba.data()); };
      std::swap_ranges(at(left), at(left) + 4, at(right));
    }
  }
  return Platform::UIImage::imageWithBitmap(std::move(bitmap), image.scale());
}

}  // namespace

std::shared_ptr<IconView> IconView::initWithIcon(const Icon& icon, Platform::CGFloat side,
                                                 const Platform::ColorPtr& color) {
  return made(std::shared_ptr<IconView>(new IconView(icon, side, color)), {});
}

void IconView::setSide(Platform::CGFloat side) {
  side_ = side;
  invalidateIntrinsicContentSize();
}

void IconView::drawContent(Platform::Canvas& canvas, Platform::CGPoint at) const {
  const bool isMirrored =
      effectiveUserInterfaceLayoutDirection() == Platform::UIUserInterfaceLayoutDirection::rightToLeft;
  const Icon icon = isMirrored ? icon_.rightToLeft() : icon_;
  const bool isAnother = !(icon == icon_);  // which points the right way already
  Platform::ImagePtr picture = image(icon, {side_, side_}, std::nullopt, color_, Platform::UIColor::clearColor());
  if (isMirrored && icon.autoMirror() && !isAnother) picture = mirrored(*picture);
  Platform::drawInRect(*picture, canvas, {at, bounds().size});
}

}  // namespace Brisel::Gallery
