#include "brisel/platform/linux/glyph_rasteriser.h"

#include <algorithm>
#include <cmath>

namespace Brisel::Platform::Linux {
namespace {

constexpr double kFarthest = 65'535;  // pixels: what lies beyond is off every canvas
constexpr double kSubpixels = 64;     // FreeType's 26.6 fixed point
constexpr std::size_t kMostPoints = 32'767;
constexpr std::size_t kLargeCoverage = 1 << 20;  // bytes: more is not kept for the next glyph

// std::lround without the call, which costs more than all the rest of a point. What it rounds is far below 2^52.
FT_Pos nearest(double value) { return static_cast<FT_Pos>(value + std::copysign(0.5, value)); }

}  // namespace

// Takes an outline from HarfBuzz, in font units, into the rasteriser's arrays.
class GlyphRasteriser::Outliner {
 public:
  Outliner(GlyphRasteriser& out, const GlyphPlacement& placement) : out_(out), placement_(placement) {
    out_.points_.clear();
    out_.tags_.clear();
    out_.contours_.clear();
  }

  /// Whether there is an outline that FreeType can take.
  bool draw(hb_font_t* font, hb_codepoint_t glyph) {
    hb_font_get_glyph_shape(font, glyph, functions(), this);
    close();
    return isUsable_ && !out_.points_.empty();
  }

 private:
  static hb_draw_funcs_t* functions();

  void moveTo(double x, double y) {
    close();
    add(x, y, FT_CURVE_TAG_ON);
  }
  void lineTo(double x, double y) { add(x, y, FT_CURVE_TAG_ON); }
  void quadraticTo(double cx, double cy, double x, double y) {
    add(cx, cy, FT_CURVE_TAG_CONIC);
    add(x, y, FT_CURVE_TAG_ON);
  }
  void cubicTo(double c1x, double c1y, double c2x, double c2y, double x, double y) {
    add(c1x, c1y, FT_CURVE_TAG_CUBIC);
    add(c2x, c2y, FT_CURVE_TAG_CUBIC);
    add(x, y, FT_CURVE_TAG_ON);
  }
  void close() {
    if (out_.points_.size() > contourStart_) out_.contours_.push_back(static_cast<short>(out_.points_.size() - 1));
    contourStart_ = out_.points_.size();
  }

  void add(double x, double y, char tag) {
    const double px = placement_.x + x * placement_.pixelsPerUnit;
    const double py = -placement_.y + y * placement_.pixelsPerUnit;
    isUsable_ =
        isUsable_ && std::abs(px) <= kFarthest && std::abs(py) <= kFarthest && out_.points_.size() < kMostPoints;
    if (!isUsable_) return;
    out_.points_.push_back({nearest(px * kSubpixels), nearest(py * kSubpixels)});
    out_.tags_.push_back(tag);
  }

  GlyphRasteriser& out_;
  GlyphPlacement placement_;
  std::size_t contourStart_ = 0;
  bool isUsable_ = true;
};

hb_draw_funcs_t* GlyphRasteriser::Outliner::functions() {
  static hb_draw_funcs_t* const shared = [] {
    hb_draw_funcs_t* f = hb_draw_funcs_create();
    hb_draw_funcs_set_move_to_func(
        f,
        [](hb_draw_funcs_t*, void* data, hb_draw_state_t*, float x, float y, void*) {
          static_cast<Outliner*>(data)->moveTo(x, y);
        },
        nullptr, nullptr);
    hb_draw_funcs_set_line_to_func(
        f,
        [](hb_draw_funcs_t*, void* data, hb_draw_state_t*, float x, float y, void*) {
          static_cast<Outliner*>(data)->lineTo(x, y);
        },
        nullptr, nullptr);
    hb_draw_funcs_set_quadratic_to_func(
        f,
        [](hb_draw_funcs_t*, void* data, hb_draw_state_t*, float cx, float cy, float x, float y, void*) {
          static_cast<Outliner*>(data)->quadraticTo(cx, cy, x, y);
        },
        nullptr, nullptr);
    hb_draw_funcs_set_cubic_to_func(
        f,
        [](hb_draw_funcs_t*, void* data, hb_draw_state_t*, float c1x, float c1y, float c2x, float c2y, float x, float y,
           void*) { static_cast<Outliner*>(data)->cubicTo(c1x, c1y, c2x, c2y, x, y); },
        nullptr, nullptr);
    hb_draw_funcs_set_close_path_func(
        f, [](hb_draw_funcs_t*, void* data, hb_draw_state_t*, void*) { static_cast<Outliner*>(data)->close(); },
        nullptr, nullptr);
    hb_draw_funcs_make_immutable(f);
    return f;
  }();
  return shared;
}

GlyphCoverage* GlyphRasteriser::rasterise(hb_font_t* font, hb_codepoint_t glyph, const GlyphPlacement& placement,
                                          int canvasWidth, int canvasHeight, int (*stride)(int width)) {
  if (!Outliner(*this, placement).draw(font, glyph)) return nullptr;
  FT_Outline outline{};
  outline.n_points = static_cast<short>(points_.size());
  outline.n_contours = static_cast<short>(contours_.size());
  outline.points = points_.data();
  outline.tags = tags_.data();
  outline.contours = contours_.data();  // The nonzero rule is FreeType's own.

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

bool GlyphRasteriser::isWorthKeeping() const noexcept { return coverage_.rows.capacity() <= kLargeCoverage; }

}  // namespace Brisel::Platform::Linux
