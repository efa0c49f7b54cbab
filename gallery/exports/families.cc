#include "gallery/exports/families.h"

#include <cmath>
#include <initializer_list>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include "brisel/icons/catalogue.h"
#include "brisel/platform/engine.h"
#include "brisel/themes/catalogue.h"
#include "brisel/tokens/catalogue.h"
#include "brisel/typography/catalogue.h"

#include "gallery/catalogue_names.h"
#include "gallery/code_names.h"
#include "gallery/icon_names.h"

namespace Brisel::Gallery {
namespace {

std::string joined(std::initializer_list<std::string_view> parts) {
  std::string text;
  for (const std::string_view part : parts) text += part;
  return text;
}

// "theme.dark.base" as {"theme", "dark", "base"}.
std::vector<std::string> steps(std::string_view path) {
  std::vector<std::string> names;
  for (std::size_t dot = path.find('.'); dot != std::string_view::npos; dot = path.find('.')) {
    names.emplace_back(path.substr(0, dot));
    path.remove_prefix(dot + 1);
  }
  names.emplace_back(path);
  return names;
}

Token colorToken(std::vector<std::string> path, const Platform::UIColor& color) {
  Token token{std::move(path), color, {}, {}};
  token.facts["form"] = color.form() == Platform::UIColor::Form::grey ? "grey" : "rgb";
  return token;
}

std::vector<Token> palette() {
  std::vector<Token> tokens;
  for (const Catalogue::ColorEntry& entry : Catalogue::colors()) {
    Token& token = tokens.emplace_back(colorToken({"palette", std::string(entry.name)}, *entry.get().value()));
    token.valueInterface = joined({"Brisel::Color::", entry.name, "()"});
    token.objectInterface = joined({"VLMBriselColors::", entry.objectName, "()"});
  }
  return tokens;
}

// What to take instead of an older name: the first palette colour of the same form and components, if there is one.
std::string legacyAdvice(const Platform::UIColor& color) {
  for (const Catalogue::ColorEntry& entry : Catalogue::colors()) {
    if (*entry.get().value() == color) return joined({"Take palette.", entry.name, " instead, the same colour."});
  }
  return {};
}

std::vector<Token> legacy() {
  std::vector<Token> tokens;
  for (const Catalogue::LegacyColorEntry& entry : Catalogue::legacyColors()) {
    Token& token = tokens.emplace_back(colorToken({"legacy", std::string(entry.objectName)}, *entry.get()));
    token.objectInterface = joined({"VLMBriselColors::", entry.objectName, "()"});
    token.deprecated = legacyAdvice(*entry.get());
  }
  return tokens;
}

std::vector<Token> opacities() {
  std::vector<Token> tokens;
  for (const Catalogue::OpacityEntry& entry : Catalogue::opacities()) {
    const CodeNames code = codeNames(entry);
    tokens.push_back(
        {{"opacity", std::string(entry.name)}, entry.get().value(), code.valueInterface, code.objectInterface});
  }
  return tokens;
}

std::vector<Token> spacers() {
  std::vector<Token> tokens;
  for (const Catalogue::SpacerEntry& entry : Catalogue::spacers()) {
    const CodeNames code = codeNames(entry);
    tokens.push_back({{"spacer", std::string(entry.name)},
                      Distance{entry.get().value()},
                      code.valueInterface,
                      code.objectInterface});
  }
  return tokens;
}

// The slots of the theme's colour sets or of those of campaigns, in a group such as "theme.dark".
std::vector<Token> slotsOf(bool isCampaign, std::string_view group) {
  std::vector<Token> tokens;
  for (const NamedColorSet& set : allColorSets()) {
    if (set.isCampaign != isCampaign) continue;
    for (const Catalogue::SlotEntry& slot : Catalogue::slots()) {
      const CodeNames calls = slotCalls(slot);
      Token& token =
          tokens.emplace_back(colorToken(steps(joined({group, ".", set.name, ".", slot.path})), *slot.get(set.colors)));
      token.valueInterface = set.code.valueInterface + calls.valueInterface;
      token.objectInterface = set.code.objectInterface + calls.objectInterface;
    }
  }
  return tokens;
}

std::vector<Token> theme() { return slotsOf(false, "theme.dark"); }

std::vector<Token> campaign() { return slotsOf(true, "campaign"); }

// The families by which a web page loads the bundle's faces, and what browsers have where it does not.
std::vector<std::string> fontFamilies(const TypeStyle& style) {
  std::vector<std::string> families{std::string(style.primaryFont().description())};
  for (const Font fallback : style.fallbackFonts()) families.emplace_back(fallback.description());
  families.emplace_back("sans-serif");
  return families;
}

// Line height over size, of the style's first face. It is measured at a million points and rounded there to whole ones:
// the quotient is then the face's own number (1.2), without what the products of doubles leave behind.
double lineHeightFactor(const TypeStyle& style) {
  constexpr double kMillion = 1'000'000;
  const auto font = style.font(ContentSizeCategory::large.platformCategory())->fontWithSize(kMillion);
  if (font->typeface()->name() != font->fontName()) {
    throw std::runtime_error("the resource bundle lacks the font " + font->fontName());
  }
  return std::round(font->lineHeight()) / kMillion;
}

std::string_view groupName(TypeStyle::Group group) {
  switch (group) {
    case TypeStyle::Group::smallText:
      return "smallText";
    case TypeStyle::Group::body:
      return "body";
    case TypeStyle::Group::titles:
      return "titles";
    case TypeStyle::Group::displayTitles:
      return "displayTitles";
  }
  return {};
}

Json styleFacts(const TypeStyle& style, const NamedCategory& category) {
  const TypeStyle::Configuration& configuration = style.configuration();
  const Platform::UIContentSizeCategory& platformCategory = category.category.platformCategory();
  Json features = Json::array();
  for (const Font::Feature feature : configuration.fontFeatures()) features.push_back(feature.description());
  return {{"name", style.name()},
          {"category", platformCategory.string()},
          {"group", groupName(style.group())},
          {"nominalSize", jsonNumber(style.fontSize())},
          {"minimumScaleFactor", jsonNumber(configuration.minimumScaleFactor().value(platformCategory))},
          {"usesUpperCaseLayout", configuration.usesUpperCaseLayout()},
          {"features", features}};
}

std::vector<Token> typography() {
  std::vector<Token> tokens;
  for (const Catalogue::TypeStyleEntry& entry : Catalogue::typeStyles()) {
    const TypeStyle& style = entry.get();
    TypeSetting setting{fontFamilies(style), 0, weightNumber(style.fontWeight()), lineHeightFactor(style)};
    for (const NamedCategory& category : categories()) {
      setting.size = style.configuration().fontSize().value(category.category.platformCategory());
      tokens.push_back({{"typography", std::string(entry.name), std::string(category.name)},
                        setting,
                        joined({"Brisel::TypeStyle::", entry.name, "()"}),
                        joined({"VLMBriselTypeStyle::", entry.objectName, "()"}),
                        styleFacts(style, category)});
    }
  }
  return tokens;
}

std::vector<Token> icons() {
  struct Design {
    std::string_view name;
    int points;
    const std::optional<Icon::Glyph>& (Icon::Glyphs::*glyph)() const noexcept;
  };
  constexpr Design kDesigns[] = {{"x16", 16, &Icon::Glyphs::x16}, {"x24", 24, &Icon::Glyphs::x24}};
  std::vector<Token> tokens;
  for (const Catalogue::IconEntry& entry : Catalogue::icons()) {
    const Icon& icon = entry.get();
    for (const Design& design : kDesigns) {
      const std::optional<Icon::Glyph>& glyph = (icon.glyphs().*design.glyph)();
      tokens.push_back({{"icon", std::string(entry.name), std::string(design.name)},
                        GlyphCode{glyph.value().unichar()},
                        accessorCode(entry),
                        joined({"VLMBriselSwiftIcons::", entry.accessor, "()"}),
                        {{"constant", entry.objectName},
                         {"name", icon.name()},
                         {"designSize", design.points},
                         {"autoMirror", icon.autoMirror()}}});
    }
  }
  return tokens;
}

constexpr TokenFamily kFamilies[] = {{"palette", palette},       {"legacy", legacy}, {"opacity", opacities},
                                     {"spacer", spacers},        {"theme", theme},   {"campaign", campaign},
                                     {"typography", typography}, {"icon", icons}};

}  // namespace

std::span<const TokenFamily> tokenFamilies() { return kFamilies; }

std::vector<Token> allTokens() {
  std::vector<Token> all;
  for (const TokenFamily& family : kFamilies) {
    for (Token& token : family.tokens()) all.push_back(std::move(token));
  }
  return all;
}

}  // namespace Brisel::Gallery
