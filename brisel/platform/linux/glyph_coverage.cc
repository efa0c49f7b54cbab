#include "brisel/platform/linux/glyph_coverage.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include "brisel/platform/linux/font_face.h"

namespace Brisel::Platform::Linux {
namespace {

constexpr double kMaxPixels = 32'767;
constexpr double kSubpixels = 64;  // FreeType's 26.6 fixed point
constexpr std::size_t kMaxPoints = 32'767;

// An outline as FreeType takes it, in pixels from the canvas's corner, y upwards.
class Outline {
 public:
  explicit Outline(const GlyphPlacement& placement) : placement_(placement) {}

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
    if (points_.size() > contourStart_) contours_.push_back(static_cast<short>(points_.size() - 1));
    contourStart_ = points_.size();
  }

  bool isUsable() const noexcept { return isUsable_ && !points_.empty() && points_.size() <= kMaxPoints; }

  FT_Outline freeType() noexcept {
    FT_Outline outline{};
    outline.n_points = static_cast<short>(points_.size());
    outline.n_contours = static_cast<short>(contours_.size());
    outline.points = points_.data();
    outline.tags = tags_.data();
    outline.contours = contours_.data();
    outline.flags = FT_OUTLINE_NONE;  // The nonzero rule.
    return outline;
  }

 private:
  void add(double x, double y, char tag) {
    const double px = placement_.x + x * placement_.pixelsPerUnit;
    const double py = -placement_.y + y * placement_.pixelsPerUnit;
    if (!(std::abs(px) <= 2 * kMaxPixels && std::abs(py) <= 2 * kMaxPixels)) {
      isUsable_ = false;
      return;
    }
    if (points_.size() > kMaxPoints) return;
    points_.push_back({std::lround(px * kSubpixels), std::lround(py * kSubpixels)});
    tags_.push_back(tag);
  }

  GlyphPlacement placement_;
  std::vector<FT_Vector> points_;
  std::vector<char> tags_;
  std::vector<short> contours_;
  std::size_t contourStart_ = 0;
  bool isUsable_ = true;
};

hb_draw_funcs_t* drawFunctions() {
  static hb_draw_funcs_t* const functions = [] {
    hb_draw_funcs_t* f = hb_draw_funcs_create();
    hb_draw_funcs_set_move_to_func(
        f,
        [](hb_draw_funcs_t*, void* data, hb_draw_state_t*, float x, float y, void*) {
          static_cast<Outline*>(data)->moveTo(x, y);
        },
        nullptr, nullptr);
    hb_draw_funcs_set_line_to_func(
        f,
        [](hb_draw_funcs_t*, void* data, hb_draw_state_t*, float x, float y, void*) {
          static_cast<Outline*>(data)->lineTo(x, y);
        },
        nullptr, nullptr);
    hb_draw_funcs_set_quadratic_to_func(
        f,
        [](hb_draw_funcs_t*, void* data, hb_draw_state_t*, float cx, float cy, float x, float y, void*) {
          static_cast<Outline*>(data)->quadraticTo(cx, cy, x, y);
        },
        nullptr, nullptr);
    hb_draw_funcs_set_cubic_to_func(
        f,
        [](hb_draw_funcs_t*, void* data, hb_draw_state_t*, float c1x, float c1y, float c2x, float c2y, float x, float y,
           void*) { static_cast<Outline*>(data)->cubicTo(c1x, c1y, c2x, c2y, x, y); },
        nullptr, nullptr);
    hb_draw_funcs_set_close_path_func(
        f, [](hb_draw_funcs_t*, void* data, hb_draw_state_t*, void*) { static_cast<Outline*>(data)->close(); }, nullptr,
        nullptr);
    hb_draw_funcs_make_immutable(f);
    return f;
  }();
  return functions;
}

// FreeType's rasteriser keeps its working memory in the library object, which is for one thread at a time.
FT_Library rasteriser() {
  struct Library {
    Library() { FT_Init_FreeType(&handle); }
    ~Library() { FT_Done_FreeType(handle); }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    FT_Library handle = nullptr;
  };
  thread_local const Library library;
  return library.handle;
}

}  // namespace

bool rasterise(hb_font_t* font, hb_codepoint_t glyph, const GlyphPlacement& placement, int (*stride)(int width),
               GlyphCoverage& coverage) {
  Outline outline(placement);
  hb_font_get_glyph_shape(font, glyph, drawFunctions(), &outline);
  outline.close();
  if (!outline.isUsable()) return false;

  FT_Outline shape = outline.freeType();
  FT_BBox box{};
  FT_Outline_Get_CBox(&shape, &box);
  const auto pixelFloor = [](FT_Pos v) { return static_cast<int>(std::floor(static_cast<double>(v) / kSubpixels)); };
  const auto pixelCeil = [](FT_Pos v) { return static_cast<int>(std::ceil(static_cast<double>(v) / kSubpixels)); };
  const int left = pixelFloor(box.xMin);
  const int bottom = pixelFloor(box.yMin);
  coverage.left = left;
  coverage.top = -pixelCeil(box.yMax);
  coverage.width = pixelCeil(box.xMax) - left;
  coverage.height = pixelCeil(box.yMax) - bottom;
  if (coverage.width <= 0 || coverage.height <= 0 || coverage.width > kMaxPixels || coverage.height > kMaxPixels) {
    return false;
  }
  coverage.stride = stride(coverage.width);
  coverage.rows.assign(static_cast<std::size_t>(coverage.stride) * static_cast<std::size_t>(coverage.height), 0);

  FT_Outline_Translate(&shape, -static_cast<FT_Pos>(left) * 64, -static_cast<FT_Pos>(bottom) * 64);
  FT_Bitmap bitmap{};
  bitmap.width = static_cast<unsigned>(coverage.width);
  bitmap.rows = static_cast<unsigned>(coverage.height);
  bitmap.pitch = coverage.stride;
  bitmap.buffer = coverage.rows.data();
  bitmap.num_grays = 256;
  bitmap.pixel_mode = FT_PIXEL_MODE_GRAY;
  return FT_Outline_Get_Bitmap(rasteriser(), &shape, &bitmap) == FT_Err_Ok;
}

}  // namespace Brisel::Platform::Linux
