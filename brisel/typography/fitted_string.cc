#include "brisel/typography/internal/fitted_string.h"

#include "brisel/infrastructure/view_sizing.h"
#include "brisel/typography/fitting.h"
#include "brisel/typography/styled_string.h"

namespace Brisel {

std::shared_ptr<const Platform::NSAttributedString> internal::fitted(
    const std::shared_ptr<const Platform::NSAttributedString>& styled, double minimumScaleFactor,
    std::int64_t maxNumberOfLines, Platform::UIView& target) {
  // The part of the permitted reduction that is tried first.
  constexpr double kGentlePart = -0.55;

  if (styled->length() < 1 || !(minimumScaleFactor > 0 && minimumScaleFactor < 1)) return styled;
  const Platform::CGSize box = brisel_systemLayoutSizeFitting(target, Platform::UILayoutFittingExpandedSize);
  ScaledResult result = scaledToFit(styled, box, maxNumberOfLines, (1 - minimumScaleFactor) * kGentlePart + 1);
  if (!result.scaledStringFits) result = scaledToFit(styled, box, maxNumberOfLines, minimumScaleFactor);
  return result.attributedString->withFixedAttributes();
}

std::shared_ptr<Platform::NSMutableAttributedString> attributedString(
    std::string_view string, const TypeStyle& typeStyle, const Platform::UIContentSizeCategory& contentSizeCategory,
    double minimumScaleFactor, std::int64_t maxNumberOfLines, Platform::UIView& target,
    const Platform::Dictionary& baseAttributes) {
  const auto styled = attributedString(string, typeStyle, contentSizeCategory, baseAttributes);
  return internal::fitted(styled, minimumScaleFactor, maxNumberOfLines, target)->mutableCopy();
}

}  // namespace Brisel
