#include <array>
#include <cstddef>
#include <new>

#include "brisel/themes/internal/built_count.h"
#include "brisel/themes/internal/slot_reader.h"
#include "brisel/themes/theme.h"
#include "brisel/tokens/internal/lazy_table.h"

namespace Brisel {
namespace {

using Platform::UIColor;

// One colour set's 28 colours, spread from its six.
constexpr std::array<UIColor, 28> spread(UIColor surface, UIColor highlight, UIColor press, UIColor foreground,
                                         UIColor brightAccent, UIColor subdued) {
  return {surface,    surface,    surface,      surface,    surface,    surface,    surface,     //
          surface,    surface,    surface,      highlight,  press,                               // background
          foreground, foreground, brightAccent, foreground, foreground, foreground, foreground,  // text
          foreground, foreground, brightAccent, foreground, foreground, foreground, foreground,  // essential
          foreground, subdued};                                                                  // decorative
}

constexpr auto kSets = [] {
#define BRISEL_SHADE(label, red, green, blue, alpha) constexpr UIColor label = UIColor::rgb(red, green, blue, alpha);
#include "brisel/themes/campaign.def"
  return std::array{
#define BRISEL_CAMPAIGN(name, ...) spread(__VA_ARGS__),
#include "brisel/themes/campaign.def"
  };
}();

enum class Index : std::size_t {
#define BRISEL_CAMPAIGN(name, ...) name,
#include "brisel/themes/campaign.def"
};

void build(void* place, std::size_t index) noexcept {
  ::new (place) Theme::ColorSet(internal::SlotReader(kSets[index].data(), 1).read<Theme::ColorSet>());
}

constinit internal::LazyTable<Theme::ColorSet, kSets.size(), build> sets;

}  // namespace

std::size_t internal::builtCampaignColorSets() noexcept { return sets.builtCount(); }

#define BRISEL_CAMPAIGN(name, ...)                                    \
  const Theme::ColorSet& Theme::ColorSet::Campaign::name() noexcept { \
    return sets[static_cast<std::size_t>(Index::name)];               \
  }
#include "brisel/themes/campaign.def"

}  // namespace Brisel
