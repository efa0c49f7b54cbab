#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include <hb.h>

#include "brisel/platform/engine.h"
#include "brisel/platform/linux/glyph_outline.h"

namespace Brisel::Platform::Linux {

template <class T, void (*destroy)(T*)>
struct HbDelete {
  void operator()(T* object) const noexcept { destroy(object); }
};
using HbFontPtr = std::unique_ptr<hb_font_t, HbDelete<hb_font_t, hb_font_destroy>>;
using HbSetPtr = std::unique_ptr<hb_set_t, HbDelete<hb_set_t, hb_set_destroy>>;

/// One face of a font file, at one unit per font unit. HarfBuzz objects that are no longer changed may be used by any
/// number of threads, so that a face is shared freely.
class FontFace final : public Face {
 public:
  struct Loaded {
    std::shared_ptr<const FontFace> face;  // null unless registered
    Engine::Registration result = Engine::Registration::registered;
  };

  /// Reads the face `index` of a file (the upper 16 bits name an instance of a variable font, as in Fontconfig).
  static Loaded load(const Engine& maker, const std::filesystem::path& file, unsigned index = 0);

  /// A face without a single glyph, for a process without any font.
  static std::shared_ptr<const FontFace> empty(const Engine& maker);

  const std::string& postscriptName() const noexcept { return postscriptName_; }
  const std::string& family() const noexcept { return family_; }
  int weight() const noexcept { return weight_; }  // 1…1000, as OpenType counts
  const FontMetrics& metrics() const noexcept { return metrics_; }
  CGFloat unitsPerEm() const noexcept { return unitsPerEm_; }
  hb_font_t* font() const noexcept { return font_.get(); }
  std::shared_ptr<const GlyphOutline> outline(std::uint32_t glyph) const { return outlines_.outline(glyph); }
  bool has(char32_t character) const noexcept { return hb_set_has(characters_.get(), character) != 0; }

  FontFace(const Engine& maker, HbFontPtr font, std::string postscriptName);

 private:
  HbFontPtr font_;
  GlyphOutlines outlines_;
  HbSetPtr characters_;
  std::string postscriptName_;
  std::string family_;
  int weight_ = 400;
  CGFloat unitsPerEm_ = 1000;
  FontMetrics metrics_;
};

}  // namespace Brisel::Platform::Linux
