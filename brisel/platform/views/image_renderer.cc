#include "brisel/platform/views/image_renderer.h"

#include "brisel/platform/fatal_error.h"
#include "brisel/platform/port.h"
#include "brisel/platform/screen.h"

namespace Brisel::Platform {

UIGraphicsImageRendererFormat::UIGraphicsImageRendererFormat() : scale(UIScreen::mainScreen().scale()) {}

ImagePtr UIGraphicsImageRenderer::image(const std::function<void(Canvas&)>& actions) const {
  if (!actions) fatalError("UIGraphicsImageRenderer was given nothing to draw an image with");
  const auto canvas = engine().makeCanvas(size_, format_.scale, format_.opaque);
  if (!canvas) return UIImage::init();
  actions(*canvas);
  return UIImage::imageWithFittingBitmap(
      canvas->takeBitmap(), format_.scale,
      format_.opaque ? CGImageAlphaInfo::noneSkipLast : CGImageAlphaInfo::premultipliedLast);
}

void drawInRect(const UIImage& image, Canvas& canvas, const CGRect& rect) {
  if (image.bitmap()) canvas.drawBitmap(*image.bitmap(), rect);
}

void drawAtPoint(const UIImage& image, Canvas& canvas, CGPoint point) {
  drawInRect(image, canvas, {point, image.size()});
}

}  // namespace Brisel::Platform
