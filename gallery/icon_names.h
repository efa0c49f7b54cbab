// The names of icons, and how their values are written.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "brisel/icons/catalogue.h"

namespace Brisel::Gallery {

/// An icon by its accessor as published or in C++, its name or its constant; null where nothing bears the name.
const Catalogue::IconEntry* findIcon(std::string_view name);

/// The same. Throws UsageError, which tells the nearest names.
const Catalogue::IconEntry& namedIcon(std::string_view name);

/// The accessors nearest to what may be a slip of the hand or a part of a name, nearest first; at most three.
std::vector<std::string_view> iconsLike(std::string_view name);

/// "Brisel::Icon::heart()"
std::string accessorCode(const Catalogue::IconEntry& entry);
/// "U+F1A8"; empty for none.
std::string codePoint(const std::optional<Icon::Glyph>& glyph);

}  // namespace Brisel::Gallery
