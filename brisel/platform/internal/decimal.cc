#include "brisel/platform/internal/decimal.h"

#include <charconv>
#include <cmath>
#include <string_view>

namespace Brisel::Platform::internal {

std::string decimal(double number) {
  if (std::isnan(number)) return "nan";
  const double magnitude = std::fabs(number);
  const bool isPlain = magnitude == 0.0 || (magnitude >= 1e-4 && magnitude <= 0x1p53);
  char buffer[32];  // 24 characters at most: a sign, 17 digits, a point, an exponent of 5
  const auto format = isPlain ? std::chars_format::fixed : std::chars_format::scientific;
  const auto end = std::to_chars(std::begin(buffer), std::end(buffer), number, format).ptr;
  std::string text(buffer, end);
  if (isPlain && text.find('.') == std::string::npos) text += ".0";
  return text;
}

}  // namespace Brisel::Platform::internal
