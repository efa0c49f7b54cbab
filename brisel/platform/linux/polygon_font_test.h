#pragma once

#include <hb.h>

#include "brisel/platform/linux/font_face.h"

namespace Brisel::Platform::Linux {

/// A font of our own, 1,000 units an em, whose glyph n is one contour of n points: (0, 0), (1, 1), (2, 0), (3, 1) … and
/// (0, 0) again. Glyph 0 has no ink.
inline HbFontPtr makePolygonFont() {
  HbFontPtr font(hb_font_create(hb_face_get_empty()));
  hb_font_set_scale(font.get(), 1000, 1000);
  hb_font_funcs_t* functions = hb_font_funcs_create();
  hb_font_funcs_set_glyph_shape_func(
      functions,
      [](hb_font_t*, void*, hb_codepoint_t points, hb_draw_funcs_t* draw, void* data, void*) {
        if (points == 0) return;
        hb_draw_state_t state{};
        hb_draw_move_to(draw, data, &state, 0, 0);
        for (hb_codepoint_t i = 1; i + 1 < points; ++i) {
          hb_draw_line_to(draw, data, &state, static_cast<float>(i), static_cast<float>(i % 2));
        }
        hb_draw_line_to(draw, data, &state, 0, 0);
        hb_draw_close_path(draw, data, &state);
      },
      nullptr, nullptr);
  hb_font_set_funcs(font.get(), functions, nullptr, nullptr);
  hb_font_funcs_destroy(functions);
  return font;
}

}  // namespace Brisel::Platform::Linux
