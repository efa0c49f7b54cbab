// The first styled label of a process.
#include <cstdio>

#include "brisel/platform/views/label.h"
#include "brisel/typography/text_view_styling.h"

int main() {
  const auto label = Brisel::Platform::UILabel::initWithFrame();
  label->setText("The quick brown fox");
  Brisel::apply(*label, Brisel::TypeStyle::ballad(), Brisel::Platform::UIContentSizeCategoryLarge, true);
  if (!(label->intrinsicContentSize().width > 0)) return 1;
  std::puts("ready");
  return std::fflush(stdout);
}
