// The first styled label of a process.
#include "brisel/platform/views/label.h"
#include "brisel/typography/text_view_styling.h"

int main() {
  const auto label = Brisel::Platform::UILabel::initWithFrame();
  label->setText("The quick brown fox");
  Brisel::apply(*label, Brisel::TypeStyle::ballad(), Brisel::Platform::UIContentSizeCategoryLarge, true);
  return label->intrinsicContentSize().width > 0 ? 0 : 1;
}
