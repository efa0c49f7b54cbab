#include "brisel/icons/catalogue.h"

#include <cstddef>

#include "brisel/icons/internal/icon_names.h"

namespace Brisel::Catalogue {
namespace {

enum class Number : std::uint64_t {
  none,
#define BRISEL_ICON(accessor, name, x16, x24, autoMirror) accessor,
#include "brisel/icons/icons.def"
};

constexpr std::string_view published(std::string_view accessor) {
  return accessor.substr(0, accessor.size() - (accessor.ends_with('_') ? 1 : 0));
}

constexpr IconEntry entry(Number number, std::string_view accessor, const Icon& (*get)() noexcept) {
  const auto n = static_cast<std::uint64_t>(number);
  return {published(accessor), accessor, internal::kIconConstants[n], n, get};
}

constexpr IconEntry kIcons[] = {
#define BRISEL_ICON(accessor, name, x16, x24, autoMirror) entry(Number::accessor, #accessor, &Icon::accessor),
#include "brisel/icons/icons.def"
};

}  // namespace

std::span<const IconEntry> icons() noexcept { return kIcons; }

}  // namespace Brisel::Catalogue
