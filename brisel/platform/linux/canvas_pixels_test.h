// What the tests of the Linux port's canvases share.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <vector>

#include "brisel/platform/port.h"

namespace Brisel::Platform {

using Pixel = std::array<int, 4>;

inline constexpr UIColor kBlack = UIColor::grey(0, 1);
inline constexpr UIColor kWhite = UIColor::grey(1, 1);
inline constexpr UIColor kSlate = UIColor::rgb(0.2, 0.4, 0.6);  // 51, 102, 153
inline constexpr Pixel kSlateBytes{51, 102, 153, 255};
inline constexpr Pixel kNothing{0, 0, 0, 0};
inline constexpr Pixel kBlackBytes{0, 0, 0, 255};
inline constexpr CGRect kAll{{0, 0}, {1000, 1000}};

inline constexpr CGInterpolationQuality kQualities[] = {CGInterpolationQuality::default_, CGInterpolationQuality::none,
                                                        CGInterpolationQuality::low, CGInterpolationQuality::medium,
                                                        CGInterpolationQuality::high};

inline Pixel at(const Bitmap& bitmap, int x, int y) {
  const std::uint8_t* p = bitmap.pixel(x, y);
  return {p[0], p[1], p[2], p[3]};
}
inline Pixel at(const Canvas& canvas, int x, int y) { return at(canvas.bitmap(), x, y); }
inline int alphaAt(const Canvas& canvas, int x, int y) { return at(canvas, x, y)[3]; }

inline std::unique_ptr<Canvas> makeCanvas(CGFloat side, CGFloat scale = 1, bool isOpaque = false) {
  return engine().makeCanvas({side, side}, scale, isOpaque);
}

inline Bitmap alphaMask(int width, int height, const std::vector<std::uint8_t>& alphas) {
  Bitmap mask{width, height, {}};
  for (const std::uint8_t alpha : alphas) mask.rgba.insert(mask.rgba.end(), {0, 0, 0, alpha});
  return mask;
}

// A picture in which no two pixels near each other are alike, some of them translucent.
inline Bitmap colourful(int width, int height) {
  Bitmap bitmap{width, height, {}};
  for (int i = 0; i < width * height; ++i) {
    const int alpha = 255 - i % 3 * 60;
    for (const int factor : {7, 31, 101}) bitmap.rgba.push_back(static_cast<std::uint8_t>(i * factor % (alpha + 1)));
    bitmap.rgba.push_back(static_cast<std::uint8_t>(alpha));
  }
  return bitmap;
}

inline UIBezierPath polygon(std::initializer_list<CGPoint> points) {
  UIBezierPath path;
  for (const CGPoint& point : points) path.isEmpty() ? path.moveToPoint(point) : path.addLineToPoint(point);
  return path;
}

inline bool isBlank(const Bitmap& bitmap) {
  return std::all_of(bitmap.rgba.begin(), bitmap.rgba.end(), [](std::uint8_t byte) { return byte == 0; });
}

inline bool isOpaqueThroughout(const Bitmap& bitmap) {
  for (std::size_t i = 3; i < bitmap.rgba.size(); i += 4) {
    if (bitmap.rgba[i] != 255) return false;
  }
  return true;
}

}  // namespace Brisel::Platform
