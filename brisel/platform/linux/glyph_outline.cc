#include "brisel/platform/linux/glyph_outline.h"

#include <cmath>
#include <new>
#include <type_traits>
#include <utility>

#include "brisel/platform/linux/freetype_library.h"

#include FT_OUTLINE_H

namespace Brisel::Platform::Linux {
namespace {

constexpr std::size_t kMostPoints = 32'767;  // of FreeType's 16-bit counts
constexpr std::size_t kMostBytes = 1 << 20;  // more than the icon font's outlines take

// Takes an outline from HarfBuzz. Nothing is thrown through its frames, which are C's: a want of memory is remembered,
// and thrown behind them, so that nobody keeps the outline that is missing.
class Outliner {
 public:
  GlyphOutline outline(hb_font_t* font, hb_codepoint_t glyph) {
    hb_font_get_glyph_shape(font, glyph, functions(), this);
    close();
    if (isOutOfMemory_) throw std::bad_alloc();
    return isUsable_ ? std::move(outline_) : GlyphOutline();
  }

 private:
  static hb_draw_funcs_t* functions();

  void moveTo(float x, float y) {
    close();
    add(x, y, FT_CURVE_TAG_ON);
  }
  void lineTo(float x, float y) { add(x, y, FT_CURVE_TAG_ON); }
  void quadraticTo(float cx, float cy, float x, float y) {
    add(cx, cy, FT_CURVE_TAG_CONIC);
    add(x, y, FT_CURVE_TAG_ON);
  }
  void cubicTo(float c1x, float c1y, float c2x, float c2y, float x, float y) {
    add(c1x, c1y, FT_CURVE_TAG_CUBIC);
    add(c2x, c2y, FT_CURVE_TAG_CUBIC);
    add(x, y, FT_CURVE_TAG_ON);
  }
  void close() noexcept {
    const std::size_t size = outline_.points.size();
    if (isUsable_ && size > contourStart_) append(outline_.contours, static_cast<short>(size - 1));
    contourStart_ = size;
  }

  void add(float x, float y, char tag) noexcept {
    isUsable_ = isUsable_ && std::isfinite(x) && std::isfinite(y) && outline_.points.size() < kMostPoints;
    if (!isUsable_) return;
    append(outline_.points, {x, y});
    append(outline_.tags, tag);
  }

  template <class T>
  void append(std::vector<T>& list, std::type_identity_t<T> item) noexcept {
    try {
      list.push_back(item);
    } catch (const std::bad_alloc&) {
      isOutOfMemory_ = true;
      isUsable_ = false;
    }
  }

  GlyphOutline outline_;
  std::size_t contourStart_ = 0;
  bool isUsable_ = true;
  bool isOutOfMemory_ = false;
};

hb_draw_funcs_t* Outliner::functions() {
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

std::size_t bytesOf(const GlyphOutline& outline) {
  return sizeof outline + outline.points.capacity() * sizeof(GlyphOutline::Point) + outline.tags.capacity() +
         outline.contours.capacity() * sizeof(short);
}

}  // namespace

std::shared_ptr<const GlyphOutline> GlyphOutlines::outline(hb_codepoint_t glyph) const {
  {
    const std::lock_guard lock(mutex_);
    if (const auto known = known_.find(glyph); known != known_.end()) return known->second;
  }
  auto outline = std::make_shared<const GlyphOutline>(Outliner().outline(font_, glyph));
  const std::size_t bytes = bytesOf(*outline);
  decltype(known_) forgotten;  // freed when the lock no longer is held
  const std::lock_guard lock(mutex_);
  if (bytes_ + bytes > kMostBytes) {
    known_.swap(forgotten);
    bytes_ = 0;
  }
  const auto [known, isNew] = known_.try_emplace(glyph, std::move(outline));
  if (isNew) bytes_ += bytes;
  return known->second;
}

}  // namespace Brisel::Platform::Linux
