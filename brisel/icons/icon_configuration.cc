#include "brisel/icons/icon_configuration.h"

#include "brisel/icons/internal/icon_configuration_view.h"
#include "brisel/platform/internal/decimal.h"

namespace Brisel {
namespace {

using Platform::internal::decimal;

std::string pair(double first, double second) { return "(" + decimal(first) + ", " + decimal(second) + ")"; }
std::string printed(Platform::CGSize size) { return pair(size.width, size.height); }

std::string printed(const Platform::UIColor& color) {
  const auto [red, green, blue, alpha] = color.getRed();
  const std::string end = " alpha " + decimal(alpha);
  if (color.form() == Platform::UIColor::Form::grey) return "white " + decimal(red) + end;
  return "red " + decimal(red) + " green " + decimal(green) + " blue " + decimal(blue) + end;
}

}  // namespace

IconConfiguration::IconConfiguration(const Icon& icon, Platform::CGSize iconSize, Platform::CGSize imageSize,
                                     std::optional<Icon::GlyphSize> glyphSize, const Platform::ColorPtr& color,
                                     const Platform::ColorPtr& backgroundColor, Platform::CGPoint offset)
    : icon_(icon),
      iconSize_(iconSize),
      imageSize_(imageSize),
      glyphSize_(glyphSize),
      color_(color),
      backgroundColor_(backgroundColor),
      offset_(offset) {}

void hashInto(Platform::internal::Hasher& hasher, const IconConfiguration& configuration) {
  hasher(internal::IconConfigurationView(configuration));
}

std::string IconConfiguration::description() const {
  return "Icon: " + icon_.description() + ", iconSize: " + printed(iconSize_) + ", imageSize: " + printed(imageSize_);
}

std::string IconConfiguration::debugDescription() const {
  return "{\n    icon: " + icon_.debugDescription() + "\n    iconSize: " + printed(iconSize_) +
         "\n    imageSize: " + printed(imageSize_) +
         "\n    glyphSize: " + (glyphSize_ ? glyphSize_->debugDescription() : "nil") +
         "\n    color: " + printed(*color()) + "\n    backgroundColor: " + printed(*backgroundColor()) +
         "\n    offset: " + pair(offset_.x, offset_.y) + "\n}";
}

}  // namespace Brisel
