#include "brisel/infrastructure/image_blending.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <span>
#include <utility>

#include "brisel/platform/fatal_error.h"

namespace Brisel {
namespace {

using Platform::Bitmap;
using Platform::CGFloat;
using Platform::ColorPtr;
using Platform::ImagePtr;
using Platform::UIColor;
using Platform::UIImage;

// All of a pixel's members are bytes, so it may be read where the bytes of a bitmap are.
static_assert(sizeof(Pixel) == 4 && alignof(Pixel) == 1);

// An image's pixels, kept alive whatever the block does to the image.
class Pixels {
 public:
  explicit Pixels(const UIImage* image) : bitmap_(image ? image->bitmap() : nullptr) {}

  int width() const { return bitmap_ ? bitmap_->width : 0; }
  int height() const { return bitmap_ ? bitmap_->height : 0; }
  /// Those of a row; none below the last.
  std::span<const Pixel> row(int y) const {
    if (y >= height()) return {};
    return {reinterpret_cast<const Pixel*>(bitmap_->pixel(0, y)), static_cast<std::size_t>(bitmap_->width)};
  }

 private:
  std::shared_ptr<const Bitmap> bitmap_;
};

ColorPtr colorOf(const Pixel* pixel) {
  if (!pixel) return nullptr;
  return UIColor::initWithRed(pixel->red / 255.0, pixel->green / 255.0, pixel->blue / 255.0, pixel->alpha / 255.0);
}

unsigned char byteOf(CGFloat component) {
  const CGFloat byte = std::round(component * 255.0);
  if (!(byte > 0)) return 0;  // NaN too
  return static_cast<unsigned char>(std::min(byte, 255.0));
}

Pixel pixelOf(const UIColor& color) {
  const auto [red, green, blue, alpha] = color.getRed();
  return {byteOf(red), byteOf(green), byteOf(blue), byteOf(alpha)};
}

}  // namespace

ImagePtr imageByBlendingUsingRgbaBlock(const UIImage& image, const ImagePtr& otherImage, const RgbaBlock& block) {
  if (!block) Platform::fatalError("Blending needs a block");
  const Pixels pixels(&image);
  const Pixels otherPixels(otherImage.get());
  const CGFloat scale = image.scale();
  Bitmap result{std::max(pixels.width(), otherPixels.width()), std::max(pixels.height(), otherPixels.height()), {}};
  if (std::int64_t{result.width} * result.height > Bitmap::kMostPixels) return UIImage::init();
  try {
    result.rgba.resize(result.bytesPerRow() * static_cast<std::size_t>(result.height));
  } catch (const std::bad_alloc&) {
    return UIImage::init();
  }

  const auto width = static_cast<std::size_t>(result.width);
  std::uint8_t* place = result.rgba.data();
  for (int y = 0; y < result.height; ++y) {
    const std::span<const Pixel> row = pixels.row(y);
    const std::span<const Pixel> otherRow = otherPixels.row(y);
    for (std::size_t x = 0; x < width; ++x, place += sizeof(Pixel)) {
      Pixel output;
      bool stop = false;
      block(x < row.size() ? &row[x] : nullptr, x < otherRow.size() ? &otherRow[x] : nullptr, output, stop);
      if (stop) return nullptr;
      std::memcpy(place, &output, sizeof output);
    }
  }
  return UIImage::imageWithBitmap(std::move(result), scale);
}

ImagePtr imageByBlendingUsingColorBlock(const UIImage& image, const ImagePtr& otherImage, const ColorBlock& block) {
  if (!block) Platform::fatalError("Blending needs a block");
  return imageByBlendingUsingRgbaBlock(
      image, otherImage, [&block](const Pixel* pixel, const Pixel* otherPixel, Pixel& output, bool& stop) {
        const ColorPtr color = block(colorOf(pixel), colorOf(otherPixel), stop);
        if (color) output = pixelOf(*color);
      });
}

}  // namespace Brisel
