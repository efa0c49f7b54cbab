#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include <hb-ot.h>

#include "brisel/platform/geometry.h"

#include "benchmarks/bundle_fonts.h"

namespace Brisel::Benchmarks {

/// HarfBuzz with the least around it: runs cut where the script's block changes, no bidirectional levels, no fallback,
/// no rules for lines but to break behind spaces and line feeds.
class HarfBuzzLines {
 public:
  Platform::CGSize measure(std::u16string_view text, double fontSize, double room) {
    Platform::CGSize size;
    double width = 0;
    double wordWidth = 0;
    Height line = heights_[0];
    Height word = heights_[0];
    const auto endLine = [&] {
      size.width = std::max(size.width, width);
      size.height += (line.ascent + line.descent) * fontSize;
      width = 0;
      line = heights_[0];
    };
    const auto endWord = [&] {
      width += wordWidth;
      line.raise(word);
      wordWidth = 0;
      word = heights_[0];
    };
    for (std::size_t begin = 0; begin < text.size();) {
      const std::size_t script = scriptAt(text, begin, 0);
      std::size_t end = begin + 1;
      while (end < text.size() && scriptAt(text, end, script) == script) ++end;
      shape(text, begin, end, script);
      unsigned count = 0;
      const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer_, &count);
      const hb_glyph_position_t* positions = hb_buffer_get_glyph_positions(buffer_, &count);
      for (unsigned i = 0; i < count; ++i) {
        const unsigned glyph = script == 0 ? i : count - 1 - i;
        const char16_t unit = text[infos[glyph].cluster];
        const double advance = positions[glyph].x_advance * fontSize / 1000;
        if (unit == u'\n') {
          endWord();
          endLine();
        } else if (unit == u' ') {
          endWord();
          width += advance;
        } else {
          if (wordWidth == 0) word.raise(heights_[script]);
          if (width + (wordWidth += advance) > room && width > 0) endLine();
        }
      }
      begin = end;
    }
    endWord();
    endLine();
    return size;
  }

 private:
  struct Height {
    double ascent = 0;  // in ems
    double descent = 0;
    void raise(const Height& other) {
      ascent = std::max(ascent, other.ascent);
      descent = std::max(descent, other.descent);
    }
  };

  // Which of the families has a character; characters of no script go with those before.
  static std::size_t scriptAt(std::u16string_view text, std::size_t index, std::size_t before) {
    const char16_t unit = text[index];
    if (unit >= 0x0600 && unit < 0x0700) return 1;
    if (unit >= 0x0590 && unit < 0x0600) return 2;
    return unit == u' ' ? before : 0;
  }

  void shape(std::u16string_view text, std::size_t begin, std::size_t end, std::size_t script) {
    static constexpr hb_script_t kScripts[] = {HB_SCRIPT_LATIN, HB_SCRIPT_ARABIC, HB_SCRIPT_HEBREW};
    hb_buffer_clear_contents(buffer_);
    hb_buffer_add_utf16(buffer_, reinterpret_cast<const std::uint16_t*>(text.data()), static_cast<int>(text.size()),
                        static_cast<unsigned>(begin), static_cast<int>(end - begin));
    hb_buffer_set_direction(buffer_, script == 0 ? HB_DIRECTION_LTR : HB_DIRECTION_RTL);
    hb_buffer_set_script(buffer_, kScripts[script]);
    hb_shape(fonts_[script], buffer_, nullptr, 0);
  }

  static hb_font_t* open(const char* family) {
    const std::string file = std::string(BRISEL_BUNDLE_DIR "/") + family + "-Book.otf";
    hb_blob_t* blob = hb_blob_create_from_file(file.c_str());
    hb_face_t* face = hb_face_create(blob, 0);
    hb_blob_destroy(blob);
    hb_font_t* font = hb_font_create(face);
    hb_face_destroy(face);
    hb_font_set_scale(font, 1000, 1000);
    return font;
  }

  static Height heightOf(hb_font_t* font) {
    hb_font_extents_t extents;
    hb_font_get_h_extents(font, &extents);
    return {extents.ascender / 1000.0, -extents.descender / 1000.0};
  }

  hb_buffer_t* const buffer_ = hb_buffer_create();
  hb_font_t* const fonts_[3] = {open(kFamilies[0]), open(kFamilies[1]), open(kFamilies[2])};
  const Height heights_[3] = {heightOf(fonts_[0]), heightOf(fonts_[1]), heightOf(fonts_[2])};
};

}  // namespace Brisel::Benchmarks
