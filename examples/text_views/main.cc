#include <cstdio>

#include "brisel/typography/dynamic_type_monitor.h"
#include "brisel/typography/text_view_styling.h"

int main() {
  auto& monitor = *Brisel::DynamicTypeMonitor::shared();
  const auto label = Brisel::Platform::UILabel::initWithFrame();
  label->setText("Bonjour");
  Brisel::apply(*label, Brisel::TypeStyle::ballad(), monitor.preferredContentSizeCategory(), true);
  std::printf("%g points, ", label->font()->pointSize());

  // The user turns the text size up.
  monitor.setup(Brisel::Platform::UIContentSizeCategoryExtraExtraExtraLarge);
  std::printf("then %g\n", label->font()->pointSize());
}
