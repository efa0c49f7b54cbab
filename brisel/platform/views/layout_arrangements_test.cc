// Arrangements of views whose places follow from their constraints by hand.
#include <memory>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/platform/views/layout_guide.h"
#include "brisel/platform/views/view_layout_test.h"

namespace Brisel::Platform {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// A screen of 100 × 60 points.
class Arrangement : public testing::Test {
 protected:
  std::shared_ptr<UIView> screen = UIView::initWithFrame({{0, 0}, {100, 60}});

  std::shared_ptr<UIView> placed(const CGRect& frame = {}) { return placedIn(screen, frame); }
  std::shared_ptr<TestBox> box(CGFloat width, CGFloat height) { return boxIn(screen, {width, height}); }
  void layOut() { screen->layoutIfNeeded(); }

  static void pin(UIView& view, const UIView& to, CGFloat top, CGFloat leading, CGFloat bottom, CGFloat trailing) {
    active(view.topAnchor().constraintEqualToAnchor(to.topAnchor(), top));
    active(view.leadingAnchor().constraintEqualToAnchor(to.leadingAnchor(), leading));
    active(view.bottomAnchor().constraintEqualToAnchor(to.bottomAnchor(), -bottom));
    active(view.trailingAnchor().constraintEqualToAnchor(to.trailingAnchor(), -trailing));
  }
  static void pinTopLeading(UIView& view, const UIView& to, CGFloat top, CGFloat leading) {
    active(view.topAnchor().constraintEqualToAnchor(to.topAnchor(), top));
    active(view.leadingAnchor().constraintEqualToAnchor(to.leadingAnchor(), leading));
  }
  static void size(UIView& view, CGFloat width, CGFloat height) {
    active(view.widthAnchor().constraintEqualToConstant(width));
    active(view.heightAnchor().constraintEqualToConstant(height));
  }
};

CGRect rect(CGFloat x, CGFloat y, CGFloat width, CGFloat height) { return {{x, y}, {width, height}}; }

constexpr auto kHorizontal = UILayoutConstraintAxis::horizontal;
constexpr auto kVertical = UILayoutConstraintAxis::vertical;

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

TEST_F(Arrangement, TakesTheBottomForTheBaselineOfWhatHasNoText) {
  const auto view = placed(), rule = placed();
  pinTopLeading(*view, *screen, 10, 0);
  size(*view, 5, 7);
  active(rule->topAnchor().constraintEqualToAnchor(view->firstBaselineAnchor()));
  layOut();
  EXPECT_EQ(rule->frame().origin.y, 17);
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

TEST_F(Arrangement, KeepsARoomForHiddenViews) {
  const auto a = box(10, 10), b = box(10, 10);
  active(a->leadingAnchor().constraintEqualToAnchor(screen->leadingAnchor()));
  active(b->leadingAnchor().constraintEqualToAnchor(a->trailingAnchor()));
  a->setHidden(true);
  layOut();
  EXPECT_EQ(b->frame().origin.x, 10);
}

TEST_F(Arrangement, TreatsTheAxesApart) {
  const auto label = box(20, 10);
  label->setContentHuggingPriority(1, kVertical);
  active(label->widthAnchor().constraintEqualToConstant(50), 100);
  active(label->heightAnchor().constraintEqualToConstant(50), 100);
  layOut();
  EXPECT_EQ(label->frame().size, (CGSize{20, 50}));
}

}  // namespace
}  // namespace Brisel::Platform
