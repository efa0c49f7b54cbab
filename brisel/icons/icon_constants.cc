#include "brisel/icons/icon_constants.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "brisel/icons/icon.h"
#include "brisel/icons/internal/icon_lookup.h"
#include "brisel/icons/internal/icon_names.h"
#include "brisel/platform/layout_direction.h"
#include "brisel/platform/log.h"

namespace Brisel {
namespace {

static_assert(std::size(internal::kIconConstants) == kIconNumberCount);

// "Invalid" needs no mention: it is no icon's name.
std::uint64_t numberOfName(std::string_view name) {
  const std::size_t index = internal::indexOfIconName(name);
  if (index != internal::kNoIcon) return index + 1;
  return name == "None" ? kNoIconNumber : kInvalidIconNumber;
}

std::uint64_t numberOfJoined(std::string_view a, std::string_view b) {
  char name[internal::kLongestIconName];
  if (b.size() > std::size(name) || a.size() > std::size(name) - b.size()) return kInvalidIconNumber;
  char* const end = std::copy(b.begin(), b.end(), std::copy(a.begin(), a.end(), name));
  return numberOfName(std::string_view(name, static_cast<std::size_t>(end - name)));
}

// Beside a to z, all characters that become the beginning of a name when they are capitalised.
struct Capital {
  std::string_view character, capitalised;
};
constexpr Capital kCapitals[] = {
    {"\u0131", "I"},   // dotless i
    {"\u017F", "S"},   // long s
    {"\uFB01", "Fi"},  // ligatures
    {"\uFB02", "Fl"}, {"\uFB05", "St"}, {"\uFB06", "St"},
};

std::uint64_t numberOfCapitalised(std::string_view text) {
  const char first = text.front();
  if (first >= 'a' && first <= 'z') {
    const char capital = static_cast<char>(first - 'a' + 'A');
    return numberOfJoined(std::string_view(&capital, 1), text.substr(1));
  }
  for (const Capital& capital : kCapitals)
    if (text.starts_with(capital.character))
      return numberOfJoined(capital.capitalised, text.substr(capital.character.size()));
  return numberOfName(text);
}

}  // namespace

std::string_view iconConstant(std::uint64_t number) noexcept {
  return number < kIconNumberCount ? internal::kIconConstants[number] : "VLMBriselIconInvalid";
}

std::uint64_t iconNumber(std::optional<std::string_view> text) noexcept {
  if (!text || text->empty()) return kInvalidIconNumber;
  constexpr std::string_view kPrefix = Icon::Prefixes::brisel.rawValue();
  constexpr std::string_view kOldPrefix = Icon::Prefixes::moss.rawValue();
  if (text->starts_with(kPrefix)) return numberOfName(text->substr(kPrefix.size()));
  if (text->starts_with(kOldPrefix)) {
    Platform::log("Using VLMIcon is deprecated, please use VLMBriselIcon.");
    // All old prefixes are to be replaced; but no constant has a second one, replaced or not.
    return numberOfName(text->substr(kOldPrefix.size()));
  }
  return numberOfCapitalised(*text);
}

std::uint64_t activeIconNumber(std::uint64_t number) noexcept {
  if (number == kNoIconNumber) return number;
  return numberOfJoined(iconConstant(number).substr(Icon::Prefixes::brisel.rawValue().size()), "Active");
}

std::uint64_t iconNumberForLayoutDirection(std::uint64_t number) noexcept {
  if (number >= kIconNumberCount) return kInvalidIconNumber;
  if (number == kNoIconNumber ||
      Platform::userInterfaceLayoutDirection() == Platform::UIUserInterfaceLayoutDirection::leftToRight)
    return number;
  return numberOfName(internal::iconOfNumber(number)->rightToLeft().name());
}

}  // namespace Brisel
