#include "brisel/platform/linux/typeface.h"

#include <algorithm>
#include <utility>

#include "brisel/platform/internal/utf.h"
#include "brisel/platform/linux/unicode.h"

namespace Brisel::Platform::Linux {
namespace {

struct KnownFeature {
  FontFeatureSetting setting;
  hb_tag_t tag = HB_TAG_NONE;
};

// The number-coded features that have an OpenType counterpart; all others ask for nothing.
constexpr KnownFeature kKnownFeatures[] = {
    {{6, 0}, HB_TAG('t', 'n', 'u', 'm')},  // number spacing: monospaced
    {{6, 1}, HB_TAG('p', 'n', 'u', 'm')},  // number spacing: proportional
};

}  // namespace

LinuxTypeface::LinuxTypeface(const Engine& maker, Faces faces, const std::vector<FontFeatureSetting>& features)
    : Typeface(maker, faces.front()->postscriptName(), faces.front()->metrics()), faces_(std::move(faces)) {
  for (const FontFeatureSetting& setting : features) {
    for (const KnownFeature& known : kKnownFeatures) {
      if (known.setting == setting) {
        features_.push_back({known.tag, 1, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END});
      }
    }
  }
}

bool LinuxTypeface::onHasCharacter(char32_t character) const {
  return std::any_of(faces_.begin(), faces_.end(), [&](const auto& face) { return face->has(character); });
}

bool LinuxTypeface::onHasCharacters(std::u16string_view text) const {
  for (std::size_t next = 0; next < text.size();) {
    const std::size_t at = next;
    if (drawable_.contains(text[at])) {
      ++next;
      continue;
    }
    const char32_t character = Platform::internal::nextCharacter(text, next);
    if (!isIgnorable(character) && !onHasCharacter(character)) return false;
    if (next == at + 1) drawable_.insert(text[at]);
  }
  return true;
}

}  // namespace Brisel::Platform::Linux
