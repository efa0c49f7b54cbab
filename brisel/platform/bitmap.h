#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Brisel::Platform {

/// Pixels: rows from the top, each pixel four bytes in the order red, green, blue, alpha, premultiplied, without
/// padding.
struct Bitmap {
  /// The longest side that is drawn on, read from a file or computed.
  static constexpr std::uint32_t kMostPixelsASide = 32'767;
  static constexpr std::uint32_t kMostPixels = 134'217'728;  ///< in all; 2^27: 512 MiB

  int width = 0;                   ///< pixels
  int height = 0;                  ///< pixels
  std::vector<std::uint8_t> rgba;  ///< width × height × 4 bytes

  /// Bytes from one row to the next.
  std::size_t bytesPerRow() const noexcept { return static_cast<std::size_t>(width) * 4; }

  /// The four bytes of a pixel, which must be within the bitmap.
  const std::uint8_t* pixel(int x, int y) const noexcept {
    return rgba.data() + static_cast<std::size_t>(y) * bytesPerRow() + static_cast<std::size_t>(x) * 4;
  }

  /// Whether there are pixels, and as many as width and height say.
  bool isValid() const noexcept {
    return width > 0 && height > 0 && rgba.size() == bytesPerRow() * static_cast<std::size_t>(height);
  }

  friend bool operator==(const Bitmap&, const Bitmap&) = default;
};

}  // namespace Brisel::Platform
