// The object interface of fitting (see brisel/typography/fitting.h): all forward to it.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "brisel/object_interface/type_styles.h"
#include "brisel/platform/attributed_string.h"
#include "brisel/platform/content_size_category.h"
#include "brisel/platform/geometry.h"
#include "brisel/platform/value.h"
#include "brisel/platform/views/view.h"

namespace VLMBrisel {

/// `canScaledStringFit:numberOfLines:minScale:`: whether the string that `Brisel::scaledToFit` makes is said to fit.
bool canScaledStringFit(const std::shared_ptr<const Brisel::Platform::NSAttributedString>& string,
                        Brisel::Platform::CGSize size, std::int64_t numberOfLines, double minScale);

}  // namespace VLMBrisel

/// `briselSwift_attributedStringWithString:typeStyle:contentSizeCategory:minimumScaleFactor:maxNumberOfLines:target:`
/// `baseAttributes:`: see `Brisel::attributedString`. A null style is a programming error.
std::shared_ptr<Brisel::Platform::NSMutableAttributedString> briselSwift_attributedStringWithString(
    std::string_view string, const std::shared_ptr<const VLMBriselTypeStyle>& typeStyle,
    const Brisel::Platform::UIContentSizeCategory& contentSizeCategory, double minimumScaleFactor,
    std::int64_t maxNumberOfLines, Brisel::Platform::UIView& target,
    const Brisel::Platform::Dictionary& baseAttributes);
