#include "brisel/typography/font.h"

namespace Brisel {

std::string_view Font::description() const noexcept {
  switch (*this) {
#define BRISEL_TYPEFACE(name, familyName) \
  case name:                              \
    return familyName;
#include "brisel/typography/typefaces.def"
  }
  return {};
}

std::string Font::debugDescription() const { return "font name: \"" + std::string(description()) + '"'; }

std::string_view Font::Weight::nameSuffix() const noexcept {
  switch (*this) {
#define BRISEL_FONT_WEIGHT(name, suffix) \
  case name:                             \
    return suffix;
#include "brisel/typography/typefaces.def"
  }
  return {};
}

std::string Font::Feature::description() const {
  return "numberSpacing: " + std::string(numberSpacingOption().description());
}

std::string_view Font::Feature::NumberSpacingOption::description() const noexcept {
  switch (*this) {
#define BRISEL_NUMBER_SPACING(name, text) \
  case name:                              \
    return text;
#include "brisel/typography/typefaces.def"
  }
  return {};
}

}  // namespace Brisel
