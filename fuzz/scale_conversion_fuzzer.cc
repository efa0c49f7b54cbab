// Any doubles as scales and as the points of ranges, and any text as a category.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "brisel/typography/content_size_category.h"
#include "brisel/typography/type_style.h"

#include "fuzz/input.h"

namespace {

using Brisel::ContentSizeCategory;
using Brisel::nearestContentSizeCategory;
using Brisel::Platform::UIContentSizeCategory;
using Range = Brisel::TypeStyle::AccessibilityRange;
using Brisel::Fuzz::require;

bool same(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

void checkScale(double scale) {
  const ContentSizeCategory nearest = nearestContentSizeCategory(scale);
  for (const ContentSizeCategory other : ContentSizeCategory::allCases())
    require(!(std::fabs(other.rawValue() - scale) < std::fabs(nearest.rawValue() - scale)));
  if (scale <= -1.0 || std::isnan(scale)) require(nearest == ContentSizeCategory::extraSmall);
  if (scale >= 2.0) require(nearest == ContentSizeCategory::accessibilityExtraExtraExtraLarge);
  if (const auto exact = ContentSizeCategory::fromRawValue(scale)) {
    require(*exact == nearest);
    require(exact->rawValue() == scale);
  }
  require(ContentSizeCategory(nearest.platformCategory()) == nearest);
}

void checkCategory(std::string_view text, const Range& range) {
  const UIContentSizeCategory category(text);
  const ContentSizeCategory known(category);
  require(known == ContentSizeCategory::large || known.platformCategory() == category);
  require(same(range.value(category), range.value(known.rawValue())));
}

void checkRange(const Range& range, double scale) {
  const double value = range.value(scale);
  if (scale > 1.6 || std::isnan(scale)) require(same(value, range.value(1.6)));
  if (scale < -1.0) require(same(value, range.value(-1.0)));
  // Points of moderate size: what overflows has no order.
  constexpr double kLarge = 1e300;
  const bool isModerate = std::fabs(range.min()) < kLarge && std::fabs(range.mid()) < kLarge &&
                          std::fabs(range.max()) < kLarge && std::fabs(range.axMax()) < kLarge;
  if (isModerate) {
    require(std::isfinite(value));
    require(same(range.value(-1.0), range.min()));
    require(same(range.value(0.0), range.mid()));
    require(same(range.value(1.0), range.max()));
  }
  require(!range.description().empty());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  double numbers[5] = {};
  const std::size_t taken = size < sizeof(numbers) ? size : sizeof(numbers);
  if (taken > 0) std::memcpy(numbers, data, taken);
  const auto [scale, min, mid, max, axMax] = numbers;
  const Range range(min, mid, max, axMax);
  checkScale(scale);
  checkRange(range, scale);
  if (taken < size) checkCategory({reinterpret_cast<const char*>(data) + taken, size - taken}, range);
  return 0;
}
