#pragma once

#include <cstddef>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <vector>

#include <hb.h>

namespace Brisel::Platform::Linux {

/// A glyph's outline, in font units, y upwards; its points and contours as FreeType counts and tags them.
struct GlyphOutline {
  struct Point {
    float x = 0;
    float y = 0;
  };
  std::vector<Point> points;
  std::vector<char> tags;
  std::vector<short> contours;  // the last point of each
};

/// The outlines of one font, which are the same at every size: HarfBuzz reads each once. They are forgotten together
/// when they take too much memory. May be used by any number of threads.
class GlyphOutlines {
 public:
  /// `font` must outlive the outlines, and is not changed any more.
  explicit GlyphOutlines(hb_font_t* font) noexcept : font_(font) {}

  /// Never null. Without points where the glyph has no ink, or more points than FreeType counts.
  std::shared_ptr<const GlyphOutline> outline(hb_codepoint_t glyph) const;

 private:
  hb_font_t* font_;
  mutable std::mutex mutex_;
  mutable std::unordered_map<hb_codepoint_t, std::shared_ptr<const GlyphOutline>> known_;
  mutable std::size_t bytes_ = 0;
};

}  // namespace Brisel::Platform::Linux
