// Icons by number and by name of constant, as the object interface calls them: 0 is none, then come all icons of the
// catalogue in published order, then their count. Any other number is invalid.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

namespace Brisel {

/// No icon.
inline constexpr std::uint64_t kNoIconNumber = 0;
inline constexpr std::uint64_t kIconNumberCount = 329;  ///< one behind the last icon's
/// The largest signed number, though numbers of icons are unsigned; this is deliberate.
inline constexpr std::uint64_t kInvalidIconNumber = std::numeric_limits<std::int64_t>::max();

/// "VLMBriselIconAddCalendar" for 2, "VLMBriselIconNone" for 0, "VLMBriselIconInvalid" for 329 and above. Constant.
std::string_view iconConstant(std::uint64_t number) noexcept;

/// The number of an icon by its name, whose first letter may be small, or by its constant ("VLMIcon" may stand for
/// "VLMBriselIcon" there, which the host's log handler is told each time, if one is set); `kInvalidIconNumber` for any
/// other text and for none. Unlike `Icon(name)` it removes no prefix from the middle of a text.
std::uint64_t iconNumber(std::optional<std::string_view> text) noexcept;
/// No text either, which would else be read as a pointer to characters.
constexpr std::uint64_t iconNumber(std::nullptr_t) noexcept { return kInvalidIconNumber; }

/// The number of the icon with the same name and "Active" behind it; invalid where there is none, 0 for 0.
std::uint64_t activeIconNumber(std::uint64_t number) noexcept;

/// What to show in the host's layout direction (platform/layout_direction.h): the number itself or, from right to left,
/// that of the other chevron or page (`Icon::rightToLeft`). Invalid for 329 and above in either direction.
std::uint64_t iconNumberForLayoutDirection(std::uint64_t number) noexcept;

}  // namespace Brisel
