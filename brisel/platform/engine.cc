#include "brisel/platform/engine.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "brisel/platform/fatal_error.h"
#include "brisel/platform/internal/utf.h"

namespace Brisel::Platform {
namespace {

constexpr int kMaxPixels = 32'767;

bool isFinite(const CGPoint& p) { return std::isfinite(p.x) && std::isfinite(p.y); }

bool isDrawable(const CGRect& r) {
  return isFinite(r.origin) && std::isfinite(r.size.width) && std::isfinite(r.size.height) && r.size.width > 0 &&
         r.size.height > 0;
}

}  // namespace

PortObject::~PortObject() = default;
Canvas::~Canvas() = default;
Engine::~Engine() = default;
SystemEvents::~SystemEvents() = default;

void Canvas::fillRect(const CGRect& rect, const UIColor& color) {
  if (isDrawable(rect)) onFillRect(rect, color);
}

void Canvas::drawGlyphs(const Face& face, CGFloat pointSize, std::span<const PositionedGlyph> glyphs,
                        const UIColor& color) {
  if (face.maker() != maker_ || !std::isfinite(pointSize) || pointSize <= 0) return;
  if (!std::all_of(glyphs.begin(), glyphs.end(), [](const auto& g) { return isFinite(g.origin); })) return;
  onDrawGlyphs(face, pointSize, glyphs, color);
}

Engine::Registration Engine::registerFontFile(const std::filesystem::path& file) { return onRegisterFontFile(file); }

void Engine::setSubstituteFamily(std::string_view family) { onSetSubstituteFamily(internal::wellFormed(family)); }

void Engine::setUsesHostFonts(bool uses) { onSetUsesHostFonts(uses); }

std::shared_ptr<const Typeface> Engine::typeface(const TypefaceRequest& request) {
  auto typeface = onTypeface(request);
  if (!typeface) fatalError("A port answered a typeface request with nothing");
  return typeface;
}

std::shared_ptr<const ShapedText> Engine::shape(const ShapeRequest& request) {
  std::uint32_t end = 0;
  bool usable = !request.text.empty() && !request.typefaces.empty() && internal::isWellFormed(request.text);
  for (const TypefaceSpan& span : request.typefaces) {
    usable =
        usable && span.typeface && span.typeface->maker() == this && span.end > end && std::isfinite(span.pointSize);
    end = span.end;
  }
  if (!usable || end != request.text.size()) return std::make_shared<const ShapedText>();
  auto text = onShape(request);
  if (!text) fatalError("A port shaped a text into nothing");
  return text;
}

std::unique_ptr<Canvas> Engine::makeCanvas(CGSize size, CGFloat scale) {
  const CGFloat width = std::ceil(size.width * scale);
  const CGFloat height = std::ceil(size.height * scale);
  const bool valid = scale > 0 && width > 0 && height > 0 && width <= kMaxPixels && height <= kMaxPixels;
  if (!valid) return nullptr;
  return onMakeCanvas(static_cast<int>(width), static_cast<int>(height), scale);
}

std::vector<std::uint8_t> Engine::encodePng(const Bitmap& bitmap) {
  const auto pixels =
      static_cast<std::size_t>(std::max(bitmap.width, 0)) * static_cast<std::size_t>(std::max(bitmap.height, 0));
  if (pixels == 0 || bitmap.rgba.size() != pixels * 4) return {};
  return onEncodePng(bitmap);
}

std::string Engine::upperCase(std::string_view text) { return onUpperCase(internal::wellFormed(text)); }

void SystemEvents::post(Work work) {
  if (work) onPost(std::move(work));
}

std::size_t SystemEvents::runPending() { return onRunPending(); }

void SystemEvents::watchMemoryPressure(PressureHandler handler) {
  if (handler) onWatchMemoryPressure(std::move(handler));
}

void SystemEvents::stopWatchingMemoryPressure() { onStopWatchingMemoryPressure(); }

}  // namespace Brisel::Platform
