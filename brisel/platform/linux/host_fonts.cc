#include "brisel/platform/linux/host_fonts.h"

#include <map>
#include <string>
#include <string_view>

#include <fontconfig/fontconfig.h>

namespace Brisel::Platform::Linux {
namespace {

struct PatternDelete {
  void operator()(FcPattern* pattern) const noexcept { FcPatternDestroy(pattern); }
};
using PatternPtr = std::unique_ptr<FcPattern, PatternDelete>;

struct FontSetDelete {
  void operator()(FcFontSet* set) const noexcept { FcFontSetDestroy(set); }
};
using FontSetPtr = std::unique_ptr<FcFontSet, FontSetDelete>;

// Answers are forgotten beyond that many characters: nobody's text needs them all.
constexpr std::size_t kMostAnswers = 8192;

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

// The host's configuration, and its fonts in the order of preference for each weight that was asked for.
class HostFonts::Configuration {
 public:
  Configuration() : config_(FcInitLoadConfigAndFonts()) {}
  ~Configuration() {
    sorted_.clear();
    if (config_) FcConfigDestroy(config_);
  }
  Configuration(const Configuration&) = delete;
  Configuration& operator=(const Configuration&) = delete;

  /// Null where the host has none.
  FcFontSet* fonts(int weight) {
    if (const auto known = sorted_.find(weight); known != sorted_.end()) return known->second.get();
    return sorted_.emplace(weight, sort(weight)).first->second.get();
  }

 private:
  FontSetPtr sort(int weight) const {
    if (!config_) return nullptr;
    const PatternPtr wanted(FcPatternCreate());
    FcPatternAddString(wanted.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>("sans-serif"));
    FcPatternAddInteger(wanted.get(), FC_WEIGHT, FcWeightFromOpenType(weight));
    FcPatternAddBool(wanted.get(), FC_SCALABLE, FcTrue);
    FcConfigSubstitute(config_, wanted.get(), FcMatchPattern);
    FcDefaultSubstitute(wanted.get());
    FcResult result = FcResultNoMatch;
    return FontSetPtr(FcFontSort(config_, wanted.get(), FcFalse, nullptr, &result));
  }

  FcConfig* config_;
  std::map<int, FontSetPtr> sorted_;
};

HostFonts::HostFonts(const Engine& maker) : maker_(maker) {}
HostFonts::~HostFonts() = default;

std::shared_ptr<const FontFace> HostFonts::faceFor(char32_t character, int weight) {
  const std::lock_guard lock(mutex_);
  const std::uint64_t key = (static_cast<std::uint64_t>(weight) << 32) | character;
  if (const auto known = answers_.find(key); known != answers_.end()) return known->second;
  if (answers_.size() >= kMostAnswers) answers_.clear();
  return answers_.emplace(key, match(character, weight)).first->second;
}

std::shared_ptr<const FontFace> HostFonts::match(char32_t character, int weight) {
  if (!configuration_) configuration_ = std::make_unique<Configuration>();
  const FcFontSet* fonts = configuration_->fonts(weight);
  for (int i = 0; fonts && i < fonts->nfont; ++i) {
    FcPattern* candidate = fonts->fonts[i];
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
