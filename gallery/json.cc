#include "gallery/json.h"

#include <cmath>
#include <cstdint>
#include <string_view>

namespace Brisel::Gallery {

Json jsonNumber(double number) {
  constexpr double kAllWholeBelow = 9007199254740992.0;  // 2 to the power of 53
  const bool isWhole = std::trunc(number) == number && std::abs(number) < kAllWholeBelow;
  return isWhole ? Json(static_cast<std::int64_t>(number)) : Json(number);
}

std::string jsonLines(const Json& list) {
  std::string text = "[";
  std::string_view separator = "\n  ";
  for (const Json& element : list) {
    text += separator;
    text += element.dump();
    separator = ",\n  ";
  }
  return text + "\n]\n";
}

}  // namespace Brisel::Gallery
