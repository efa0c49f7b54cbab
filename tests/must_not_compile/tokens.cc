// Tokens come from their accessors only, and compare only where that is published.
#include <functional>
#include <string>
#include <unordered_set>

#include "brisel/tokens/color.h"
#include "brisel/tokens/opacity.h"
#include "brisel/tokens/spacer.h"

int main() {
  const Brisel::Color& color = Brisel::Color::gray7();
  const Brisel::Opacity opacity = Brisel::Opacity::x30();
  const Brisel::Spacer spacer = Brisel::Spacer::x16();
  (void)(spacer == Brisel::Spacer::x16());
  (void)std::unordered_set<std::string>{};
#if CASE == 1  // error: no matching function for call to 'Brisel::Color::Color\(\)'
  Brisel::Color none;
#endif
#if CASE == 2  // error: 'Brisel::Color::Color\(.*\)' is private
  Brisel::Color made(color.value());
#endif
#if CASE == 3  // error: no match for 'operator=='
  (void)(color == Brisel::Color::gray7());
#endif
#if CASE == 4  // error: use of deleted function|no match for call
  (void)std::hash<Brisel::Color>()(color);
#endif
#if CASE == 5  // error: no matching function for call to 'Brisel::Opacity::Opacity\(\)'
  Brisel::Opacity none;
#endif
#if CASE == 6  // error: no match for 'operator=='
  (void)(opacity == opacity);
#endif
#if CASE == 7  // error: 'constexpr Brisel::Opacity::Opacity\(.*\)' is private
  Brisel::Opacity made(0.3);
#endif
#if CASE == 8  // error: no match for 'operator=='
  (void)(opacity == 0.3);
#endif
#if CASE == 9  // error: .*is private
  Brisel::Spacer made(16.0);
#endif
#if CASE == 10  // error: no match for 'operator\+'
  (void)(spacer + spacer);
#endif
#if CASE == 11  // error: cannot convert 'const Brisel::Spacer' to 'const double'
  const double points = spacer;
#endif
  (void)opacity;
  (void)color;
}
