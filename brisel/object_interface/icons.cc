#include "brisel/object_interface/icons.h"

#include <cstddef>
#include <new>
#include <utility>
#include <vector>

#include "brisel/icons/icon_constants.h"
#include "brisel/icons/icon_font.h"
#include "brisel/icons/internal/icon_lookup.h"
#include "brisel/tokens/internal/lazy_table.h"

using Brisel::Icon;
using Brisel::Platform::CGFloat;
using Brisel::Platform::Dictionary;

static_assert(VLMBriselIconNone == Brisel::kNoIconNumber && VLMBriselIconCount == Brisel::kIconNumberCount &&
              VLMBriselIconInvalid == Brisel::kInvalidIconNumber);

// --- The class ---

std::shared_ptr<const VLMBriselSwiftIcons> VLMBriselSwiftIcons::wrapping(const Icon& icon) {
  return std::shared_ptr<const VLMBriselSwiftIcons>(new VLMBriselSwiftIcons(icon));
}

#define BRISEL_ICON(accessor, name, x16, x24, autoMirror) \
  std::shared_ptr<const VLMBriselSwiftIcons> VLMBriselSwiftIcons::accessor() { return wrapping(Icon::accessor()); }
#include "brisel/icons/icons.def"

std::shared_ptr<const VLMBriselSwiftIcons> VLMBriselSwiftIcons::getSwiftIconWithName(std::string_view name) {
  const Icon* icon = Brisel::internal::findIcon(name);
  return icon ? wrapping(*icon) : nullptr;
}

std::shared_ptr<const Brisel::Platform::UIFont> VLMBriselSwiftIcons::fontWithSize(CGFloat size) {
  return Brisel::iconFont(size);
}

// --- Numbers and constants ---

std::string_view NSStringFromVLMBriselIcon(VLMBriselIcon icon) noexcept { return Brisel::iconConstant(icon); }

VLMBriselIcon VLMBriselIconFromNSString(std::optional<std::string_view> string) noexcept {
  return VLMBriselIcon{Brisel::iconNumber(string)};
}

VLMBriselIcon VLMBriselIconActiveFromVLMBriselIcon(VLMBriselIcon icon) noexcept {
  return VLMBriselIcon{Brisel::activeIconNumber(icon)};
}

VLMBriselIcon VLMBriselIconRTLFromVLMBriselIcon(VLMBriselIcon icon) noexcept {
  return VLMBriselIcon{Brisel::iconNumberForLayoutDirection(icon)};
}

std::shared_ptr<const VLMBriselSwiftIcons> VLMBrisel::convertIcon(VLMBriselIcon icon) {
  const Icon* value = Brisel::internal::iconOfNumber(icon);
  return value ? VLMBriselSwiftIcons::wrapping(*value) : nullptr;
}

namespace {

void buildNames(void* place, std::size_t) noexcept {
  std::vector<Dictionary::Entry> entries;
  entries.reserve(VLMBriselIconCount + 1);
  for (std::uint64_t icon = VLMBriselIconNone; icon < VLMBriselIconCount; ++icon)
    entries.push_back({icon, Brisel::iconConstant(icon)});
  entries.push_back({Brisel::kInvalidIconNumber, Brisel::iconConstant(Brisel::kInvalidIconNumber)});
  ::new (place) Dictionary(std::move(entries));
}

}  // namespace

const Dictionary& VLMBrisel::iconNames() noexcept {
  static constinit Brisel::internal::LazyTable<Dictionary, 1, buildNames> names;
  return names[0];
}

// --- Glyph sizes ---

std::string_view NSStringFromVLMBriselIconGlyphSize(VLMBriselIconGlyphSize size) noexcept {
  switch (size) {
    case VLMBriselIconGlyphSizeSmall:
      return "VLMBriselIconGlyphSizeSmall";
    case VLMBriselIconGlyphSizeMedium:
      return "VLMBriselIconGlyphSizeMedium";
  }
  return "UNKNOWN";
}

VLMBriselIconGlyphSize VLMBriselIconGlyphSizeFromHeight(CGFloat height) noexcept {
  return height > 20.0 ? VLMBriselIconGlyphSizeMedium : VLMBriselIconGlyphSizeSmall;
}

VLMBriselIconGlyphSize VLMBriselIconGlyphSizeFromCGSize(Brisel::Platform::CGSize size) noexcept {
  return VLMBriselIconGlyphSizeFromHeight(size.height);
}

VLMBriselSwiftIcons::GlyphSize VLMBrisel::convertGlyphSize(VLMBriselIconGlyphSize size) noexcept {
  using GlyphSize = VLMBriselSwiftIcons::GlyphSize;
  return size == VLMBriselIconGlyphSizeSmall ? GlyphSize::small : GlyphSize::medium;
}
