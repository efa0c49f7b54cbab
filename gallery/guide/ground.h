#pragma once

#include <string>

namespace Brisel::Gallery {

/// What the pages stand on, as a style sheet of custom properties: the theme's slots as --text-base, the spacers as
/// --space-16, the type styles as --type-ballad (for the property `font`).
std::string groundStyleSheet();

}  // namespace Brisel::Gallery
