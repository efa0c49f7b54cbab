#include "brisel/platform/canvas.h"

#include <algorithm>
#include <cmath>

namespace Brisel::Platform {
namespace {

bool isFinite(CGPoint p) { return std::isfinite(p.x) && std::isfinite(p.y); }

bool isDrawable(const CGRect& r) {
  return isFinite(r.origin) && std::isfinite(r.size.width) && std::isfinite(r.size.height) && r.size.width > 0 &&
         r.size.height > 0;
}

bool isFinite(const UIBezierPath& path) {
  const auto elements = path.elements();
  return std::all_of(elements.begin(), elements.end(), [](const UIBezierPath::Element& e) {
    return isFinite(e.end) && isFinite(e.control1) && isFinite(e.control2);
  });
}

}  // namespace

Canvas::~Canvas() = default;

void Canvas::save() {
  onSave();
  ++saves_;  // Only now: where the port has thrown, nothing is saved.
}

void Canvas::restore() {
  if (saves_ == 0) return;
  --saves_;
  onRestore();
}

void Canvas::clipToPath(const UIBezierPath& path) { onClipToPath(isFinite(path) ? path : UIBezierPath()); }

void Canvas::clipToMask(const Bitmap& mask, const CGRect& rect) {
  if (mask.isValid() && isDrawable(rect)) {
    onClipToMask(mask, rect);
  } else {
    onClipToPath({});
  }
}

void Canvas::fillRect(const CGRect& rect, const UIColor& color) {
  if (isDrawable(rect)) onFillRect(rect, color);
}

void Canvas::fillPath(const UIBezierPath& path, const UIColor& color) {
  if (!path.isEmpty() && isFinite(path)) onFillPath(path, color);
}

void Canvas::strokePath(const UIBezierPath& path, const UIColor& color) {
  if (path.isEmpty() || !isFinite(path)) return;
  if (std::isfinite(path.lineWidth()) && path.lineWidth() > 0) onStrokePath(path, color);
}

void Canvas::drawBitmap(const Bitmap& bitmap, const CGRect& rect) {
  if (bitmap.isValid() && isDrawable(rect)) onDrawBitmap(bitmap, rect);
}

void Canvas::drawGlyphs(const Face& face, CGFloat pointSize, std::span<const PositionedGlyph> glyphs,
                        const UIColor& color) {
  if (face.maker() != maker_ || !std::isfinite(pointSize) || pointSize <= 0) return;
  if (!std::all_of(glyphs.begin(), glyphs.end(), [](const auto& g) { return isFinite(g.origin); })) return;
  onDrawGlyphs(face, pointSize, glyphs, color);
}

}  // namespace Brisel::Platform
