#include "brisel/platform/linux/host_fonts.h"

#include <string>

#include <fontconfig/fontconfig.h>

namespace Brisel::Platform::Linux {
namespace {

struct PatternDelete {
  void operator()(FcPattern* pattern) const noexcept { FcPatternDestroy(pattern); }
};
using PatternPtr = std::unique_ptr<FcPattern, PatternDelete>;

struct CharSetDelete {
  void operator()(FcCharSet* set) const noexcept { FcCharSetDestroy(set); }
};
using CharSetPtr = std::unique_ptr<FcCharSet, CharSetDelete>;

// HarfBuzz draws OpenType outlines and embedded pictures; bitmap and PostScript formats of old it does not.
bool isUsable(FcPattern* pattern, char32_t character) {
  FcCharSet* covered = nullptr;
  FcChar8* format = nullptr;
  if (FcPatternGetCharSet(pattern, FC_CHARSET, 0, &covered) != FcResultMatch || !FcCharSetHasChar(covered, character)) {
    return false;
  }
  if (FcPatternGetString(pattern, FC_FONTFORMAT, 0, &format) != FcResultMatch) return false;
  const std::string_view name = reinterpret_cast<const char*>(format);
  return name == "TrueType" || name == "CFF";
}

}  // namespace

struct HostFonts::Configuration {
  Configuration() : config(FcInitLoadConfigAndFonts()) {}
  ~Configuration() {
    if (config) FcConfigDestroy(config);
  }
  Configuration(const Configuration&) = delete;
  Configuration& operator=(const Configuration&) = delete;
  FcConfig* config;
};

HostFonts::HostFonts(const Engine& maker) : maker_(maker) {}
HostFonts::~HostFonts() = default;

std::shared_ptr<const FontFace> HostFonts::faceFor(char32_t character, int weight) {
  const std::lock_guard lock(mutex_);
  const std::uint64_t key = (static_cast<std::uint64_t>(weight) << 32) | character;
  if (const auto known = answers_.find(key); known != answers_.end()) return known->second;
  return answers_.emplace(key, match(character, weight)).first->second;
}

std::shared_ptr<const FontFace> HostFonts::match(char32_t character, int weight) {
  if (!configuration_) configuration_ = std::make_unique<Configuration>();
  FcConfig* config = configuration_->config;
  if (!config) return nullptr;

  const PatternPtr wanted(FcPatternCreate());
  const CharSetPtr characters(FcCharSetCreate());
  FcCharSetAddChar(characters.get(), character);
  FcPatternAddCharSet(wanted.get(), FC_CHARSET, characters.get());
  FcPatternAddString(wanted.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>("sans-serif"));
  FcPatternAddInteger(wanted.get(), FC_WEIGHT, FcWeightFromOpenType(weight));
  FcPatternAddBool(wanted.get(), FC_SCALABLE, FcTrue);
  FcConfigSubstitute(config, wanted.get(), FcMatchPattern);
  FcDefaultSubstitute(wanted.get());

  FcResult result = FcResultNoMatch;
  const std::unique_ptr<FcFontSet, void (*)(FcFontSet*)> sorted(
      FcFontSort(config, wanted.get(), FcFalse, nullptr, &result), [](FcFontSet* set) {
        if (set) FcFontSetDestroy(set);
      });
  if (!sorted) return nullptr;
  for (int i = 0; i < sorted->nfont; ++i) {
    FcPattern* candidate = sorted->fonts[i];
    FcChar8* file = nullptr;
    int index = 0;
    if (!isUsable(candidate, character) || FcPatternGetString(candidate, FC_FILE, 0, &file) != FcResultMatch) continue;
    FcPatternGetInteger(candidate, FC_INDEX, 0, &index);
    auto face = open(reinterpret_cast<const char*>(file), static_cast<unsigned>(index));
    if (face && face->has(character)) return face;
  }
  return nullptr;
}

std::shared_ptr<const FontFace> HostFonts::open(const std::string& file, unsigned index) {
  const std::string key = file + '#' + std::to_string(index);
  if (const auto known = files_.find(key); known != files_.end()) return known->second;
  return files_.emplace(key, FontFace::load(maker_, file, index).face).first->second;
}

}  // namespace Brisel::Platform::Linux
