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
#if REFUSED  // error: no matching function for call to 'Brisel::Color::Color\(\)'
  Brisel::Color noColor;
#endif
#if REFUSED  // error: 'Brisel::Color::Color\(.*\)' is private
  Brisel::Color madeColor(color.value());
#endif
#if REFUSED  // error: no match for 'operator=='
  (void)(color == Brisel::Color::gray7());
#endif
#if REFUSED  // error: use of deleted function|no match for call
  (void)std::hash<Brisel::Color>()(color);
#endif
#if REFUSED  // error: no matching function for call to 'Brisel::Opacity::Opacity\(\)'
  Brisel::Opacity noOpacity;
#endif
#if REFUSED  // error: no match for 'operator=='
  (void)(opacity == opacity);
#endif
#if REFUSED  // error: 'constexpr Brisel::Opacity::Opacity\(.*\)' is private
  Brisel::Opacity madeOpacity(0.3);
#endif
#if REFUSED  // error: no match for 'operator=='
  (void)(opacity == 0.3);
#endif
#if REFUSED  // error: .*is private
  Brisel::Spacer madeSpacer(16.0);
#endif
#if REFUSED  // error: no match for 'operator\+'
  (void)(spacer + spacer);
#endif
#if REFUSED  // error: cannot convert 'const Brisel::Spacer' to 'const double'
  const double points = spacer;
#endif
  (void)opacity;
  (void)color;
}
