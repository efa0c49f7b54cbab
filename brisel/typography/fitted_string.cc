#include "brisel/infrastructure/view_sizing.h"
#include "brisel/typography/fitting.h"
#include "brisel/typography/styled_string.h"

namespace Brisel {

std::shared_ptr<Platform::NSMutableAttributedString> attributedString(
    std::string_view string, const TypeStyle& typeStyle, const Platform::UIContentSizeCategory& contentSizeCategory,
    double minimumScaleFactor, std::int64_t maxNumberOfLines, Platform::UIView& target,
    const Platform::Dictionary& baseAttributes) {
  // The part of the permitted reduction that is tried first.
  constexpr double kGentlePart = -0.55;

  const auto styled = attributedString(string, typeStyle, contentSizeCategory, baseAttributes);
  if (styled->length() < 1 || !(minimumScaleFactor > 0 && minimumScaleFactor < 1)) return styled;
  const Platform::CGSize box = brisel_systemLayoutSizeFitting(target, Platform::UILayoutFittingExpandedSize);
  ScaledResult result = scaledToFit(styled, box, maxNumberOfLines, (1 - minimumScaleFactor) * kGentlePart + 1);
  if (!result.scaledStringFits) result = scaledToFit(styled, box, maxNumberOfLines, minimumScaleFactor);
  const auto fitted = result.attributedString->mutableCopy();
  fitted->fixAttributesInRange({0, fitted->length()});
  return fitted;
}

}  // namespace Brisel
