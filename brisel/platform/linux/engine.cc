#include "brisel/platform/linux/engine.h"

#include <string>
#include <utility>
#include <vector>

#include "brisel/platform/internal/hash.h"
#include "brisel/platform/linux/png.h"
#include "brisel/platform/linux/typeface.h"
#include "brisel/platform/linux/unicode.h"
#include "brisel/platform/log.h"

namespace Brisel::Platform::Linux {
namespace {

// A host asks for a few dozen typefaces; one that asks for more pays for making them anew.
constexpr std::size_t kMostTypefaces = 512;

}  // namespace

LinuxEngine::LinuxEngine() : registry_(*this), hostFonts_(*this) {}
LinuxEngine::~LinuxEngine() = default;

std::size_t LinuxEngine::RequestHash::operator()(const TypefaceRequest& request) const {
  Platform::internal::Hasher hasher;
  hasher(request.name, request.cascade);
  for (const FontFeatureSetting& setting : request.features) hasher(setting.type, setting.selector);
  return hasher.finish();
}

Engine::Registration LinuxEngine::onRegisterFontFile(const std::filesystem::path& file) {
  const Registration result = registry_.registerFile(file);
  if (result == Registration::registered) {
    forgetTypefaces();  // A name that had a substitute may now have its own face.
  } else if (result == Registration::unrecognizedFormat || result == Registration::invalidFontData) {
    log("Not a usable font file: " + file.string());
  }
  return result;
}

void LinuxEngine::onSetUsesHostFonts(bool uses) {
  usesHostFonts_.store(uses, std::memory_order_relaxed);
  forgetTypefaces();
}

void LinuxEngine::onSetSubstituteFamily(const std::string& family) {
  registry_.setSubstituteFamily(family);
  forgetTypefaces();
}

void LinuxEngine::forgetTypefaces() {
  const std::lock_guard lock(mutex_);
  ++generation_;
  typefaces_.clear();
}

std::shared_ptr<const Typeface> LinuxEngine::onTypeface(const TypefaceRequest& request) {
  std::uint64_t generation = 0;
  {
    const std::lock_guard lock(mutex_);
    if (const auto known = typefaces_.find(request); known != typefaces_.end()) return known->second;
    generation = generation_;
  }
  auto typeface = makeTypeface(request);
  const std::lock_guard lock(mutex_);
  if (generation != generation_) return typeface;  // Made of what has changed since; the next request makes it anew.
  if (typefaces_.size() >= kMostTypefaces) typefaces_.clear();
  return typefaces_.try_emplace(request, std::move(typeface)).first->second;
}

std::shared_ptr<const Typeface> LinuxEngine::makeTypeface(const TypefaceRequest& request) {
  LinuxTypeface::Faces faces{primaryFace(request.name)};
  for (const std::string& name : request.cascade) {
    if (auto face = registry_.find(name)) faces.push_back(std::move(face));
  }
  return std::make_shared<const LinuxTypeface>(*this, std::move(faces), request.features);
}

std::shared_ptr<const FontFace> LinuxEngine::primaryFace(const std::string& name) {
  if (auto face = registry_.find(name)) return face;
  if (auto face = hostFaceNamed(name)) return face;
  const int weight = weightOfName(name);
  if (auto face = registry_.substitute(weight)) return face;
  if (HostFonts* const host = hostFonts()) {
    if (auto face = host->textFace(weight)) return face;
  }
  return FontFace::empty(*this);
}

std::shared_ptr<const ShapedText> LinuxEngine::onShape(const ShapeRequest& request) {
  return shaper_.shape(request, hostFonts());
}

// Null while they are not to be used.
HostFonts* LinuxEngine::hostFonts() { return usesHostFonts_.load(std::memory_order_relaxed) ? &hostFonts_ : nullptr; }

std::shared_ptr<const FontFace> LinuxEngine::hostFaceNamed(const std::string& name) {
  if (!hostFonts()) return nullptr;
  const std::lock_guard lock(mutex_);
  const auto known = namedHostFaces_.find(name);
  return known == namedHostFaces_.end() ? nullptr : known->second;
}

std::vector<FaceSubstitution> LinuxEngine::onSubstitutions(const ShapeRequest& request) {
  std::vector<FaceSubstitution> result;
  bool namesHostFaces = false;
  for (const FaceForText& part : shaper_.facesForLacking(request, registry_, hostFonts())) {
    const std::string& name = part.face->postscriptName();
    if (!registry_.find(name)) {
      const std::lock_guard lock(mutex_);
      namesHostFaces |= namedHostFaces_.try_emplace(name, part.face).second;
    }
    result.push_back({part.begin, part.end, name});
  }
  if (namesHostFaces) forgetTypefaces();  // A name that had a substitute now has its own face.
  return result;
}

std::unique_ptr<Canvas> LinuxEngine::onMakeCanvas(int pixelWidth, int pixelHeight, CGFloat scale, bool isOpaque) {
  return makeCairoCanvas(*this, rasterisers_, pixelWidth, pixelHeight, scale, isOpaque);
}

std::vector<std::uint8_t> LinuxEngine::onEncodePng(const Bitmap& bitmap) { return pngOf(bitmap); }

PngPicture LinuxEngine::onDecodePng(std::span<const std::uint8_t> file) { return pictureOfPng(file); }

std::string LinuxEngine::onUpperCase(const std::string& text) { return upperCased(text); }

}  // namespace Brisel::Platform::Linux
