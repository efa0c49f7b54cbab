#include <cstdio>
#include <optional>

#include "brisel/icons/icon_image.h"
#include "brisel/infrastructure/image_comparison.h"
#include "brisel/infrastructure/shape_images.h"
#include "brisel/tokens/color.h"

int main() {
  const auto& white = Brisel::Color::white().value();
  const auto& green = Brisel::Color::yellowGreen155().value();
  // Without a design the size decides: above 16 points it is the one for 24.
  const auto heart =
      Brisel::image(Brisel::Icon::heart(), {24, 24}, std::nullopt, white, Brisel::Platform::UIColor::clearColor());
  // A ring of 2 points round it, and on that a dot with a gap of 2 points.
  const auto ringed = Brisel::withCircle(*heart, 40, 2, white, nullptr, false);
  const auto dotted = Brisel::withDot(*ringed, 8, 12, {34, 34}, green);

  std::printf("%g points wide, %s\n", dotted->size().width,
              Brisel::isEqualToPixels(*ringed, dotted, 0.02) ? "alike" : "different");
}
