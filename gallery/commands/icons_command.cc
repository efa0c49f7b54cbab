#include "gallery/commands/icons_command.h"

#include <algorithm>
#include <string_view>

#include "brisel/icons/catalogue.h"

#include "gallery/catalogue_names.h"
#include "gallery/icon_names.h"
#include "gallery/json.h"

namespace Brisel::Gallery {
namespace {

std::string jsonList() {
  Json list = Json::array();
  for (const Catalogue::IconEntry& entry : Catalogue::icons()) {
    const Icon& icon = entry.get();
    list.push_back({{"accessor", entry.name},
                    {"cppAccessor", accessorCode(entry)},
                    {"name", icon.name()},
                    {"constant", entry.objectName},
                    {"number", entry.number},
                    {"x16", codePoint(icon.glyphs().x16())},
                    {"x24", codePoint(icon.glyphs().x24())},
                    {"autoMirror", icon.autoMirror()}});
  }
  return jsonLines(list);
}

std::string plainList() {
  std::size_t longestName = 0, longestConstant = 0;
  for (const Catalogue::IconEntry& entry : Catalogue::icons()) {
    longestName = std::max(longestName, entry.name.size());
    longestConstant = std::max(longestConstant, entry.objectName.size());
  }
  std::string list;
  for (const Catalogue::IconEntry& entry : Catalogue::icons()) {
    const Icon& icon = entry.get();
    const std::string number = std::to_string(entry.number);
    list += std::string(3 - number.size(), ' ') + number + "  " + padded(entry.name, longestName + 2) +
            padded(entry.objectName, longestConstant + 2) + codePoint(icon.glyphs().x16()) + "  " +
            codePoint(icon.glyphs().x24()) + (icon.autoMirror() ? "  mirrored\n" : "\n");
  }
  return list;
}

}  // namespace

std::string iconList(const IconsCommand& command) { return command.isJson ? jsonList() : plainList(); }

}  // namespace Brisel::Gallery
