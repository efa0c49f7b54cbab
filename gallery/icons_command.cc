#include "gallery/icons_command.h"

#include <algorithm>
#include <string_view>

#include "brisel/icons/catalogue.h"

#include "gallery/icon_names.h"

namespace Brisel::Gallery {
namespace {

// Names of icons are plain ASCII letters and digits, so that no string needs escapes.
std::string jsonList() {
  std::string list = "[\n";
  for (const Catalogue::IconEntry& entry : Catalogue::icons()) {
    const Icon& icon = entry.get();
    const auto text = [](std::string_view value) { return "\"" + std::string(value) + "\""; };
    list += "  {\"accessor\": " + text(entry.name) + ", \"cppAccessor\": " + text(accessorCode(entry)) +
            ", \"name\": " + text(icon.name()) + ", \"constant\": " + text(entry.objectName) +
            ", \"number\": " + std::to_string(entry.number) + ", \"x16\": " + text(codePoint(icon.glyphs().x16())) +
            ", \"x24\": " + text(codePoint(icon.glyphs().x24())) +
            ", \"autoMirror\": " + (icon.autoMirror() ? "true" : "false") + "},\n";
  }
  list.erase(list.size() - 2, 1);  // the last comma
  return list + "]\n";
}

std::string plainList() {
  std::size_t longestName = 0, longestConstant = 0;
  for (const Catalogue::IconEntry& entry : Catalogue::icons()) {
    longestName = std::max(longestName, entry.name.size());
    longestConstant = std::max(longestConstant, entry.objectName.size());
  }
  const auto padded = [](std::string_view text, std::size_t width) {
    return std::string(text) + std::string(width - text.size() + 2, ' ');
  };
  std::string list;
  for (const Catalogue::IconEntry& entry : Catalogue::icons()) {
    const Icon& icon = entry.get();
    const std::string number = std::to_string(entry.number);
    list += std::string(3 - number.size(), ' ') + number + "  " + padded(entry.name, longestName) +
            padded(entry.objectName, longestConstant) + codePoint(icon.glyphs().x16()) + "  " +
            codePoint(icon.glyphs().x24()) + (icon.autoMirror() ? "  mirrored\n" : "\n");
  }
  return list;
}

}  // namespace

std::string iconList(const IconsCommand& command) { return command.isJson ? jsonList() : plainList(); }

}  // namespace Brisel::Gallery
