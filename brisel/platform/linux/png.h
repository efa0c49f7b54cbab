#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "brisel/platform/engine.h"

namespace Brisel::Platform::Linux {

std::vector<std::uint8_t> pngOf(const Bitmap& bitmap);
PngPicture pictureOfPng(std::span<const std::uint8_t> file);

}  // namespace Brisel::Platform::Linux
