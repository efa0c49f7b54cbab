// Prints the sizes of three styles in all categories, bit by bit: one line a style.
#include <cstdio>

#include "brisel/typography/content_size_category.h"
#include "brisel/typography/type_style.h"

int main() {
  using Brisel::TypeStyle;
  for (const TypeStyle* style : {&TypeStyle::ballad(), &TypeStyle::minuet(), &TypeStyle::bass()}) {
    for (const Brisel::ContentSizeCategory category : Brisel::ContentSizeCategory::allCases())
      std::printf("%a ", style->configuration().fontSize().value(category.rawValue()));
    std::puts("");
  }
}
