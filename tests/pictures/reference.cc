#include "tests/pictures/reference.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <vector>

#include <cairo.h>

#include "brisel/platform/port.h"

namespace Brisel::Pictures {
namespace {

using Platform::Bitmap;

// The pixels of a PNG file, premultiplied; empty where there is no such file.
Bitmap read(const std::string& file) {
  const std::unique_ptr<cairo_surface_t, void (*)(cairo_surface_t*)> surface(
      cairo_image_surface_create_from_png(file.c_str()), cairo_surface_destroy);
  if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) return {};
  Bitmap bitmap{cairo_image_surface_get_width(surface.get()), cairo_image_surface_get_height(surface.get()), {}};
  const bool hasAlpha = cairo_image_surface_get_format(surface.get()) == CAIRO_FORMAT_ARGB32;
  const unsigned char* row = cairo_image_surface_get_data(surface.get());
  for (int y = 0; y < bitmap.height; ++y, row += cairo_image_surface_get_stride(surface.get())) {
    for (int x = 0; x < bitmap.width; ++x) {
      const unsigned char* bgra = row + static_cast<std::ptrdiff_t>(x) * 4;
      bitmap.rgba.insert(bitmap.rgba.end(), {bgra[2], bgra[1], bgra[0], hasAlpha ? bgra[3] : std::uint8_t{255}});
    }
  }
  return bitmap;
}

}  // namespace

testing::AssertionResult equalsReference(const Bitmap& picture, const std::string& name) {
  const Bitmap reference = read(std::string(BRISEL_REFERENCES) + "/" + name + ".png");
  if (picture == reference) return testing::AssertionSuccess();

  std::filesystem::create_directories(BRISEL_PICTURES_OUT);
  const std::string actual = std::string(BRISEL_PICTURES_OUT) + "/" + name + ".png";
  const auto png = Platform::engine().encodePng(picture);
  std::ofstream(actual, std::ios::binary)
      .write(reinterpret_cast<const char*>(png.data()), static_cast<long>(png.size()));
  auto failure = testing::AssertionFailure() << name << ": see " << actual;
  if (reference.rgba.empty()) return failure << "; there is no reference";
  if (picture.width != reference.width || picture.height != reference.height) {
    return failure << "; it is " << picture.width << " x " << picture.height << " pixels and not " << reference.width
                   << " x " << reference.height;
  }
  std::size_t different = 0;
  int largest = 0;
  for (std::size_t i = 0; i < picture.rgba.size(); ++i) {
    const int difference = std::abs(int{picture.rgba[i]} - int{reference.rgba[i]});
    different += difference > 0 ? 1 : 0;
    largest = std::max(largest, difference);
  }
  return failure << "; " << different << " bytes differ, by up to " << largest;
}

}  // namespace Brisel::Pictures
