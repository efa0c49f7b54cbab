// What tokens say, as JSON, in the terms of the Design Tokens format.
#pragma once

#include <string_view>

#include "gallery/exports/token.h"

namespace Brisel::Gallery {

/// "color", "number", "dimension" or "typography". The format has no type for opacities and icons: they are numbers.
std::string_view tokenType(const TokenValue& value);

Json tokenValue(const TokenValue& value);

/// False, or what to take instead, or true where there is nothing to say.
Json deprecation(const Token& token);

}  // namespace Brisel::Gallery
