#include "gallery/commands/compare_command.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "brisel/infrastructure/image_blending.h"
#include "brisel/infrastructure/image_comparison.h"
#include "brisel/tokens/color.h"

#include "gallery/catalogue_names.h"
#include "gallery/picture_file.h"

namespace Brisel::Gallery {
namespace {

constexpr double kFullScale = 255;

Pixel pixelOf(const Platform::UIColor& color) {
  const auto [red, green, blue, alpha] = color.getRed();
  const auto byte = [](double component) { return static_cast<unsigned char>(std::lround(component * kFullScale)); };
  return {byte(red), byte(green), byte(blue), byte(alpha)};
}

// Laid on black and brought down to a quarter of its light, so that what differs stands out of it.
Pixel dimmed(const Pixel& pixel) {
  const auto quarter = [](unsigned char channel) { return static_cast<unsigned char>(channel / 4); };
  return {quarter(pixel.red), quarter(pixel.green), quarter(pixel.blue), 255};
}

int largestStep(const Pixel& a, const Pixel& b) {
  return std::max(
      {std::abs(a.red - b.red), std::abs(a.green - b.green), std::abs(a.blue - b.blue), std::abs(a.alpha - b.alpha)});
}

std::string pixelSize(const Platform::UIImage& image) {
  return std::to_string(image.bitmap()->width) + " x " + std::to_string(image.bitmap()->height);
}

std::string describe(const Difference& found, const Platform::UIImage& first, const Platform::UIImage& second) {
  std::string text = std::to_string(found.differing) + " of " + std::to_string(found.pixels) +
                     (found.pixels == 1 ? " pixel" : " pixels") + (found.differing == 1 ? " differs" : " differ");
  if (pixelSize(first) != pixelSize(second)) {
    text += ", the pictures being " + pixelSize(first) + " and " + pixelSize(second);
  }
  return text + "; the largest difference is " + std::to_string(found.largest) + " of 255 (" +
         decimal(found.largest / kFullScale, 4) + ")";
}

}  // namespace

Difference difference(const Platform::UIImage& first, const Platform::ImagePtr& second, double accuracy) {
  const Pixel differing = pixelOf(*Color::fluorescentPink119().value());
  const Pixel alone = pixelOf(*Color::fluorescentYellow194().value());
  Difference found;
  found.picture = imageByBlendingUsingRgbaBlock(
      first, second, [&](const Pixel* pixel, const Pixel* other, Pixel& output, bool& /*stop*/) {
        if (pixel == nullptr && other == nullptr) {  // beside a picture that is wider and one that is higher
          output = {};
          return;
        }
        ++found.pixels;
        if (pixel == nullptr || other == nullptr) {
          ++found.differing;
          output = alone;
          return;
        }
        const int step = largestStep(*pixel, *other);
        found.largest = std::max(found.largest, step);
        const bool isTooFar = step > accuracy * kFullScale;
        if (isTooFar) ++found.differing;
        output = isTooFar ? differing : dimmed(*pixel);
      });
  return found;
}

Verdict comparePictures(const CompareCommand& command) {
  const Platform::ImagePtr first = readPicture(command.first);
  const Platform::ImagePtr second = readPicture(command.second);
  const Difference found = difference(*first, second, command.accuracy);
  if (!command.difference.empty()) writePicture(command.difference, found.picture);
  return {isEqualToPixels(*first, second, command.accuracy), describe(found, *first, *second)};
}

}  // namespace Brisel::Gallery
