#include <string>
#include <string_view>

#include "brisel/platform/internal/decimal.h"
#include "brisel/typography/type_style.h"

namespace Brisel {
namespace {

using Platform::internal::decimal;

std::string inQuotes(std::string_view text) { return '"' + std::string(text) + '"'; }

std::string listOfFonts(const std::vector<Font>& fonts) {
  std::string list = "[";
  for (const Font font : fonts) {
    if (list.size() > 1) list += ", ";
    list += inQuotes(font.description());
  }
  return list + ']';
}

// Each line ends in a comma, the last one too.
std::string listOfFeatures(const std::vector<Font::Feature>& features) {
  if (features.empty()) return "[]";
  std::string list = "[";
  for (const Font::Feature feature : features) list += "\n    " + feature.description() + ',';
  return list + "\n]";
}

}  // namespace

std::string TypeStyle::AccessibilityRange::description() const {
  return "min: " + decimal(min_) + " mid: " + decimal(mid_) + " max: " + decimal(max_) + " axMax: " + decimal(axMax_);
}

std::string TypeStyle::Configuration::description() const {
  return "{\n    fontSize: " + fontSize_.description() +
         ",\n    minimumScaleFactor: " + minimumScaleFactor_.description() +
         ",\n    usesUpperCaseLayout: " + (usesUpperCaseLayout_ ? "true" : "false") +
         ",\n    fontFeatures: " + listOfFeatures(fontFeatures_) + "\n}";
}

std::string TypeStyle::Configuration::debugDescription() const {
  return "Brisel.TypeStyle.Configuration: " + description();
}

// The configuration's lines are not indented any further; this is deliberate.
std::string TypeStyle::debugDescription() const {
  return "TypeStyle: " + inQuotes(name_) + "\n{\n    primaryFont: " + inQuotes(primaryFont_.description()) +
         "\n    fallbackFonts: " + listOfFonts(fallbackFonts_) +
         "\n    fontWeight: " + std::string(fontWeight_.nameSuffix()) + "\n    fontSize: " + decimal(fontSize_) +
         "\n    configuration: " + configuration_.description() + "\n}";
}

}  // namespace Brisel
