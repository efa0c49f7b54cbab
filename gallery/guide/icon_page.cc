#include "brisel/icons/catalogue.h"

#include "gallery/guide/html.h"
#include "gallery/guide/icon_sheets.h"
#include "gallery/guide/pages.h"
#include "gallery/guide/site_files.h"
#include "gallery/icon_names.h"

namespace Brisel::Gallery {
namespace {

// What layout from right to left does to an icon.
std::string marks(const Catalogue::IconEntry& entry) {
  const Icon& icon = entry.get();
  std::string mirrored, other;
  if (icon.autoMirror()) mirrored = siteFile("icon_mirrored.html");
  if (const Icon opposite = icon.rightToLeft(); !(opposite == icon)) {
    other = fillTemplate(siteFile("icon_pair.html"), {{"name", findIcon(opposite.name())->name}});
  }
  if (mirrored.empty() && other.empty()) return {};
  return fillTemplate(siteFile("icon_marks.html"), {{"other", other}, {"mirrored", mirrored}});
}

std::string tile(const Catalogue::IconEntry& entry) {
  const Icon& icon = entry.get();
  return fillTemplate(siteFile("icon_tile.html"), {{"id", entry.name},
                                                   {"place", IconSheets::placeOf(icon)},
                                                   {"code", accessorCode(entry)},
                                                   {"constant", entry.objectName},
                                                   {"x16", codePoint(icon.glyphs().x16())},
                                                   {"x24", codePoint(icon.glyphs().x24())},
                                                   {"number", std::to_string(entry.number)},
                                                   {"marks", marks(entry)}});
}

std::string sizeChoices() {
  std::string choices;
  for (const int size : IconSheets::kSizes) {
    choices +=
        fillTemplate(siteFile("icon_size.html"),
                     {{"size", std::to_string(size)}, {"checked", size == IconSheets::kFirstShown ? " checked" : ""}});
  }
  return choices;
}

}  // namespace

Page makeIconPage(PictureBook& pictures) {
  const IconSheets sheets(pictures);
  Page page;
  page.file = "icons.html";
  page.name = "Icons";
  page.contents = {{"all-icons", "All icons"}, {"right-to-left", "Right to left"}};
  std::string tiles, pairs, mirrored;
  for (const Catalogue::IconEntry& entry : Catalogue::icons()) {
    const Icon& icon = entry.get();
    tiles += tile(entry);
    const std::string name(entry.name);
    page.items.push_back({name,
                          codePoint(icon.glyphs().x16()) + " " + codePoint(icon.glyphs().x24()),
                          sheets.pictureOf(icon),
                          {accessorCode(entry), std::string(entry.objectName),
                           "VLMBriselSwiftIcons::" + std::string(entry.accessor) + "()", std::string(icon.name())}});
    const Icon other = icon.rightToLeft();
    if (!(other == icon)) {
      pairs += fillTemplate(siteFile("icon_swapped.html"), {{"name", name},
                                                            {"place", IconSheets::placeOf(icon)},
                                                            {"other", findIcon(other.name())->name},
                                                            {"otherPlace", IconSheets::placeOf(other)}});
    }
    if (icon.autoMirror()) {
      mirrored += fillTemplate(siteFile("icon_link.html"), {{"name", name}, {"place", IconSheets::placeOf(icon)}});
    }
  }
  const std::string count = std::to_string(Catalogue::icons().size());
  page.markup = fillTemplate(siteFile("icons.html"), {{"count", count},
                                                      {"size", std::to_string(IconSheets::kFirstShown)},
                                                      {"sizes", sizeChoices()},
                                                      {"icons", tiles},
                                                      {"pairs", pairs},
                                                      {"mirrored", mirrored}});
  return page;
}

}  // namespace Brisel::Gallery
