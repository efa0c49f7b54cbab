#include "tests/pictures/reference.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "brisel/infrastructure/image_blending.h"
#include "brisel/infrastructure/image_comparison.h"

namespace Brisel::Pictures {
namespace {

using namespace Platform;

// The picture of a PNG file; null where there is none, with the reason.
ImagePtr read(const std::string& file, std::string& problem) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) {
    problem = "there is no such file";
    return nullptr;
  }
  const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
  return UIImage::imageWithData({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()}, 1, &problem);
}

void write(const UIImage& image, const std::string& file) {
  const std::vector<std::uint8_t> png = UIImagePNGRepresentation(image);
  std::ofstream(file, std::ios::binary)
      .write(reinterpret_cast<const char*>(png.data()), static_cast<std::streamsize>(png.size()));
}

/// How two pictures of one size differ, and where: white on black, so that a difference of 1 is seen as well.
struct Difference {
  std::size_t bytes = 0;
  int largest = 0;
  ImagePtr picture;
};

Difference differenceOf(const UIImage& image, const ImagePtr& other) {
  Difference difference;
  difference.picture =
      imageByBlendingUsingRgbaBlock(image, other, [&](const Pixel* a, const Pixel* b, Pixel& output, bool&) {
        const std::size_t before = difference.bytes;
        const auto count = [&](unsigned char one, unsigned char another) {
          const int distance = std::abs(int{one} - int{another});
          difference.bytes += distance > 0 ? 1 : 0;
          difference.largest = std::max(difference.largest, distance);
        };
        count(a->red, b->red);
        count(a->green, b->green);
        count(a->blue, b->blue);
        count(a->alpha, b->alpha);
        const unsigned char grey = difference.bytes > before ? 255 : 0;
        output = {grey, grey, grey, 255};
      });
  return difference;
}

}  // namespace

testing::AssertionResult equalsReference(const Bitmap& picture, const std::string& name) {
  std::string problem;
  const ImagePtr image = UIImage::imageWithBitmap(picture, 1);
  const ImagePtr reference = read(std::string(BRISEL_REFERENCES) + "/" + name + ".png", problem);
  if (isEqualToPixels(*image, reference, 0)) return testing::AssertionSuccess();

  std::filesystem::create_directories(BRISEL_PICTURES_OUT);
  const std::string out = std::string(BRISEL_PICTURES_OUT) + "/" + name;
  write(*image, out + ".png");
  auto failure = testing::AssertionFailure() << name << ": see " << out << ".png";
  if (!reference) return failure << "; there is no reference: " << problem;
  if (image->size() != reference->size()) {
    return failure << "; it is " << picture.width << " x " << picture.height << " pixels and not "
                   << reference->bitmap()->width << " x " << reference->bitmap()->height;
  }
  const Difference difference = differenceOf(*image, reference);
  write(*difference.picture, out + "-difference.png");
  return failure << "; " << difference.bytes << " bytes differ, by up to " << difference.largest << ", where " << out
                 << "-difference.png is white";
}

}  // namespace Brisel::Pictures
