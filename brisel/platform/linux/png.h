#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "brisel/platform/engine.h"

namespace Brisel::Platform::Linux {

/// Of a bitmap that is valid; empty where there is no memory for it.
std::vector<std::uint8_t> pngOf(const Bitmap& bitmap);

/// Of any bytes, at least one.
PngPicture pictureOfPng(std::span<const std::uint8_t> file);

}  // namespace Brisel::Platform::Linux
