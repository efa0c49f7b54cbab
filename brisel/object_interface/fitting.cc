#include "brisel/object_interface/fitting.h"

#include "brisel/object_interface/internal/unwrap.h"
#include "brisel/typography/fitting.h"

using Brisel::Platform::CGSize;
using Brisel::Platform::Dictionary;
using Brisel::Platform::NSAttributedString;
using Brisel::Platform::NSMutableAttributedString;
using Brisel::Platform::UIContentSizeCategory;
using Brisel::Platform::UIView;
using VLMBrisel::internal::unwrap;

bool VLMBrisel::canScaledStringFit(const std::shared_ptr<const NSAttributedString>& string, CGSize size,
                                   std::int64_t numberOfLines, double minScale) {
  return Brisel::scaledToFit(string, size, numberOfLines, minScale).scaledStringFits;
}

std::shared_ptr<NSMutableAttributedString> briselSwift_attributedStringWithString(
    std::string_view string, const std::shared_ptr<const VLMBriselTypeStyle>& typeStyle,
    const UIContentSizeCategory& contentSizeCategory, double minimumScaleFactor, std::int64_t maxNumberOfLines,
    UIView& target, const Dictionary& baseAttributes) {
  return Brisel::attributedString(string, unwrap(typeStyle).typeStyle(), contentSizeCategory, minimumScaleFactor,
                                  maxNumberOfLines, target, baseAttributes);
}
