#include "gallery/catalogue_names.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <memory>

#include "brisel/tokens/catalogue.h"
#include "brisel/tokens/color_parsing.h"
#include "brisel/typography/catalogue.h"

#include "gallery/arguments.h"

namespace Brisel::Gallery {
namespace {

constexpr NamedCategory kCategories[] = {
#define BRISEL_CONTENT_SIZE(name, scale, platformCategory) {#name, ContentSizeCategory::name},
#include "brisel/typography/content_sizes.def"
};

// Stricter than the library's reading of colours: what is typed wrong is refused.
bool isHexColor(std::string_view text) {
  return (text.size() == 7 || text.size() == 9) && text[0] == '#' &&
         text.find_first_not_of("0123456789abcdefABCDEF", 1) == std::string_view::npos;
}

template <class... Format>
std::string numberText(double number, Format... format) {
  std::array<char, 400> text{};  // the longest double has 309 digits before the point
  const auto result =
      std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed, format...);
  return {text.data(), result.ptr};
}

}  // namespace

std::span<const NamedCategory> categories() { return kCategories; }

const TypeStyle* findStyle(std::string_view identifier) {
  for (const auto& style : Catalogue::typeStyles()) {
    if (style.name == identifier) return &style.get();
  }
  return nullptr;
}

std::optional<ContentSizeCategory> findCategory(std::string_view name) {
  for (const NamedCategory& entry : kCategories) {
    if (entry.name == name || entry.category.platformCategory().string() == name) return entry.category;
  }
  return std::nullopt;
}

std::optional<Platform::UIColor> findColor(std::string_view name) {
  if (isHexColor(name)) return name.size() == 7 ? colorFromRGBHexString(name) : colorFromRGBAHexString(name);
  for (const auto& entry : Catalogue::colors()) {
    if (entry.name == name) return *entry.get().value();
  }
  for (const auto& entry : Catalogue::legacyColors()) {
    if (entry.objectName == name) return *entry.get();
  }
  return std::nullopt;
}

Platform::ColorPtr namedColor(const std::string& name, const Platform::ColorPtr& unnamed) {
  if (name.empty()) return unnamed;
  const auto color = findColor(name);
  if (!color) throw UsageError("no colour is called \"" + name + "\"");
  return std::make_shared<const Platform::UIColor>(*color);
}

int weightNumber(Font::Weight weight) {
  switch (weight) {
    case Font::Weight::Case::book:
      return 400;
    case Font::Weight::Case::bold:
      return 700;
    case Font::Weight::Case::black:
      return 900;
  }
  return {};
}

std::string decimal(double number) { return numberText(number); }
std::string decimal(double number, int decimals) { return numberText(number, decimals); }

std::string padded(std::string_view text, std::size_t width) {
  return std::string(text) + std::string(text.size() < width ? width - text.size() : 0, ' ');
}

std::string hexText(const Platform::UIColor& color) {
  const auto [red, green, blue, alpha] = color.getRed();
  std::string text = "#";
  for (const double component : {red, green, blue, alpha}) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto byte = static_cast<std::size_t>(std::lround(std::clamp(component, 0.0, 1.0) * 255));
    text += {digits[byte / 16], digits[byte % 16]};
  }
  if (alpha == 1) text.resize(7);
  return text;
}

std::string componentText(const Platform::UIColor& color) {
  const auto [red, green, blue, alpha] = color.getRed();
  std::string text = color.form() == Platform::UIColor::Form::grey
                         ? "Grey " + decimal(red, 3)
                         : "RGB " + decimal(red, 3) + " " + decimal(green, 3) + " " + decimal(blue, 3);
  if (alpha != 1) text += ", alpha " + decimal(alpha);
  return text;
}

}  // namespace Brisel::Gallery
