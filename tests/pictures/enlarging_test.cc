// Enlarged images with their grids.
#include <cstdint>
#include <utility>

#include <gtest/gtest.h>

#include "brisel/infrastructure/image_enlarging.h"

#include "tests/pictures/reference.h"

namespace Brisel::Pictures {
namespace {

using namespace Platform;

// Wider than high, red growing to the right and green downwards, with one clear pixel.
ImagePtr ramp(int width, int height, CGFloat scale) {
  Bitmap bitmap{width, height, {}};
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const auto red = static_cast<std::uint8_t>(x * 255 / (width - 1));
      const auto green = static_cast<std::uint8_t>(y * 255 / (height - 1));
      if (x == 1 && y == 1) {
        bitmap.rgba.insert(bitmap.rgba.end(), 4, 0);
      } else {
        bitmap.rgba.insert(bitmap.rgba.end(), {red, green, 96, 255});
      }
    }
  }
  return UIImage::imageWithBitmap(std::move(bitmap), scale);
}

// Ten horizontal lines less one are counted for ten columns; three of them fall into the picture, the last on its lower
// edge. Two vertical ones are counted for three rows, so most of the width has none.
TEST(EnlargedPicture, OfMoreColumnsThanRowsHasItsGridCountedCrosswise) {
  const auto image = imageByScaling(*ramp(10, 3, 1), 8, CGInterpolationQuality::none, UIColor::initWithRed(1, 1, 1, 1));
  EXPECT_TRUE(equalsReference(*image->bitmap(), "grid_wide"));
}

TEST(EnlargedPicture, OfMoreRowsThanColumnsHasItsGridCountedCrosswise) {
  const auto image =
      imageByScaling(*ramp(3, 10, 2), 8, CGInterpolationQuality::none, UIColor::initWithRed(1, 1, 1, 0.5));
  EXPECT_TRUE(equalsReference(*image->bitmap(), "grid_high_translucent"));
}

}  // namespace
}  // namespace Brisel::Pictures
