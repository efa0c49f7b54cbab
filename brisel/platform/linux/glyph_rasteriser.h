#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "brisel/platform/linux/freetype_library.h"
#include "brisel/platform/linux/glyph_outline.h"

#include FT_OUTLINE_H

namespace Brisel::Platform::Linux {

/// How much of each pixel a glyph covers, 0…255, and where its upper left pixel lies.
struct GlyphCoverage {
  int left = 0;    // pixels
  int top = 0;     // pixels, y downwards
  int width = 0;   // pixels
  int height = 0;  // pixels
  int stride = 0;  // bytes a row
  std::vector<std::uint8_t> rows;
};

/// Where and how large a glyph is drawn: its origin in pixels (to the sub-pixel), and pixels per font unit.
struct GlyphPlacement {
  double x = 0;
  double y = 0;
  double pixelsPerUnit = 0;
};

/// Fills glyph outlines, unhinted, to 1/64 of a pixel, by FreeType's smooth rasteriser. Every glyph of the port is
/// drawn this way. For one thread at a time; its memory is kept from glyph to glyph.
class GlyphRasteriser {
 public:
  /// What of a glyph lies within a canvas of that many pixels; null where nothing does, or a point lies further off
  /// than FreeType counts. Valid until the next call.
  /// `stride(width)` tells the row length that the caller wants.
  GlyphCoverage* rasterise(const GlyphOutline& glyph, const GlyphPlacement& placement, int canvasWidth,
                           int canvasHeight, int (*stride)(int width));

  bool isWorthKeeping() const noexcept;

 private:
  // Whether all points lie where FreeType can count. A glyph that reaches further is not drawn, even where it surrounds
  // the canvas.
  bool place(const GlyphOutline& glyph, const GlyphPlacement& placement);

  FreeTypeLibrary freetype_;
  std::vector<FT_Vector> points_;  // 26.6 pixels from the canvas's upper left corner, y upwards
  GlyphCoverage coverage_;
};

}  // namespace Brisel::Platform::Linux
