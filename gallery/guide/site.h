#pragma once

#include <filesystem>

namespace Brisel::Gallery {

/// Draws the style guide and writes it to a directory, see OutputDirectory. Throws std::runtime_error or Interrupted;
/// the directory is as it was then. Turns the host's fonts off and notes interruptions.
void writeSite(const std::filesystem::path& directory);

}  // namespace Brisel::Gallery
