#include "gallery/code_names.h"

#include <stdexcept>

namespace Brisel::Gallery {
namespace {

std::string call(std::string_view before, std::string_view name) {
  return std::string(before) + std::string(name) + "()";
}

struct Role {
  std::string_view set, text;
};

constexpr Role kRoles[] = {
    {"base", "Ordinary surfaces"},
    {"brightAccent", "Surfaces in the bright accent colour"},
    {"negative", "Errors and what destroys"},
    {"warning", "Warnings"},
    {"positive", "Success"},
    {"announcement", "Announcements that inform"},
    {"invertedDark", "A dark inverted surface"},
    {"invertedLight", "A light inverted surface"},
    {"mutedAccent", "A muted accent surface"},
    {"overMedia", "Content over images or video; the card lies over a picture"},
};

std::string_view roleOf(std::string_view set) {
  for (const Role& role : kRoles) {
    if (role.set == set) return role.text;
  }
  throw std::logic_error("nothing says what the colour set " + std::string(set) + " is for");
}

}  // namespace

CodeNames codeNames(const Catalogue::OpacityEntry& opacity) {
  return {call("Brisel::Opacity::", opacity.name), call("VLMBriselOpacities::", opacity.objectName)};
}

CodeNames codeNames(const Catalogue::SpacerEntry& spacer) {
  return {call("Brisel::Spacer::", spacer.name), call("VLMBriselSpacers::", spacer.objectName)};
}

std::vector<NamedColorSet> allColorSets() {
  std::vector<NamedColorSet> sets;
  for (const Catalogue::ColorSetEntry& set : Catalogue::colorSets()) {
    sets.push_back({set.name,
                    false,
                    roleOf(set.name),
                    (Theme::dark().*set.get)(),
                    {call("Brisel::Theme::dark().", set.name), call("VLMBriselColorTheme::dark()->", set.name)}});
  }
  for (const Catalogue::CampaignEntry& set : Catalogue::campaignColorSets()) {
    sets.push_back(
        {set.name,
         true,
         {},
         set.get(),
         {call("Brisel::Theme::ColorSet::Campaign::", set.name), call("VLMBriselColorTheme::campaign()->", set.name)}});
  }
  return sets;
}

CodeNames slotCalls(const Catalogue::SlotEntry& slot) {
  CodeNames calls;
  std::string_view rest = slot.path;
  while (true) {
    const auto dot = rest.find('.');
    calls.valueInterface += call(".", rest.substr(0, dot));
    calls.objectInterface += call("->", rest.substr(0, dot));
    if (dot == std::string_view::npos) return calls;
    rest.remove_prefix(dot + 1);
  }
}

}  // namespace Brisel::Gallery
