#pragma once

#include <memory>
#include <string_view>

#include "brisel/platform/attributed_string.h"
#include "brisel/platform/content_size_category.h"
#include "brisel/typography/type_style.h"

namespace Brisel {

/// `attributedString(string:typeStyle:contentSizeCategory:baseAttributes:)`: a text in a style at the size for a
/// category, in capitals where the style asks for them. It has the base attributes too; under keys that the style sets
/// itself (the font), the style wins. Characters that neither the style's font nor its fallbacks have get the font of a
/// face that has them. A new object, which the caller may change.
std::shared_ptr<Platform::NSMutableAttributedString> attributedString(
    std::string_view string, const TypeStyle& typeStyle, const Platform::UIContentSizeCategory& contentSizeCategory,
    const Platform::Dictionary& baseAttributes = {});

}  // namespace Brisel
