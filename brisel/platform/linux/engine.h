#pragma once

#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <span>
#include <unordered_map>

#include "brisel/platform/engine.h"
#include "brisel/platform/linux/canvas.h"
#include "brisel/platform/linux/font_registry.h"
#include "brisel/platform/linux/host_fonts.h"
#include "brisel/platform/linux/shaper.h"

namespace Brisel::Platform::Linux {

/// Fonts, text and painting by HarfBuzz, ICU, FreeType, Fontconfig and Cairo.
class LinuxEngine final : public Engine {
 public:
  LinuxEngine();
  ~LinuxEngine() override;

 private:
  struct RequestHash {
    std::size_t operator()(const TypefaceRequest& request) const;
  };

  Registration onRegisterFontFile(const std::filesystem::path& file) override;
  void onSetSubstituteFamily(const std::string& family) override;
  void onSetUsesHostFonts(bool uses) override;
  std::shared_ptr<const Typeface> onTypeface(const TypefaceRequest& request) override;
  std::shared_ptr<const ShapedText> onShape(const ShapeRequest& request) override;
  std::vector<FaceSubstitution> onSubstitutions(const ShapeRequest& request) override;
  std::unique_ptr<Canvas> onMakeCanvas(int pixelWidth, int pixelHeight, CGFloat scale, bool isOpaque) override;
  std::vector<std::uint8_t> onEncodePng(const Bitmap& bitmap) override;
  PngPicture onDecodePng(std::span<const std::uint8_t> file) override;
  std::string onUpperCase(const std::string& text) override;

  void forgetTypefaces();
  HostFonts* hostFonts();
  std::shared_ptr<const FontFace> hostFaceNamed(const std::string& name);
  std::shared_ptr<const Typeface> makeTypeface(const TypefaceRequest& request);
  std::shared_ptr<const FontFace> primaryFace(const std::string& name);

  FontRegistry registry_;
  HostFonts hostFonts_;
  Shaper shaper_;
  std::shared_ptr<RasteriserPool> rasterisers_ = std::make_shared<RasteriserPool>();
  std::atomic<bool> usesHostFonts_{true};
  std::mutex mutex_;
  std::uint64_t generation_ = 0;  // of what typefaces are made from
  std::unordered_map<TypefaceRequest, std::shared_ptr<const Typeface>, RequestHash> typefaces_;
  std::map<std::string, std::shared_ptr<const FontFace>> namedHostFaces_;  // those whose names have been handed out
};

}  // namespace Brisel::Platform::Linux
