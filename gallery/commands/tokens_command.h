#pragma once

#include <string>

#include "gallery/arguments.h"

namespace Brisel::Gallery {

/// Exports the tokens. Returns what is to be printed, which is nothing where they went to files. Throws
/// std::runtime_error where a file cannot be written.
std::string exportTokens(const TokensCommand& command);

}  // namespace Brisel::Gallery
