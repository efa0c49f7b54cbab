#include <cstdio>

#include "brisel/themes/theme.h"

using Brisel::Theme;

// A view is given a colour set and asks it for roles; it never learns which set that is.
void describe(const char* name, const Theme::ColorSet& colors) {
  const auto surface = colors.background().press()->getRed();
  const auto text = colors.text().base()->getRed();
  std::printf("%s: pressed (%g, %g, %g), text (%g, %g, %g)\n", name, surface.red, surface.green, surface.blue, text.red,
              text.green, text.blue);
}

int main() {
  describe("warning", Theme::dark().warning());
  describe("campaign", Theme::ColorSet::Campaign::halvornBrand2());
}
