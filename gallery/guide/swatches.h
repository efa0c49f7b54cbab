#pragma once

#include "brisel/platform/color.h"
#include "brisel/platform/engine.h"

namespace Brisel::Gallery {

/// Fills a rectangle, in points, with a colour; a translucent one over a chequered ground.
void fillSwatch(Platform::Canvas& canvas, const Platform::CGRect& rect, const Platform::UIColor& color);

}  // namespace Brisel::Gallery
