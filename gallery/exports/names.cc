#include "gallery/exports/names.h"

#include <algorithm>
#include <map>
#include <stdexcept>

namespace Brisel::Gallery {
namespace {

bool isLower(char c) { return c >= 'a' && c <= 'z'; }
bool isUpper(char c) { return c >= 'A' && c <= 'Z'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::string lowered(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = isUpper(c) ? static_cast<char>(c - 'A' + 'a') : c;
  return lower;
}

[[noreturn]] void refuse(const Token& token, std::string_view why) {
  throw std::logic_error("the token " + dottedName(token) + " " + std::string(why));
}

bool startsWord(std::string_view text, std::size_t at) {
  if (at == 0 || !isUpper(text[at])) return false;
  const char before = text[at - 1];
  return isLower(before) || isDigit(before) || (isUpper(before) && at + 1 < text.size() && isLower(text[at + 1]));
}

void requireGoodNames(const Token& token) {
  if (token.path.empty()) refuse(token, "has no name");
  for (const std::string& name : token.path) {
    if (name.empty()) refuse(token, "has an empty name in its path");
    if (name.front() == '$') refuse(token, "has a name that starts with $");
    if (name.find_first_of("{}.") != std::string::npos) refuse(token, "has a name with a brace or a dot");
  }
}

bool hasBraces(const Json& json) {
  if (json.is_string()) return json.get_ref<const std::string&>().find_first_of("{}") != std::string::npos;
  if (!json.is_structured()) return false;
  const auto items = json.items();
  return std::any_of(items.begin(), items.end(),
                     [](const auto& item) { return hasBraces(Json(item.key())) || hasBraces(item.value()); });
}

// Readers take braces in any text for a reference.
void requireNoReferences(const Token& token) {
  const auto* setting = std::get_if<TypeSetting>(&token.value);
  if (hasBraces({token.valueInterface, token.objectInterface, token.deprecated.value_or(""), token.facts,
                 setting != nullptr ? setting->families : std::vector<std::string>()})) {
    refuse(token, "has braces in a text");
  }
}

}  // namespace

std::string dottedName(const Token& token) {
  std::string text;
  for (const std::string& name : token.path) text += (text.empty() ? "" : ".") + name;
  return text;
}

std::string kebabCase(std::string_view text) {
  std::string words;
  bool isBetween = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    const bool isSeparator = !isLower(c) && !isUpper(c) && !isDigit(c);
    if (isSeparator || startsWord(text, i)) isBetween = true;
    if (isSeparator) continue;
    if (isBetween && !words.empty()) words += '-';
    isBetween = false;
    words += c;
  }
  return lowered(words);
}

std::string customPropertyName(const Token& token) { return "--brisel-" + kebabCase(dottedName(token)); }

void requireExportable(std::span<const Token> tokens) {
  struct Taken {
    std::string path;
    bool isToken;
  };
  std::map<std::string, Taken> taken;  // groups and tokens by their paths in small letters
  for (const Token& token : tokens) {
    requireGoodNames(token);
    std::string path;
    for (std::size_t i = 0; i < token.path.size(); ++i) {
      path += (path.empty() ? "" : ".") + token.path[i];
      const bool isToken = i + 1 == token.path.size();
      const auto [place, isNew] = taken.try_emplace(lowered(path), Taken{path, isToken});
      if (isNew) continue;
      if (place->second.path != path) refuse(token, "differs from " + place->second.path + " in case alone");
      if (isToken || place->second.isToken) refuse(token, "finds the place of " + path + " taken");
    }
    requireNoReferences(token);
  }
}

}  // namespace Brisel::Gallery
