#include "gallery/commands/contrast_command.h"

#include <cstddef>
#include <string_view>
#include <vector>

#include "brisel/themes/catalogue.h"

#include "gallery/catalogue_names.h"
#include "gallery/code_names.h"
#include "gallery/contrast.h"
#include "gallery/json.h"

namespace Brisel::Gallery {
namespace {

using Catalogue::SlotEntry;

struct Pair {
  std::string_view set;
  std::string_view foreground, background;  // paths
  Contrast contrast;
};

std::vector<NamedColorSet> setsCalled(const std::string& name) {
  std::vector<NamedColorSet> sets;
  for (const NamedColorSet& set : allColorSets()) {
    if (name.empty() || set.name == name) sets.push_back(set);
  }
  if (sets.empty()) throw UsageError("no colour set is called \"" + name + "\"");
  return sets;
}

// Of one set and role, "text" or "essential": background by background, each with all foregrounds.
std::vector<Pair> pairsOf(const NamedColorSet& set, std::string_view role) {
  std::vector<Pair> pairs;
  for (const SlotEntry& background : Catalogue::slots()) {
    if (!isBackground(background)) continue;
    for (const SlotEntry& foreground : Catalogue::slots()) {
      if (!foreground.path.starts_with(role)) continue;
      pairs.push_back({set.name, foreground.path, background.path, contrastOf(set.colors, foreground, background)});
    }
  }
  return pairs;
}

std::string cell(const Contrast& contrast) {
  const std::string ratio = ratioText(contrast.ratio);
  const bool isForLargeText = contrast.level == ContrastLevel::aaLarge;
  return std::string(5 - ratio.size(), ' ') + ratio + ' ' +
         std::string(isForLargeText ? "large" : levelName(contrast.level));
}

// A row for each background, a column for each foreground.
std::string table(const std::vector<Pair>& pairs, std::string_view role) {
  constexpr std::size_t kLabel = 29, kColumn = 13;
  const auto withoutTrailingSpaces = [](const std::string& line) {
    return line.substr(0, line.find_last_not_of(' ') + 1) + '\n';
  };
  std::string head = std::string(pairs.front().set) + ", " + std::string(role) + '\n' + std::string(kLabel, ' ');
  std::string text, line;
  for (const Pair& pair : pairs) {
    const bool isFirstRow = pair.background == pairs.front().background;
    if (isFirstRow) head += padded(pair.foreground.substr(role.size() + 1), kColumn);
    if (pair.foreground == pairs.front().foreground) {
      if (!line.empty()) text += withoutTrailingSpaces(line);
      line = padded(pair.background.substr(std::string_view("background.").size()), kLabel);
    }
    line += padded(cell(pair.contrast), kColumn);
  }
  return withoutTrailingSpaces(head) + text + withoutTrailingSpaces(line);
}

std::string json(const std::vector<Pair>& pairs) {
  Json list = Json::array();
  for (const Pair& pair : pairs) {
    list.push_back({{"set", pair.set},
                    {"foreground", pair.foreground},
                    {"background", pair.background},
                    {"ratio", jsonNumber(pair.contrast.ratio)},
                    {"level", levelName(pair.contrast.level)}});
  }
  return "{\"method\": " + Json(kContrastMethod).dump() +
         ",\n\"guidelines\": \"WCAG 2.2\",\n\"pairs\": " + jsonLines(list) + "}\n";
}

std::string shortfall(const std::vector<Pair>& pairs, double minimum) {
  std::size_t count = 0;
  std::string lines;
  for (const Pair& pair : pairs) {
    if (pair.contrast.ratio >= minimum) continue;
    ++count;
    lines += "\n  " + std::string(pair.set) + ": " + std::string(pair.foreground) + " on " +
             std::string(pair.background) + ", " + ratioText(pair.contrast.ratio);
  }
  if (count == 0) return {};
  return std::to_string(count) + " of " + std::to_string(pairs.size()) + " pairs are below " + decimal(minimum) + ":" +
         lines;
}

}  // namespace

ContrastReport contrastReport(const ContrastCommand& command) {
  std::vector<Pair> all;
  std::string tables;
  for (const NamedColorSet& set : setsCalled(command.set)) {
    for (const std::string_view role : {"text", "essential"}) {
      if (!command.role.empty() && command.role != role) continue;
      const std::vector<Pair> pairs = pairsOf(set, role);
      if (!tables.empty()) tables += '\n';
      tables += table(pairs, role);
      all.insert(all.end(), pairs.begin(), pairs.end());
    }
  }
  return {command.isJson ? json(all) : tables, shortfall(all, command.minimum)};
}

}  // namespace Brisel::Gallery
