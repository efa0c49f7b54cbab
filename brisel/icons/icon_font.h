#pragma once

#include <memory>

#include "brisel/platform/font.h"
#include "brisel/platform/geometry.h"

namespace Brisel {

/// The font "halvicon", which draws the glyphs of icons, at a size in points; one that is negative or not finite counts
/// as 0. Never null, and new at each call.
///
/// May be called on any thread. The first call registers the font's file, "halvicon.ttf" of the resource bundle. Where
/// the bundle lacks it, or the font cannot be had, the process ends.
std::shared_ptr<const Platform::UIFont> iconFont(Platform::CGFloat size);

}  // namespace Brisel
