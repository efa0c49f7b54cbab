// Tokens as a flat list for scripts.
#pragma once

#include <span>
#include <string>

#include "gallery/exports/token.h"

namespace Brisel::Gallery {

/// A JSON list of one object a token, each on a line of its own, with the same members throughout: name
/// ("palette.gray7"), family, type and value as in DTCG files, property (that of the style sheet), valueInterface and
/// objectInterface (null where that interface lacks the token), deprecated (false, true or what to take instead) and
/// facts, an object that differs by family. Throws std::logic_error as requireExportable does.
std::string flatJsonText(std::span<const Token> tokens);

}  // namespace Brisel::Gallery
