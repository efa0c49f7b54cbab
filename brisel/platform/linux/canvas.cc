#include "brisel/platform/linux/canvas.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <new>
#include <utility>
#include <vector>

#include <hb-ot.h>

#include "brisel/platform/linux/cairo_pointers.h"
#include "brisel/platform/linux/font_face.h"
#include "brisel/platform/linux/png.h"

namespace Brisel::Platform::Linux {
namespace {

// A Bitmap keeps a pixel as the bytes R, G, B, A; Cairo as one word with alpha highest, which in memory is B, G, R, A.
// To spare each bitmap a conversion, canvases have Cairo draw with red and blue exchanged: it treats all colours alike.
static_assert(std::endian::native == std::endian::little);

constexpr double kFarthest = 4'000'000;  // pixels: half of what Cairo's fixed-point numbers hold

double clamped(double pixels) { return std::clamp(pixels, -kFarthest, kFarthest); }

// What rounding has left beside a whole pixel is that pixel, so that images meet their own edges.
double device(double points, double scale) {
  constexpr double kRounding = 1e-6;
  const double pixels = points * scale;
  const double whole = std::round(pixels);
  return clamped(std::abs(pixels - whole) < kRounding ? whole : pixels);
}

double fraction(double value) { return value > 0 ? std::min(value, 1.0) : 0; }  // of what is not a number: 0

// To the nearest byte's level. Cairo itself would cut the rest off, so that 0.027, for byte 7, became 6.
double rounded(double value) { return std::round(value * 255) / 255; }

cairo_filter_t filterOf(CGInterpolationQuality quality) {
  switch (quality) {
    case CGInterpolationQuality::none:
      return CAIRO_FILTER_NEAREST;
    case CGInterpolationQuality::low:
      return CAIRO_FILTER_BILINEAR;
    case CGInterpolationQuality::default_:
    case CGInterpolationQuality::medium:
    case CGInterpolationQuality::high:  // Cairo's best one overshoots, and leaves colours above their alpha.
      return CAIRO_FILTER_GOOD;
  }
  return CAIRO_FILTER_GOOD;
}

// What is drawn aside. Where the drawing throws, it is dropped, and the context draws on the canvas again.
class Group {
 public:
  explicit Group(cairo_t* context) : context_(context) { cairo_push_group(context); }
  ~Group() {
    if (context_) cairo_pattern_destroy(cairo_pop_group(context_));
  }
  Group(const Group&) = delete;
  Group& operator=(const Group&) = delete;

  void becomeSource() { cairo_pop_group_to_source(std::exchange(context_, nullptr)); }

 private:
  cairo_t* context_;
};

class CairoCanvas final : public Canvas {
 public:
  CairoCanvas(const Engine& maker, std::shared_ptr<RasteriserPool> rasterisers, Bitmap bitmap, CGFloat scale,
              bool isOpaque)
      : Canvas(maker, scale),
        rasterisers_(std::move(rasterisers)),
        bitmap_(std::move(bitmap)),
        isOpaque_(isOpaque),
        surface_(surfaceOn(bitmap_)),
        context_(cairo_create(surface_.get())) {
    if (!isOpaque) return;
    cairo_set_source_rgb(context_.get(), 0, 0, 0);
    cairo_paint(context_.get());
  }

  // Once Cairo has failed, it draws nothing more: what it has drawn until then is not what was asked for.
  bool isUsable() const { return !hasFailed_ && cairo_status(context_.get()) == CAIRO_STATUS_SUCCESS; }

 private:
  struct State {
    CGBlendMode blendMode = CGBlendMode::normal;
    CGInterpolationQuality quality = CGInterpolationQuality::default_;
    std::shared_ptr<cairo_surface_t> mask;  // as large as the canvas; null: no mask
  };

  void onSave() override {
    saved_.push_back(state_);
    cairo_save(context_.get());
  }

  void onRestore() override {
    state_ = std::move(saved_.back());
    saved_.pop_back();
    cairo_restore(context_.get());
  }

  void onSetBlendMode(CGBlendMode mode) override { state_.blendMode = mode; }
  void onSetInterpolationQuality(CGInterpolationQuality quality) override { state_.quality = quality; }

  void onClipToPath(const UIBezierPath& path) override {
    trace(path);
    cairo_clip(context_.get());
  }

  void onClipToMask(const Bitmap& mask, const CGRect& rect) override {
    const std::shared_ptr<cairo_surface_t> coverage(
        cairo_image_surface_create(CAIRO_FORMAT_A8, bitmap_.width, bitmap_.height), CairoDelete());
    const CairoPtr<cairo_t> painter(cairo_create(coverage.get()));
    setSource(painter.get(), mask, rect);
    cairo_fill(painter.get());
    if (const auto& outer = state_.mask) {
      cairo_set_operator(painter.get(), CAIRO_OPERATOR_DEST_IN);
      cairo_set_source_surface(painter.get(), outer.get(), 0, 0);
      cairo_paint(painter.get());
    }
    hasFailed_ = hasFailed_ || cairo_status(painter.get()) != CAIRO_STATUS_SUCCESS;
    state_.mask = coverage;
  }

  void onFillRect(const CGRect& rect, const UIColor& color) override {
    draw([&](cairo_t* context) {
      setSource(context, color);
      trace(rect);
      cairo_fill(context);
    });
  }

  void onFillPath(const UIBezierPath& path, const UIColor& color) override {
    draw([&](cairo_t* context) {
      setSource(context, color);
      trace(path);
      cairo_fill(context);
    });
  }

  void onStrokePath(const UIBezierPath& path, const UIColor& color) override {
    draw([&](cairo_t* context) {
      setSource(context, color);
      trace(path);
      cairo_set_line_width(context, clamped(path.lineWidth() * scale()));
      cairo_stroke(context);
    });
  }

  void onDrawBitmap(const Bitmap& bitmap, const CGRect& rect) override {
    draw([&](cairo_t* context) {
      setSource(context, bitmap, rect);
      if (erases()) setSource(context, UIColor::grey(0, 1));
      cairo_fill(context);
    });
  }

  void onDrawGlyphs(const Face& object, CGFloat pointSize, std::span<const PositionedGlyph> glyphs,
                    const UIColor& color) override {
    const auto& face = static_cast<const FontFace&>(object);
    const double pixelsPerUnit = pointSize * scale() / face.unitsPerEm();
    const bool hasPictures = hb_ot_color_has_png(hb_font_get_face(face.font())) != 0;
    const RasteriserPool::Lease rasteriser(*rasterisers_);
    draw([&](cairo_t* context) {
      setSource(context, color);
      for (const PositionedGlyph& glyph : glyphs) {
        const GlyphPlacement placement{glyph.origin.x * scale(), glyph.origin.y * scale(), pixelsPerUnit};
        if (hasPictures && drawPicture(face, glyph, pointSize / face.unitsPerEm())) {
          setSource(context, color);
        } else if (auto* coverage =
                       (*rasteriser)
                           .rasterise(*face.outline(glyph.id), placement, bitmap_.width, bitmap_.height, a8Stride)) {
          mask(*coverage);
        }
      }
    });
  }

  Bitmap onBitmap() const override {
    cairo_surface_flush(surface_.get());
    return isUsable() ? bitmap_ : Bitmap();
  }

  Bitmap onTakeBitmap() override {
    cairo_surface_finish(surface_.get());  // From now on Cairo draws nothing here.
    Bitmap taken = std::exchange(bitmap_, {});
    return isUsable() ? std::move(taken) : Bitmap();
  }

  // What Cairo sees where a bitmap is. It writes there only as the canvas's own surface.
  static CairoPtr<cairo_surface_t> surfaceOn(const Bitmap& bitmap) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): Cairo has one type for what it reads and writes.
    auto* const pixels = const_cast<std::uint8_t*>(bitmap.rgba.data());
    return CairoPtr<cairo_surface_t>(cairo_image_surface_create_for_data(pixels, CAIRO_FORMAT_ARGB32, bitmap.width,
                                                                         bitmap.height, bitmap.width * 4));
  }

  bool erases() const { return state_.blendMode == CGBlendMode::clear; }

  // Draws under the state's blend mode and mask; the clip is Cairo's own.
  template <class Drawing>
  void draw(const Drawing& drawing) {
    cairo_t* context = context_.get();
    const cairo_operator_t blend = erases() && !isOpaque_ ? CAIRO_OPERATOR_DEST_OUT : CAIRO_OPERATOR_OVER;
    const auto& mask = state_.mask;
    if (!mask) {
      cairo_set_operator(context, blend);
      drawing(context);
      return;
    }
    Group group(context);
    cairo_reset_clip(context);  // It is applied once, below.
    cairo_set_operator(context, CAIRO_OPERATOR_OVER);
    drawing(context);
    group.becomeSource();
    cairo_set_operator(context, blend);
    cairo_mask_surface(context, mask.get(), 0, 0);
  }

  void setSource(cairo_t* context, const UIColor& color) const {
    if (erases()) {
      cairo_set_source_rgb(context, 0, 0, 0);  // Erasing goes by coverage alone.
      return;
    }
    const auto c = color.getRed();
    const double alpha = rounded(fraction(c.alpha));
    const auto component = [&](double value) {
      return alpha > 0 ? rounded(fraction(value) * fraction(c.alpha)) / alpha : 0;
    };
    cairo_set_source_rgba(context, component(c.blue), component(c.green), component(c.red), alpha);
  }

  // A bitmap stretched to the rectangle as the source, and the rectangle as the path. Its edge pixels reach beyond it,
  // so that no edge is blurred with what is outside.
  void setSource(cairo_t* context, const Bitmap& bitmap, const CGRect& rect) const {
    const double left = device(rect.origin.x, scale());
    const double top = device(rect.origin.y, scale());
    const double width = device(rect.origin.x + rect.size.width, scale()) - left;
    const double height = device(rect.origin.y + rect.size.height, scale()) - top;
    cairo_new_path(context);
    const auto surface = surfaceOn(bitmap);
    if (!(width > 0 && height > 0) || cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) return;
    cairo_rectangle(context, left, top, width, height);
    const bool isAsItIs =
        width == bitmap.width && height == bitmap.height && left == std::round(left) && top == std::round(top);
    // Beyond this Cairo refuses the matrix, and then all later drawing. So thin a picture shows a part of itself.
    constexpr double kSteepest = 16'384;
    const double dx = std::min(bitmap.width / width, kSteepest);
    const double dy = std::min(bitmap.height / height, kSteepest);
    const CairoPtr<cairo_pattern_t> pattern(cairo_pattern_create_for_surface(surface.get()));
    cairo_matrix_t matrix;
    cairo_matrix_init(&matrix, dx, 0, 0, dy, -left * dx, -top * dy);
    cairo_pattern_set_matrix(pattern.get(), &matrix);
    cairo_pattern_set_extend(pattern.get(), CAIRO_EXTEND_PAD);
    cairo_pattern_set_filter(pattern.get(), isAsItIs ? CAIRO_FILTER_NEAREST : filterOf(state_.quality));
    cairo_set_source(context, pattern.get());
  }

  void trace(const CGRect& rect) {
    const double left = device(rect.origin.x, scale());
    const double top = device(rect.origin.y, scale());
    cairo_new_path(context_.get());
    cairo_rectangle(context_.get(), left, top, device(rect.origin.x + rect.size.width, scale()) - left,
                    device(rect.origin.y + rect.size.height, scale()) - top);
  }

  void trace(const UIBezierPath& path) {
    using Kind = UIBezierPath::Element::Kind;
    cairo_t* context = context_.get();
    const auto x = [this](CGPoint p) { return clamped(p.x * scale()); };
    const auto y = [this](CGPoint p) { return clamped(p.y * scale()); };
    cairo_new_path(context);
    for (const UIBezierPath::Element& e : path.elements()) {
      switch (e.kind) {
        case Kind::move:
          cairo_move_to(context, x(e.end), y(e.end));
          break;
        case Kind::line:
          cairo_line_to(context, x(e.end), y(e.end));
          break;
        case Kind::curve:
          cairo_curve_to(context, x(e.control1), y(e.control1), x(e.control2), y(e.control2), x(e.end), y(e.end));
          break;
        case Kind::close:
          cairo_close_path(context);
          break;
      }
    }
  }

  static int a8Stride(int width) { return cairo_format_stride_for_width(CAIRO_FORMAT_A8, width); }

  void mask(GlyphCoverage& coverage) {
    const CairoPtr<cairo_surface_t> surface(cairo_image_surface_create_for_data(
        coverage.rows.data(), CAIRO_FORMAT_A8, coverage.width, coverage.height, coverage.stride));
    cairo_mask_surface(context_.get(), surface.get(), coverage.left, coverage.top);
  }

  // Emoji fonts carry pictures instead of outlines, at a size of their own.
  bool drawPicture(const FontFace& face, const PositionedGlyph& glyph, double pointsPerUnit) {
    const std::unique_ptr<hb_blob_t, HbDelete<hb_blob_t, hb_blob_destroy>> png(
        hb_ot_color_glyph_reference_png(face.font(), glyph.id));
    unsigned length = 0;
    const char* data = hb_blob_get_data(png.get(), &length);
    hb_glyph_extents_t extents{};
    if (length == 0 || hb_font_get_glyph_extents(face.font(), glyph.id, &extents) == 0) return false;
    Bitmap picture = pictureOfPng({reinterpret_cast<const std::uint8_t*>(data), length}).bitmap;
    if (!picture.isValid()) return false;
    if (erases()) {  // By the picture's coverage, in black as all that erases.
      for (std::size_t i = 0; i < picture.rgba.size(); i += 4) std::fill_n(&picture.rgba[i], 3, std::uint8_t{0});
    }
    setSource(context_.get(), picture,
              {{glyph.origin.x + extents.x_bearing * pointsPerUnit, glyph.origin.y - extents.y_bearing * pointsPerUnit},
               {extents.width * pointsPerUnit, -extents.height * pointsPerUnit}});
    cairo_fill(context_.get());
    return true;
  }

  std::shared_ptr<RasteriserPool> rasterisers_;
  Bitmap bitmap_;
  bool isOpaque_;
  bool hasFailed_ = false;  // in drawing a mask
  CairoPtr<cairo_surface_t> surface_;
  CairoPtr<cairo_t> context_;
  State state_;
  std::vector<State> saved_;
};

}  // namespace

std::unique_ptr<Canvas> makeCairoCanvas(const Engine& maker, std::shared_ptr<RasteriserPool> rasterisers,
                                        int pixelWidth, int pixelHeight, CGFloat scale, bool isOpaque) {
  try {
    Bitmap bitmap{pixelWidth, pixelHeight, {}};
    bitmap.rgba.resize(bitmap.bytesPerRow() * static_cast<std::size_t>(pixelHeight));
    auto canvas = std::make_unique<CairoCanvas>(maker, std::move(rasterisers), std::move(bitmap), scale, isOpaque);
    return canvas->isUsable() ? std::move(canvas) : nullptr;
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

}  // namespace Brisel::Platform::Linux
