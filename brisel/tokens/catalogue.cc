#include "brisel/tokens/catalogue.h"

#include <array>
#include <iterator>

#include "brisel/tokens/legacy_color.h"

namespace Brisel::Catalogue {
namespace {

constexpr ColorEntry kColors[] = {
#define BRISEL_GREY(name, white, alpha) {#name, #name, &Color::name},
#define BRISEL_RGB(name, red, green, blue, hex) {#name, #name, &Color::name},
#include "brisel/tokens/palette.def"
};

constexpr LegacyColorEntry kLegacyColors[] = {
#define BRISEL_GREY(name, white, alpha) {{}, #name, &LegacyColor::name},
#define BRISEL_RGB(name, red, green, blue, hex) {{}, #name, &LegacyColor::name},
#include "brisel/tokens/legacy_colors.def"
};

constexpr OpacityEntry kOpacities[] = {
#define BRISEL_OPACITY(name, number, objectName) {#name, #objectName, &Opacity::name},
#include "brisel/tokens/opacities.def"
};

constexpr SpacerEntry kSpacers[] = {
#define BRISEL_SPACER(name, number, objectName) {#name, #objectName, &Spacer::name},
#include "brisel/tokens/spacers.def"
};

// The palette's rows as they follow each other: the heading of a family, or a colour, which has none.
struct Line {
  std::string_view section, title;
  constexpr bool opensFamily() const { return !title.empty(); }
};

constexpr Line kLines[] = {
#define BRISEL_FAMILY(section, title) {section, title},
#define BRISEL_GREY(name, white, alpha) {},
#define BRISEL_RGB(name, red, green, blue, hex) {},
#include "brisel/tokens/palette.def"
};

constexpr std::size_t kFamilyCount = std::size(kLines) - std::size(kColors);

constexpr auto kFamilies = [] {
  std::array<ColorFamily, kFamilyCount> families{};
  std::size_t family = 0, color = 0;
  for (std::size_t line = 0; line < std::size(kLines); ++family) {
    const auto [section, title] = kLines[line++];
    const std::size_t first = color;
    while (line < std::size(kLines) && !kLines[line].opensFamily()) ++line, ++color;
    families[family] = {section, title, std::span(kColors + first, kColors + color)};
  }
  return families;
}();

}  // namespace

std::span<const ColorEntry> colors() noexcept { return kColors; }
std::span<const ColorFamily> colorFamilies() noexcept { return kFamilies; }
std::span<const LegacyColorEntry> legacyColors() noexcept { return kLegacyColors; }
std::span<const OpacityEntry> opacities() noexcept { return kOpacities; }
std::span<const SpacerEntry> spacers() noexcept { return kSpacers; }

}  // namespace Brisel::Catalogue
