#include <algorithm>
#include <set>
#include <string_view>

#include "brisel/themes/catalogue.h"

#include "gallery/catalogue_names.h"
#include "gallery/code_names.h"
#include "gallery/contrast.h"
#include "gallery/guide/html.h"
#include "gallery/guide/pages.h"
#include "gallery/guide/site_files.h"
#include "gallery/guide/swatches.h"
#include "gallery/guide/theme_card.h"

namespace Brisel::Gallery {
namespace {

constexpr Platform::CGSize kSwatch{40, 40};  // points

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

// "7.55 AA"
std::string contrastText(const Contrast& contrast) {
  return fillTemplate(siteFile(contrast.level == ContrastLevel::fail ? "theme_fail.html" : "theme_pass.html"),
                      {{"ratio", ratioText(contrast.ratio)}, {"level", levelName(contrast.level)}});
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
    const Section dark = section(false), campaign = section(true);
    page_.markup = fillTemplate(siteFile("themes.html"), {{"method", kContrastMethod},
                                                          {"darkLinks", dark.links},
                                                          {"dark", dark.articles},
                                                          {"campaignLinks", campaign.links},
                                                          {"campaign", campaign.articles}});
    return std::move(page_);
  }

 private:
  struct Section {
    std::string links, articles;
  };
  Section section(bool isCampaign) {
    Section section;
    for (const NamedColorSet& set : allColorSets()) {
      if (set.isCampaign != isCampaign) continue;
      const Picture ground = swatch(*set.colors.background().base());
      section.links += fillTemplate(siteFile("theme_link.html"), {{"id", set.name}, {"image", ground.attributes()}});
      section.articles += article(set);
    }
    return section;
  }

  std::string article(const NamedColorSet& set) {
    const std::string name(set.name);
    const Picture card =
        pictures_.add("pictures/themes/" + name, kThemeCard,
                      [&colors = set.colors](Platform::Canvas& canvas) { paintThemeCard(canvas, colors); });
    const Platform::UIColor& ground = *set.colors.background().base();
    page_.contents.emplace_back(name, name);
    page_.items.push_back(
        {name, hexText(ground), swatch(ground).path + ".png", {set.code.valueInterface, set.code.objectInterface}});
    std::string rows;
    for (const auto& slot : Catalogue::slots()) rows += row(set, slot);
    return fillTemplate(siteFile("theme_set.html"), {{"id", name},
                                                     {"role", set.role},
                                                     {"code", set.code.valueInterface},
                                                     {"objectCode", set.code.objectInterface},
                                                     {"poorestText", poorest(set.colors, "text.")},
                                                     {"poorestEssential", poorest(set.colors, "essential.")},
                                                     {"image", card.attributes()},
                                                     {"rows", rows}});
  }

  static std::string poorest(const Theme::ColorSet& set, std::string_view group) {
    const Pair pair = poorestAmong(set, group);
    return fillTemplate(siteFile("theme_poorest.html"), {{"contrast", contrastText(pair.contrast)},
                                                         {"foreground", pair.foreground->path},
                                                         {"background", pair.background->path}});
  }

  std::string row(const NamedColorSet& set, const Catalogue::SlotEntry& slot) {
    const Platform::UIColor& color = *slot.get(set.colors);
    const CodeNames calls = slotCalls(slot);
    return fillTemplate(siteFile("theme_slot.html"), {{"set", set.name},
                                                      {"path", slot.path},
                                                      {"image", swatch(color).attributes()},
                                                      {"setCode", set.code.valueInterface},
                                                      {"code", calls.valueInterface},
                                                      {"setObjectCode", set.code.objectInterface},
                                                      {"objectCode", calls.objectInterface},
                                                      {"hex", hexText(color)},
                                                      {"components", componentText(color)},
                                                      {"contrast", contrast(set.colors, slot)}});
  }

  static std::string contrast(const Theme::ColorSet& set, const Catalogue::SlotEntry& slot) {
    if (isBackground(slot)) {
      return fillTemplate(siteFile("theme_ground.html"),
                          {{"contrast", contrastText(contrastOf(set, slotAt("text.base"), slot))}});
    }
    if (!isForeground(slot)) {
      return fillTemplate(siteFile("theme_decoration.html"),
                          {{"ratio", ratioText(contrastOf(set, slot, slotAt("background.base")).ratio)}});
    }
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
  for (const NamedColorSet& set : allColorSets()) {
    script += "[" + quoteScript(set.name) + ", " + quoteScript(set.code.valueInterface) + ", " +
              quoteScript(set.code.objectInterface);
    for (const auto& slot : Catalogue::slots()) script += ", " + quoteScript(hexText(*slot.get(set.colors)));
    script += "],\n";
  }
  return script + "];\n";
}

}  // namespace Brisel::Gallery
