// How icons are found by their texts, step by step as it is told and without a short cut: what the quick look-ups are
// compared with.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "brisel/icons/catalogue.h"
#include "brisel/icons/icon.h"

namespace Brisel::Tests {

inline std::string replaceAll(std::string text, std::string_view part, std::string_view by) {
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + by.size()))
    text.replace(at, part.size(), by);
  return text;
}

/// The icon that `Icon(name)` is to be; null where it is to throw.
inline const Icon* iconNamed(std::string name) {
  name = replaceAll(name, "VLMBriselIcon", "");
  name = replaceAll(name, "VLMIcon", "");
  for (const Icon& icon : Icon::allCases())
    if (icon.name() == name) return &icon;
  return nullptr;
}

/// The text with its first character capitalised. Knows the few characters that can matter.
inline std::string capitalised(const std::string& text) {
  constexpr std::string_view kCapitals[][2] = {
      {"\u0131", "I"},  {"\u017F", "S"},   {"\u00DF", "Ss"},  {"\uFB00", "Ff"}, {"\uFB01", "Fi"},
      {"\uFB02", "Fl"}, {"\uFB03", "Ffi"}, {"\uFB04", "Ffl"}, {"\uFB05", "St"}, {"\uFB06", "St"},
  };
  for (const auto& [character, capital] : kCapitals)
    if (text.starts_with(character)) return std::string(capital) + text.substr(character.size());
  std::string result = text;
  if (result[0] >= 'a' && result[0] <= 'z') result[0] = static_cast<char>(result[0] - 'a' + 'A');
  return result;
}

struct NumberedIcon {
  std::uint64_t number;
  bool isLogged;
};

/// The number that `iconNumber(text)` is to return, and whether it is to say that the text is deprecated.
inline NumberedIcon iconNumbered(std::optional<std::string> text) {
  constexpr std::uint64_t kInvalid = 9223372036854775807;
  if (!text || text->empty()) return {kInvalid, false};
  const bool isOld = text->starts_with("VLMIcon");
  if (isOld) text = replaceAll(*text, "VLMIcon", "VLMBriselIcon");
  if (!text->starts_with("VLMBriselIcon")) text = "VLMBriselIcon" + capitalised(*text);
  if (*text == "VLMBriselIconNone") return {0, isOld};
  for (const Catalogue::IconEntry& entry : Catalogue::icons())
    if (entry.objectName == *text) return {entry.number, isOld};
  return {kInvalid, isOld};
}

}  // namespace Brisel::Tests
