#include "gallery/window/slider_view.h"

#include <gtest/gtest.h>

namespace Brisel::Gallery {
namespace {

// Knobs have a radius of 10 points: the first step is at 10, the last at 110, each 10 from the next.
std::shared_ptr<SliderView> sliderOfElevenSteps() {
  auto slider = SliderView::initWithSteps(11);
  slider->setFrame({{}, {120, 20}});
  return slider;
}

TEST(Slider, HasItsKnobOnTheFirstStepAndOnNoneThatThereIsNot) {
  const auto slider = sliderOfElevenSteps();
  EXPECT_EQ(slider->step(), 0);
  slider->setStep(4);
  EXPECT_EQ(slider->step(), 4);
  slider->setStep(11);
  EXPECT_EQ(slider->step(), 10);
  slider->setStep(-1);
  EXPECT_EQ(slider->step(), 0);
}

TEST(Slider, TakesThePointerToTheNearestStep) {
  const auto slider = sliderOfElevenSteps();
  EXPECT_EQ(slider->stepAt({10, 10}), 0);
  EXPECT_EQ(slider->stepAt({14.9, 0}), 0);
  EXPECT_EQ(slider->stepAt({15.1, 0}), 1);
  EXPECT_EQ(slider->stepAt({60, 20}), 5);
  EXPECT_EQ(slider->stepAt({110, 20}), 10);
  EXPECT_EQ(slider->stepAt({-1e9, 0}), 0);
  EXPECT_EQ(slider->stepAt({1e9, 0}), 10);
}

TEST(Slider, BeginsAtTheRightWhereTheInterfaceDoes) {
  const auto slider = sliderOfElevenSteps();
  slider->setSemanticContentAttribute(Platform::UISemanticContentAttribute::forceRightToLeft);
  EXPECT_EQ(slider->stepAt({110, 10}), 0);
  EXPECT_EQ(slider->stepAt({100, 10}), 1);
  EXPECT_EQ(slider->stepAt({10, 10}), 10);
}

TEST(Slider, ThatIsTooNarrowStillHasSteps) {
  const auto slider = SliderView::initWithSteps(0);
  EXPECT_EQ(slider->steps(), 2);
  slider->setFrame({{}, {5, 5}});
  EXPECT_EQ(slider->stepAt({3, 3}), 0);
}

}  // namespace
}  // namespace Brisel::Gallery
