// What is said on standard error.
#pragma once

#include <string>
#include <string_view>

namespace Brisel::Gallery {

/// A message as a terminal may show it. Each control character, which would break the line or command the terminal, and
/// each ill-formed byte becomes a question mark: paths and arguments may hold any.
std::string onOneLine(std::string_view message);

}  // namespace Brisel::Gallery
