// What the exports write: the catalogues' tokens in one shape, before any format.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "brisel/platform/color.h"

#include "gallery/json.h"

namespace Brisel::Gallery {

/// What tells what the program exported. In DTCG files it is also the key of all that the format has no place for.
inline constexpr std::string_view kExportMark = "foundation.brisel";

/// A distance in pixels, which are the library's points.
struct Distance {
  double pixels;
};

/// A type style at one category. Letters stand apart as the face has them.
struct TypeSetting {
  std::vector<std::string> families;  ///< the one to take first comes first; the last is generic
  double size;                        ///< in pixels
  int weight;                         ///< as style sheets number it
  double lineHeight;                  ///< times the size
};

/// A glyph of the icon font, by its code point.
struct GlyphCode {
  char32_t codePoint;
};

/// A plain `double` is a number without a unit.
using TokenValue = std::variant<Platform::UIColor, double, Distance, TypeSetting, GlyphCode>;

struct Token {
  std::vector<std::string> path;  ///< such as {"theme", "dark", "base", "text", "base"}; the family comes first
  TokenValue value;
  std::string valueInterface;   ///< "Brisel::Color::gray7()"; empty where that interface lacks the token
  std::string objectInterface;  ///< "VLMBriselColors::gray7()"
  Json facts = Json::object();  ///< what else the catalogue says, by name
  /// What to take instead, in a sentence; empty where there is nothing to say.
  std::optional<std::string> deprecated = std::nullopt;
};

}  // namespace Brisel::Gallery
