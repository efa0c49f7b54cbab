// Tokens as custom properties for style sheets.
#pragma once

#include <span>
#include <string>

#include "gallery/exports/token.h"

namespace Brisel::Gallery {

/// A style sheet of one rule, which gives the document's root a property for each token: "--brisel-palette-gray7". Of a
/// type style that is a value of `font`; its parts follow under the same name with "-font-size" and so on. An icon is a
/// value of `content`.
///
/// Throws std::logic_error as requireExportable does, and where two tokens would share a property.
std::string cssText(std::span<const Token> tokens);

}  // namespace Brisel::Gallery
