#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "brisel/icons/icon.h"

namespace Brisel {
namespace {

std::string hexadecimal(std::uint32_t number) {
  std::string digits;
  for (; number > 0 || digits.empty(); number /= 16) digits.insert(digits.begin(), "0123456789ABCDEF"[number % 16]);
  return digits;
}

std::string orNil(const std::optional<Icon::Glyph>& glyph) { return glyph ? glyph->debugDescription() : "nil"; }

}  // namespace

std::string Icon::Glyph::debugDescription() const { return "{\n    unichar: \\u{" + hexadecimal(unichar_) + "}\n}"; }

// What is in braces is not indented any further, here and below; this is deliberate.
std::string Icon::Glyphs::debugDescription() const {
  return "{\n    x16: " + orNil(x16_) + "\n    x24: " + orNil(x24_) + "\n}";
}

std::string_view Icon::GlyphSize::description() const noexcept {
  switch (case_) {
    case Case::x16:
      return "x16";
    case Case::x24:
      return "x24";
  }
  return {};
}

std::string Icon::GlyphSize::debugDescription() const {
  return std::string(description()) + " - rank: " + std::to_string(rank());
}

std::string Icon::description() const { return "name: " + std::string(name_); }

std::string Icon::debugDescription() const {
  return "{\n    name: " + std::string(name_) + "\n    glyphs: " + glyphs_.debugDescription() + "\n}";
}

}  // namespace Brisel
