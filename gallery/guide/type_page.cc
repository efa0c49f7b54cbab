#include "brisel/typography/catalogue.h"

#include "gallery/catalogue_names.h"
#include "gallery/guide/html.h"
#include "gallery/guide/pages.h"
#include "gallery/guide/site_files.h"
#include "gallery/guide/specimens.h"

namespace Brisel::Gallery {
namespace {

constexpr double kWidest = 1600;  // points; no page shows more of a specimen

constexpr std::string_view kSample = "Six jazz quavers wove my big, lofty pitch and key";

struct Script {
  std::string_view name, language, sample;
};
constexpr Script kScripts[] = {
    {"Latin", "en", "Music quietly fills the evening"},  {"Arabic", "ar", "الموسيقى تملأ المساء بهدوء"},
    {"Hebrew", "he", "המוזיקה ממלאת את הערב בשקט"},      {"Cyrillic", "ru", "Музыка тихо наполняет вечер"},
    {"Greek", "el", "Η μουσική γεμίζει ήσυχα το βράδυ"}, {"Devanagari", "hi", "संगीत चुपचाप शाम को भर देता है"},
};

// The groups from the largest sizes to the smallest.
struct Group {
  TypeStyle::Group group;
  std::string_view fragment, title;
};
constexpr Group kGroups[] = {
    {TypeStyle::Group::displayTitles, "group-display-titles", "Display titles"},
    {TypeStyle::Group::titles, "group-titles", "Titles"},
    {TypeStyle::Group::body, "group-body", "Body"},
    {TypeStyle::Group::smallText, "group-small-text", "Small text"},
};

std::string facts(const TypeStyle& style) {
  const auto& sizes = style.configuration().fontSize();
  std::string text(style.primaryFont().description());
  text += " ";
  text += style.fontWeight().nameSuffix();
  text += ", " + decimal(sizes.min()) + " / " + decimal(sizes.mid()) + " / " + decimal(sizes.max()) + " / " +
          decimal(sizes.axMax()) + " pt";
  const auto& factors = style.configuration().minimumScaleFactor();
  if (factors.mid() < 1) {
    text += ", shrinks to " + decimal(factors.min()) + " / " + decimal(factors.mid()) + " / " + decimal(factors.max()) +
            " / " + decimal(factors.axMax());
  }
  if (style.configuration().usesUpperCaseLayout()) text += ", in capitals";
  return text;
}

std::string specimen(PictureBook& pictures, const std::string& path, std::string_view text, const TypeStyle& style) {
  return followingPicture(path, [&](const std::string& file, ContentSizeCategory category) {
    return pictures.addText(file, *specimenText(text, style, category), specimenGround(), kWidest);
  });
}

std::string styleMarkup(PictureBook& pictures, const Catalogue::TypeStyleEntry& named) {
  const TypeStyle& style = named.get();
  const std::string sample = style.name() + ". " + std::string(kSample);
  return fillTemplate(siteFile("type_style.html"),
                      {{"id", named.name},
                       {"name", style.name()},
                       {"points", pointSizes(style)},
                       {"point", defaultPointSize(style)},
                       {"sample", sample},
                       {"image", specimen(pictures, "pictures/type/" + std::string(named.name), sample, style)},
                       {"facts", facts(style)}});
}

std::string groupMarkup(PictureBook& pictures, const Group& group) {
  std::string members;
  for (const Catalogue::TypeStyleEntry& style : Catalogue::typeStyles()) {
    if (style.get().group() == group.group) members += styleMarkup(pictures, style);
  }
  return fillTemplate(siteFile("type_group.html"),
                      {{"id", group.fragment}, {"title", group.title}, {"styles", members}});
}

std::string scriptsMarkup(PictureBook& pictures, std::string_view stack, std::string_view fragment,
                          const TypeStyle& style) {
  std::string lines;
  for (const Script& script : kScripts) {
    const std::string path = "pictures/scripts/" + std::string(fragment) + "-" + std::string(script.language);
    lines += fillTemplate(siteFile("type_script.html"), {{"script", script.name},
                                                         {"language", script.language},
                                                         {"sample", script.sample},
                                                         {"image", specimen(pictures, path, script.sample, style)}});
  }
  return fillTemplate(siteFile("type_scripts.html"),
                      {{"title", std::string(stack) + ", in " + style.name()}, {"lines", lines}});
}

std::string sizeRows() {
  std::string rows;
  for (const Catalogue::TypeStyleEntry& named : Catalogue::typeStyles()) {
    rows += "<tr><th scope=\"row\">" + std::string(named.name) + "</th>";
    for (const NamedCategory& entry : categories()) {
      rows += "<td>" + decimal(named.get().configuration().fontSize().value(entry.category.rawValue())) + "</td>";
    }
    rows += "</tr>\n";
  }
  return rows;
}

std::string sizeHeads() {
  std::string heads;
  for (const NamedCategory& entry : categories()) heads += "<th scope=\"col\">" + std::string(entry.name) + "</th>";
  return heads;
}

}  // namespace

Page makeTypePage(PictureBook& pictures) {
  Page page;
  page.file = "type.html";
  page.name = "Type";
  std::string groups;
  for (const Group& group : kGroups) {
    groups += groupMarkup(pictures, group);
    page.contents.emplace_back(group.fragment, group.title);
  }
  page.contents.emplace_back("scripts", "Six scripts");
  page.contents.emplace_back("sizes", "Sizes");
  for (const Catalogue::TypeStyleEntry& style : Catalogue::typeStyles()) {
    const std::string identifier(style.name);
    page.items.push_back({identifier,
                          defaultPointSize(style.get()) + " pt",
                          {},
                          {"Brisel::TypeStyle::" + identifier + "()", "VLMBriselTypeStyle::" + identifier + "()"}});
  }
  const std::string count = std::to_string(Catalogue::typeStyles().size()) + " styles in " +
                            std::to_string(categories().size()) + " text sizes. A click on a name copies it.";
  page.markup = fillTemplate(siteFile("type.html"),
                             {{"facts", count},
                              {"control", textSizeControl()},
                              {"groups", groups},
                              {"scripts", scriptsMarkup(pictures, "Text stack", "text", TypeStyle::cello()) +
                                              scriptsMarkup(pictures, "Title stack", "title", TypeStyle::canon())},
                              {"heads", sizeHeads()},
                              {"rows", sizeRows()}});
  return page;
}

}  // namespace Brisel::Gallery
