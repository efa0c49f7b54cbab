#include <algorithm>
#include <cmath>
#include <set>
#include <string_view>

#include "brisel/themes/catalogue.h"

#include "gallery/catalogue_names.h"
#include "gallery/contrast.h"
#include "gallery/guide/html.h"
#include "gallery/guide/pages.h"
#include "gallery/guide/site_files.h"
#include "gallery/guide/swatches.h"
#include "gallery/guide/theme_card.h"

namespace Brisel::Gallery {
namespace {

constexpr Platform::CGSize kSwatch{40, 40};  // points

struct Set {
  std::string_view name, role;
  std::string code, objectCode;  // that read it on the value-type interface and on the object interface
  const Theme::ColorSet* colors;
};

// What the dark theme's sets are for, in field order.
constexpr std::string_view kRoles[] = {
    "Ordinary surfaces",
    "Surfaces in the bright accent colour",
    "Errors and what destroys",
    "Warnings",
    "Success",
    "Announcements that inform",
    "A dark inverted surface",
    "A light inverted surface",
    "A muted accent surface",
    "Content over images or video; the card lies over a picture",
};

std::vector<Set> darkSets() {
  std::vector<Set> sets;
  const auto* role = std::begin(kRoles);
  for (const auto& entry : Catalogue::colorSets()) {
    const std::string call = std::string(entry.name) + "()";
    sets.push_back({entry.name, *role++, "Brisel::Theme::dark()." + call, "VLMBriselColorTheme::dark()->" + call,
                    &(Theme::dark().*entry.get)()});
  }
  return sets;
}

std::vector<Set> campaignSets() {
  std::vector<Set> sets;
  for (const auto& entry : Catalogue::campaignColorSets()) {
    const std::string call = std::string(entry.name) + "()";
    sets.push_back({entry.name,
                    {},
                    "Brisel::Theme::ColorSet::Campaign::" + call,
                    "VLMBriselColorTheme::campaign()->" + call,
                    &entry.get()});
  }
  return sets;
}

// "text.subdued" as ".text().subdued()", or with another `dot`.
std::string calls(std::string_view path, std::string_view dot) {
  std::string code(dot);
  for (const char c : path) {
    if (c == '.') {
      code += "()";
      code += dot;
    } else {
      code += c;
    }
  }
  return code + "()";
}

const Catalogue::SlotEntry& slotAt(std::string_view path) {
  return *std::find_if(Catalogue::slots().begin(), Catalogue::slots().end(),
                       [path](const auto& slot) { return slot.path == path; });
}

struct Pair {
  Contrast contrast;
  const Catalogue::SlotEntry *foreground, *background;
};

// On whichever background it is poorest.
Pair poorestOf(const Theme::ColorSet& set, const Catalogue::SlotEntry& foreground) {
  Pair poorest{{}, &foreground, nullptr};
  for (const auto& background : Catalogue::slots()) {
    if (!isBackground(background)) continue;
    const Contrast contrast = contrastOf(set, foreground, background);
    if (!poorest.background || contrast.ratio < poorest.contrast.ratio) {
      poorest.contrast = contrast;
      poorest.background = &background;
    }
  }
  return poorest;
}

// The poorest among the slots of a group, such as "text.".
Pair poorestAmong(const Theme::ColorSet& set, std::string_view group) {
  Pair poorest{};
  for (const auto& slot : Catalogue::slots()) {
    if (!slot.path.starts_with(group)) continue;
    const Pair pair = poorestOf(set, slot);
    if (!poorest.foreground || pair.contrast.ratio < poorest.contrast.ratio) poorest = pair;
  }
  return poorest;
}

// "7.55 AA"; the ratio is cut off, so that none seems to reach a limit that it misses.
std::string contrastText(const Contrast& contrast) {
  return fillTemplate(
      siteFile(contrast.level == ContrastLevel::fail ? "theme_fail.html" : "theme_pass.html"),
      {{"ratio", decimal(std::floor(contrast.ratio * 100) / 100, 2)}, {"level", levelName(contrast.level)}});
}

// Without the group that goes without saying.
std::string_view onBackground(const Catalogue::SlotEntry& background) {
  return background.path.substr(std::string_view("background.").size());
}

class ThemePage {
 public:
  explicit ThemePage(PictureBook& pictures) : pictures_(pictures) {
    page_.file = "themes.html";
    page_.name = "Themes";
  }

  Page make() && {
    const Section dark = section(darkSets()), campaign = section(campaignSets());
    page_.markup = fillTemplate(siteFile("themes.html"), {{"darkLinks", dark.links},
                                                          {"dark", dark.articles},
                                                          {"campaignLinks", campaign.links},
                                                          {"campaign", campaign.articles}});
    return std::move(page_);
  }

 private:
  struct Section {
    std::string links, articles;
  };
  Section section(const std::vector<Set>& sets) {
    Section section;
    for (const Set& set : sets) {
      const Picture ground = swatch(*set.colors->background().base());
      section.links += fillTemplate(siteFile("theme_link.html"), {{"id", set.name}, {"image", ground.attributes()}});
      section.articles += article(set);
    }
    return section;
  }

  std::string article(const Set& set) {
    const std::string name(set.name);
    const Picture card =
        pictures_.add("pictures/themes/" + name, kThemeCard,
                      [colors = set.colors](Platform::Canvas& canvas) { paintThemeCard(canvas, *colors); });
    const Platform::UIColor& ground = *set.colors->background().base();
    page_.contents.emplace_back(name, name);
    page_.items.push_back({name, hexText(ground), swatch(ground).path + ".png", {set.code, set.objectCode}});
    std::string rows;
    for (const auto& slot : Catalogue::slots()) rows += row(set, slot);
    return fillTemplate(siteFile("theme_set.html"), {{"id", name},
                                                     {"role", set.role},
                                                     {"code", set.code},
                                                     {"objectCode", set.objectCode},
                                                     {"poorestText", poorest(*set.colors, "text.")},
                                                     {"poorestEssential", poorest(*set.colors, "essential.")},
                                                     {"image", card.attributes()},
                                                     {"rows", rows}});
  }

  static std::string poorest(const Theme::ColorSet& set, std::string_view group) {
    const Pair pair = poorestAmong(set, group);
    return fillTemplate(siteFile("theme_poorest.html"), {{"contrast", contrastText(pair.contrast)},
                                                         {"foreground", pair.foreground->path},
                                                         {"background", pair.background->path}});
  }

  std::string row(const Set& set, const Catalogue::SlotEntry& slot) {
    const Platform::UIColor& color = *slot.get(*set.colors);
    const std::string code = calls(slot.path, "."), objectCode = calls(slot.path, "->");
    return fillTemplate(siteFile("theme_slot.html"), {{"set", set.name},
                                                      {"path", slot.path},
                                                      {"image", swatch(color).attributes()},
                                                      {"setCode", set.code},
                                                      {"code", code},
                                                      {"setObjectCode", set.objectCode},
                                                      {"objectCode", objectCode},
                                                      {"hex", hexText(color)},
                                                      {"components", componentText(color)},
                                                      {"contrast", contrast(*set.colors, slot)}});
  }

  static std::string contrast(const Theme::ColorSet& set, const Catalogue::SlotEntry& slot) {
    if (isBackground(slot)) {
      return fillTemplate(siteFile("theme_ground.html"),
                          {{"contrast", contrastText(contrastOf(set, slotAt("text.base"), slot))}});
    }
    if (!isForeground(slot)) return {};
    const Pair poorest = poorestOf(set, slot);
    return fillTemplate(siteFile("theme_foreground.html"),
                        {{"contrast", contrastText(contrastOf(set, slot, slotAt("background.base")))},
                         {"poorest", contrastText(poorest.contrast)},
                         {"background", onBackground(*poorest.background)}});
  }

  // One picture for all slots that look alike.
  Picture swatch(const Platform::UIColor& color) {
    const std::string path = "pictures/themes/" + hexText(color).substr(1);
    if (!swatches_.insert(path).second) {
      return {path, static_cast<int>(kSwatch.width), static_cast<int>(kSwatch.height)};
    }
    return pictures_.add(path, kSwatch, [color](Platform::Canvas& canvas) {
      fillSwatch(canvas, {{}, kSwatch}, color);
    });
  }

  PictureBook& pictures_;
  Page page_;
  std::set<std::string> swatches_;
};

}  // namespace

Page makeThemePage(PictureBook& pictures) { return ThemePage(pictures).make(); }

std::string slotNamesScript() {
  std::string script = "// Paths of the slots, and the colour sets: name, code on both interfaces, slots' values.\n";
  script += "const briselSlots = [";
  for (const auto& slot : Catalogue::slots()) script += quoteScript(slot.path) + ", ";
  script += "];\nconst briselColorSets = [\n";
  auto sets = darkSets();
  for (Set& set : campaignSets()) sets.push_back(std::move(set));
  for (const Set& set : sets) {
    script += "[" + quoteScript(set.name) + ", " + quoteScript(set.code) + ", " + quoteScript(set.objectCode);
    for (const auto& slot : Catalogue::slots()) script += ", " + quoteScript(hexText(*slot.get(*set.colors)));
    script += "],\n";
  }
  return script + "];\n";
}

}  // namespace Brisel::Gallery
