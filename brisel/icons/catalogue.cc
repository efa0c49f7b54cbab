#include "brisel/icons/catalogue.h"

#include <cstddef>

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

constexpr IconEntry kIcons[] = {
#define BRISEL_ICON(accessor, name, x16, x24, autoMirror)                                                \
  {published(#accessor), #accessor, "VLMBriselIcon" #name, static_cast<std::uint64_t>(Number::accessor), \
   &Icon::accessor},
#include "brisel/icons/icons.def"
};

}  // namespace

std::span<const IconEntry> icons() noexcept { return kIcons; }

}  // namespace Brisel::Catalogue
