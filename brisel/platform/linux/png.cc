#include "brisel/platform/linux/png.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include <png.h>

namespace Brisel::Platform::Linux {
namespace {

// A PNG's pixels are not premultiplied, a bitmap's are. Both ways round to the nearest, and there and back is exact.
void premultiply(std::vector<std::uint8_t>& rgba) {
  for (std::size_t i = 0; i < rgba.size(); i += 4) {
    const unsigned alpha = rgba[i + 3];
    if (alpha == 255) continue;
    for (std::size_t c = i; c < i + 3; ++c) rgba[c] = static_cast<std::uint8_t>((rgba[c] * alpha + 127) / 255);
  }
}

void unpremultiply(std::vector<std::uint8_t>& rgba) {
  for (std::size_t i = 0; i < rgba.size(); i += 4) {
    const unsigned alpha = rgba[i + 3];
    if (alpha == 255) continue;
    for (std::size_t c = i; c < i + 3; ++c) {
      rgba[c] = alpha == 0 ? std::uint8_t{0}
                           : static_cast<std::uint8_t>(std::min((rgba[c] * 255U + alpha / 2) / alpha, 255U));
    }
  }
}

bool isOpaque(const std::vector<std::uint8_t>& rgba) {
  for (std::size_t i = 3; i < rgba.size(); i += 4) {
    if (rgba[i] != 255) return false;
  }
  return true;
}

void dropAlpha(std::vector<std::uint8_t>& rgba) {
  std::size_t to = 0;
  for (std::size_t from = 0; from < rgba.size(); from += 4) {
    for (std::size_t c = 0; c < 3; ++c) rgba[to++] = rgba[from + c];
  }
  rgba.resize(to);
}

// libpng's simplified interface, which keeps its errors to itself.
struct Png {
  Png() { image.version = PNG_IMAGE_VERSION; }
  ~Png() { png_image_free(&image); }
  Png(const Png&) = delete;
  Png& operator=(const Png&) = delete;

  png_image image{};
};

}  // namespace

std::vector<std::uint8_t> pngOf(const Bitmap& bitmap) {
  Png png;
  png.image.width = static_cast<png_uint_32>(bitmap.width);
  png.image.height = static_cast<png_uint_32>(bitmap.height);
  std::vector<std::uint8_t> pixels = bitmap.rgba;
  if (isOpaque(pixels)) {
    png.image.format = PNG_FORMAT_RGB;
    dropAlpha(pixels);
  } else {
    png.image.format = PNG_FORMAT_RGBA;
    unpremultiply(pixels);
  }
  std::vector<std::uint8_t> file(PNG_IMAGE_PNG_SIZE_MAX(png.image));
  png_alloc_size_t size = file.size();
  if (png_image_write_to_memory(&png.image, file.data(), &size, 0, pixels.data(), 0, nullptr) == 0) return {};
  file.resize(size);
  file.shrink_to_fit();
  return file;
}

PngPicture pictureOfPng(std::span<const std::uint8_t> file) {
  if (png_sig_cmp(file.data(), 0, std::min<std::size_t>(file.size(), 8)) != 0) return {{}, false, "not a PNG file"};
  Png png;
  const auto failure = [&png] {
    return PngPicture{{}, false, "a damaged PNG file: " + std::string(png.image.message)};
  };
  if (png_image_begin_read_from_memory(&png.image, file.data(), file.size()) == 0) return failure();
  const std::uint64_t pixels = std::uint64_t{png.image.width} * png.image.height;
  if (std::max(png.image.width, png.image.height) > Bitmap::kMostPixelsASide || pixels > Bitmap::kMostPixels) {
    return {{},
            false,
            "a picture of " + std::to_string(png.image.width) + " x " + std::to_string(png.image.height) +
                " pixels, which is too large"};
  }
  PngPicture picture;
  picture.hasAlpha = (png.image.format & PNG_FORMAT_FLAG_ALPHA) != 0;
  png.image.format = PNG_FORMAT_RGBA;
  png.image.flags |= PNG_IMAGE_FLAG_16BIT_sRGB;  // What a file of 16 bits a channel means unless it says otherwise.
  picture.bitmap.width = static_cast<int>(png.image.width);
  picture.bitmap.height = static_cast<int>(png.image.height);
  picture.bitmap.rgba.resize(static_cast<std::size_t>(pixels) * 4);
  if (png_image_finish_read(&png.image, nullptr, picture.bitmap.rgba.data(), 0, nullptr) == 0) return failure();
  premultiply(picture.bitmap.rgba);
  return picture;
}

}  // namespace Brisel::Platform::Linux
