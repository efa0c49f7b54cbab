#include "gallery/guide/published_names.h"

#include <span>

namespace Brisel::Gallery {
namespace {

using Kind = PublishedEntry::Kind;

// A row of a catalogue: a group's title, or an entry.
struct Row {
  std::string_view title;
  PublishedEntry entry;
};

// Each names.def takes the rows away at its end.
// NOLINTBEGIN(readability-duplicate-include)
constexpr Row kTokens[] = {
#include "gallery/guide/published_rows.def"
//
#include "brisel/tokens/names.def"
};

constexpr Row kThemes[] = {
#include "gallery/guide/published_rows.def"
//
#include "brisel/themes/names.def"
};

constexpr Row kTypography[] = {
#include "gallery/guide/published_rows.def"
//
#include "brisel/typography/names.def"
};

constexpr Row kIcons[] = {
#include "gallery/guide/published_rows.def"
//
#include "brisel/icons/names.def"
};

constexpr Row kInfrastructure[] = {
#include "gallery/guide/published_rows.def"
//
#include "brisel/infrastructure/names.def"
};
// NOLINTEND(readability-duplicate-include)

std::vector<PublishedGroup> groups(std::span<const Row> rows) {
  std::vector<PublishedGroup> groups;
  for (const Row& row : rows) {
    if (row.title.empty()) {
      groups.back().entries.push_back(row.entry);
    } else {
      groups.push_back({row.title, {}});
    }
  }
  return groups;
}

}  // namespace

std::vector<PublishedSubsystem> publishedNames() {
  return {{"Tokens", groups(kTokens)},
          {"Themes", groups(kThemes)},
          {"Typography", groups(kTypography)},
          {"Icons", groups(kIcons)},
          {"Infrastructure", groups(kInfrastructure)}};
}

std::size_t publishedEntryCount() {
  std::size_t count = 0;
  for (const PublishedSubsystem& subsystem : publishedNames()) {
    for (const PublishedGroup& group : subsystem.groups) count += group.entries.size();
  }
  return count;
}

}  // namespace Brisel::Gallery
