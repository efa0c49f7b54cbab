#include "gallery/contrast.h"

#include <algorithm>
#include <cmath>

#include "gallery/catalogue_names.h"

namespace Brisel::Gallery {
namespace {

using Platform::UIColor;

bool isText(const Catalogue::SlotEntry& slot) { return slot.path.starts_with("text."); }

// Of a foreground on a background that lies on an opaque ground.
double ratioOn(const UIColor& foreground, const UIColor& background, const UIColor& ground) {
  const UIColor surface = composited(background, ground);
  return contrastRatio(composited(foreground, surface), surface);
}

}  // namespace

constexpr std::string_view kContrastMethod =
    "Contrast is the ratio of the relative luminances of two colours, taken as designed. A translucent background lies "
    "over the background.base of its set; where that is translucent too, each background lies on black media and on "
    "white media, and the poorer ratio counts. A translucent foreground lies over the background that results. Colours "
    "are mixed component by component, as encoded.";

double relativeLuminance(const UIColor& color) {
  const auto linear = [](double component) {
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
  };
  const auto [red, green, blue, alpha] = color.getRed();
  return 0.2126 * linear(red) + 0.7152 * linear(green) + 0.0722 * linear(blue);
}

double contrastRatio(const UIColor& a, const UIColor& b) {
  const auto [darker, lighter] = std::minmax({relativeLuminance(a), relativeLuminance(b)});
  return (lighter + 0.05) / (darker + 0.05);
}

std::string ratioText(double ratio) {
  constexpr int kMoreThanDoublesTell = 20;
  const std::string digits = decimal(ratio, kMoreThanDoublesTell);
  return digits.substr(0, digits.find('.') + 3);
}

UIColor composited(const UIColor& color, const UIColor& ground) {
  const auto over = color.getRed();
  const auto under = ground.getRed();
  const auto mixed = [alpha = over.alpha](double a, double b) { return alpha * a + (1 - alpha) * b; };
  return UIColor::rgb(mixed(over.red, under.red), mixed(over.green, under.green), mixed(over.blue, under.blue));
}

std::string_view levelName(ContrastLevel level) {
  switch (level) {
    case ContrastLevel::fail:
      return "fail";
    case ContrastLevel::aaLarge:
      return "AA large";
    case ContrastLevel::aa:
      return "AA";
    case ContrastLevel::aaa:
      return "AAA";
  }
  return {};
}

ContrastLevel textLevel(double ratio) {
  if (ratio >= 7) return ContrastLevel::aaa;
  if (ratio >= 4.5) return ContrastLevel::aa;
  return ratio >= 3 ? ContrastLevel::aaLarge : ContrastLevel::fail;
}

ContrastLevel essentialLevel(double ratio) { return ratio >= 3 ? ContrastLevel::aa : ContrastLevel::fail; }

bool isForeground(const Catalogue::SlotEntry& slot) { return isText(slot) || slot.path.starts_with("essential."); }

bool isBackground(const Catalogue::SlotEntry& slot) { return slot.path.starts_with("background."); }

Contrast contrastOf(const Theme::ColorSet& set, const Catalogue::SlotEntry& foreground,
                    const Catalogue::SlotEntry& background) {
  const UIColor& base = *set.background().base();
  const UIColor& front = *foreground.get(set);
  const UIColor& back = *background.get(set);
  const double ratio = base.alpha() == 1 ? ratioOn(front, back, base)
                                         : std::min(ratioOn(front, back, UIColor::grey(0, 1)),
                                                    ratioOn(front, back, UIColor::grey(1, 1)));
  return {ratio, isText(foreground) ? textLevel(ratio) : essentialLevel(ratio)};
}

}  // namespace Brisel::Gallery
