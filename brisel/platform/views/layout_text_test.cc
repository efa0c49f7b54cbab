// Arrangements of texts: their baselines, directions and heights.
#include <memory>

#include <gtest/gtest.h>

#include "brisel/platform/font_descriptor.h"
#include "brisel/platform/views/label.h"
#include "brisel/platform/views/placed_views_test.h"

#include "tests/recording_ports.h"

namespace Brisel::Platform {
namespace {

// Baselines

TEST_F(Arrangement, AlignsTheFirstBaselinesOfTwoSizesOfText) {
  const auto title = box(30, 20), note = box(20, 10);
  title->setBaseline({0, 16});
  note->setBaseline({0.5, 3});  // in the middle: 3 below 5
  pinTopLeading(*title, *screen, 10, 0);
  active(note->firstBaselineAnchor().constraintEqualToAnchor(title->firstBaselineAnchor()));
  layOut();
  EXPECT_EQ(note->frame().origin.y, 10 + 16 - 8);
}

TEST_F(Arrangement, FollowsABaselineThatMoves) {
  const auto title = box(30, 20), rule = box(30, 1);
  title->setBaseline({0, 16});
  pinTopLeading(*title, *screen, 10, 0);
  active(rule->topAnchor().constraintEqualToAnchor(title->firstBaselineAnchor(), 2));
  layOut();
  EXPECT_EQ(rule->frame().origin.y, 28);
  title->setBaseline({0.5, 0});
  layOut();
  EXPECT_EQ(rule->frame().origin.y, 10 + 10 + 2);
  title->setContent({30, 40});
  layOut();
  EXPECT_EQ(rule->frame().origin.y, 10 + 20 + 2);
}

// Counts how often it is measured.
class MeasuredLabel final : public UILabel {
 public:
  static std::shared_ptr<MeasuredLabel> make() { return made(std::shared_ptr<MeasuredLabel>(new MeasuredLabel), {}); }

  CGSize intrinsicContentSize() const override {
    ++measurings;
    return UILabel::intrinsicContentSize();
  }

  mutable int measurings = 0;
};

TEST_F(Arrangement, FollowsTheBaselineOfALabelThatShrinksItsText) {
  recordingEngine();
  const auto label = MeasuredLabel::make();
  label->setFont(UIFont::fontWithDescriptor(UIFontDescriptor::fontDescriptorWithName("Any-Book", 20), 20));
  label->setText("abcd");  // 40 points wide, and in the middle of the label
  setFree(*label);
  screen->addSubview(label);
  pinTopLeading(*label, *screen, 0, 0);
  size(*label, 25, 40);
  const auto rule = box(30, 1);
  active(rule->topAnchor().constraintEqualToAnchor(label->firstBaselineAnchor()));
  layOut();
  EXPECT_EQ(rule->frame().origin.y, 10 + 15);
  label->setAdjustsFontSizeToFitWidth(true);  // to 12.5 points
  layOut();
  EXPECT_EQ(rule->frame().origin.y, 13.75 + 9.375);
  label->setMinimumScaleFactor(0.8);  // to 16
  layOut();
  EXPECT_EQ(rule->frame().origin.y, 12 + 12);
  label->measurings = 0;
  label->setAdjustsFontSizeToFitWidth(true);
  label->setMinimumScaleFactor(0.8);
  layOut();
  EXPECT_EQ(label->measurings, 0);
}

TEST_F(Arrangement, TakesTheBottomForTheBaselineOfWhatHasNoText) {
  const auto view = placed(), rule = placed();
  pinTopLeading(*view, *screen, 10, 0);
  size(*view, 5, 7);
  active(rule->topAnchor().constraintEqualToAnchor(view->firstBaselineAnchor()));
  layOut();
  EXPECT_EQ(rule->frame().origin.y, 17);
}

// Directions

TEST_F(Arrangement, MirrorsLeadingAndTrailingWhereTheHolderRunsFromRightToLeft) {
  screen->setSemanticContentAttribute(UISemanticContentAttribute::forceRightToLeft);
  const auto icon = box(10, 10), label = box(30, 10);
  active(icon->leadingAnchor().constraintEqualToAnchor(screen->leadingAnchor(), 8));
  active(label->leadingAnchor().constraintEqualToAnchor(icon->trailingAnchor(), 4));
  layOut();
  EXPECT_EQ(icon->frame().origin.x, 82);
  EXPECT_EQ(label->frame().origin.x, 48);
}

TEST_F(Arrangement, NeverMirrorsLeftAndRight) {
  screen->setSemanticContentAttribute(UISemanticContentAttribute::forceRightToLeft);
  const auto icon = box(10, 10), label = box(30, 10);
  active(icon->leftAnchor().constraintEqualToAnchor(screen->leftAnchor(), 8));
  active(label->leftAnchor().constraintEqualToAnchor(icon->rightAnchor(), 4));
  layOut();
  EXPECT_EQ(icon->frame().origin.x, 8);
  EXPECT_EQ(label->frame().origin.x, 22);
}

TEST_F(Arrangement, MirrorsAnInequalityAndACentre) {
  screen->setSemanticContentAttribute(UISemanticContentAttribute::forceRightToLeft);
  const auto label = box(30, 10), dot = box(4, 4);
  active(label->leadingAnchor().constraintGreaterThanOrEqualToAnchor(screen->leadingAnchor(), 8));
  active(label->trailingAnchor().constraintEqualToAnchor(screen->leadingAnchor()), 500);  // in vain
  active(dot->leadingAnchor().constraintEqualToAnchor(screen->centerXAnchor(), 6));
  layOut();
  EXPECT_EQ(label->frame().origin.x, 62);  // 100 - 8 - 30
  EXPECT_EQ(dot->frame().origin.x, 40);    // its right edge 6 points left of the centre
}

TEST_F(Arrangement, FollowsTheDirectionOfTheHolderAndNotOfItems) {
  const auto label = box(30, 10);
  label->setSemanticContentAttribute(UISemanticContentAttribute::forceRightToLeft);
  active(label->leadingAnchor().constraintEqualToAnchor(screen->leadingAnchor(), 8));
  layOut();
  EXPECT_EQ(label->frame().origin.x, 8);
}

TEST_F(Arrangement, TurnsAroundWhenTheDirectionChanges) {
  const auto label = box(30, 10);
  active(label->leadingAnchor().constraintEqualToAnchor(screen->leadingAnchor(), 8));
  layOut();
  EXPECT_EQ(label->frame().origin.x, 8);
  screen->setSemanticContentAttribute(UISemanticContentAttribute::forceRightToLeft);
  layOut();
  EXPECT_EQ(label->frame().origin.x, 62);
  screen->setSemanticContentAttribute(UISemanticContentAttribute::unspecified);
  setUserInterfaceLayoutDirection(UIUserInterfaceLayoutDirection::rightToLeft);
  layOut();
  EXPECT_EQ(label->frame().origin.x, 62);
  setUserInterfaceLayoutDirection(UIUserInterfaceLayoutDirection::leftToRight);
  EXPECT_EQ(label->frame().origin.x, 62);
  layOut();
  EXPECT_EQ(label->frame().origin.x, 8);
}

TEST_F(Arrangement, KeepsANestedViewLeftToRightWithinARightToLeftScreen) {
  screen->setSemanticContentAttribute(UISemanticContentAttribute::forceRightToLeft);
  const auto player = placed();
  player->setSemanticContentAttribute(UISemanticContentAttribute::forceLeftToRight);
  size(*player, 50, 20);
  active(player->leadingAnchor().constraintEqualToAnchor(screen->leadingAnchor(), 10));
  const auto button = boxIn(player, {10, 10});
  active(button->leadingAnchor().constraintEqualToAnchor(player->leadingAnchor(), 3));
  layOut();
  EXPECT_EQ(player->frame().origin.x, 40);
  EXPECT_EQ(button->frame().origin.x, 3);
}

// Height for width

TEST_F(Arrangement, GivesATextTheHeightThatItTakesAtItsWidth) {
  const auto text = box(300, 10), below = box(10, 10);
  text->setArea(1'200);
  pinTopLeading(*text, *screen, 0, 10);
  active(text->trailingAnchor().constraintEqualToAnchor(screen->trailingAnchor(), -10));
  active(below->topAnchor().constraintEqualToAnchor(text->bottomAnchor(), 3));
  layOut();
  EXPECT_EQ(text->frame(), rect(10, 0, 80, 15));
  EXPECT_EQ(below->frame().origin.y, 18);
  screen->setFrame(rect(0, 0, 68, 60));
  layOut();
  EXPECT_EQ(text->frame(), rect(10, 0, 48, 25));
  EXPECT_EQ(below->frame().origin.y, 28);
}

TEST_F(Arrangement, MeasuresATextAgainThatHasChanged) {
  const auto text = box(300, 10);
  text->setArea(1'000);
  active(text->widthAnchor().constraintEqualToConstant(50));
  layOut();
  EXPECT_EQ(text->frame().size.height, 20);
  text->setArea(1'500);
  layOut();
  EXPECT_EQ(text->frame().size.height, 30);
}

}  // namespace
}  // namespace Brisel::Platform
