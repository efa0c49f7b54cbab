#pragma once

#include "gallery/arguments.h"

namespace Brisel::Gallery {

/// Enlarges the command's picture into its file. Throws UsageError for a colour that nothing bears, and
/// std::runtime_error.
void scalePicture(const ScaleCommand& command);

}  // namespace Brisel::Gallery
