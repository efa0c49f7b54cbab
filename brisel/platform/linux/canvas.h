#pragma once

#include <memory>

#include "brisel/platform/canvas.h"
#include "brisel/platform/linux/glyph_rasteriser.h"
#include "brisel/platform/linux/pool.h"

namespace Brisel::Platform::Linux {

using RasteriserPool = Pool<GlyphRasteriser>;

/// A canvas on a Cairo image surface; null where there is no memory for it.
std::unique_ptr<Canvas> makeCairoCanvas(const Engine& maker, std::shared_ptr<RasteriserPool> rasterisers,
                                        int pixelWidth, int pixelHeight, CGFloat scale, bool isOpaque);

}  // namespace Brisel::Platform::Linux
