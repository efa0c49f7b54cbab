// Attributed strings made smaller, point by point, until they fit.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "brisel/platform/attributed_string.h"
#include "brisel/platform/content_size_category.h"
#include "brisel/platform/geometry.h"
#include "brisel/platform/views/view.h"
#include "brisel/typography/type_style.h"

namespace Brisel {

/// What `scaledToFit` found.
struct ScaledResult {
  std::shared_ptr<const Platform::NSAttributedString> attributedString;  ///< the text at the size that was found
  /// Whether the text is no higher than the requested lines of its font; the box's height does not count here.
  bool scaledStringFits = false;
};

/// `scaledToFit(size:numberOfLines:minScale:)`: the text, in the attributes of its first character alone, at the first
/// size, going down from its own by whole points, at which it is no higher than `size` and than `numberOfLines` lines,
/// wrapped at the width of `size`; or at the first size that is no larger than `minScale` of its own. Line spacing
/// shrinks with the size; letter spacing, be it an integer or a double, is multiplied by the scale of every step in
/// turn, deliberately. A height that is not a number limits nothing, a width that is not one leaves no room.
///
/// It ends for any size: 65,536 points are the most that is taken from a font, and nothing is from one of more than
/// 2⁵³ points, which one point does not change.
///
/// The string is handed back as it is where `numberOfLines` is below 1 (and is said to fit), where the width is below
/// 1 point, and where the first character has no font (and is said not to). An empty string is a programming error.
ScaledResult scaledToFit(const std::shared_ptr<const Platform::NSAttributedString>& string, Platform::CGSize size,
                         std::int64_t numberOfLines, double minScale);

/// `attributedString(string:typeStyle:contentSizeCategory:minimumScaleFactor:maxNumberOfLines:target:baseAttributes:)`:
/// a text in a style, made smaller to fit a view: down to the first 55 % of what the factor allows if that is enough,
/// else as far as the factor allows. The view is measured for it, and thereby laid out. A factor that is not between 0
/// and 1 fits nothing: the text comes as it is, and the view is left alone.
std::shared_ptr<Platform::NSMutableAttributedString> attributedString(
    std::string_view string, const TypeStyle& typeStyle, const Platform::UIContentSizeCategory& contentSizeCategory,
    double minimumScaleFactor, std::int64_t maxNumberOfLines, Platform::UIView& target,
    const Platform::Dictionary& baseAttributes = {});

}  // namespace Brisel
