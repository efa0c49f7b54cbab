#include "gallery/exports/json_value.h"

#include <cstdint>

#include "gallery/catalogue_names.h"

namespace Brisel::Gallery {
namespace {

struct TypeName {
  std::string_view operator()(const Platform::UIColor&) const { return "color"; }
  std::string_view operator()(double) const { return "number"; }
  std::string_view operator()(const Distance&) const { return "dimension"; }
  std::string_view operator()(const TypeSetting&) const { return "typography"; }
  std::string_view operator()(const GlyphCode&) const { return "number"; }
};

// Pixels, never rem: sizes are already those of a category, and rem would scale them once more.
Json pixels(double value) { return {{"value", jsonNumber(value)}, {"unit", "px"}}; }

struct Value {
  Json operator()(const Platform::UIColor& color) const {
    const auto [red, green, blue, alpha] = color.getRed();
    return {{"colorSpace", "srgb"},
            {"components", Json::array({jsonNumber(red), jsonNumber(green), jsonNumber(blue)})},
            {"alpha", jsonNumber(alpha)},
            {"hex", hexText(color).substr(0, 7)}};  // the format knows no alpha in it
  }
  Json operator()(double number) const { return jsonNumber(number); }
  Json operator()(const Distance& distance) const { return pixels(distance.pixels); }
  Json operator()(const TypeSetting& setting) const {
    return {{"fontFamily", setting.families},
            {"fontSize", pixels(setting.size)},
            {"fontWeight", setting.weight},
            {"letterSpacing", pixels(0)},
            {"lineHeight", jsonNumber(setting.lineHeight)}};
  }
  Json operator()(const GlyphCode& glyph) const { return static_cast<std::uint32_t>(glyph.codePoint); }
};

}  // namespace

std::string_view tokenType(const TokenValue& value) { return std::visit(TypeName(), value); }

Json tokenValue(const TokenValue& value) { return std::visit(Value(), value); }

Json deprecation(const Token& token) {
  if (!token.deprecated) return false;
  return token.deprecated->empty() ? Json(true) : Json(*token.deprecated);
}

}  // namespace Brisel::Gallery
