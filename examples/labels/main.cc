// Text made to fit, the older label, how large views would be, limits to the text size, and an object of one's own that
// follows it. It runs on the recording port, whose characters are half an em wide and whose lines are one em high, so
// that every number here can be reckoned.
#include <cstdio>
#include <memory>

#include "brisel/infrastructure/view_sizing.h"
#include "brisel/object_interface/legacy_label.h"
#include "brisel/platform/port.h"
#include "brisel/platform/recording/engine.h"
#include "brisel/platform/recording/system_events.h"
#include "brisel/platform/views/label.h"
#include "brisel/platform/views/layout_constraint.h"
#include "brisel/platform/views/view_controller.h"
#include "brisel/platform/views/window.h"
#include "brisel/typography/content_size_category.h"
#include "brisel/typography/dynamic_type_monitor.h"
#include "brisel/typography/fitting.h"
#include "brisel/typography/text_view_styling.h"

using namespace Brisel::Platform;
using Brisel::DynamicTypeMonitor;
using Brisel::TypeStyle;

void showFitting() {
  //! [fitting]
  // 96 points wide at its own size, which is 16.
  const auto text = NSAttributedString::initWithString(
      "Good evening", TypeStyle::ballad().stringAttributes(UIContentSizeCategoryLarge));
  const auto fitted = Brisel::scaledToFit(text, {72, 40}, 1, 0.5);
  const auto font = fitted.attributedString->attribute(NSFontAttributeName, 0)->as<UIFont>();
  std::printf("%g points, %s\n", font->pointSize(), fitted.scaledStringFits ? "fits" : "is too large");
  //! [fitting]
}

void showLegacyLabel() {
  //! [legacy label]
  const auto window = UIWindow::initWithFrame({{}, {320, 480}});
  const auto label = VLMBriselLegacyLabel::initWithStyle(VLMBriselTypeStyle::ballad());
  label->setText("Good evening");
  label->setMaxContentSizeCategory(UIContentSizeCategoryExtraExtraExtraLarge);
  window->addSubview(label);

  // It follows the traits that come from the window, up to its own limit.
  window->setTraitCollection(
      UITraitCollection::traitCollectionWithPreferredContentSizeCategory(UIContentSizeCategoryAccessibilityExtraLarge));
  std::printf("%g points\n", label->font()->pointSize());
  //! [legacy label]
}

void showSizing() {
  //! [sizing]
  const auto label = UILabel::initWithFrame();
  label->setTranslatesAutoresizingMaskIntoConstraints(false);  // else its frame stands as it is set
  label->setNumberOfLines(0);
  Brisel::apply(*label, TypeStyle::ballad(), UIContentSizeCategoryLarge, false);
  label->setText("Good evening");

  const auto size = Brisel::brisel_systemLayoutSizeFitting(*label, {60, 0}, UILayoutPriorityRequired,
                                                           UILayoutPriorityFittingSizeLevel);
  std::printf("%g points wide, %g high\n", size.width, size.height);
  //! [sizing]
}

void showLimits() {
  //! [limit]
  const auto parent = UIViewController::init();
  const auto player = UIViewController::init();
  parent->addChildViewController(player);
  Brisel::briselSwift_setMaxPreferredContentSizeCategory(player, UIContentSizeCategoryExtraLarge);

  DynamicTypeMonitor::shared()->setup(UIContentSizeCategoryAccessibilityLarge);
  std::printf("%s\n", player->traitCollection()->preferredContentSizeCategory() == UIContentSizeCategoryExtraLarge
                          ? "no larger than extraLarge"
                          : "as large as the user likes");

  DynamicTypeMonitor::shared()->unsubscribe(player);  // which it kept alive
  //! [limit]
}

void showSubscriber() {
  //! [subscriber]
  struct Grid {
    int columns = 4;
  };
  const auto grid = std::make_shared<Grid>();
  DynamicTypeMonitor::shared()->subscribe(grid, [subscriber = grid.get()](const UIContentSizeCategory& category) {
    subscriber->columns = Brisel::ContentSizeCategory(category).rawValue() > 1 ? 2 : 4;
  });

  DynamicTypeMonitor::shared()->setup(UIContentSizeCategoryAccessibilityLarge);
  std::printf("%d columns\n", grid->columns);
  //! [subscriber]
}

int main() {
  setEngine(std::make_shared<RecordingEngine>());
  setSystemEvents(std::make_shared<RecordingSystemEvents>());
  showFitting();
  showLegacyLabel();
  showSizing();
  showLimits();
  showSubscriber();
}
