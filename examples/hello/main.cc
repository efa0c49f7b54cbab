#include <cstdio>

#include "brisel/platform/content_size_category.h"
#include "brisel/tokens/spacer.h"
#include "brisel/typography/type_style.h"

int main() {
  const auto font = Brisel::TypeStyle::ballad().font(Brisel::Platform::UIContentSizeCategoryLarge);
  std::printf("%s, %g points, lines %g high, ", font->fontName().c_str(), font->pointSize(), font->lineHeight());
  std::printf("%g points from the edge\n", Brisel::Spacer::x16().value());
}
