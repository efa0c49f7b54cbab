#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>

namespace Brisel::internal {

/// The names of the icons, in published order.
inline constexpr std::string_view kIconNames[] = {
#define BRISEL_ICON(accessor, name, x16, x24, autoMirror) #name,
#include "brisel/icons/icons.def"
};

/// Their constants by number, behind that of none.
inline constexpr std::string_view kIconConstants[] = {
    "VLMBriselIconNone",
#define BRISEL_ICON(accessor, name, x16, x24, autoMirror) std::string_view("VLMBriselIcon" #name),
#include "brisel/icons/icons.def"
};

inline constexpr std::size_t kLongestIconName =
    std::ranges::max_element(kIconNames, {}, [](std::string_view name) { return name.size(); })->size();

/// The place that no name has.
inline constexpr std::size_t kNoIcon = std::size(kIconNames);

/// The place of a name among the names, or `kNoIcon`. Prefixes count as a part of the name. No `std::optional`: its
/// return through memory costs as much as the look-up.
std::size_t indexOfIconName(std::string_view name) noexcept;

}  // namespace Brisel::internal
