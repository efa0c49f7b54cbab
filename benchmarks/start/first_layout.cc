// The same text by Pango, of the same files: they are added to a configuration of the process's own, sorted for the
// style's families, whose faces are opened, and one text is laid out.
#include <cstdio>
#include <filesystem>
#include <set>
#include <string>

#include <ft2build.h>
#include FT_FREETYPE_H

#include <fontconfig/fontconfig.h>
#include <pango/pangocairo.h>
#include <pango/pangofc-fontmap.h>

namespace {

constexpr const char* kFamilies = "Tondal,TondalArab,TondalHebr,TondalCyrl,TondalGrek,TondalDeva";

FcConfig* bundledFonts() {
  FcConfig* const config = FcConfigCreate();
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(BRISEL_BUNDLE_DIR)) {
    const std::string file = entry.path().string();
    if (file.ends_with(".otf") && FcConfigAppFontAddFile(config, reinterpret_cast<const FcChar8*>(file.c_str())))
      ++files;
  }
  return files == 24 ? config : nullptr;
}

// The first face of each of the families.
std::size_t openFaces(FcConfig* config) {
  FcPattern* const pattern = FcNameParse(reinterpret_cast<const FcChar8*>(kFamilies));
  FcConfigSubstitute(config, pattern, FcMatchPattern);
  FcDefaultSubstitute(pattern);
  FcResult result = FcResultMatch;
  FcFontSet* const sorted = FcFontSort(config, pattern, FcTrue, nullptr, &result);
  FT_Library library = nullptr;
  if (!sorted || FT_Init_FreeType(&library) != 0) return 0;
  const std::string wanted = "," + std::string(kFamilies) + ",";
  std::set<std::string> opened;
  for (int i = 0; i < sorted->nfont; ++i) {
    FcChar8 *family = nullptr, *file = nullptr;
    if (FcPatternGetString(sorted->fonts[i], FC_FAMILY, 0, &family) != FcResultMatch ||
        FcPatternGetString(sorted->fonts[i], FC_FILE, 0, &file) != FcResultMatch)
      continue;
    const std::string name = reinterpret_cast<const char*>(family);
    if (wanted.find("," + name + ",") == std::string::npos || !opened.insert(name).second) continue;
    FT_Face face = nullptr;
    if (FT_New_Face(library, reinterpret_cast<const char*>(file), 0, &face) != 0) return 0;
  }
  return opened.size();
}

}  // namespace

int main() {
  FcConfig* const config = bundledFonts();
  if (!config || openFaces(config) != 6) return 1;
  PangoFontMap* const fonts = pango_cairo_font_map_new();
  pango_fc_font_map_set_config(PANGO_FC_FONT_MAP(fonts), config);
  PangoLayout* const layout = pango_layout_new(pango_font_map_create_context(fonts));
  PangoFontDescription* const description = pango_font_description_new();
  pango_font_description_set_family(description, kFamilies);
  pango_font_description_set_absolute_size(description, 16 * PANGO_SCALE);
  pango_layout_set_font_description(layout, description);
  pango_layout_set_text(layout, "The quick brown fox", -1);
  int width = 0;
  pango_layout_get_size(layout, &width, nullptr);
  if (width <= 0) return 1;
  std::puts("ready");
  return std::fflush(stdout);
}
