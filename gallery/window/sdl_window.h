#pragma once

#include "gallery/arguments.h"

namespace Brisel::Gallery {

/// Shows the command's window, on the desktop that there is, until a person closes it. Throws UsageError, and
/// std::runtime_error where there is no display.
void showWindow(const WindowCommand& command);

}  // namespace Brisel::Gallery
