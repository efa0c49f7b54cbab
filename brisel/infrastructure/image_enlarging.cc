#include "brisel/infrastructure/image_enlarging.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <optional>
#include <utility>
#include <vector>

#include "brisel/platform/bezier_path.h"
#include "brisel/platform/views/image_renderer.h"

namespace Brisel {
namespace {

using Platform::Bitmap;
using Platform::Canvas;
using Platform::CGFloat;
using Platform::CGImageAlphaInfo;
using Platform::CGInterpolationQuality;
using Platform::CGSize;
using Platform::ColorPtr;
using Platform::ImagePtr;
using Platform::UIBezierPath;
using Platform::UIGraphicsImageRenderer;
using Platform::UIGraphicsImageRendererFormat;
using Platform::UIImage;

bool hasAlpha(CGImageAlphaInfo alphaInfo) {
  switch (alphaInfo) {
    case CGImageAlphaInfo::premultipliedLast:
    case CGImageAlphaInfo::premultipliedFirst:
    case CGImageAlphaInfo::last:
    case CGImageAlphaInfo::first:
      return true;
    case CGImageAlphaInfo::none:
    case CGImageAlphaInfo::noneSkipLast:
    case CGImageAlphaInfo::noneSkipFirst:
    case CGImageAlphaInfo::only:
      return false;
  }
  return false;
}

// In doubles, since the factor may be any number.
bool isTooLarge(const Bitmap& bitmap, std::uint64_t factor) {
  const auto times = static_cast<double>(factor);
  const double width = bitmap.width * times;
  const double height = bitmap.height * times;
  return std::max(width, height) > Bitmap::kMostPixelsASide || width * height > Bitmap::kMostPixels;
}

// Each pixel as a square of `factor` by `factor`; nothing where there is no memory.
std::optional<Bitmap> repeated(const Bitmap& bitmap, std::size_t factor) try {
  // Pixels are written by the four: what is too many is overwritten by the next pixel, or lies behind the row.
  constexpr std::size_t kAtOnce = 4;
  constexpr std::size_t kPixel = 4;
  const int times = static_cast<int>(factor);
  Bitmap result{bitmap.width * times, bitmap.height * times, {}};
  const std::size_t bytesPerRow = result.bytesPerRow();
  result.rgba.reserve(bytesPerRow * static_cast<std::size_t>(result.height));
  std::vector<std::uint8_t> row(bytesPerRow + kAtOnce * kPixel);
  for (int y = 0; y < bitmap.height; ++y) {
    std::uint8_t* place = row.data();
    for (int x = 0; x < bitmap.width; ++x, place += factor * kPixel) {
      std::uint32_t pixel = 0;
      std::memcpy(&pixel, bitmap.pixel(x, y), kPixel);
      const std::array<std::uint32_t, kAtOnce> four{pixel, pixel, pixel, pixel};
      for (std::size_t i = 0; i < factor; i += kAtOnce) std::memcpy(place + i * kPixel, four.data(), sizeof four);
    }
    for (std::size_t i = 0; i < factor; ++i) {
      result.rgba.insert(result.rgba.end(), row.data(), row.data() + bytesPerRow);
    }
  }
  return result;
} catch (const std::bad_alloc&) {
  return std::nullopt;
}

// One path for all lines, so that a translucent colour is not laid on twice where they cross.
UIBezierPath gridPath(const UIImage& image, CGFloat factor, CGSize newSize) {
  const CGFloat scale = image.scale();
  const CGFloat pixelWidth = scale * image.size().width;
  const CGFloat pixelHeight = scale * image.size().height;
  UIBezierPath path;
  path.setLineWidth(1 / scale);
  // Horizontal lines are counted by the width and vertical ones by the height: deliberate.
  for (int i = 1; i < pixelWidth; ++i) {
    const CGFloat y = (i * factor - 0.5) / scale;
    path.moveToPoint({0, y});
    path.addLineToPoint({newSize.width, y});
  }
  for (int i = 1; i < pixelHeight; ++i) {
    const CGFloat x = (i * factor - 0.5) / scale;
    path.moveToPoint({x, 0});
    path.addLineToPoint({x, newSize.height});
  }
  return path;
}

}  // namespace

ImagePtr imageByScaling(const UIImage& image, std::uint64_t factor, CGInterpolationQuality interpolation,
                        const ColorPtr& gridColor) {
  if (factor == 0 || !image.bitmap() || isTooLarge(*image.bitmap(), factor)) return nullptr;
  UIGraphicsImageRendererFormat format;
  format.scale = image.scale();
  format.opaque = !hasAlpha(image.alphaInfo());

  // Nothing need be drawn to repeat pixels, and a port that finds the nearest one in fixed point may miss it.
  ImagePtr source;
  if (interpolation == CGInterpolationQuality::none) {
    std::optional<Bitmap> bitmap = repeated(*image.bitmap(), factor);
    if (!bitmap) return nullptr;
    source =
        UIImage::imageWithBitmap(*std::move(bitmap), format.scale,
                                 format.opaque ? CGImageAlphaInfo::noneSkipLast : CGImageAlphaInfo::premultipliedLast);
    if (!gridColor) return source;
  }
  const auto times = static_cast<CGFloat>(factor);
  const CGSize newSize{image.size().width * times, image.size().height * times};
  const ImagePtr result = UIGraphicsImageRenderer(newSize, format).image([&](Canvas& canvas) {
    canvas.setInterpolationQuality(interpolation);
    drawInRect(source ? *source : image, canvas, {{0, 0}, newSize});
    if (gridColor) canvas.strokePath(gridPath(image, times, newSize), *gridColor);
  });
  return result->bitmap() ? result : nullptr;
}

}  // namespace Brisel
