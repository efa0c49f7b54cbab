#include "gallery/window/window_controls.h"

#include <gtest/gtest.h>

#include "brisel/typography/dynamic_type_monitor.h"

#include "gallery/catalogue_names.h"

namespace Brisel::Gallery {
namespace {

using Key = WindowControls::Key;
using Platform::CGPoint, Platform::UIUserInterfaceLayoutDirection;

class Controls : public testing::Test {
 protected:
  CGPoint onSlider(int step) {
    const auto& slider = *screen.slider();
    const double width = slider.bounds().size.width;
    return slider.convertPointToView({10 + (width - 20) * step / 11, 10}, screen.window());
  }
  Platform::ColorPtr colorOfText() const { return screen.views().labels().back().view->textColor(); }

  SampleScreen screen{{600, 400}, allColorSets().front(), UIUserInterfaceLayoutDirection::leftToRight};
  WindowControls controls{screen, "base"};
};

TEST_F(Controls, StepThroughAllTextSizesAndStopAtTheEnds) {
  for (int i = 0; i < 20; ++i) controls.press(Key::left);
  for (const NamedCategory& entry : categories()) {
    EXPECT_EQ(screen.textSize(), entry.category);
    EXPECT_EQ(DynamicTypeMonitor::shared()->preferredContentSizeCategory(), entry.category.platformCategory());
    controls.press(Key::right);
  }
  EXPECT_EQ(screen.textSize(), ContentSizeCategory::accessibilityExtraExtraExtraLarge);
  controls.press(Key::usualSize);
  EXPECT_EQ(screen.textSize(), ContentSizeCategory::large);
}

TEST_F(Controls, MoveTheKnobTheWayTheArrowPoints) {
  controls.press(Key::direction);
  EXPECT_EQ(screen.direction(), UIUserInterfaceLayoutDirection::rightToLeft);
  controls.press(Key::left);
  EXPECT_EQ(screen.textSize(), ContentSizeCategory::extraLarge);
  controls.press(Key::right);
  controls.press(Key::right);
  EXPECT_EQ(screen.textSize(), ContentSizeCategory::medium);
  controls.press(Key::direction);
  EXPECT_EQ(screen.direction(), UIUserInterfaceLayoutDirection::leftToRight);
}

TEST_F(Controls, GoRoundAllColourSetsBothWays) {
  const auto sets = allColorSets();
  for (std::size_t i = 1; i <= sets.size(); ++i) {
    controls.press(Key::nextColors);
    EXPECT_EQ(*colorOfText(), *screen.views().labels().back().color(sets[i % sets.size()].colors));
  }
  controls.press(Key::previousColors);
  EXPECT_EQ(*colorOfText(), *screen.views().labels().back().color(sets.back().colors));
}

TEST_F(Controls, FollowThePointerFromTheSliderUntilItIsLetGo) {
  controls.pointerDown(onSlider(0));
  EXPECT_EQ(screen.textSize(), ContentSizeCategory::extraSmall);
  controls.pointerMoved(onSlider(11));
  EXPECT_EQ(screen.textSize(), ContentSizeCategory::accessibilityExtraExtraExtraLarge);
  CGPoint elsewhere = onSlider(7);
  elsewhere.y = 300;
  controls.pointerMoved(elsewhere);
  EXPECT_EQ(screen.textSize(), ContentSizeCategory::accessibilityMedium);
  controls.pointerUp();
  controls.pointerMoved(onSlider(3));
  EXPECT_EQ(screen.textSize(), ContentSizeCategory::accessibilityMedium);
  controls.pointerDown(elsewhere);
  controls.pointerMoved(onSlider(3));
  EXPECT_EQ(screen.textSize(), ContentSizeCategory::accessibilityMedium);
}

TEST_F(Controls, ScrollByLinesAndPagesAndToTheEnds) {
  const auto offset = [&] {
    screen.window();
    return screen.scroll()->offset();
  };
  controls.press(Key::down);
  EXPECT_EQ(offset(), 48);
  controls.press(Key::pageDown);
  EXPECT_EQ(offset(), screen.visibleHeight());
  controls.press(Key::up);
  controls.press(Key::pageUp);
  EXPECT_EQ(offset(), 0);
  controls.turnWheel(1.5);
  EXPECT_EQ(offset(), 72);
  controls.press(Key::end);
  EXPECT_EQ(offset(), screen.scroll()->largestOffset());
  EXPECT_GT(offset(), 400);
  controls.press(Key::home);
  EXPECT_EQ(offset(), 0);
}

}  // namespace
}  // namespace Brisel::Gallery
