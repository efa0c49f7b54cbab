// Any bytes as a picture file: there is a premultiplied picture that is written and read back as it is, or one line
// that says why there is none.
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "brisel/platform/image.h"

#include "fuzz/input.h"

using namespace Brisel::Platform;
using Brisel::Fuzz::require;

namespace {

// The number of pixels that the header claims. Large pictures take memory and time and say nothing new.
std::uint64_t claimedPixels(std::span<const std::uint8_t> file) {
  constexpr std::size_t kDimensions = 16;
  if (file.size() < kDimensions + 8) return 0;
  std::uint64_t width = 0;
  std::uint64_t height = 0;
  for (std::size_t i = 0; i < 4; ++i) {
    width = width << 8 | file[kDimensions + i];
    height = height << 8 | file[kDimensions + 4 + i];
  }
  return width * height;
}

bool isPremultiplied(const Bitmap& bitmap) {
  for (std::size_t i = 0; i < bitmap.rgba.size(); i += 4) {
    const auto alpha = bitmap.rgba[i + 3];
    if (bitmap.rgba[i] > alpha || bitmap.rgba[i + 1] > alpha || bitmap.rgba[i + 2] > alpha) return false;
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::uint64_t kManyPixels = 1 << 20;
  constexpr std::uint64_t kTooMany = std::uint64_t{1} << 27;  // refused before any memory is taken for them
  const std::span file(data, size);
  const std::uint64_t pixels = claimedPixels(file);
  if (pixels > kManyPixels && pixels <= kTooMany) return 0;

  std::string problem;
  const ImagePtr image = UIImage::imageWithData(file, 1, &problem);
  require((image == nullptr) == !problem.empty());
  require(problem.find('\n') == std::string::npos);
  if (!image) return 0;
  require(image->bitmap() && image->bitmap()->isValid() && isPremultiplied(*image->bitmap()));
  const ImagePtr again = UIImage::imageWithData(UIImagePNGRepresentation(*image));
  require(again && *again->bitmap() == *image->bitmap());
  return 0;
}
