// Colours, themes as objects, opacities, spacings, the screen's scale and text sizes. Links Brisel::Tokens alone.
#include <cstdio>

#include "brisel/object_interface/themes.h"
#include "brisel/object_interface/tokens.h"
#include "brisel/platform/content_size_category.h"
#include "brisel/platform/screen.h"
#include "brisel/themes/theme.h"
#include "brisel/tokens/color.h"
#include "brisel/tokens/color_parsing.h"
#include "brisel/tokens/opacity.h"
#include "brisel/tokens/screen_scale.h"
#include "brisel/tokens/spacer.h"
#include "brisel/tokens/token_conversions.h"
#include "brisel/typography/content_size_category.h"

using Brisel::Color;
using Brisel::ContentSizeCategory;
using Brisel::Opacity;
using Brisel::Spacer;

void showColors() {
  //! [colours]
  const auto& green = Color::halvornGreen157().value();  // what views and images take
  const auto parts = green->getRed();
  std::printf("green is (%g, %g, %g)\n", parts.red, parts.green, parts.blue);

  // The object interface has the very same colour.
  std::printf("one object: %s\n", green == VLMBriselColors::halvornGreen157() ? "yes" : "no");
  //! [colours]

  //! [parsing]
  // Text gives bytes over 255, which the designed fractions are not: compare within a tolerance.
  const auto read = Brisel::colorFromRGBHexString("#1ED760");
  std::printf("equal: %s, nearly: %s\n", read == *green ? "yes" : "no",
              Brisel::colorsAreEqual(*read, *green, 0.001) ? "yes" : "no");
  std::printf("five digits: %s\n", Brisel::colorFromRGBHexString("#1ED76") ? "a colour" : "nothing");
  //! [parsing]
}

void showThemes() {
  //! [theme objects]
  const auto warning = VLMBriselColorTheme::dark()->warning();
  const auto surface = warning->background()->press();
  std::printf("the value's own: %s\n", surface == Brisel::Theme::dark().warning().background().press() ? "yes" : "no");
  //! [theme objects]
}

void showNumbers() {
  //! [tokens]
  const auto insets = Brisel::edgeInsets(Spacer::x16(), Spacer::x8(), Spacer::x16(), Spacer::x8());
  const auto scrim = Brisel::withAlphaComponent(*Color::black().value(), Opacity::x50());
  std::printf("%g points above, %g at the left, a scrim of %g\n", insets.top, insets.left, scrim->alpha());

  // Plain numbers on the object interface.
  std::printf("%g and %g\n", VLMBriselSpacers::spacer16(), VLMBriselOpacities::opacity50());
  //! [tokens]

  //! [scale]
  Brisel::Platform::UIScreen::mainScreen().setScale(2);  // the host, when it knows its display
  std::printf("a hairline is %g points\n", 1 / Brisel::Screen::scale());
  //! [scale]
}

void showTextSizes() {
  //! [text sizes]
  const ContentSizeCategory large(Brisel::Platform::UIContentSizeCategoryAccessibilityLarge);
  std::printf("accessibilityLarge is %g\n", large.rawValue());

  // A slider, say, gives any scale.
  const auto nearest = Brisel::nearestContentSizeCategory(0.9);
  std::printf("0.9 is nearest to %g\n", nearest.rawValue());
  //! [text sizes]
}

int main() {
  showColors();
  showThemes();
  showNumbers();
  showTextSizes();
}
