#include "brisel/platform/linux/png.h"

#include <algorithm>
#include <cstddef>
#include <new>
#include <string>
#include <utility>

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

bool isGrey(const std::vector<std::uint8_t>& rgba) {
  for (std::size_t i = 0; i < rgba.size(); i += 4) {
    if (rgba[i] != rgba[i + 1] || rgba[i] != rgba[i + 2]) return false;
  }
  return true;
}

// The first so many of each pixel's.
void keepChannels(std::vector<std::uint8_t>& rgba, std::size_t count) {
  std::size_t to = 0;
  for (std::size_t from = 0; from < rgba.size(); from += 4) {
    for (std::size_t c = 0; c < count; ++c) rgba[to++] = rgba[from + c];
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

std::vector<std::uint8_t> encoded(const Bitmap& bitmap) {
  Png png;
  png.image.width = static_cast<png_uint_32>(bitmap.width);
  png.image.height = static_cast<png_uint_32>(bitmap.height);
  std::vector<std::uint8_t> pixels = bitmap.rgba;
  if (isOpaque(pixels)) {
    const bool grey = isGrey(pixels);  // most pictures of text, which become half as large so
    png.image.format = grey ? PNG_FORMAT_GRAY : PNG_FORMAT_RGB;
    keepChannels(pixels, grey ? 1 : 3);
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

// Of a file whose header is sound.
std::uint64_t bitsAPixel(std::span<const std::uint8_t> file) {
  constexpr std::size_t kDepth = 24;
  constexpr std::size_t kColorType = 25;
  const unsigned type = file[kColorType];
  if ((type & PNG_COLOR_MASK_PALETTE) != 0) return file[kDepth];
  const unsigned colors = (type & PNG_COLOR_MASK_COLOR) != 0 ? 3 : 1;
  return file[kDepth] * (colors + ((type & PNG_COLOR_MASK_ALPHA) != 0 ? 1U : 0U));
}

// Whether so many pixels can come out of so few bytes: zlib makes at most 1,032 of one. A few bytes that claim a huge
// picture shall not get the memory for it.
bool canHold(std::span<const std::uint8_t> file, std::uint64_t pixels) {
  constexpr std::uint64_t kBestRatio = 1032;
  return pixels * bitsAPixel(file) / 8 <= kBestRatio * file.size();
}

}  // namespace

std::vector<std::uint8_t> pngOf(const Bitmap& bitmap) {
  try {
    return encoded(bitmap);
  } catch (const std::bad_alloc&) {
    return {};
  }
}

PngPicture pictureOfPng(std::span<const std::uint8_t> file) {
  const auto none = [](std::string problem) { return PngPicture{{}, false, std::move(problem)}; };
  if (png_sig_cmp(file.data(), 0, std::min<std::size_t>(file.size(), 8)) != 0) return none("not a PNG file");
  Png png;
  const auto damage = [&](const std::string& what) { return none("a damaged PNG file: " + what); };
  if (png_image_begin_read_from_memory(&png.image, file.data(), file.size()) == 0) return damage(png.image.message);
  const std::string size = std::to_string(png.image.width) + " x " + std::to_string(png.image.height) + " pixels";
  const std::uint64_t pixels = std::uint64_t{png.image.width} * png.image.height;
  if (std::max(png.image.width, png.image.height) > Bitmap::kMostPixelsASide || pixels > Bitmap::kMostPixels) {
    return none("a picture of " + size + ", which is too large");
  }
  if (!canHold(file, pixels)) return damage("too short for " + size);
  PngPicture picture;
  picture.hasAlpha = (png.image.format & PNG_FORMAT_FLAG_ALPHA) != 0;
  png.image.format = PNG_FORMAT_RGBA;
  png.image.flags |= PNG_IMAGE_FLAG_16BIT_sRGB;  // What a file of 16 bits a channel means unless it says otherwise.
  picture.bitmap.width = static_cast<int>(png.image.width);
  picture.bitmap.height = static_cast<int>(png.image.height);
  try {
    picture.bitmap.rgba.resize(static_cast<std::size_t>(pixels) * 4);
  } catch (const std::bad_alloc&) {
    return none("a picture of " + size + ", which is too large for the memory");
  }
  if (png_image_finish_read(&png.image, nullptr, picture.bitmap.rgba.data(), 0, nullptr) == 0) {
    return damage(png.image.message);
  }
  premultiply(picture.bitmap.rgba);
  return picture;
}

}  // namespace Brisel::Platform::Linux
