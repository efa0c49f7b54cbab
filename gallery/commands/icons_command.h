#pragma once

#include <string>

#include "gallery/arguments.h"

namespace Brisel::Gallery {

/// The list of all icons, to be printed.
std::string iconList(const IconsCommand& command);

}  // namespace Brisel::Gallery
