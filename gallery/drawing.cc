#include "gallery/drawing.h"

#include <cmath>
#include <optional>

#include "brisel/icons/icon_image.h"
#include "brisel/platform/views/text_drawing.h"
#include "brisel/typography/content_size_category.h"
#include "brisel/typography/styled_string.h"

namespace Brisel::Gallery {

using Platform::CGFloat, Platform::CGPoint, Platform::CGRect;

Platform::UIBezierPath roundedRect(const CGRect& rect, CGFloat radius) {
  constexpr CGFloat kCurve =
      0.5522847498;  // of the radius: how far control points of a quarter circle are from its ends
  const CGFloat left = rect.origin.x, top = rect.origin.y;
  const CGFloat right = left + rect.size.width, bottom = top + rect.size.height;
  const CGFloat handle = radius * (1 - kCurve);
  Platform::UIBezierPath path;
  path.moveToPoint({left + radius, top});
  path.addLineToPoint({right - radius, top});
  path.addCurveToPoint({right, top + radius}, {right - handle, top}, {right, top + handle});
  path.addLineToPoint({right, bottom - radius});
  path.addCurveToPoint({right - radius, bottom}, {right, bottom - handle}, {right - handle, bottom});
  path.addLineToPoint({left + radius, bottom});
  path.addCurveToPoint({left, bottom - radius}, {left + handle, bottom}, {left, bottom - handle});
  path.addLineToPoint({left, top + radius});
  path.addCurveToPoint({left + radius, top}, {left, top + handle}, {left + handle, top});
  path.closePath();
  return path;
}

void drawLine(Platform::Canvas& canvas, std::string_view text, const TypeStyle& style, const Platform::ColorPtr& color,
              const CGRect& box, Alignment alignment) {
  const auto category = ContentSizeCategory(ContentSizeCategory::large).platformCategory();
  const Platform::TextDrawing drawing(
      *attributedString(text, style, category, {{Platform::NSForegroundColorAttributeName, color}}));
  const CGFloat baseline = box.origin.y + (box.size.height + style.font(category)->capHeight()) / 2;
  const CGFloat indent = alignment == Alignment::left ? 0 : (box.size.width - drawing.size().width) / 2;
  // The baseline on a whole point, so that capitals stand on a sharp edge.
  drawing.draw(canvas, {box.origin.x + indent, std::round(baseline) - drawing.layout().firstBaseline()});
}

void drawIcon(Platform::Canvas& canvas, const Icon& icon, const Platform::ColorPtr& color, CGPoint at, CGFloat side) {
  const auto glyph = attributedString(icon, side, std::nullopt, {{Platform::NSForegroundColorAttributeName, color}});
  Platform::drawAtPoint(*glyph, canvas, at);
}

}  // namespace Brisel::Gallery
