#include "brisel/platform/internal/utf.h"

#include <cstdint>
#include <cstring>

namespace Brisel::Platform::internal {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

void appendUtf16(std::u16string& out, char32_t c) {
  if (c < 0x10000) {
    out.push_back(static_cast<char16_t>(c));
  } else {
    out.push_back(static_cast<char16_t>(0xD7C0 + (c >> 10)));
    out.push_back(static_cast<char16_t>(0xDC00 | (c & 0x3FF)));
  }
}

void appendUtf8(std::string& out, char32_t c) {
  const auto byte = [&out](char32_t value) { out.push_back(static_cast<char>(value)); };
  if (c < 0x80) {
    byte(c);
  } else if (c < 0x800) {
    byte(0xC0 | (c >> 6));
    byte(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    byte(0xE0 | (c >> 12));
    byte(0x80 | ((c >> 6) & 0x3F));
    byte(0x80 | (c & 0x3F));
  } else {
    byte(0xF0 | (c >> 18));
    byte(0x80 | ((c >> 12) & 0x3F));
    byte(0x80 | ((c >> 6) & 0x3F));
    byte(0x80 | (c & 0x3F));
  }
}

bool isSurrogate(char32_t c) { return c >= 0xD800 && c < 0xE000; }

// Eight bytes at a time: names and keys are ASCII, and every one of them is looked at.
bool isAscii(std::string_view text) noexcept {
  constexpr std::uint64_t kHighBits = 0x8080'8080'8080'8080;
  std::uint64_t seen = 0;
  std::uint64_t bytes = 0;
  for (; text.size() >= sizeof(bytes); text.remove_prefix(sizeof(bytes))) {
    std::memcpy(&bytes, text.data(), sizeof(bytes));
    seen |= bytes;
  }
  bytes = 0;
  if (!text.empty()) std::memcpy(&bytes, text.data(), text.size());
  return ((seen | bytes) & kHighBits) == 0;
}

}  // namespace

char32_t nextCharacter(std::string_view text, std::size_t& index) noexcept {
  const auto at = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = at(index++);
  if (lead < 0x80) return lead;

  // How many bytes follow, and the range of the first of them: it excludes overlong forms, surrogates and what lies
  // beyond U+10FFFF (Unicode Standard, table 3-7).
  std::size_t following = 0;
  unsigned char low = 0x80;
  unsigned char high = 0xBF;
  char32_t character = 0;
  if (lead >= 0xC2 && lead <= 0xDF) {
    following = 1;
    character = lead & 0x1FU;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    following = 2;
    character = lead & 0x0FU;
    if (lead == 0xE0) low = 0xA0;
    if (lead == 0xED) high = 0x9F;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    following = 3;
    character = lead & 0x07U;
    if (lead == 0xF0) low = 0x90;
    if (lead == 0xF4) high = 0x8F;
  } else {
    return kReplacement;
  }
  for (; following > 0; --following) {
    if (index >= text.size() || at(index) < low || at(index) > high) return kReplacement;
    character = (character << 6) | (at(index++) & 0x3FU);
    low = 0x80;
    high = 0xBF;
  }
  return character;
}

char32_t nextCharacter(std::u16string_view text, std::size_t& index) noexcept {
  const char32_t unit = text[index++];
  const bool isPair =
      unit >= 0xD800 && unit < 0xDC00 && index < text.size() && text[index] >= 0xDC00 && text[index] < 0xE000;
  return isPair ? 0x10000 + ((unit - 0xD800) << 10) + (text[index++] - 0xDC00U) : unit;
}

bool isWellFormed(std::u16string_view text) noexcept {
  for (std::size_t i = 0; i < text.size();) {
    if (isSurrogate(nextCharacter(text, i))) return false;
  }
  return true;
}

std::u16string toUtf16(std::string_view text) {
  if (isAscii(text)) return std::u16string(text.begin(), text.end());
  std::u16string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) appendUtf16(out, nextCharacter(text, i));
  return out;
}

std::u16string toUtf16(char32_t character) {
  std::u16string out;
  appendUtf16(out, character);
  return out;
}

std::string toUtf8(std::u16string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const char32_t c = nextCharacter(text, i);
    appendUtf8(out, isSurrogate(c) ? kReplacement : c);
  }
  return out;
}

std::string wellFormed(std::string_view text) {
  if (isAscii(text)) return std::string(text);
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) appendUtf8(out, nextCharacter(text, i));
  return out;
}

std::size_t utf16Length(std::string_view text) noexcept {
  std::size_t length = 0;
  for (std::size_t i = 0; i < text.size();) length += nextCharacter(text, i) < 0x10000 ? 1 : 2;
  return length;
}

}  // namespace Brisel::Platform::internal
