// The enlarging of images as it is told, all of it drawn on a canvas. Where ports find the nearest pixel in fixed
// point, it is exact as long as width x factor^2 stays below 2^15.
#pragma once

#include <cstdint>

#include "brisel/platform/bezier_path.h"
#include "brisel/platform/views/image_renderer.h"

namespace Brisel::Tests {

inline Platform::ImagePtr imageByScalingAsWritten(const Platform::UIImage& image, std::uint64_t factor,
                                                  Platform::CGInterpolationQuality interpolation,
                                                  const Platform::ColorPtr& gridColor) {
  using namespace Platform;
  if (factor == 0 || image.size() == CGSize{}) return nullptr;
  const CGFloat s = image.scale();
  const CGFloat times = static_cast<CGFloat>(factor);
  const CGFloat w = image.size().width;
  const CGFloat h = image.size().height;
  const auto alphaInfo = static_cast<std::uint32_t>(image.alphaInfo());
  UIGraphicsImageRendererFormat format;
  format.scale = s;
  format.opaque = !(alphaInfo >= 1 && alphaInfo <= 4);
  const ImagePtr result = UIGraphicsImageRenderer({w * times, h * times}, format).image([&](Canvas& canvas) {
    canvas.setInterpolationQuality(interpolation);
    drawInRect(image, canvas, {{0, 0}, {w * times, h * times}});
    if (!gridColor) return;
    UIBezierPath path;
    path.setLineWidth(1 / s);
    for (int i = 1; i < s * w; ++i) {
      path.moveToPoint({0, (i * times - 0.5) / s});
      path.addLineToPoint({w * times, (i * times - 0.5) / s});
    }
    for (int i = 1; i < s * h; ++i) {
      path.moveToPoint({(i * times - 0.5) / s, 0});
      path.addLineToPoint({(i * times - 0.5) / s, h * times});
    }
    canvas.strokePath(path, *gridColor);
  });
  return result->bitmap() ? result : nullptr;
}

}  // namespace Brisel::Tests
