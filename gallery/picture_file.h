// Pictures as files.
#pragma once

#include <filesystem>

#include "brisel/platform/image.h"

namespace Brisel::Gallery {

/// The picture of a PNG file. Throws std::runtime_error with a line that says what is wrong with the file.
Platform::ImagePtr readPicture(const std::filesystem::path& file);

/// Writes an image, whole or not at all. Throws std::runtime_error, also where the image is empty or null, which is
/// where it would have had no pixels or too many.
void writePicture(const std::filesystem::path& file, const Platform::ImagePtr& image);

}  // namespace Brisel::Gallery
