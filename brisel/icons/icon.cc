#include "brisel/icons/icon.h"

#include <cstddef>
#include <iterator>
#include <new>
#include <utility>

#include "brisel/icons/icon_error.h"
#include "brisel/icons/internal/built_count.h"
#include "brisel/icons/internal/icon_lookup.h"
#include "brisel/icons/internal/icon_names.h"
#include "brisel/platform/fatal_error.h"
#include "brisel/tokens/internal/lazy_table.h"

namespace Brisel {
namespace {

enum class Index : std::size_t {
#define BRISEL_ICON(accessor, name, x16, x24, autoMirror) accessor,
#include "brisel/icons/icons.def"
};

}  // namespace

struct internal::IconRow {
  std::string_view name;
  char32_t x16, x24;
  bool autoMirror;
};

namespace {

constexpr internal::IconRow kRows[] = {
#define BRISEL_ICON(accessor, name, x16, x24, autoMirror) {#name, x16, x24, autoMirror},
#include "brisel/icons/icons.def"
};

}  // namespace

struct internal::IconSlots {
  static void build(void* place, std::size_t index) noexcept { ::new (place) Icon(kRows[index]); }
};

namespace {

constinit internal::LazyTable<Icon, std::size(kRows), internal::IconSlots::build> icons;

void buildAllCases(void* place, std::size_t) noexcept {
  auto* all = ::new (place) std::vector<Icon>;
  all->reserve(std::size(kRows));
  for (std::size_t i = 0; i < std::size(kRows); ++i) all->push_back(icons[i]);
}

constinit internal::LazyTable<std::vector<Icon>, 1, buildAllCases> allIcons;

const Icon& iconNamed(std::string_view name) {
  if (const Icon* icon = internal::findIcon(name)) return *icon;
  throw Error::Icon(Error::Icon::invalidName);
}

}  // namespace

// --- The catalogue ---

#define BRISEL_ICON(accessor, name, x16, x24, autoMirror) \
  const Icon& Icon::accessor() noexcept { return icons[static_cast<std::size_t>(Index::accessor)]; }
#include "brisel/icons/icons.def"

const std::vector<Icon>& Icon::allCases() noexcept { return allIcons[0]; }

std::size_t internal::builtIcons() noexcept { return icons.builtCount(); }

// --- Names ---

namespace {

std::string without(std::string_view part, std::string_view text) {
  std::string rest;
  for (;;) {
    const std::size_t at = text.find(part);
    rest += text.substr(0, at);
    if (at == std::string_view::npos) return rest;
    text.remove_prefix(at + part.size());
  }
}

}  // namespace

const Icon* internal::findIcon(std::string_view name) {
  // No name contains a prefix, nor could one arise where a prefix and a name meet. So a name, bare or behind prefixes
  // in their order, is looked up as it is; this is how nearly all of them come.
  std::string_view bare = name;
  if (name.starts_with('V'))
    for (const Icon::Prefixes prefix : Icon::Prefixes::allCases())
      if (bare.starts_with(prefix.rawValue())) bare.remove_prefix(prefix.rawValue().size());
  if (const std::size_t index = indexOfIconName(bare); index != kNoIcon) return &icons[index];

  if (name.find("VLM") == std::string_view::npos) return nullptr;  // which both prefixes begin with
  std::string rest(name);
  for (const Icon::Prefixes prefix : Icon::Prefixes::allCases()) rest = without(prefix.rawValue(), rest);
  const std::size_t index = indexOfIconName(rest);
  return index != kNoIcon ? &icons[index] : nullptr;
}

const Icon* internal::iconOfNumber(std::uint64_t number) noexcept {
  return number >= 1 && number <= std::size(kRows) ? &icons[number - 1] : nullptr;
}

Icon::Icon(std::string_view name) : Icon(iconNamed(name)) {}

Icon::Icon(const internal::IconRow& row) noexcept
    : name_(row.name), glyphs_(Glyph(row.x16), Glyph(row.x24)), autoMirror_(row.autoMirror) {}

Icon::Icon(std::string name, bool autoMirror, const Glyphs& glyphs)
    : ownName_(std::make_shared<const std::string>(std::move(name))),
      name_(*ownName_),
      glyphs_(glyphs),
      autoMirror_(autoMirror) {}

std::optional<Icon::Prefixes> Icon::Prefixes::fromRawValue(std::string_view rawValue) noexcept {
  for (const Prefixes prefix : allCases())
    if (prefix.rawValue() == rawValue) return prefix;
  return std::nullopt;
}

// --- Glyphs ---

Icon::Glyph internal::glyphForSize(const Icon& icon, Icon::GlyphSize size) {
  const auto& x16 = icon.glyphs().x16();
  const auto& x24 = icon.glyphs().x24();
  if (!x16 && !x24) Platform::fatalError("An icon without glyphs cannot be drawn: " + std::string(icon.name()));
  // Of two sizes the nearest to the other is the other one.
  switch (size) {
    case Icon::GlyphSize::Case::x16:
      return x16 ? *x16 : *x24;
    case Icon::GlyphSize::Case::x24:
      return x24 ? *x24 : *x16;
  }
  Platform::fatalError("A glyph size that does not exist");
}

Icon::GlyphSize internal::glyphSizeForPointSize(Platform::CGFloat pointSize) noexcept {
  return pointSize <= 16.0 ? Icon::GlyphSize::x16 : Icon::GlyphSize::x24;
}

Icon Icon::rightToLeft() const {
  if (*this == chevronLeft()) return chevronRight();
  if (*this == chevronRight()) return chevronLeft();
  if (*this == pageLeft()) return pageRight();
  if (*this == pageRight()) return pageLeft();
  return *this;
}

// --- Equality and hash ---

namespace {

bool equal(const std::optional<Icon::Glyph>& a, const std::optional<Icon::Glyph>& b) {
  return a && b ? a->unichar() == b->unichar() : !a && !b;
}

void hashGlyph(Platform::internal::Hasher& hasher, const std::optional<Icon::Glyph>& glyph) {
  if (glyph)
    hasher(1, glyph->unichar());
  else
    hasher(0);
}

}  // namespace

bool operator==(const Icon& a, const Icon& b) noexcept {
  return a.name_ == b.name_ && a.autoMirror_ == b.autoMirror_ && equal(a.glyphs_.x16(), b.glyphs_.x16()) &&
         equal(a.glyphs_.x24(), b.glyphs_.x24());
}

void hashInto(Platform::internal::Hasher& hasher, const Icon& icon) {
  hasher(icon.name_, icon.autoMirror_);
  hashGlyph(hasher, icon.glyphs_.x16());
  hashGlyph(hasher, icon.glyphs_.x24());
}

}  // namespace Brisel
