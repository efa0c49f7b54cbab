// What tokens may be called, and what they are called in style sheets.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "gallery/exports/token.h"

namespace Brisel::Gallery {

/// "palette.gray7"
std::string dottedName(const Token& token);

/// "extraLarge" as "extra-large". Words end before a capital that follows a small letter or a digit, before the last of
/// several capitals where a small letter follows it, and at anything that is no ASCII letter or digit; they are written
/// small, with hyphens between them. So change-case has it, and with it Style Dictionary's name/kebab.
std::string kebabCase(std::string_view text);

/// "--brisel-theme-dark-base-text-bright-accent"
std::string customPropertyName(const Token& token);

/// Throws std::logic_error where tokens cannot be exported together: a name that is empty, starts with "$" or holds
/// "{", "}" or "."; a path that is taken, leads through a token or differs from another one in case alone; and braces
/// in any text of a token, which readers would take for a reference.
void requireExportable(std::span<const Token> tokens);

}  // namespace Brisel::Gallery
