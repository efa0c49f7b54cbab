// Small images of any sizes and pixels: comparison and blending against the plain ways, scaling against the pixels that
// were repeated and against what a canvas draws.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

#include "brisel/infrastructure/image_blending.h"
#include "brisel/infrastructure/image_comparison.h"
#include "brisel/infrastructure/image_enlarging.h"

#include "fuzz/input.h"
#include "tests/written_image_scaling.h"
#include "tests/written_image_tools.h"

using namespace Brisel::Platform;
using Brisel::Pixel;
using Brisel::Fuzz::require;
using Brisel::Fuzz::Source;

namespace {

ImagePtr takeImage(Source& source) {
  constexpr CGFloat kScales[] = {1, 2, 3, 2.625};
  const auto form = source.take<std::uint8_t>();
  Bitmap bitmap{source.take<std::uint8_t>() % 40, source.take<std::uint8_t>() % 12, {}};
  bitmap.rgba.resize(bitmap.bytesPerRow() * static_cast<std::size_t>(bitmap.height));
  for (std::size_t i = 0; i < bitmap.rgba.size(); i += 4) {
    auto pixel = source.take<Pixel>();
    pixel = {std::min(pixel.red, pixel.alpha), std::min(pixel.green, pixel.alpha), std::min(pixel.blue, pixel.alpha),
             pixel.alpha};
    std::memcpy(bitmap.rgba.data() + i, &pixel, sizeof pixel);
  }
  return UIImage::imageWithBitmap(std::move(bitmap), kScales[form % 4], static_cast<CGImageAlphaInfo>(form / 4 % 8));
}

// The same image with each byte a little off.
ImagePtr shaken(const UIImage& image, Source& source, int by) {
  if (!image.bitmap()) return UIImage::init();
  Bitmap bitmap = *image.bitmap();
  for (std::uint8_t& byte : bitmap.rgba) {
    byte = static_cast<std::uint8_t>(std::clamp(byte + source.take<std::int8_t>() % (by + 1), 0, 255));
  }
  return UIImage::imageWithBitmap(std::move(bitmap), 1);
}

void compare(const UIImage& image, const ImagePtr& other, double accuracy) {
  require(Brisel::isEqualToPixels(image, other, accuracy) ==
          Brisel::Tests::isEqualToPixelsAsWritten(image, other, accuracy));
}

bool isPixelOf(const UIImage& image, int x, int y, const Pixel* pixel) {
  const Bitmap* bitmap = image.bitmap().get();
  if (!bitmap || x >= bitmap->width || y >= bitmap->height) return pixel == nullptr;
  return pixel && std::memcmp(bitmap->pixel(x, y), pixel, sizeof *pixel) == 0;
}

// The second image over the first, each pixel checked by its place.
void blend(const UIImage& image, const ImagePtr& other, int stopAfter) {
  using Brisel::Tests::pixelHeight;
  using Brisel::Tests::pixelWidth;
  const int width = std::max(pixelWidth(&image), pixelWidth(other.get()));
  const int height = std::max(pixelHeight(&image), pixelHeight(other.get()));
  int count = 0;
  const ImagePtr result = Brisel::imageByBlendingUsingRgbaBlock(
      image, other, [&](const Pixel* a, const Pixel* b, Pixel& output, bool& stop) {
        require(!stop && output == Pixel{});
        require(isPixelOf(image, count % width, count / width, a) &&
                isPixelOf(*other, count % width, count / width, b));
        output = b ? *b : a ? *a : Pixel{};
        stop = ++count == stopAfter;
      });
  require((result == nullptr) == (stopAfter >= 1 && stopAfter <= width * height));
  require(count == (result ? width * height : stopAfter));
  if (!result) return;
  const ImagePtr byColors = Brisel::imageByBlendingUsingColorBlock(
      image, other, [](const ColorPtr& a, const ColorPtr& b, bool&) { return b ? b : a; });
  require(Brisel::isEqualToPixels(*result, byColors, 0));
}

void scale(const UIImage& image, std::uint64_t factor, CGInterpolationQuality interpolation, const ColorPtr& grid) {
  const ImagePtr result = Brisel::imageByScaling(image, factor, interpolation, grid);
  const ImagePtr expected = Brisel::Tests::imageByScalingAsWritten(image, factor, interpolation, grid);
  require((result != nullptr) == (expected != nullptr));
  if (!result) return;
  require(Brisel::isEqualToPixels(*result, expected, 0) && result->alphaInfo() == expected->alphaInfo());
  if (interpolation != CGInterpolationQuality::none || grid) return;
  const Bitmap& pixels = *result->bitmap();
  const auto times = static_cast<int>(factor);
  for (int y = 0; y < pixels.height; ++y) {
    for (int x = 0; x < pixels.width; ++x) {
      require(std::memcmp(pixels.pixel(x, y), image.bitmap()->pixel(x / times, y / times), 3) == 0);
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Source source(data, size);
  const auto accuracy = source.take<double>();
  const auto options = source.take<std::uint8_t>();
  const auto factor = source.take<std::uint64_t>();
  const int stopAfter = source.take<std::int16_t>();
  const ImagePtr image = takeImage(source);
  const ImagePtr other = options % 2 == 0 ? takeImage(source) : shaken(*image, source, options / 2 % 8);

  for (const double any : {accuracy, (options / 2 % 8 + 0.5) / 255.0, (options / 2 % 8 - 0.5) / 255.0}) {
    compare(*image, other, any);
    compare(*image, image, any);
    compare(*image, nullptr, any);
  }
  blend(*image, other, stopAfter);

  const auto interpolation = static_cast<CGInterpolationQuality>(options % 5);
  for (const ColorPtr& grid : {ColorPtr(), UIColor::initWithRed(1, 0, 1, 0.5)}) {
    scale(*image, factor % 10, interpolation, grid);
    scale(*image, factor % 10, CGInterpolationQuality::none, grid);
  }
  // What is too large is refused, and refused before anything is made of it.
  if (factor > Bitmap::kMostPixelsASide) {
    require(!Brisel::imageByScaling(*image, factor, interpolation, UIColor::initWithRed(1, 0, 1, 0.5)));
  }
  return 0;
}
