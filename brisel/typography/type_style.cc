#include "brisel/typography/type_style.h"

#include <iterator>
#include <new>
#include <string_view>
#include <utility>

#include "brisel/tokens/internal/lazy_table.h"
#include "brisel/typography/font_stacks.h"
#include "brisel/typography/internal/built_count.h"

namespace Brisel {
namespace {

enum class Index : std::size_t {
#define BRISEL_TYPE_STYLE(name, title, stack, weight, size, fontSizes, scaleFactors, upperCase, group) name,
#include "brisel/typography/type_styles.def"
};

struct Row {
  std::string_view identifier;
  std::string_view name;
  FontStack stack;
  Font::Weight weight;
  Platform::CGFloat fontSize;
  TypeStyle::AccessibilityRange fontSizes;
  TypeStyle::AccessibilityRange minimumScaleFactors;
  bool usesUpperCaseLayout;
  TypeStyle::Group group;
};

constexpr Row kRows[] = {
#define BRISEL_TYPE_STYLE(name, title, stack, weight, size, fontSizes, scaleFactors, upperCase, group) \
  {#name,                                                                                              \
   title,                                                                                              \
   FontStack::stack,                                                                                   \
   Font::Weight::weight,                                                                               \
   size,                                                                                               \
   TypeStyle::AccessibilityRange fontSizes,                                                            \
   TypeStyle::AccessibilityRange scaleFactors,                                                         \
   upperCase,                                                                                          \
   TypeStyle::Group::group},
#include "brisel/typography/type_styles.def"
};

void buildStyle(void* place, std::size_t index) noexcept {
  const Row& row = kRows[index];
  const auto fallbacks = row.stack.fallbackFonts;
  ::new (place)
      TypeStyle(std::string(row.name), row.stack.primaryFont, std::vector<Font>(fallbacks.begin(), fallbacks.end()),
                row.weight, row.fontSize, row.group,
                TypeStyle::Configuration(row.fontSizes, row.minimumScaleFactors, row.usesUpperCaseLayout, {}));
}

constinit internal::LazyTable<TypeStyle, std::size(kRows), buildStyle> styles;

void buildAllCases(void* place, std::size_t) noexcept {
  auto* all = ::new (place) std::vector<TypeStyle>;
  all->reserve(std::size(kRows));
  for (std::size_t i = 0; i < std::size(kRows); ++i) all->push_back(styles[i]);
}

constinit internal::LazyTable<std::vector<TypeStyle>, 1, buildAllCases> allStyles;

TypeStyle::AccessibilityRange everywhere(double value) {
  return TypeStyle::AccessibilityRange(value, value, value, value);
}

}  // namespace

#define BRISEL_TYPE_STYLE(name, title, stack, weight, size, fontSizes, scaleFactors, upperCase, group) \
  const TypeStyle& TypeStyle::name() noexcept { return styles[static_cast<std::size_t>(Index::name)]; }
#include "brisel/typography/type_styles.def"

const std::vector<TypeStyle>& TypeStyle::allCases() noexcept { return allStyles[0]; }

TypeStyle TypeStyle::withFontSize(double fontSize) const { return withFontSize(everywhere(fontSize)); }

TypeStyle TypeStyle::withFontSize(const AccessibilityRange& fontSize) const {
  return TypeStyle(
      name_, primaryFont_, fallbackFonts_, fontWeight_, fontSize.mid(), group_,
      Configuration(fontSize, configuration_.minimumScaleFactor(), configuration_.usesUpperCaseLayout(), {}));
}

TypeStyle TypeStyle::withMinimumScaleFactor(double minimumScaleFactor) const {
  return withMinimumScaleFactor(everywhere(minimumScaleFactor));
}

TypeStyle TypeStyle::withMinimumScaleFactor(const AccessibilityRange& minimumScaleFactor) const {
  return TypeStyle(
      name_, primaryFont_, fallbackFonts_, fontWeight_, fontSize_, group_,
      Configuration(configuration_.fontSize(), minimumScaleFactor, configuration_.usesUpperCaseLayout(), {}));
}

TypeStyle TypeStyle::withUsesUpperCaseLayout(bool usesUpperCaseLayout) const {
  return TypeStyle(
      name_, primaryFont_, fallbackFonts_, fontWeight_, fontSize_, group_,
      Configuration(configuration_.fontSize(), configuration_.minimumScaleFactor(), usesUpperCaseLayout, {}));
}

TypeStyle TypeStyle::withFontFeatures(std::vector<Font::Feature> fontFeatures) const {
  return TypeStyle(name_, primaryFont_, fallbackFonts_, fontWeight_, fontSize_, group_,
                   Configuration(configuration_.fontSize(), configuration_.minimumScaleFactor(),
                                 configuration_.usesUpperCaseLayout(), std::move(fontFeatures)));
}

TypeStyle TypeStyle::withPrimaryFont(Font primaryFont) const {
  return TypeStyle(name_, primaryFont, fallbackFonts_, fontWeight_, fontSize_, group_, configuration_);
}

TypeStyle TypeStyle::withFallbackFonts(std::vector<Font> fallbackFonts) const {
  return TypeStyle(name_, primaryFont_, std::move(fallbackFonts), fontWeight_, fontSize_, group_, configuration_);
}

TypeStyle::Group typeStyleGroup(std::string_view identifier) noexcept {
  for (const Row& row : kRows)
    if (row.identifier == identifier) return row.group;
  return TypeStyle::Group::body;
}

std::size_t internal::builtTypeStyles() noexcept { return styles.builtCount(); }

}  // namespace Brisel
