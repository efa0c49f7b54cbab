#include "benchmarks/bundle_fonts.h"

#include <filesystem>
#include <string>

#include <pango/pangocairo.h>
#include <pango/pangofc-fontmap.h>

#include "brisel/platform/fatal_error.h"
#include "brisel/typography/font.h"
#include "brisel/typography/font_stacks.h"

namespace Brisel::Benchmarks {

FcConfig* fontConfig() {
  static FcConfig* const config = [] {
    FcConfig* made = FcConfigCreate();
    // As the system's fonts: those of the application go whenever Qt removes a font of its own.
    const std::string cache = (std::filesystem::temp_directory_path() / "brisel_benchmarks_fontconfig").string();
    const std::string description =
        "<fontconfig><dir>" BRISEL_BUNDLE_DIR "</dir><cachedir>" + cache + "</cachedir></fontconfig>";
    FcConfigParseAndLoadFromMemory(made, reinterpret_cast<const FcChar8*>(description.c_str()), FcTrue);
    FcConfigBuildFonts(made);
    const FcFontSet* fonts = FcConfigGetFonts(made, FcSetSystem);
    if (!fonts || fonts->nfont < 24) Platform::fatalError("The bundle's fonts are not all there");
    FcConfigSetCurrent(made);
    return made;
  }();
  return config;
}

PangoContext* pangoContext() {
  static PangoContext* const context = [] {
    PangoFontMap* fonts = pango_cairo_font_map_new();
    pango_fc_font_map_set_config(PANGO_FC_FONT_MAP(fonts), fontConfig());
    return pango_font_map_create_context(fonts);
  }();
  return context;
}

DescriptionPtr pangoDescription(double size) {
  std::string families;
  for (const char* family : kFamilies) families += (families.empty() ? "" : ",") + std::string(family);
  DescriptionPtr description(pango_font_description_new());
  pango_font_description_set_family(description.get(), families.c_str());
  pango_font_description_set_absolute_size(description.get(), size * PANGO_SCALE);
  return description;
}

std::shared_ptr<const Platform::UIFont> font(double size, std::size_t fallbacks) {
  return Font::font(FontStack::text.primaryFont, FontStack::text.fallbackFonts.first(fallbacks), Font::Weight::book,
                    size, {});
}

}  // namespace Brisel::Benchmarks
