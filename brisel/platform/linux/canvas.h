#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "brisel/platform/engine.h"

namespace Brisel::Platform::Linux {

/// A canvas on a Cairo image surface; null where there is no memory for it.
std::unique_ptr<Canvas> makeCairoCanvas(const Engine& maker, int pixelWidth, int pixelHeight, CGFloat scale);

std::vector<std::uint8_t> pngOf(const Bitmap& bitmap);

}  // namespace Brisel::Platform::Linux
