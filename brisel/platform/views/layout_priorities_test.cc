// Arrangements in which some constraints outweigh others.
#include <memory>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/platform/views/placed_views_test.h"

namespace Brisel::Platform {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr auto kHorizontal = UILayoutConstraintAxis::horizontal;
constexpr auto kVertical = UILayoutConstraintAxis::vertical;

// Hugging and compression

TEST_F(Arrangement, StretchesWhatHugsLeast) {
  const auto title = box(20, 10), value = box(30, 10);
  title->setContentHuggingPriority(251, kHorizontal);
  active(title->leadingAnchor().constraintEqualToAnchor(screen->leadingAnchor()));
  active(value->leadingAnchor().constraintEqualToAnchor(title->trailingAnchor()));
  active(value->trailingAnchor().constraintEqualToAnchor(screen->trailingAnchor()));
  layOut();
  EXPECT_EQ(title->frame().size.width, 20);
  EXPECT_EQ(value->frame().size.width, 80);
  title->setContentHuggingPriority(249, kHorizontal);
  layOut();
  EXPECT_EQ(title->frame().size.width, 70);
  EXPECT_EQ(value->frame().size.width, 30);
}

TEST_F(Arrangement, CompressesWhatResistsLeast) {
  const auto title = box(80, 10), value = box(40, 10);
  title->setContentCompressionResistancePriority(749, kHorizontal);
  active(title->leadingAnchor().constraintEqualToAnchor(screen->leadingAnchor()));
  active(value->leadingAnchor().constraintEqualToAnchor(title->trailingAnchor()));
  active(value->trailingAnchor().constraintEqualToAnchor(screen->trailingAnchor()));
  layOut();
  EXPECT_EQ(title->frame().size.width, 60);
  EXPECT_EQ(value->frame().size.width, 40);
}

TEST_F(Arrangement, WeighsAWidthAgainstHuggingAndCompression) {
  const auto label = box(40, 10);
  const auto wish = active(label->widthAnchor().constraintEqualToConstant(90), 249);
  layOut();
  EXPECT_EQ(label->frame().size.width, 40);  // hugs at 250
  wish->setPriority(251);
  layOut();
  EXPECT_EQ(label->frame().size.width, 90);
  wish->setConstant(10);
  layOut();
  EXPECT_EQ(label->frame().size.width, 40);  // resists at 750
  wish->setPriority(751);
  layOut();
  EXPECT_EQ(label->frame().size.width, 10);
}

TEST_F(Arrangement, FollowsContentThatChanges) {
  const auto label = box(20, 10), next = box(5, 5);
  active(label->leadingAnchor().constraintEqualToAnchor(screen->leadingAnchor()));
  active(next->leadingAnchor().constraintEqualToAnchor(label->trailingAnchor(), 2));
  layOut();
  EXPECT_EQ(next->frame().origin.x, 22);
  label->setContent({31.5, 10});
  EXPECT_EQ(next->frame().origin.x, 22);
  layOut();
  EXPECT_EQ(next->frame().origin.x, 33.5);
  label->setContent({UIViewNoIntrinsicMetric, 10});
  layOut();
  EXPECT_EQ(next->frame().origin.x, 2);
}

TEST_F(Arrangement, GrowsAroundItsContent) {
  const auto button = placed();
  const auto label = boxIn(button, {25, 12});
  pin(*label, *button, 4, 10, 4, 10);
  pinTopLeading(*button, *screen, 7, 9);
  layOut();
  EXPECT_EQ(button->frame(), rect(9, 7, 45, 20));
  EXPECT_EQ(label->frame(), rect(10, 4, 25, 12));
}

TEST_F(Arrangement, TreatsTheAxesApart) {
  const auto label = box(20, 10);
  label->setContentHuggingPriority(1, kVertical);
  active(label->widthAnchor().constraintEqualToConstant(50), 100);
  active(label->heightAnchor().constraintEqualToConstant(50), 100);
  layOut();
  EXPECT_EQ(label->frame().size, (CGSize{20, 50}));
}

// Priorities

TEST_F(Arrangement, PrefersOne501ToFifty500s) {
  const auto view = placed();
  for (int i = 0; i < 50; ++i) active(view->widthAnchor().constraintEqualToConstant(10), 500);
  active(view->widthAnchor().constraintEqualToConstant(90), 501);
  layOut();
  EXPECT_EQ(view->frame().size.width, 90);
}

TEST_F(Arrangement, TellsPrioritiesApartByAFraction) {
  const auto view = placed();
  active(view->widthAnchor().constraintEqualToConstant(10), 500.25F);
  active(view->widthAnchor().constraintEqualToConstant(20), 500.5F);
  layOut();
  EXPECT_EQ(view->frame().size.width, 20);
}

TEST_F(Arrangement, KeepsAnInequalityAndComesAsNearToAWishAsItAllows) {
  const auto view = placed();
  active(view->leadingAnchor().constraintEqualToAnchor(screen->leadingAnchor(), 10));
  active(view->trailingAnchor().constraintLessThanOrEqualToAnchor(screen->trailingAnchor(), -10));
  const auto wish = active(view->widthAnchor().constraintEqualToConstant(500), 999);
  layOut();
  EXPECT_EQ(view->frame().size.width, 80);
  wish->setConstant(33);
  layOut();
  EXPECT_EQ(view->frame().size.width, 33);
}

TEST_F(Arrangement, IsAsTallAsItsTallestColumn) {
  const auto row = placed();
  pinTopLeading(*row, *screen, 0, 0);
  active(row->heightAnchor().constraintEqualToConstant(0), 1);
  for (const CGFloat height : {12.0, 44.5, 31.0}) {
    const auto column = boxIn(row, {10, height});
    active(column->topAnchor().constraintEqualToAnchor(row->topAnchor()));
    active(column->bottomAnchor().constraintLessThanOrEqualToAnchor(row->bottomAnchor()));
  }
  layOut();
  EXPECT_EQ(row->frame().size.height, 44.5);
}

// Conflicts

TEST_F(Arrangement, LetsTheLaterRequiredConstraintGiveWayAndSaysSoOnce) {
  const LogRecord record;
  const auto view = placed();
  active(view->widthAnchor().constraintEqualToConstant(10));
  const auto later = active(view->widthAnchor().constraintEqualToAnchor(screen->widthAnchor(), 0.5, -8));
  layOut();
  EXPECT_EQ(view->frame().size.width, 10);
  EXPECT_THAT(LogRecord::lines(), ElementsAre("Layout: UIView.width = UIView.width × 0.5 - 8.0 cannot hold with older "
                                              "required constraints, and gives way"));
  later->setConstant(-9);
  layOut();
  EXPECT_EQ(LogRecord::lines().size(), 1U);
}

TEST_F(Arrangement, GivesWayAsLittleAsItMay) {
  const LogRecord record;
  const auto view = placed();
  active(view->widthAnchor().constraintLessThanOrEqualToConstant(12));
  active(view->widthAnchor().constraintGreaterThanOrEqualToConstant(20));
  layOut();
  EXPECT_EQ(view->frame().size.width, 12);
  EXPECT_THAT(LogRecord::lines(), ElementsAre(HasSubstr("UIView.width ≥ 20.0 cannot hold")));
}

TEST_F(Arrangement, KeepsTheFrameOfAViewThatStandsWhereItIsSet) {
  const LogRecord record;
  const auto fixed = UIView::initWithFrame(rect(5, 6, 7, 8));
  screen->addSubview(fixed);
  active(fixed->widthAnchor().constraintEqualToConstant(70));
  active(fixed->leftAnchor().constraintEqualToAnchor(screen->leftAnchor()), 999);
  layOut();
  EXPECT_EQ(fixed->frame(), rect(5, 6, 7, 8));
  EXPECT_THAT(LogRecord::lines(), ElementsAre(HasSubstr("UIView.width = 70.0 cannot hold")));
}

TEST_F(Arrangement, SaysThatRequiredContentGivesWay) {
  const LogRecord record;
  const auto label = box(40, 10);
  active(label->widthAnchor().constraintEqualToConstant(10));
  label->setContentCompressionResistancePriority(1000, kHorizontal);
  layOut();
  EXPECT_EQ(label->frame().size.width, 40);  // the label is older than the constraint
  EXPECT_THAT(LogRecord::lines(), ElementsAre(HasSubstr("TestBox.width = 10.0 cannot hold")));
}

TEST_F(Arrangement, RecoversWhenTheConflictIsGone) {
  const LogRecord record;
  const auto view = placed();
  const auto older = active(view->widthAnchor().constraintEqualToConstant(10));
  active(view->widthAnchor().constraintEqualToConstant(25));
  layOut();
  EXPECT_EQ(view->frame().size.width, 10);
  older->setActive(false);
  layOut();
  EXPECT_EQ(view->frame().size.width, 25);
  older->setActive(true);  // now it is the later one
  layOut();
  EXPECT_EQ(view->frame().size.width, 25);
  EXPECT_THAT(LogRecord::lines(), ElementsAre(HasSubstr("= 25.0"), HasSubstr("= 10.0")));
}

TEST_F(Arrangement, BreaksARingOfRequiredConstraints) {
  const LogRecord record;
  const auto a = placed(), b = placed();
  active(a->leftAnchor().constraintEqualToAnchor(screen->leftAnchor(), 10));
  active(b->leftAnchor().constraintEqualToAnchor(a->leftAnchor(), 10));
  active(a->leftAnchor().constraintEqualToAnchor(b->leftAnchor(), 10));
  layOut();
  EXPECT_EQ(a->frame().origin.x, 10);
  EXPECT_EQ(b->frame().origin.x, 20);
  EXPECT_EQ(LogRecord::lines().size(), 1U);
}

// Measuring

TEST_F(Arrangement, MeasuresByTwoConstraintsForATime) {
  const auto label = box(30, 10);
  pinTopLeading(*label, *screen, 0, 0);
  layOut();
  for (int i = 0; i < 3; ++i) {
    const auto width = label->widthAnchor().constraintEqualToConstant(10'000);
    const auto height = label->heightAnchor().constraintEqualToConstant(5);
    width->setPriority(501);
    height->setPriority(501);
    NSLayoutConstraint::activateConstraints({width, height});
    label->setNeedsLayout();
    label->layoutIfNeeded();
    EXPECT_EQ(label->frame().size, (CGSize{10'000, 10}));
    NSLayoutConstraint::deactivateConstraints({width, height});
    EXPECT_EQ(label->frame().size, (CGSize{10'000, 10}));
    layOut();
    EXPECT_EQ(label->frame().size, (CGSize{30, 10}));
  }
}

TEST_F(Arrangement, MeasuresWithinLayoutSubviews) {
  const auto cell = TestBox::make({UIViewNoIntrinsicMetric, UIViewNoIntrinsicMetric});
  setFree(*cell);
  screen->addSubview(cell);
  pin(*cell, *screen, 0, 0, 0, 0);
  const auto label = boxIn(cell, {30, 10});
  pinTopLeading(*label, *cell, 0, 4);
  CGFloat measured = 0;
  cell->setOnLayout([&] {
    const auto width = active(label->widthAnchor().constraintEqualToConstant(77), 501);
    label->setNeedsLayout();
    label->layoutIfNeeded();
    measured = label->frame().size.width;
    width->setActive(false);
  });
  layOut();
  EXPECT_EQ(measured, 77);
  EXPECT_EQ(label->frame(), rect(4, 0, 30, 10));
}

TEST_F(Arrangement, FitsASizeAndPlacesNothing) {
  const auto label = box(30, 10);
  const auto free = placed(rect(1, 2, 3, 4));
  pinTopLeading(*label, *screen, 3, 3);
  layOut();
  EXPECT_EQ(label->systemLayoutSizeFittingSize(UILayoutFittingExpandedSize), (CGSize{30, 10}));
  EXPECT_EQ(free->systemLayoutSizeFittingSize({70, 80}), (CGSize{70, 80}));
  EXPECT_EQ(label->frame(), rect(3, 3, 30, 10));
  EXPECT_EQ(free->frame(), rect(1, 2, 3, 4));
  layOut();
  EXPECT_EQ(free->frame(), rect(1, 2, 3, 4));
}

TEST_F(Arrangement, FitsAViewThatStandsWhereItIsSetAroundItsContent) {
  const auto card = UIView::initWithFrame(rect(5, 5, 50, 50));
  screen->addSubview(card);
  const auto text = boxIn(card, {200, 10});
  text->setArea(600);
  pin(*text, *card, 1, 1, 1, 1);
  active(text->widthAnchor().constraintLessThanOrEqualToConstant(20));
  EXPECT_EQ(card->systemLayoutSizeFittingSize(UILayoutFittingCompressedSize), (CGSize{22, 32}));
  EXPECT_EQ(card->frame(), rect(5, 5, 50, 50));
}

}  // namespace
}  // namespace Brisel::Platform
