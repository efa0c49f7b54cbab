#include "gallery/one_line.h"

#include <algorithm>
#include <cstddef>

namespace Brisel::Gallery {
namespace {

// How many bytes of UTF-8 the first character has, 0 where it is ill-formed. The range of the second byte excludes
// overlong forms, surrogates and what lies beyond U+10FFFF (Unicode Standard, table 3-7).
std::size_t characterLength(std::string_view text) {
  const auto byte = [text](std::size_t at) { return static_cast<unsigned char>(text[at]); };
  const unsigned char lead = byte(0);
  if (lead < 0x80) return 1;
  if (lead < 0xC2 || lead > 0xF4) return 0;
  const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  if (text.size() < length) return 0;
  const unsigned char low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  const unsigned char high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  if (byte(1) < low || byte(1) > high) return 0;
  for (std::size_t at = 2; at < length; ++at) {
    if (byte(at) < 0x80 || byte(at) > 0xBF) return 0;
  }
  return length;
}

bool isControl(std::string_view character) {
  if (character.size() == 1) return static_cast<unsigned char>(character.front()) < ' ' || character == "\x7F";
  return character.size() == 2 && character >= "\xC2\x80" && character <= "\xC2\x9F";  // U+0080 … U+009F
}

}  // namespace

std::string onOneLine(std::string_view message) {
  std::string line;
  while (!message.empty()) {
    const std::size_t length = characterLength(message);
    const std::string_view character = message.substr(0, length);
    if (length == 0 || isControl(character))
      line += '?';
    else
      line += character;
    message.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return line;
}

}  // namespace Brisel::Gallery
