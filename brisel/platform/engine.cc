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

// Whether the typefaces are the engine's, and stand in the order of a well-formed text, up to its end.
bool isUsable(const ShapeRequest& request, const Engine& engine) {
  std::uint32_t end = 0;
  bool usable = !request.text.empty() && !request.typefaces.empty() && internal::isWellFormed(request.text);
  for (const TypefaceSpan& span : request.typefaces) {
    usable =
        usable && span.typeface && span.typeface->maker() == &engine && span.end > end && std::isfinite(span.pointSize);
    end = span.end;
  }
  return usable && end == request.text.size();
}

}  // namespace

PortObject::~PortObject() = default;
Engine::~Engine() = default;
SystemEvents::~SystemEvents() = default;

Engine::Registration Engine::registerFontFile(const std::filesystem::path& file) {
  const Registration result = onRegisterFontFile(file);
  if (result == Registration::registered) fontGeneration_.fetch_add(1, std::memory_order_release);
  return result;
}

void Engine::setSubstituteFamily(std::string_view family) {
  onSetSubstituteFamily(internal::wellFormed(family));
  fontGeneration_.fetch_add(1, std::memory_order_release);
}

void Engine::setUsesHostFonts(bool uses) {
  onSetUsesHostFonts(uses);
  fontGeneration_.fetch_add(1, std::memory_order_release);
}

std::shared_ptr<const Typeface> Engine::typeface(const TypefaceRequest& request) {
  auto typeface = onTypeface(request);
  if (!typeface) fatalError("A port answered a typeface request with nothing");
  return typeface;
}

std::shared_ptr<const ShapedText> Engine::shape(const ShapeRequest& request) {
  if (!isUsable(request, *this)) return std::make_shared<const ShapedText>();
  auto text = onShape(request);
  if (!text) fatalError("A port shaped a text into nothing");
  return text;
}

std::vector<FaceSubstitution> Engine::substitutions(const ShapeRequest& request) {
  return isUsable(request, *this) ? onSubstitutions(request) : std::vector<FaceSubstitution>();
}

// Of a port that knows no fonts but those it is asked for.
std::vector<FaceSubstitution> Engine::onSubstitutions(const ShapeRequest&) { return {}; }

bool Typeface::onHasCharacters(std::u16string_view text) const {
  const auto needsGlyph = [](char32_t c) { return c >= U' ' && (c < 0x7F || c >= 0xA0); };
  for (std::size_t i = 0; i < text.size();) {
    const char32_t character = internal::nextCharacter(text, i);
    if (needsGlyph(character) && !onHasCharacter(character)) return false;
  }
  return true;
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
