// A theme's colour sets, the campaign colour sets and a colour set's slots, by name: what style guides, exports and
// tests walk through.
#pragma once

#include <span>
#include <string_view>

#include "brisel/platform/color.h"
#include "brisel/themes/theme.h"

namespace Brisel::Catalogue {

/// A colour set of a theme, by name.
struct ColorSetEntry {
  std::string_view name;                                  ///< such as "mutedAccent"
  const Theme::ColorSet& (Theme::*get)() const noexcept;  ///< the accessor
};

/// A campaign colour set, by name.
struct CampaignEntry {
  std::string_view name;                     ///< such as "tierAurel"
  const Theme::ColorSet& (*get)() noexcept;  ///< the accessor
};

/// One of a colour set's 28 colours, by the path that leads to it.
struct SlotEntry {
  std::string_view path;                                                  ///< such as "background.elevated.press"
  const Platform::ColorPtr& (*get)(const Theme::ColorSet& set) noexcept;  ///< reads it from a set
};

/// The ten colour sets of a theme, in field order.
std::span<const ColorSetEntry> colorSets() noexcept;

/// The fifteen campaign colour sets, in published order.
std::span<const CampaignEntry> campaignColorSets() noexcept;

/// The 28 slots of a colour set, in slot order.
std::span<const SlotEntry> slots() noexcept;

}  // namespace Brisel::Catalogue
