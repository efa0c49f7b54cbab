#include "brisel/platform/linux/glyph_rasteriser.h"

#include <algorithm>
#include <cmath>

namespace Brisel::Platform::Linux {
namespace {

constexpr double kFarthest = 65'535;             // pixels: beyond, FreeType's fixed point would overflow
constexpr double kSubpixels = 64;                // FreeType's 26.6 fixed point
constexpr std::size_t kLargeCoverage = 1 << 20;  // bytes: more is not kept for the next glyph

// std::lround without the call, which costs more than all the rest of a point. What it rounds is far below 2^52.
FT_Pos nearest(double value) { return static_cast<FT_Pos>(value + std::copysign(0.5, value)); }

}  // namespace

GlyphCoverage* GlyphRasteriser::rasterise(const GlyphOutline& glyph, const GlyphPlacement& placement, int canvasWidth,
                                          int canvasHeight, int (*stride)(int width)) {
  if (glyph.points.empty() || !place(glyph, placement)) return nullptr;
  FT_Outline outline{};
  outline.n_points = static_cast<short>(points_.size());
  outline.n_contours = static_cast<short>(glyph.contours.size());
  outline.points = points_.data();
  // FreeType changes neither of these. The nonzero rule is its own.
  // NOLINTBEGIN(cppcoreguidelines-pro-type-const-cast)
  outline.tags = const_cast<char*>(glyph.tags.data());
  outline.contours = const_cast<short*>(glyph.contours.data());
  // NOLINTEND(cppcoreguidelines-pro-type-const-cast)

  FT_BBox box{};
  FT_Outline_Get_CBox(&outline, &box);
  const auto pixelFloor = [](FT_Pos v) { return static_cast<int>(std::floor(static_cast<double>(v) / kSubpixels)); };
  const auto pixelCeil = [](FT_Pos v) { return static_cast<int>(std::ceil(static_cast<double>(v) / kSubpixels)); };
  const int left = std::max(pixelFloor(box.xMin), 0);
  const int right = std::min(pixelCeil(box.xMax), canvasWidth);
  const int top = std::max(-pixelCeil(box.yMax), 0);
  const int bottom = std::min(-pixelFloor(box.yMin), canvasHeight);
  if (left >= right || top >= bottom) return nullptr;

  coverage_.left = left;
  coverage_.top = top;
  coverage_.width = right - left;
  coverage_.height = bottom - top;
  coverage_.stride = stride(coverage_.width);
  coverage_.rows.assign(static_cast<std::size_t>(coverage_.stride) * static_cast<std::size_t>(coverage_.height), 0);

  FT_Outline_Translate(&outline, -static_cast<FT_Pos>(left) * 64, static_cast<FT_Pos>(bottom) * 64);
  FT_Bitmap bitmap{};
  bitmap.width = static_cast<unsigned>(coverage_.width);
  bitmap.rows = static_cast<unsigned>(coverage_.height);
  bitmap.pitch = coverage_.stride;
  bitmap.buffer = coverage_.rows.data();
  bitmap.num_grays = 256;
  bitmap.pixel_mode = FT_PIXEL_MODE_GRAY;
  return FT_Outline_Get_Bitmap(freetype_.get(), &outline, &bitmap) == FT_Err_Ok ? &coverage_ : nullptr;
}

bool GlyphRasteriser::place(const GlyphOutline& glyph, const GlyphPlacement& placement) {
  points_.resize(glyph.points.size());
  for (std::size_t i = 0; i < points_.size(); ++i) {
    const double x = placement.x + glyph.points[i].x * placement.pixelsPerUnit;
    const double y = -placement.y + glyph.points[i].y * placement.pixelsPerUnit;
    if (!(std::abs(x) <= kFarthest && std::abs(y) <= kFarthest)) return false;
    points_[i] = {nearest(x * kSubpixels), nearest(y * kSubpixels)};
  }
  return true;
}

bool GlyphRasteriser::isWorthKeeping() const noexcept { return coverage_.rows.capacity() <= kLargeCoverage; }

}  // namespace Brisel::Platform::Linux
