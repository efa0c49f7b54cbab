#include "gallery/window/window_controls.h"

#include <memory>
#include <string_view>

#include <gtest/gtest.h>

#include "brisel/typography/dynamic_type_monitor.h"

#include "gallery/catalogue_names.h"

namespace Brisel::Gallery {
namespace {

using Key = WindowControls::Key;
using Platform::CGFloat, Platform::CGPoint, Platform::UIUserInterfaceLayoutDirection;

class Controls : public testing::Test {
 protected:
  CGPoint onSlider(int step) {
    const auto& slider = *screen.slider();
    const double width = slider.bounds().size.width;
    return slider.convertPointToView({10 + (width - 20) * step / 11, 10}, screen.window());
  }
  // The button of that title, scrolled into sight.
  std::shared_ptr<PillButton> showButton(std::string_view title) {
    for (const auto& button : screen.views().buttons()) {
      if (button->titleForState(Platform::UIControlStateNormal) != title) continue;
      screen.scrollBy(middleOf(*button).y - 200);
      return button;
    }
    ADD_FAILURE() << "there is no button " << title;
    return nullptr;
  }
  CGPoint middleOf(const PillButton& button) {
    const auto [width, height] = button.bounds().size;
    return button.convertPointToView({width / 2, height / 2}, screen.window());
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
  controls.pointerUp(elsewhere);
  controls.pointerMoved(onSlider(3));
  EXPECT_EQ(screen.textSize(), ContentSizeCategory::accessibilityMedium);
  controls.pointerDown(elsewhere);
  controls.pointerMoved(onSlider(3));
  EXPECT_EQ(screen.textSize(), ContentSizeCategory::accessibilityMedium);
}

TEST_F(Controls, PressAButtonWhileThePointerIsOnItAndChooseItWhereItIsLetGo) {
  const auto button = showButton("Play");
  EXPECT_EQ(button->state(), Platform::UIControlStateNormal);
  for (const auto after : {Platform::UIControlStateSelected, Platform::UIControlStateNormal}) {
    controls.pointerDown(middleOf(*button));
    EXPECT_TRUE(button->isHighlighted());
    controls.pointerUp(middleOf(*button));
    EXPECT_EQ(button->state(), after);
  }
  screen.draw(1);
  controls.pointerDown(middleOf(*button));
  EXPECT_TRUE(screen.needsDisplay());
  screen.draw(1);
  controls.pointerMoved({0, 0});
  EXPECT_TRUE(screen.needsDisplay());
  EXPECT_FALSE(button->isHighlighted());
  controls.pointerMoved(middleOf(*button));
  EXPECT_TRUE(button->isHighlighted());
  screen.draw(1);
  controls.pointerMoved(middleOf(*button));
  EXPECT_FALSE(screen.needsDisplay());
  controls.pointerMoved({0, 0});
  controls.pointerUp({0, 0});
  controls.pointerMoved(middleOf(*button));
  EXPECT_EQ(button->state(), Platform::UIControlStateNormal) << "let go elsewhere";
}

TEST_F(Controls, ChooseNoButtonThatWasTakenFromUnderThePointer) {
  const auto button = showButton("Play");
  const CGPoint at = middleOf(*button);
  controls.pointerDown(at);
  controls.turnWheel(-2);
  ASSERT_GT(middleOf(*button).y - at.y, button->bounds().size.height);
  controls.pointerUp(at);
  EXPECT_EQ(button->state(), Platform::UIControlStateNormal);
}

TEST_F(Controls, ForgetAPressWhoseEndNobodyTold) {
  const auto button = showButton("Play");
  controls.pointerDown(middleOf(*button));
  controls.pointerDown(middleOf(*button));
  EXPECT_TRUE(button->isHighlighted());
  controls.pointerUp(middleOf(*button));
  EXPECT_EQ(button->state(), Platform::UIControlStateSelected);
  controls.pointerDown(middleOf(*button));
  screen.draw(1);
  controls.pointerDown({0, 0});
  EXPECT_EQ(button->state(), Platform::UIControlStateSelected);
  EXPECT_TRUE(screen.needsDisplay());
}

TEST_F(Controls, LeaveAloneButtonsThatArePressedOrNotToBeUsed) {
  for (const char* const title : {"Pressed", "Unavailable"}) {
    const auto button = showButton(title);
    const auto before = button->state();
    EXPECT_NE(before, Platform::UIControlStateNormal);
    controls.pointerDown(middleOf(*button));
    EXPECT_EQ(button->state(), before);
    controls.pointerUp(middleOf(*button));
    EXPECT_EQ(button->state(), before);
  }
}

TEST_F(Controls, PressNoButtonThatIsScrolledOutOfSight) {
  const auto button = showButton("Play");
  screen.setSize({600, 240});  // so that it can be scrolled under the bar
  const CGFloat edge = screen.scroll()->convertPointToView({0, 0}, screen.window()).y;
  screen.scrollBy(middleOf(*button).y - (edge + 3));
  controls.pointerDown(middleOf(*button));
  EXPECT_TRUE(button->isHighlighted());
  controls.pointerMoved({0, 0});
  controls.pointerUp({0, 0});
  screen.scrollBy(6);
  ASSERT_NEAR(middleOf(*button).y, edge - 3, 1e-6);
  controls.pointerDown(middleOf(*button));
  EXPECT_EQ(button->state(), Platform::UIControlStateNormal);
}

TEST_F(Controls, ShowPressedAndChosenButtonsInTheirOwnColours) {
  const auto button = showButton("Play");
  const auto pixels = [&] { return screen.draw(1)->bitmap()->rgba; };
  const auto usual = pixels();
  controls.pointerDown(middleOf(*button));
  const auto pressed = pixels();
  controls.pointerUp(middleOf(*button));
  const auto chosen = pixels();
  EXPECT_NE(pressed, usual);
  EXPECT_NE(chosen, usual);
  EXPECT_NE(chosen, pressed);
  controls.pointerDown(middleOf(*button));
  EXPECT_EQ(pixels(), pressed) << "a chosen one too";
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
