// Icons as texts and images.
#pragma once

#include <memory>
#include <optional>

#include "brisel/icons/icon.h"
#include "brisel/platform/attributed_string.h"
#include "brisel/platform/color.h"
#include "brisel/platform/geometry.h"
#include "brisel/platform/image.h"

namespace Brisel {

/// The icon as one character of the icon font, at `fontSize` points. Without a glyph size the 16-point design is taken
/// up to 16.0 points, and the 24-point design above. Of the caller's attributes a font of their own wins.
std::shared_ptr<const Platform::NSAttributedString> attributedString(
    const Icon& icon, Platform::CGFloat fontSize, std::optional<Icon::GlyphSize> glyphSize = std::nullopt,
    const Platform::Dictionary& attributes = {});

/// The icon as an image of `imageSize` points: `backgroundColor`, and on it the icon in `color`, in a box of `iconSize`
/// in the middle that is moved by `offset`. It is drawn at the main screen's scale.
///
/// Images are kept in a cache for the whole process, of two images an icon and 10 MiB, so that equal requests mostly
/// get the same object; one that would fill that budget alone is not kept. The scale is no part of a request:
/// deliberately, an image that is kept stays at the scale that it was drawn at when the screen's changes.
///
/// Sizes are cut down to whole pixels. Where one is then not above 0 and finite, the image is empty; so it is where it
/// would be too large to draw. The glyph is set at the height of its box, cut to a tenth of a point; without a glyph
/// size that decides the design, as for the attributed string. The image is opaque where the background's alpha is
/// exactly 1, and always drawn in its own colours. May be called on any thread.
///
/// A null colour is a programming error, and so is a box of 2^63 tenths of a point in height or more where all sides
/// are above 0 and finite, even if the image would be too large to draw. The width of a box has no such limit.
Platform::ImagePtr image(const Icon& icon, Platform::CGSize iconSize, Platform::CGSize imageSize,
                         std::optional<Icon::GlyphSize> glyphSize, const Platform::ColorPtr& color,
                         const Platform::ColorPtr& backgroundColor, Platform::CGPoint offset);

/// The same with box and image of one size.
Platform::ImagePtr image(const Icon& icon, Platform::CGSize size, std::optional<Icon::GlyphSize> glyphSize,
                         const Platform::ColorPtr& color, const Platform::ColorPtr& backgroundColor);

}  // namespace Brisel
