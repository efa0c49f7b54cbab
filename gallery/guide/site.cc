#include "gallery/guide/site.h"

#include <stdexcept>
#include <string>
#include <vector>

#include "brisel/platform/port.h"
#include "brisel/typography/resource_bundle.h"

#include "gallery/catalogue_names.h"
#include "gallery/guide/ground.h"
#include "gallery/guide/html.h"
#include "gallery/guide/icon_sheets.h"
#include "gallery/guide/pages.h"
#include "gallery/guide/picture_book.h"
#include "gallery/guide/progress.h"
#include "gallery/guide/site_files.h"
#include "gallery/interruption.h"
#include "gallery/output_directory.h"

namespace Brisel::Gallery {
namespace {

// In every page's head; tells a style guide from other directories.
constexpr std::string_view kGenerator = "brisel gallery";

constexpr std::string_view kStaticFiles[] = {"page.css",     "faces.js",  "copy.js",  "search.js", "swatches.js",
                                             "text_size.js", "filter.js", "icons.js", "curves.js", "reference.js"};

// The faces that page.css sets the pages in.
constexpr std::string_view kWebFonts[] = {"Tondal-Book", "Tondal-Bold", "TondalTitle-Bold"};

// The links to all pages, and below the current one those to its parts.
std::string navigation(const std::vector<Page>& pages, const Page& current) {
  std::string items;
  for (const Page& page : pages) {
    const bool isCurrent = page.file == current.file;
    items += "<li><a href=\"" + page.file + "\"" + (isCurrent ? " aria-current=\"page\"" : "") + ">" +
             escapeHtml(page.name) + "</a>";
    if (isCurrent && !page.contents.empty()) {
      items += "\n<ul>\n";
      for (const auto& [fragment, title] : page.contents) {
        items += "<li><a href=\"#" + fragment + "\">" + escapeHtml(title) + "</a></li>\n";
      }
      items += "</ul>\n";
    }
    items += "</li>\n";
  }
  return items;
}

std::string pageMarkup(const std::vector<Page>& pages, const Page& page) {
  return fillTemplate(siteFile("page.html"), {{"generator", kGenerator},
                                              {"title", page.name == "Start" ? "Brisel" : page.name + " – Brisel"},
                                              {"navigation", navigation(pages, page)},
                                              {"content", page.markup}});
}

// The data of the scripts: what search finds, and the categories. A script, as pages from files may read no other data.
std::string namesScript(const std::vector<Page>& pages) {
  std::string script = "\"use strict\";\nconst briselCategories = [";
  for (const NamedCategory& entry : categories()) script += quoteScript(entry.name) + ", ";
  script += "];\n// Fragment, page, value, picture, names in code.\nconst briselNames = [\n";
  for (const Page& page : pages) {
    for (const Item& item : page.items) {
      script += "[" + quoteScript(item.identifier) + ", " + quoteScript(page.file) + ", " + quoteScript(item.value) +
                ", " + quoteScript(item.picture);
      for (const std::string& name : item.names) script += ", " + quoteScript(name);
      script += "],\n";
    }
  }
  return script + "];\n" + slotNamesScript();
}

void copyWebFonts(const OutputDirectory& output) {
  const auto bundle = resourceBundle();
  for (const std::string_view name : kWebFonts) {
    const auto file = bundle->pathForResource(name, "otf");
    if (!file) throw std::runtime_error("the resource bundle lacks " + std::string(name) + ".otf");
    output.copy(*file, "site/" + std::string(name) + ".otf");
  }
}

}  // namespace

void writeSite(const std::filesystem::path& directory) {
  noteInterruptions();
  OutputDirectory output(
      directory, [](const std::filesystem::path& earlier) { return headHolds(earlier / "index.html", kGenerator); });
  Platform::engine().setUsesHostFonts(false);  // pictures are the same on every machine

  PictureBook pictures;
  std::vector<Page> pages{makeStartPage(pictures),    makeColorPage(pictures), makeTypePage(pictures),
                          makeTextViewPage(pictures), makeIconPage(pictures),  makeShapePage(pictures),
                          makeThemePage(pictures),    makeTokenPage(pictures), makeCurvePage(pictures)};
  pages.push_back(makeReferencePage(pages));

  for (const Page& page : pages) output.write(page.file, pageMarkup(pages, page));
  for (const std::string_view name : kStaticFiles) output.write("site/" + std::string(name), siteFile(name));
  output.write("site/ground.css", groundStyleSheet());
  output.write("site/icons.css", IconSheets::styleSheet());
  output.write("site/names.js", namesScript(pages));
  copyWebFonts(output);
  {
    Progress progress("pictures", pictures.fileCount());
    pictures.draw(output, progress);
  }
  output.commit();
}

}  // namespace Brisel::Gallery
