#pragma once

#include "gallery/arguments.h"

namespace Brisel::Gallery {

/// Draws the command's text into its file. Throws UsageError for names that nothing bears, and std::runtime_error.
void drawText(const TextCommand& command);

}  // namespace Brisel::Gallery
