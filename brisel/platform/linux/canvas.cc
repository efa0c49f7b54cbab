#include "brisel/platform/linux/canvas.h"

#include <cstring>
#include <utility>

#include <cairo.h>
#include <hb-ot.h>

#include "brisel/platform/linux/font_face.h"

namespace Brisel::Platform::Linux {
namespace {

struct SurfaceDelete {
  void operator()(cairo_surface_t* surface) const noexcept { cairo_surface_destroy(surface); }
};
using SurfacePtr = std::unique_ptr<cairo_surface_t, SurfaceDelete>;

struct ContextDelete {
  void operator()(cairo_t* context) const noexcept { cairo_destroy(context); }
};
using ContextPtr = std::unique_ptr<cairo_t, ContextDelete>;

// Cairo keeps a pixel as one native word, alpha in the highest byte; a Bitmap keeps it as bytes R, G, B, A.
std::uint32_t toCairo(const std::uint8_t* rgba) {
  return (std::uint32_t{rgba[3]} << 24) | (std::uint32_t{rgba[0]} << 16) | (std::uint32_t{rgba[1]} << 8) | rgba[2];
}

void fromCairo(std::uint32_t word, std::uint8_t* rgba) {
  rgba[0] = static_cast<std::uint8_t>(word >> 16);
  rgba[1] = static_cast<std::uint8_t>(word >> 8);
  rgba[2] = static_cast<std::uint8_t>(word);
  rgba[3] = static_cast<std::uint8_t>(word >> 24);
}

void setSource(cairo_t* context, const UIColor& color) {
  const auto c = color.getRed();
  cairo_set_source_rgba(context, c.red, c.green, c.blue, c.alpha);
}

class CairoCanvas final : public Canvas {
 public:
  CairoCanvas(const Engine& maker, std::shared_ptr<RasteriserPool> rasterisers, SurfacePtr surface, CGFloat scale)
      : Canvas(maker, scale),
        rasterisers_(std::move(rasterisers)),
        surface_(std::move(surface)),
        context_(cairo_create(surface_.get())) {}

 private:
  void onFillRect(const CGRect& rect, const UIColor& color) override {
    setSource(context_.get(), color);
    cairo_rectangle(context_.get(), rect.origin.x * scale(), rect.origin.y * scale(), rect.size.width * scale(),
                    rect.size.height * scale());
    cairo_fill(context_.get());
  }

  void onDrawGlyphs(const Face& object, CGFloat pointSize, std::span<const PositionedGlyph> glyphs,
                    const UIColor& color) override {
    const auto& face = static_cast<const FontFace&>(object);
    const double pixelsPerUnit = pointSize * scale() / face.unitsPerEm();
    const bool hasPictures = hb_ot_color_has_png(hb_font_get_face(face.font())) != 0;
    const int width = cairo_image_surface_get_width(surface_.get());
    const int height = cairo_image_surface_get_height(surface_.get());
    const RasteriserPool::Lease rasteriser(*rasterisers_);
    setSource(context_.get(), color);
    for (const PositionedGlyph& glyph : glyphs) {
      const GlyphPlacement placement{glyph.origin.x * scale(), glyph.origin.y * scale(), pixelsPerUnit};
      if (hasPictures && drawPicture(face, glyph.id, placement)) {
        setSource(context_.get(), color);
      } else if (auto* coverage = (*rasteriser).rasterise(face.font(), glyph.id, placement, width, height, a8Stride)) {
        mask(*coverage);
      }
    }
  }

  Bitmap onBitmap() const override {
    cairo_surface_flush(surface_.get());
    Bitmap bitmap;
    bitmap.width = cairo_image_surface_get_width(surface_.get());
    bitmap.height = cairo_image_surface_get_height(surface_.get());
    const auto rowBytes = static_cast<std::size_t>(bitmap.width) * 4;
    bitmap.rgba.resize(rowBytes * static_cast<std::size_t>(bitmap.height));
    const unsigned char* data = cairo_image_surface_get_data(surface_.get());
    const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface_.get()));
    for (std::size_t y = 0; y < static_cast<std::size_t>(bitmap.height); ++y) {
      for (std::size_t x = 0; x < static_cast<std::size_t>(bitmap.width); ++x) {
        std::uint32_t word = 0;
        std::memcpy(&word, data + y * stride + x * 4, sizeof word);
        fromCairo(word, bitmap.rgba.data() + y * rowBytes + x * 4);
      }
    }
    return bitmap;
  }

  static int a8Stride(int width) { return cairo_format_stride_for_width(CAIRO_FORMAT_A8, width); }

  void mask(GlyphCoverage& coverage) {
    const SurfacePtr surface(cairo_image_surface_create_for_data(coverage.rows.data(), CAIRO_FORMAT_A8, coverage.width,
                                                                 coverage.height, coverage.stride));
    cairo_mask_surface(context_.get(), surface.get(), coverage.left, coverage.top);
  }

  // Emoji fonts carry pictures instead of outlines, at a size of their own.
  bool drawPicture(const FontFace& face, std::uint32_t glyph, const GlyphPlacement& placement) {
    const std::unique_ptr<hb_blob_t, HbDelete<hb_blob_t, hb_blob_destroy>> png(
        hb_ot_color_glyph_reference_png(face.font(), glyph));
    struct Reader {
      const char* data;
      unsigned left;
    } reader{};
    reader.data = hb_blob_get_data(png.get(), &reader.left);
    if (reader.left == 0) return false;
    const SurfacePtr picture(cairo_image_surface_create_from_png_stream(
        [](void* closure, unsigned char* out, unsigned length) {
          auto& source = *static_cast<Reader*>(closure);
          if (length > source.left) return CAIRO_STATUS_READ_ERROR;
          std::memcpy(out, source.data, length);
          source.data += length;
          source.left -= length;
          return CAIRO_STATUS_SUCCESS;
        },
        &reader));
    hb_glyph_extents_t extents{};
    if (cairo_surface_status(picture.get()) != CAIRO_STATUS_SUCCESS ||
        !hb_font_get_glyph_extents(face.font(), glyph, &extents)) {
      return false;
    }
    const double width = extents.width * placement.pixelsPerUnit;
    const double height = -extents.height * placement.pixelsPerUnit;
    const int pictureWidth = cairo_image_surface_get_width(picture.get());
    const int pictureHeight = cairo_image_surface_get_height(picture.get());
    if (!(width > 0 && height > 0) || pictureWidth <= 0 || pictureHeight <= 0) return false;
    cairo_save(context_.get());
    cairo_translate(context_.get(), placement.x + extents.x_bearing * placement.pixelsPerUnit,
                    placement.y - extents.y_bearing * placement.pixelsPerUnit);
    cairo_scale(context_.get(), width / pictureWidth, height / pictureHeight);
    cairo_set_source_surface(context_.get(), picture.get(), 0, 0);
    cairo_paint(context_.get());
    cairo_restore(context_.get());
    return true;
  }

  std::shared_ptr<RasteriserPool> rasterisers_;
  SurfacePtr surface_;
  ContextPtr context_;
};

}  // namespace

std::unique_ptr<Canvas> makeCairoCanvas(const Engine& maker, std::shared_ptr<RasteriserPool> rasterisers,
                                        int pixelWidth, int pixelHeight, CGFloat scale) {
  SurfacePtr surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, pixelWidth, pixelHeight));
  if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) return nullptr;
  return std::make_unique<CairoCanvas>(maker, std::move(rasterisers), std::move(surface), scale);
}

std::vector<std::uint8_t> pngOf(const Bitmap& bitmap) {
  const SurfacePtr surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, bitmap.width, bitmap.height));
  if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) return {};
  cairo_surface_flush(surface.get());
  unsigned char* data = cairo_image_surface_get_data(surface.get());
  const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface.get()));
  for (int y = 0; y < bitmap.height; ++y) {
    for (int x = 0; x < bitmap.width; ++x) {
      const std::uint32_t word = toCairo(bitmap.pixel(x, y));
      std::memcpy(data + static_cast<std::size_t>(y) * stride + static_cast<std::size_t>(x) * 4, &word, sizeof word);
    }
  }
  cairo_surface_mark_dirty(surface.get());
  std::vector<std::uint8_t> png;
  cairo_surface_write_to_png_stream(
      surface.get(),
      [](void* closure, const unsigned char* bytes, unsigned length) {
        auto& out = *static_cast<std::vector<std::uint8_t>*>(closure);
        out.insert(out.end(), bytes, bytes + length);
        return CAIRO_STATUS_SUCCESS;
      },
      &png);
  return png;
}

}  // namespace Brisel::Platform::Linux
