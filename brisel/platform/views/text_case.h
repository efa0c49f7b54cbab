#pragma once

#include <string>
#include <string_view>

namespace Brisel::Platform {

/// `uppercaseString`: a text in capitals, by the port's rules; those of no locale in particular. On any thread.
std::string upperCased(std::string_view text);

}  // namespace Brisel::Platform
