#include "brisel/tokens/color_parsing.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "brisel/platform/internal/utf.h"

namespace Brisel {
namespace {

using Platform::CGFloat;
using Platform::UIColor;

constexpr std::uint8_t kNoDigit = 0xFF;
constexpr std::uint64_t kNoNumber = ~std::uint64_t{0};

// The value of each byte as a hexadecimal digit. A table, since <cctype> asks the locale.
constexpr auto kDigits = [] {
  std::array<std::uint8_t, 256> digits{};
  digits.fill(kNoDigit);
  for (std::uint8_t i = 0; i < 10; ++i) digits['0' + i] = i;
  for (std::uint8_t i = 0; i < 6; ++i) digits['A' + i] = digits['a' + i] = static_cast<std::uint8_t>(10 + i);
  return digits;
}();

// Each byte divided by 255: the same doubles as dividing each time, without four divisions a colour.
constexpr auto kFractions = [] {
  std::array<CGFloat, 256> fractions{};
  for (std::size_t i = 0; i < fractions.size(); ++i) fractions[i] = static_cast<CGFloat>(i) / 255.0;
  return fractions;
}();

constexpr std::uint8_t digit(char c) noexcept { return kDigits[static_cast<unsigned char>(c)]; }
constexpr bool isDigit(char c) noexcept { return digit(c) != kNoDigit; }

// Digits are ASCII, and a byte of ASCII is never part of another character: so bytes may be trimmed for characters.
std::string_view trimmed(std::string_view text) noexcept {
  while (!text.empty() && !isDigit(text.front())) text.remove_prefix(1);
  while (!text.empty() && !isDigit(text.back())) text.remove_suffix(1);
  return text;
}

// The number before the first character that is no digit.
std::uint32_t scan(std::string_view text) noexcept {
  if (text.size() > 1 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) text.remove_prefix(2);
  std::uint32_t number = 0;
  for (const char c : text) {
    if (!isDigit(c)) break;
    number = number << 4 | digit(c);
  }
  return number;
}

[[gnu::noinline]] std::optional<std::uint32_t> parseAnything(std::string_view text, std::size_t length) noexcept {
  text = trimmed(text);
  if (Platform::internal::utf16Length(text) != length) return std::nullopt;
  return scan(text);
}

// The number that so many digits make, or, where one of them is none, more than 32 bits.
template <std::size_t... i>
std::uint64_t digitsAt(const char* text, std::index_sequence<i...>) noexcept {
  const bool allDigits = (digit(text[i]) | ...) < 16;
  const std::uint32_t number = ((static_cast<std::uint32_t>(digit(text[i])) << 4 * (sizeof...(i) - 1 - i)) | ...);
  return allDigits ? number : kNoNumber;
}

template <std::size_t length>
std::optional<std::uint32_t> parse(std::string_view text) noexcept {
  // Nearly every text is just digits, perhaps behind a "#": those are read without looking at anything twice.
  const bool marked = text.size() == length + 1 && text.front() == '#';
  if (marked || text.size() == length) {
    const std::uint64_t number = digitsAt(text.data() + marked, std::make_index_sequence<length>());
    if (number != kNoNumber) [[likely]]
      return static_cast<std::uint32_t>(number);
  }
  return parseAnything(text, length);
}

constexpr CGFloat component(std::uint32_t number, int shift) noexcept { return kFractions[number >> shift & 0xFF]; }

}  // namespace

std::optional<UIColor> colorFromRGBHexString(std::string_view text) noexcept {
  const auto number = parse<6>(text);
  if (!number) return std::nullopt;
  return UIColor::rgb(component(*number, 16), component(*number, 8), component(*number, 0));
}

std::optional<UIColor> colorFromRGBAHexString(std::string_view text) noexcept {
  const auto number = parse<8>(text);
  if (!number) return std::nullopt;
  return UIColor::rgb(component(*number, 24), component(*number, 16), component(*number, 8), component(*number, 0));
}

std::optional<UIColor> colorFromARGBHexString(std::string_view text) noexcept {
  const auto number = parse<8>(text);
  if (!number) return std::nullopt;
  return UIColor::rgb(component(*number, 16), component(*number, 8), component(*number, 0), component(*number, 24));
}

bool colorsAreEqual(const UIColor& color, const UIColor& other, CGFloat precision) noexcept {
  if (&color == &other) return true;
  // "Exceeds", and not "is within": what compares with NaN counts as equal.
  const auto exceeds = [precision](CGFloat a, CGFloat b) { return std::abs(a - b) > precision; };
  const auto a = color.getRed();
  const auto b = other.getRed();
  return !exceeds(a.red, b.red) && !exceeds(a.green, b.green) && !exceeds(a.blue, b.blue) && !exceeds(a.alpha, b.alpha);
}

}  // namespace Brisel
