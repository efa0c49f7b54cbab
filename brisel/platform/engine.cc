#include "brisel/platform/engine.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "brisel/platform/fatal_error.h"
#include "brisel/platform/internal/utf.h"

namespace Brisel::Platform {
namespace {

// Pixels that a length takes. What rounding has left above a whole number does not count.
CGFloat pixels(CGFloat points, CGFloat scale) {
  constexpr CGFloat kRounding = 1e-6;
  return std::ceil(points * scale - kRounding);
}

}  // namespace

PortObject::~PortObject() = default;
Engine::~Engine() = default;
SystemEvents::~SystemEvents() = default;

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

std::unique_ptr<Canvas> Engine::makeCanvas(CGSize size, CGFloat scale, bool isOpaque) {
  if (!(size.width > 0 && size.height > 0 && scale > 0)) return nullptr;
  const CGFloat width = std::max(pixels(size.width, scale), 1.0);
  const CGFloat height = std::max(pixels(size.height, scale), 1.0);
  if (std::max(width, height) > Bitmap::kMostPixelsASide || width * height > Bitmap::kMostPixels) return nullptr;
  return onMakeCanvas(static_cast<int>(width), static_cast<int>(height), scale, isOpaque);
}

std::vector<std::uint8_t> Engine::encodePng(const Bitmap& bitmap) {
  return bitmap.isValid() ? onEncodePng(bitmap) : std::vector<std::uint8_t>();
}

PngPicture Engine::decodePng(std::span<const std::uint8_t> file) {
  if (file.empty()) return {{}, false, "an empty file"};
  PngPicture picture = onDecodePng(file);
  if (!picture.bitmap.isValid() && picture.problem.empty()) fatalError("A port read a picture into nothing");
  return picture;
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
