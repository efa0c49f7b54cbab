#pragma once

#include <cstdint>
#include <vector>

#include <hb.h>

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

/// Fills a glyph's outline, unhinted, to 1/64 of a pixel. `stride(width)` tells the row length that the caller wants.
/// The result is empty where the glyph has no outline, or would be larger than 32,767 pixels. `coverage.rows` is
/// reused. HarfBuzz gives the outline, FreeType's smooth rasteriser the coverage: every glyph of the port is drawn this
/// way.
bool rasterise(hb_font_t* font, hb_codepoint_t glyph, const GlyphPlacement& placement, int (*stride)(int width),
               GlyphCoverage& coverage);

}  // namespace Brisel::Platform::Linux
