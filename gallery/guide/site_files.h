#pragma once

#include <string_view>

namespace Brisel::Gallery {

/// The text of a file of site/, which the build puts into the program. Throws std::logic_error for an unknown name.
std::string_view siteFile(std::string_view name);

}  // namespace Brisel::Gallery
