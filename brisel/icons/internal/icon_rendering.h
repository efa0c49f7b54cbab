#pragma once

#include <cstdint>
#include <iterator>

#include "brisel/icons/icon.h"
#include "brisel/icons/icon_configuration.h"
#include "brisel/icons/internal/icon_configuration_view.h"
#include "brisel/icons/internal/icon_names.h"
#include "brisel/infrastructure/cache.h"
#include "brisel/platform/canvas.h"
#include "brisel/platform/geometry.h"
#include "brisel/platform/image.h"

namespace Brisel::internal {

/// Two designs of each icon of the catalogue.
inline constexpr std::int64_t kIconImageCacheCapacity = 2 * std::ssize(kIconNames);
inline constexpr std::int64_t kIconImageCacheMemoryLimit = 10'485'760;  // bytes of bitmaps

using IconImageCache = Cache<IconConfiguration, Platform::ImagePtr, IconConfigurationHash, IconConfigurationEqual>;

/// The one cache of icon images, made on first use.
IconImageCache& iconImageCache();

/// What stands in for the image of no icon: nothing drawn, on a canvas that is opaque (and so black) where the
/// background is. Never cached. Sizes are not cut to whole pixels here; this is deliberate.
Platform::ImagePtr blankIconImage(Platform::CGSize iconSize, Platform::CGSize imageSize,
                                  const Platform::UIColor& backgroundColor);

/// Draws a glyph of the icon font as its attributed string would be drawn into the rectangle, centred, but keeps what
/// shaping and typeface give, which is the same at every size.
void drawIconGlyph(Platform::Canvas& canvas, const Icon::Glyph& glyph, Platform::CGFloat fontSize,
                   const Platform::CGRect& rect, const Platform::ColorPtr& color);

}  // namespace Brisel::internal
