#include "gallery/exports/css.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <set>
#include <stdexcept>
#include <utility>
#include <vector>

#include "gallery/catalogue_names.h"
#include "gallery/exports/names.h"

namespace Brisel::Gallery {
namespace {

// In hexadecimal, as style sheets escape characters.
std::string escaped(char32_t character) {
  std::array<char, 8> digits{};
  const auto result =
      std::to_chars(digits.data(), digits.data() + digits.size(), static_cast<std::uint32_t>(character), 16);
  return "\\" + std::string(digits.data(), result.ptr);
}

std::string cssString(std::string_view text) {
  std::string string = "\"";
  for (const char c : text) {
    const bool isControl = static_cast<unsigned char>(c) < ' ' || c == '\x7F';
    if (isControl) {
      string += escaped(static_cast<unsigned char>(c)) + " ";  // the space ends the escape
    } else {
      if (c == '"' || c == '\\') string += '\\';
      string += c;
    }
  }
  return string + "\"";
}

// A fraction in percent, the point moved in its decimals: a product would leave noise behind them (7.1, not
// 7.1000000000000005).
std::string percent(double fraction) {
  std::string digits = decimal(fraction);
  const bool isNegative = digits.front() == '-';
  if (isNegative) digits.erase(0, 1);
  std::size_t point = digits.find('.');
  if (point == std::string::npos)
    point = digits.size();
  else
    digits.erase(point, 1);
  point += 2;
  if (digits.size() < point) digits.append(point - digits.size(), '0');
  const std::string whole = digits.substr(0, point), rest = digits.substr(point);
  const std::size_t first = whole.find_first_not_of('0');
  return (isNegative ? "-" : "") + (first == std::string::npos ? "0" : whole.substr(first)) +
         (rest.empty() ? "" : "." + rest) + "%";
}

std::string colorValue(const Platform::UIColor& color) {
  const auto [red, green, blue, alpha] = color.getRed();
  std::string value = "rgb(" + percent(red) + " " + percent(green) + " " + percent(blue);
  if (alpha != 1) value += " / " + percent(alpha);
  return value + ")";
}

// The last family is generic: a keyword, which quotes would make a name of.
std::string familyList(const std::vector<std::string>& families) {
  std::string list;
  for (std::size_t i = 0; i < families.size(); ++i) {
    const bool isGeneric = i + 1 == families.size();
    list += (i == 0 ? "" : ", ") + (isGeneric ? families[i] : cssString(families[i]));
  }
  return list;
}

// A token's properties: what follows its name, and the value.
using Properties = std::vector<std::pair<std::string_view, std::string>>;

struct PropertiesOf {
  Properties operator()(const Platform::UIColor& color) const { return {{"", colorValue(color)}}; }
  Properties operator()(double number) const { return {{"", decimal(number)}}; }
  Properties operator()(const Distance& distance) const { return {{"", decimal(distance.pixels) + "px"}}; }
  Properties operator()(const TypeSetting& setting) const {
    const std::string weight = std::to_string(setting.weight), size = decimal(setting.size) + "px",
                      lineHeight = decimal(setting.lineHeight), families = familyList(setting.families);
    return {{"", weight + " " + size + "/" + lineHeight + " " + families},
            {"-font-family", families},
            {"-font-size", size},
            {"-font-weight", weight},
            {"-line-height", lineHeight},
            {"-letter-spacing", "0px"}};
  }
  Properties operator()(const GlyphCode& glyph) const { return {{"", "\"" + escaped(glyph.codePoint) + "\""}}; }
};

std::string deprecationComment(const Token& token) {
  if (!token.deprecated) return {};
  std::string text = *token.deprecated;
  for (std::size_t end = text.find("*/"); end != std::string::npos; end = text.find("*/")) text.insert(end + 1, " ");
  return text.empty() ? " /* deprecated */" : " /* deprecated: " + text + " */";
}

}  // namespace

std::string cssText(std::span<const Token> tokens) {
  requireExportable(tokens);
  std::set<std::string> taken;
  std::string text = "/* Exported by brisel. */\n:root {\n";
  for (const Token& token : tokens) {
    for (const auto& [suffix, value] : std::visit(PropertiesOf(), token.value)) {
      const std::string name = customPropertyName(token) + std::string(suffix);
      if (!taken.insert(name).second) {
        throw std::logic_error("the token " + dottedName(token) + " finds the name " + name + " taken");
      }
      text.append("  ").append(name).append(": ").append(value).append(";");
      text.append(deprecationComment(token)).append("\n");
    }
  }
  return text + "}\n";
}

}  // namespace Brisel::Gallery
