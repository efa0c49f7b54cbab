#include <array>
#include <cstddef>
#include <new>

#include "brisel/themes/internal/slot_reader.h"
#include "brisel/themes/theme.h"
#include "brisel/tokens/internal/lazy_table.h"

namespace Brisel {
namespace {

using Platform::UIColor;

constexpr std::size_t kSlots = 28;
constexpr std::size_t kColorSets = 10;

// Slot by slot, each with one colour for every colour set.
constexpr auto kCells = [] {
#define BRISEL_SHADE(label, red, green, blue, alpha) constexpr UIColor label = UIColor::rgb(red, green, blue, alpha);
#define BRISEL_SLOT(path, ...)
#include "brisel/themes/dark_theme.def"
  return std::array<UIColor, kSlots * kColorSets>{
#define BRISEL_SHADE(label, red, green, blue, alpha)
#define BRISEL_SLOT(path, ...) __VA_ARGS__,
#include "brisel/themes/dark_theme.def"
  };
}();

Theme::ColorSet column(std::size_t index) {
  return internal::SlotReader(&kCells[index], kColorSets).read<Theme::ColorSet>();
}

void buildDark(void* place, std::size_t) noexcept {
  ::new (place) Theme(column(0), column(1), column(2), column(3), column(4), column(5), column(6), column(7), column(8),
                      column(9));
}

constinit internal::LazyTable<Theme, 1, buildDark> themes;

}  // namespace

const Theme& Theme::dark() noexcept { return themes[0]; }

}  // namespace Brisel
