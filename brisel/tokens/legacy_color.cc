#include "brisel/tokens/legacy_color.h"

#include <cstddef>
#include <iterator>
#include <new>

#include "brisel/tokens/internal/built_count.h"
#include "brisel/tokens/internal/color_slot.h"
#include "brisel/tokens/internal/lazy_table.h"

namespace Brisel {
namespace {

using Platform::UIColor;
using Slot = internal::ColorSlot<Platform::ColorPtr>;

enum class Index : std::size_t {
#define BRISEL_GREY(name, white, alpha) name,
#define BRISEL_RGB(name, red, green, blue, hex) name,
#include "brisel/tokens/legacy_colors.def"
};

constexpr UIColor kRows[] = {
#define BRISEL_GREY(name, white, alpha) UIColor::grey(white, alpha),
#define BRISEL_RGB(name, red, green, blue, hex) UIColor::rgb(red, green, blue),
#include "brisel/tokens/legacy_colors.def"
};

void buildSlot(void* place, std::size_t index) noexcept { ::new (place) Slot(kRows[index]); }

constinit internal::LazyTable<Slot, std::size(kRows), buildSlot> slots;

}  // namespace

#define BRISEL_COLOR(name) \
  const Platform::ColorPtr& LegacyColor::name() noexcept { return slots[static_cast<std::size_t>(Index::name)].token; }
#define BRISEL_GREY(name, white, alpha) BRISEL_COLOR(name)
#define BRISEL_RGB(name, red, green, blue, hex) BRISEL_COLOR(name)
#include "brisel/tokens/legacy_colors.def"
#undef BRISEL_COLOR

std::size_t internal::builtLegacyColors() noexcept { return slots.builtCount(); }

}  // namespace Brisel
