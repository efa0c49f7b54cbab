// Tokens in the Design Tokens Community Group's format, version 2025.10. https://www.designtokens.org/tr/2025.10/
#pragma once

#include <filesystem>
#include <span>
#include <string>

#include "gallery/exports/token.h"

namespace Brisel::Gallery {

/// A file of these tokens. Every token carries its type, and its value in full. Throws std::logic_error as
/// requireExportable does.
std::string dtcgText(std::span<const Token> tokens);

/// Writes a directory of one file a family, "palette.tokens.json" and so on, and "brisel.tokens.json" of them all. It
/// appears whole or not at all, and replaces an earlier one. Throws std::runtime_error, and Interrupted where the user
/// ended the program.
void writeDtcg(const std::filesystem::path& directory);

}  // namespace Brisel::Gallery
