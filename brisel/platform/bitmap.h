#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Brisel::Platform {

/// Pixels: rows from the top, each pixel four bytes in the order red, green, blue, alpha, premultiplied, without
/// padding.
struct Bitmap {
  int width = 0;   // pixels
  int height = 0;  // pixels
  std::vector<std::uint8_t> rgba;

  const std::uint8_t* pixel(int x, int y) const noexcept {
    return rgba.data() +
           (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)) * 4;
  }
  friend bool operator==(const Bitmap&, const Bitmap&) = default;
};

}  // namespace Brisel::Platform
