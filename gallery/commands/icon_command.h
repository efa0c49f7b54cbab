#pragma once

#include "gallery/arguments.h"

namespace Brisel::Gallery {

/// Draws the command's icon into its file. Throws UsageError for names that nothing bears, and std::runtime_error.
void drawIcon(const IconCommand& command);

}  // namespace Brisel::Gallery
