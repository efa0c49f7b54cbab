#include "gallery/guide/ground.h"

#include <algorithm>
#include <string_view>

#include "brisel/themes/catalogue.h"
#include "brisel/tokens/catalogue.h"
#include "brisel/typography/catalogue.h"

#include "gallery/catalogue_names.h"

namespace Brisel::Gallery {
namespace {

std::string property(std::string_view name, std::string_view value) {
  std::string rule = "  --";
  rule += name;
  rule += ": ";
  rule += value;
  return rule + ";\n";
}

std::string slotProperties(const Theme::ColorSet& set) {
  std::string rules;
  for (const auto& slot : Catalogue::slots()) {
    std::string name(slot.path);
    std::replace(name.begin(), name.end(), '.', '-');
    rules += property(name, hexText(*slot.get(set)));
  }
  return rules;
}

// In root ems of 16 points, so that the page follows the reader's own text size.
std::string rem(double points) { return decimal(points / 16, 4) + "rem"; }

std::string fontValue(const TypeStyle& style, const Platform::UIFont& font) {
  std::string value = std::to_string(weightNumber(style.fontWeight()));
  value += " " + rem(font.pointSize()) + "/" + rem(font.lineHeight()) + " \"";
  value += style.primaryFont().description();
  return value + "\", sans-serif";
}

}  // namespace

std::string groundStyleSheet() {
  std::string rules = "/* Made from the library's tokens. */\n:root {\n";
  rules += slotProperties(Theme::dark().base());
  for (const auto& spacer : Catalogue::spacers()) {
    const std::string points = decimal(spacer.get().value());
    rules += property("space-" + points, points + "px");
  }
  for (const Catalogue::TypeStyleEntry& style : Catalogue::typeStyles()) {
    const auto font = style.get().font(ContentSizeCategory::large.platformCategory());
    rules += property("type-" + std::string(style.name), fontValue(style.get(), *font));
  }
  rules += "}\n\n/* Paper is light. */\n@media print {\n:root {\n";
  rules += slotProperties(Theme::dark().invertedLight());
  return rules + "}\n}\n";
}

}  // namespace Brisel::Gallery
