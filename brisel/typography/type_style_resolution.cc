#include <cmath>

#include "brisel/platform/content_size_category.h"
#include "brisel/typography/content_size_category.h"
#include "brisel/typography/type_style.h"

namespace Brisel {

using Platform::UIContentSizeCategory;

// Each result is exact to the bit: the operations stand in the order of the design, and none may be fused.
double TypeStyle::AccessibilityRange::value(double scale) const noexcept {
  // The clamp ends below the largest category, 2.0, so that the three largest share a value; this is deliberate.
  constexpr double kLowest = -1.0, kHighest = 1.6;
  double s = scale;
  if (s > kHighest || std::isnan(s)) {
    s = kHighest;
  } else if (s < kLowest) {
    s = kLowest;
  }
  if (s < 0.0) return min_ + (s + 1.0) * (mid_ - min_);
  if (s < 1.0) return mid_ + s * (max_ - mid_);
  return max_ + (s - 1.0) * (axMax_ - max_);
}

double TypeStyle::AccessibilityRange::value(const UIContentSizeCategory& category) const noexcept {
  return value(ContentSizeCategory(category).rawValue());
}

}  // namespace Brisel
