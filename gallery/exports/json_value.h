// The values of tokens as JSON, in the terms of the Design Tokens format.
#pragma once

#include <string_view>

#include "gallery/exports/token.h"

namespace Brisel::Gallery {

/// "color", "number", "dimension" or "typography". The format has no type for opacities and icons: they are numbers.
std::string_view tokenType(const TokenValue& value);

Json tokenValue(const TokenValue& value);

}  // namespace Brisel::Gallery
