#include "brisel/themes/catalogue.h"

#include <array>
#include <cstddef>
#include <iterator>

namespace Brisel::Catalogue {
namespace {

#define BRISEL_COLOR_SET(name) \
  { #name, &Theme::name }
constexpr ColorSetEntry kColorSets[] = {
    BRISEL_COLOR_SET(base),         BRISEL_COLOR_SET(brightAccent),  BRISEL_COLOR_SET(negative),
    BRISEL_COLOR_SET(warning),      BRISEL_COLOR_SET(positive),      BRISEL_COLOR_SET(announcement),
    BRISEL_COLOR_SET(invertedDark), BRISEL_COLOR_SET(invertedLight), BRISEL_COLOR_SET(mutedAccent),
    BRISEL_COLOR_SET(overMedia),
};
#undef BRISEL_COLOR_SET

constexpr CampaignEntry kCampaignColorSets[] = {
#define BRISEL_CAMPAIGN(name, ...) {#name, Theme::ColorSet::Campaign::name},
#include "brisel/themes/campaign.def"
};

// The path of a slot as it is spoken of: its accessor without the parentheses.
struct Path {
  constexpr explicit Path(std::string_view accessor) {
    for (const char c : accessor)
      if (c != '(' && c != ')') text[size++] = c;
  }
  constexpr std::string_view view() const { return {text, size}; }

  char text[48]{};
  std::size_t size = 0;
};

constexpr Path kPaths[] = {
#define BRISEL_SLOT(path, ...) Path(#path),
#include "brisel/themes/dark_theme.def"
};

constexpr decltype(SlotEntry::get) kAccessors[] = {
#define BRISEL_SLOT(path, ...) \
  [](const Theme::ColorSet& set) noexcept -> const Platform::ColorPtr& { return set.path; },
#include "brisel/themes/dark_theme.def"
};

constexpr auto kSlots = [] {
  std::array<SlotEntry, std::size(kPaths)> entries{};
  for (std::size_t i = 0; i < entries.size(); ++i) entries[i] = {kPaths[i].view(), kAccessors[i]};
  return entries;
}();

}  // namespace

std::span<const ColorSetEntry> colorSets() noexcept { return kColorSets; }
std::span<const CampaignEntry> campaignColorSets() noexcept { return kCampaignColorSets; }
std::span<const SlotEntry> slots() noexcept { return kSlots; }

}  // namespace Brisel::Catalogue
