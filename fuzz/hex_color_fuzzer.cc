// Any bytes as a colour: what comes out must be what an obvious, slow reading of the rules gives.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "brisel/platform/internal/utf.h"
#include "brisel/tokens/color_parsing.h"

#include "fuzz/input.h"

namespace {

using Brisel::Fuzz::require;
using Brisel::Platform::UIColor;

int digit(char16_t c) {
  if (c >= u'0' && c <= u'9') return c - u'0';
  if (c >= u'A' && c <= u'F') return c - u'A' + 10;
  if (c >= u'a' && c <= u'f') return c - u'a' + 10;
  return -1;
}

// The rules as they are told, on UTF-16 and without a short cut.
std::optional<std::uint32_t> number(std::string_view bytes, std::size_t length) {
  std::u16string text = Brisel::Platform::internal::toUtf16(bytes);
  while (!text.empty() && digit(text.front()) < 0) text.erase(0, 1);
  while (!text.empty() && digit(text.back()) < 0) text.pop_back();
  if (text.size() != length) return std::nullopt;
  if (text[0] == u'0' && (text[1] == u'x' || text[1] == u'X')) text.erase(0, 2);
  std::uint32_t number = 0;
  for (const char16_t c : text) {
    if (digit(c) < 0) break;
    number = number * 16 + static_cast<std::uint32_t>(digit(c));
  }
  return number;
}

void requireComponents(const std::optional<UIColor>& color, std::optional<std::uint32_t> number, int red, int green,
                       int blue, int alpha) {
  require(color.has_value() == number.has_value());
  if (!color) return;
  const auto component = [&](int shift) { return static_cast<double>(*number >> shift & 0xFF) / 255.0; };
  require(*color ==
          UIColor::rgb(component(red), component(green), component(blue), alpha < 0 ? 1.0 : component(alpha)));
  require(Brisel::colorsAreEqual(*color, UIColor(*color), 0.0));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  requireComponents(Brisel::colorFromRGBHexString(text), number(text, 6), 16, 8, 0, -1);
  requireComponents(Brisel::colorFromRGBAHexString(text), number(text, 8), 24, 16, 8, 0);
  requireComponents(Brisel::colorFromARGBHexString(text), number(text, 8), 16, 8, 0, 24);

  // What is no digit may stand on either side.
  const std::string surrounded = "#" + std::string(text) + "\n";
  require(Brisel::colorFromRGBHexString(surrounded) == Brisel::colorFromRGBHexString(text));
  return 0;
}
