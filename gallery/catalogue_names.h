// The names of styles, categories and colours, and how their values are written.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "brisel/platform/color.h"
#include "brisel/typography/content_size_category.h"
#include "brisel/typography/type_style.h"

namespace Brisel::Gallery {

struct NamedCategory {
  std::string_view name;  // such as "extraLarge"
  ContentSizeCategory category;
};

/// All, from the smallest to the largest.
std::span<const NamedCategory> categories();

/// A style by its identifier.
const TypeStyle* findStyle(std::string_view identifier);
/// A category by its name or its platform name.
std::optional<ContentSizeCategory> findCategory(std::string_view name);
/// A colour by a name of either interface, or as "#rrggbb" or "#rrggbbaa".
std::optional<Platform::UIColor> findColor(std::string_view name);
/// The same, or `unnamed` where the name is empty. Throws UsageError where nothing bears it.
Platform::ColorPtr namedColor(const std::string& name, const Platform::ColorPtr& unnamed);

/// A weight as style sheets number it: 400, 700 or 900.
int weightNumber(Font::Weight weight);

/// The shortest decimal that reads back as the same number: "16", "14.001999999999999".
std::string decimal(double number);
/// With so many decimals.
std::string decimal(double number, int decimals);

/// A text with blanks behind it, so that the next column stands `width` ASCII characters after its beginning.
std::string padded(std::string_view text, std::size_t width);

/// "#1ED760"; with alpha below 1 as "#0000001A".
std::string hexText(const Platform::UIColor& color);
/// What the colour was made from: "RGB 0.118 0.843 0.376", "Grey 0.000, alpha 0.1".
std::string componentText(const Platform::UIColor& color);

}  // namespace Brisel::Gallery
