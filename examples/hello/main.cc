#include <cstdio>

#include "brisel/tokens/color.h"
#include "brisel/tokens/spacer.h"

int main() {
  const auto [red, green, blue, alpha] = Brisel::Color::gray7().value()->getRed();
  std::printf("gray7 is (%.3f, %.3f, %.3f), alpha %.1f\n", red, green, blue, alpha);
  std::printf("x16 is %.0f points\n", Brisel::Spacer::x16().value());
}
