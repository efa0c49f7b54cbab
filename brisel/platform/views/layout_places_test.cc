// Arrangements of edges, sizes, guides and trees, whose places follow from their constraints by hand.
#include <memory>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/platform/views/layout_guide.h"
#include "brisel/platform/views/placed_views_test.h"

namespace Brisel::Platform {
namespace {

using testing::IsEmpty;

// Pins and centres

TEST_F(Arrangement, PinsAViewToAllSides) {
  const auto view = placed();
  pin(*view, *screen, 1, 2, 3, 4);
  layOut();
  EXPECT_EQ(view->frame(), rect(2, 1, 94, 56));
}

TEST_F(Arrangement, CentresAViewOfFixedSize) {
  const auto view = placed();
  size(*view, 30, 21);
  active(view->centerXAnchor().constraintEqualToAnchor(screen->centerXAnchor()));
  active(view->centerYAnchor().constraintEqualToAnchor(screen->centerYAnchor(), 5));
  layOut();
  EXPECT_EQ(view->frame(), rect(35, 24.5, 30, 21));
}

TEST_F(Arrangement, PutsALabelIntoTheCornerAtItsOwnSize) {
  const auto label = box(20.5, 11);
  active(label->trailingAnchor().constraintEqualToAnchor(screen->trailingAnchor(), -8));
  active(label->bottomAnchor().constraintEqualToAnchor(screen->bottomAnchor(), -8));
  layOut();
  EXPECT_EQ(label->frame(), rect(71.5, 41, 20.5, 11));
}

TEST_F(Arrangement, MeasuresALabelBetweenTwoMargins) {
  const auto label = box(30, 10);
  active(label->leadingAnchor().constraintEqualToAnchor(screen->leadingAnchor(), 8));
  active(label->trailingAnchor().constraintEqualToAnchor(screen->trailingAnchor(), -8));
  layOut();
  EXPECT_EQ(label->frame().origin.x, 8);
  EXPECT_EQ(label->frame().size.width, 84);
}

TEST_F(Arrangement, PutsACentreOnAnEdge) {
  const auto badge = placed();
  size(*badge, 10, 10);
  active(badge->centerXAnchor().constraintEqualToAnchor(screen->rightAnchor()));
  active(badge->centerYAnchor().constraintEqualToAnchor(screen->topAnchor()));
  layOut();
  EXPECT_EQ(badge->frame(), rect(95, -5, 10, 10));
}

TEST_F(Arrangement, TakesFractionsOfPointsAsTheyAre) {
  const auto view = placed();
  size(*view, 33.3, 0.1);
  active(view->leadingAnchor().constraintEqualToAnchor(screen->leadingAnchor(), 0.7));
  active(view->centerYAnchor().constraintEqualToAnchor(screen->centerYAnchor()));
  layOut();
  EXPECT_NEAR(view->frame().origin.x, 0.7, 1e-12);
  EXPECT_NEAR(view->frame().size.width, 33.3, 1e-12);
  EXPECT_NEAR(view->frame().origin.y, 29.95, 1e-12);
}

TEST_F(Arrangement, NeverMakesASideNegative) {
  screen->setFrame(rect(0, 0, 10, 60));
  const auto view = placed();
  pin(*view, *screen, 0, 8, 0, 8);
  layOut();
  EXPECT_EQ(view->frame(), rect(8, 0, 0, 60));
}

// Ratios and chains

TEST_F(Arrangement, KeepsAnAspectRatio) {
  const auto picture = placed();
  pinTopLeading(*picture, *screen, 0, 0);
  active(picture->widthAnchor().constraintEqualToAnchor(screen->widthAnchor(), 0.8, 0));
  active(picture->heightAnchor().constraintEqualToAnchor(picture->widthAnchor(), 9.0 / 16, 0));
  layOut();
  EXPECT_EQ(picture->frame(), rect(0, 0, 80, 45));
}

TEST_F(Arrangement, PutsAnEdgeAtAFractionOfTheWidth) {
  const auto view = placed();
  size(*view, 10, 10);
  const auto third = NSLayoutConstraint::constraintWithItem(view, NSLayoutAttribute::left, NSLayoutRelation::equal,
                                                            screen, NSLayoutAttribute::right, 0.25, 1);
  active(third);
  layOut();
  EXPECT_EQ(view->frame().origin.x, 26);
}

TEST_F(Arrangement, ChainsViewsInARow) {
  const auto first = box(10, 10), second = box(20, 10), third = box(30, 10);
  active(first->leadingAnchor().constraintEqualToAnchor(screen->leadingAnchor(), 4));
  active(second->leadingAnchor().constraintEqualToAnchor(first->trailingAnchor(), 4));
  active(third->leadingAnchor().constraintEqualToAnchor(second->trailingAnchor(), 4));
  layOut();
  EXPECT_EQ(first->frame().origin.x, 4);
  EXPECT_EQ(second->frame().origin.x, 18);
  EXPECT_EQ(third->frame().origin.x, 42);
}

TEST_F(Arrangement, SharesAWidthAmongEqualColumns) {
  std::vector<std::shared_ptr<UIView>> columns;
  for (int i = 0; i < 4; ++i) {
    columns.push_back(placed());
    const auto& left = i == 0 ? screen->leadingAnchor() : columns[columns.size() - 2]->trailingAnchor();
    active(columns.back()->leadingAnchor().constraintEqualToAnchor(left, 4));
    active(columns.back()->widthAnchor().constraintEqualToAnchor(columns.front()->widthAnchor()));
  }
  active(columns.back()->trailingAnchor().constraintEqualToAnchor(screen->trailingAnchor(), -4));
  layOut();
  for (std::size_t i = 0; i < 4; ++i) {  // 4 columns and 5 gaps of 4 are 100
    EXPECT_EQ(columns[i]->frame().size.width, 20);
    EXPECT_EQ(columns[i]->frame().origin.x, 4 + 24.0 * static_cast<double>(i));
  }
}

TEST_F(Arrangement, SharesAWidthInThirdsThatAreNoWholePoints) {
  const auto a = placed(), b = placed(), c = placed();
  active(a->leadingAnchor().constraintEqualToAnchor(screen->leadingAnchor()));
  active(b->leadingAnchor().constraintEqualToAnchor(a->trailingAnchor()));
  active(c->leadingAnchor().constraintEqualToAnchor(b->trailingAnchor()));
  active(c->trailingAnchor().constraintEqualToAnchor(screen->trailingAnchor()));
  active(a->widthAnchor().constraintEqualToAnchor(b->widthAnchor()));
  active(b->widthAnchor().constraintEqualToAnchor(c->widthAnchor()));
  layOut();
  EXPECT_NEAR(b->frame().origin.x, 100.0 / 3, 1e-12);
  EXPECT_NEAR(b->frame().size.width, 100.0 / 3, 1e-12);
}

TEST_F(Arrangement, KeepsARoomForHiddenViews) {
  const auto a = box(10, 10), b = box(10, 10);
  active(a->leadingAnchor().constraintEqualToAnchor(screen->leadingAnchor()));
  active(b->leadingAnchor().constraintEqualToAnchor(a->trailingAnchor()));
  a->setHidden(true);
  layOut();
  EXPECT_EQ(b->frame().origin.x, 10);
}

// Guides

TEST_F(Arrangement, PlacesAGuideAndAViewWithinIt) {
  const auto guide = UILayoutGuide::init();
  screen->addLayoutGuide(guide);
  active(guide->leadingAnchor().constraintEqualToAnchor(screen->leadingAnchor(), 10));
  active(guide->trailingAnchor().constraintEqualToAnchor(screen->trailingAnchor(), -30));
  active(guide->topAnchor().constraintEqualToAnchor(screen->topAnchor(), 5));
  active(guide->heightAnchor().constraintEqualToConstant(20));
  const auto label = box(16, 8);
  active(label->centerXAnchor().constraintEqualToAnchor(guide->centerXAnchor()));
  active(label->centerYAnchor().constraintEqualToAnchor(guide->centerYAnchor()));
  layOut();
  EXPECT_EQ(guide->layoutFrame(), rect(10, 5, 60, 20));
  EXPECT_EQ(label->frame(), rect(32, 11, 16, 8));
}

TEST_F(Arrangement, SpacesViewsByEqualGuides) {
  const auto left = UILayoutGuide::init(), right = UILayoutGuide::init();
  screen->addLayoutGuide(left);
  screen->addLayoutGuide(right);
  const auto a = box(20, 10), b = box(40, 10);
  active(a->leadingAnchor().constraintEqualToAnchor(screen->leadingAnchor()));
  active(left->leadingAnchor().constraintEqualToAnchor(a->trailingAnchor()));
  active(b->leadingAnchor().constraintEqualToAnchor(left->trailingAnchor()));
  active(right->leadingAnchor().constraintEqualToAnchor(b->trailingAnchor()));
  active(screen->trailingAnchor().constraintEqualToAnchor(right->trailingAnchor()));
  active(left->widthAnchor().constraintEqualToAnchor(right->widthAnchor()));
  layOut();
  EXPECT_EQ(b->frame().origin.x, 40);
  EXPECT_EQ(right->layoutFrame().size.width, 20);
}

TEST_F(Arrangement, PlacesAGuideInTheCoordinatesOfItsOwner) {
  const auto card = placed();
  pinTopLeading(*card, *screen, 20, 30);
  size(*card, 40, 40);
  const auto guide = UILayoutGuide::init();
  card->addLayoutGuide(guide);
  active(guide->leftAnchor().constraintEqualToAnchor(screen->leftAnchor(), 35));
  active(guide->topAnchor().constraintEqualToAnchor(screen->topAnchor(), 22));
  layOut();
  EXPECT_EQ(guide->layoutFrame().origin, (CGPoint{5, 2}));
}

// Rest

TEST_F(Arrangement, LeavesAtItsSetFrameWhatNothingIsAskedOf) {
  const auto view = placed(rect(3, 4, 5, 6));
  active(view->topAnchor().constraintEqualToAnchor(screen->topAnchor(), 20));
  layOut();
  EXPECT_EQ(view->frame(), rect(3, 20, 5, 6));
  view->setFrame(rect(30, 40, 50, 7));
  layOut();
  EXPECT_EQ(view->frame(), rect(30, 20, 50, 7));
}

TEST_F(Arrangement, MovesAViewRatherThanStretchingItWhereBothWouldDo) {
  const auto view = placed(rect(3, 4, 20, 6));
  active(view->rightAnchor().constraintEqualToAnchor(screen->rightAnchor()));
  layOut();
  EXPECT_EQ(view->frame(), rect(80, 4, 20, 6));
}

TEST_F(Arrangement, SizesAFreeTopFromWhatIsInItAndLeavesItsOrigin) {
  const auto top = UIView::initWithFrame(rect(11, 12, 0, 0));
  setFree(*top);
  const auto label = boxIn(top, {25, 12});
  pin(*label, *top, 1, 2, 3, 4);
  top->layoutIfNeeded();
  EXPECT_EQ(top->frame(), rect(11, 12, 31, 16));
}

// Trees

TEST_F(Arrangement, PlacesNestedViewsInTheCoordinatesOfTheirSuperviews) {
  const auto outer = placed();
  pin(*outer, *screen, 10, 10, 10, 10);
  const auto inner = placedIn(outer);
  pin(*inner, *outer, 5, 5, 5, 5);
  layOut();
  EXPECT_EQ(outer->frame(), rect(10, 10, 80, 40));
  EXPECT_EQ(inner->frame(), rect(5, 5, 70, 30));
}

TEST_F(Arrangement, AlignsCousins) {
  const auto left = placed(), right = UIView::initWithFrame(rect(50, 20, 40, 40));
  screen->addSubview(right);
  pinTopLeading(*left, *screen, 8, 4);
  const auto a = boxIn(left, {10, 10}), b = boxIn(right, {12, 6});
  pinTopLeading(*a, *left, 20, 1);
  active(b->centerYAnchor().constraintEqualToAnchor(a->centerYAnchor()));
  active(b->leadingAnchor().constraintEqualToAnchor(a->trailingAnchor(), 60));
  layOut();
  EXPECT_EQ(b->frame().origin, (CGPoint{4 + 1 + 10 + 60 - 50, 8 + 20 + 5 - 3 - 20}));
  right->setFrame(rect(40, 10, 40, 40));
  layOut();
  EXPECT_EQ(b->frame().origin, (CGPoint{35, 20}));
}

TEST_F(Arrangement, FollowsAScreenThatIsResized) {
  const auto view = placed();
  pin(*view, *screen, 0, 0, 0, 0);
  layOut();
  screen->setFrame(rect(0, 0, 320, 480.5));
  layOut();
  EXPECT_EQ(view->frame(), rect(0, 0, 320, 480.5));
}

TEST_F(Arrangement, ClosesTheGapWhenAViewIsRemoved) {
  const auto a = box(10, 10), b = box(20, 10), c = box(30, 10);
  active(a->leadingAnchor().constraintEqualToAnchor(screen->leadingAnchor()));
  active(b->leadingAnchor().constraintEqualToAnchor(a->trailingAnchor()));
  active(c->leadingAnchor().constraintEqualToAnchor(b->trailingAnchor()), 600);
  active(c->leadingAnchor().constraintEqualToAnchor(a->trailingAnchor()), 500);
  layOut();
  EXPECT_EQ(c->frame().origin.x, 30);
  b->removeFromSuperview();
  layOut();
  EXPECT_EQ(c->frame().origin.x, 10);
}

TEST_F(Arrangement, TakesAMovedViewsOwnConstraintsAlong) {
  const auto other = UIView::initWithFrame(rect(0, 0, 50, 50));
  const auto card = placed();
  size(*card, 40, 30);
  const auto label = boxIn(card, {10, 10});
  active(label->trailingAnchor().constraintEqualToAnchor(card->trailingAnchor()));
  pinTopLeading(*card, *screen, 5, 5);
  layOut();
  EXPECT_EQ(label->frame().origin.x, 30);
  other->addSubview(card);
  active(card->rightAnchor().constraintEqualToAnchor(other->rightAnchor()));
  layOut();
  other->layoutIfNeeded();
  EXPECT_EQ(card->frame().origin.x, 10);
  EXPECT_EQ(label->frame().origin.x, 30);
  EXPECT_THAT(screen->constraints(), IsEmpty());
}

TEST_F(Arrangement, JoinsATreeThatWasLaidOutAlone) {
  const auto card = UIView::initWithFrame();
  setFree(*card);
  const auto label = boxIn(card, {10, 10});
  pin(*label, *card, 2, 2, 2, 2);
  card->layoutIfNeeded();
  EXPECT_EQ(card->frame().size, (CGSize{14, 14}));
  screen->addSubview(card);
  active(card->widthAnchor().constraintEqualToAnchor(screen->widthAnchor()));
  layOut();
  EXPECT_EQ(label->frame(), rect(2, 2, 96, 10));
}

TEST_F(Arrangement, StandsAsSetAgainWhenTheFlagIsTurnedOn) {
  const auto view = placed();
  pin(*view, *screen, 0, 0, 0, 0);
  const auto follower = placed();
  active(follower->widthAnchor().constraintEqualToAnchor(view->widthAnchor()), 999);
  layOut();
  EXPECT_EQ(follower->frame().size.width, 100);
  const LogRecord record;
  view->setTranslatesAutoresizingMaskIntoConstraints(true);
  view->setFrame(rect(1, 2, 30, 4));
  layOut();
  EXPECT_EQ(view->frame(), rect(1, 2, 30, 4));
  EXPECT_EQ(follower->frame().size.width, 30);
  EXPECT_FALSE(LogRecord::lines().empty());
}

// Changes

TEST_F(Arrangement, FollowsAConstantThatChanges) {
  const auto view = placed();
  size(*view, 10, 10);
  const auto leading = active(view->leadingAnchor().constraintEqualToAnchor(screen->leadingAnchor(), 8));
  for (const CGFloat constant : {8.0, 20.5, -3.0, 1e6}) {
    leading->setConstant(constant);
    layOut();
    EXPECT_EQ(view->frame(), rect(constant, 0, 10, 10));
  }
}

TEST_F(Arrangement, KeepsTheLastPlaceUntilTheNextLayout) {
  const auto view = placed(rect(0, 0, 12, 12));
  const auto width = active(view->widthAnchor().constraintEqualToConstant(40));
  layOut();
  width->setActive(false);
  EXPECT_EQ(view->frame().size.width, 40);
  layOut();
  EXPECT_EQ(view->frame().size.width, 12);
}

}  // namespace
}  // namespace Brisel::Platform
