#include <cstdint>
#include <iterator>
#include <limits>
#include <memory>
#include <new>
#include <string>

#include "brisel/icons/icon_font.h"
#include "brisel/icons/internal/icon_names.h"
#include "brisel/icons/internal/icon_rendering.h"
#include "brisel/platform/engine.h"
#include "brisel/platform/font.h"
#include "brisel/platform/internal/utf.h"
#include "brisel/platform/paragraph_style.h"
#include "brisel/platform/port.h"
#include "brisel/platform/text_layout.h"
#include "brisel/tokens/internal/lazy_table.h"

namespace Brisel {
namespace {

using Platform::ShapedText;

// Two designs of each icon of the catalogue.
constexpr std::int64_t kShapeCacheCapacity = 2 * std::ssize(internal::kIconNames);

std::shared_ptr<const Platform::NSParagraphStyle> makeCentredStyle() {
  const auto style = Platform::NSMutableParagraphStyle::init();
  style->setAlignment(Platform::NSTextAlignment::center);
  return style->copy();
}

// All that drawing a glyph takes and that no size changes.
class GlyphShapes {
 public:
  const std::shared_ptr<const Platform::NSParagraphStyle>& centredStyle() const noexcept { return centredStyle_; }
  const Platform::FontMetrics& metrics() const noexcept { return typeface_->metrics(); }

  std::shared_ptr<const ShapedText> shape(char32_t character) const {
    if (auto known = shapes_.getValue(character)) return *std::move(known);
    const std::u16string text = Platform::internal::toUtf16(character);
    const Platform::TypefaceSpan span{static_cast<std::uint32_t>(text.size()), typeface_, 1, true};
    auto shape = Platform::engine().shape({text, {&span, 1}, Platform::WritingDirection::natural, false});
    shapes_.setValue(shape, character, 0);
    return shape;
  }

 private:
  std::shared_ptr<const Platform::NSParagraphStyle> centredStyle_ = makeCentredStyle();
  std::shared_ptr<const Platform::Typeface> typeface_ = iconFont(1)->typeface();
  // The entries are small, so that pressure on memory need not purge them.
  mutable Cache<char32_t, std::shared_ptr<const ShapedText>> shapes_{kShapeCacheCapacity,
                                                                     std::numeric_limits<std::int64_t>::max(), nullptr};
};

void buildShapes(void* place, std::size_t) noexcept { ::new (place) GlyphShapes; }

constinit internal::LazyTable<GlyphShapes, 1, buildShapes> glyphShapes;

}  // namespace

void internal::drawIconGlyph(Platform::Canvas& canvas, const Icon::Glyph& glyph, Platform::CGFloat fontSize,
                             const Platform::CGRect& rect, const Platform::ColorPtr& color) {
  const GlyphShapes& shapes = glyphShapes[0];
  auto text = shapes.shape(glyph.unichar());
  const std::uint32_t end = text->length;
  const Platform::TextSizeSpan size{end, fontSize, 0, 0, shapes.metrics()};
  const Platform::ParagraphSpan paragraph{end, shapes.centredStyle()};
  const Platform::PaintSpan paint{end, color, nullptr};
  const Platform::TextLayout layout(std::move(text), {&size, 1}, {&paragraph, 1}, {.width = rect.size.width});
  layout.draw(canvas, rect.origin, {&paint, 1});
}

}  // namespace Brisel
