#include "brisel/platform/views/layout_constraint.h"

#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/platform/views/layout_guide.h"
#include "brisel/platform/views/placed_views_test.h"

namespace Brisel::Platform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr CGFloat kNan = std::numeric_limits<CGFloat>::quiet_NaN();
constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();

class LayoutConstraint : public testing::Test {
 protected:
  std::shared_ptr<UIView> root = UIView::initWithFrame({{0, 0}, {100, 100}});
  std::shared_ptr<UIView> view = placedIn(root);
};

// Making and activating

TEST_F(LayoutConstraint, SaysWhatItWasMadeFrom) {
  const auto constraint = view->leadingAnchor().constraintGreaterThanOrEqualToAnchor(root->trailingAnchor(), -8);
  EXPECT_EQ(constraint->firstItem(), view);
  EXPECT_EQ(constraint->firstAttribute(), NSLayoutAttribute::leading);
  EXPECT_EQ(constraint->relation(), NSLayoutRelation::greaterThanOrEqual);
  EXPECT_EQ(constraint->secondItem(), root);
  EXPECT_EQ(constraint->secondAttribute(), NSLayoutAttribute::trailing);
  EXPECT_EQ(constraint->multiplier(), 1);
  EXPECT_EQ(constraint->constant(), -8);
  EXPECT_EQ(constraint->priority(), 1000);
  EXPECT_FALSE(constraint->isActive());
}

TEST_F(LayoutConstraint, HasNoSecondItemWhereItComparesWithANumber) {
  const auto constraint = view->widthAnchor().constraintLessThanOrEqualToConstant(8);
  EXPECT_EQ(constraint->secondItem(), nullptr);
  EXPECT_EQ(constraint->secondAttribute(), NSLayoutAttribute::notAnAttribute);
  EXPECT_EQ(constraint->relation(), NSLayoutRelation::lessThanOrEqual);
}

TEST_F(LayoutConstraint, IsHeldByTheNearestViewAboveBothItems) {
  const auto sibling = placedIn(root), below = placedIn(view), deep = placedIn(below);
  const auto guide = UILayoutGuide::init();
  below->addLayoutGuide(guide);
  const std::pair<std::shared_ptr<NSLayoutConstraint>, UIView*> cases[] = {
      {view->topAnchor().constraintEqualToAnchor(sibling->topAnchor()), root.get()},
      {deep->topAnchor().constraintEqualToAnchor(sibling->topAnchor()), root.get()},
      {deep->topAnchor().constraintEqualToAnchor(view->topAnchor()), view.get()},
      {deep->widthAnchor().constraintEqualToAnchor(deep->heightAnchor()), deep.get()},
      {deep->widthAnchor().constraintEqualToConstant(1), deep.get()},
      {guide->topAnchor().constraintEqualToAnchor(below->topAnchor()), below.get()},
      {guide->widthAnchor().constraintEqualToConstant(1), below.get()},
      {guide->topAnchor().constraintEqualToAnchor(sibling->topAnchor()), root.get()},
  };
  for (const auto& [constraint, holder] : cases) {
    constraint->setActive(true);
    EXPECT_TRUE(constraint->isActive());
    EXPECT_THAT(holder->constraints(), ElementsAre(constraint));
    constraint->setActive(false);
    EXPECT_FALSE(constraint->isActive());
    EXPECT_THAT(holder->constraints(), IsEmpty());
  }
}

TEST_F(LayoutConstraint, IsActiveOnceHoweverOftenItIsActivated) {
  const auto constraint = view->widthAnchor().constraintEqualToConstant(1);
  NSLayoutConstraint::activateConstraints({constraint, nullptr, constraint});
  EXPECT_THAT(view->constraints(), ElementsAre(constraint));
  NSLayoutConstraint::deactivateConstraints({constraint, nullptr, constraint});
  EXPECT_THAT(view->constraints(), IsEmpty());
}

TEST_F(LayoutConstraint, EndsTheProcessWhereAttributesCannotBeCompared) {
  const auto make = [this](NSLayoutAttribute first, NSLayoutAttribute second) {
    NSLayoutConstraint::constraintWithItem(view, first, NSLayoutRelation::equal, root, second, 1, 0);
  };
  EXPECT_DEATH(make(NSLayoutAttribute::left, NSLayoutAttribute::leading), "cannot be compared");
  EXPECT_DEATH(make(NSLayoutAttribute::top, NSLayoutAttribute::width), "cannot be compared");
  EXPECT_DEATH(make(NSLayoutAttribute::top, NSLayoutAttribute::centerX), "cannot be compared");
  EXPECT_DEATH(make(NSLayoutAttribute::top, NSLayoutAttribute::notAnAttribute), "cannot be compared");
  EXPECT_DEATH(make(NSLayoutAttribute::notAnAttribute, NSLayoutAttribute::top), "cannot be compared");
  EXPECT_DEATH(NSLayoutConstraint::constraintWithItem(nullptr, NSLayoutAttribute::width, NSLayoutRelation::equal, view,
                                                      NSLayoutAttribute::width, 1, 0),
               "needs a first item");
}

TEST_F(LayoutConstraint, EndsTheProcessWhereItCannotBeActivated) {
  const auto stranger = UIView::initWithFrame();
  const auto guide = UILayoutGuide::init();
  EXPECT_DEATH(view->topAnchor().constraintEqualToAnchor(stranger->topAnchor())->setActive(true), "in common");
  EXPECT_DEATH(guide->topAnchor().constraintEqualToAnchor(view->topAnchor())->setActive(true), "in common");
  auto freed = placedIn(root);
  const auto first = freed->widthAnchor().constraintEqualToConstant(1);
  const auto second = view->widthAnchor().constraintEqualToAnchor(freed->widthAnchor());
  freed->removeFromSuperview();
  freed = nullptr;
  EXPECT_DEATH(first->setActive(true), "has been freed");
  EXPECT_DEATH(second->setActive(true), "has been freed");
}

TEST_F(LayoutConstraint, EndsTheProcessWhereAnAnchorHasLostItsItem) {
  auto freed = UIView::initWithFrame();
  const auto width = freed->widthAnchor();
  const auto top = freed->topAnchor();
  freed = nullptr;
  EXPECT_DEATH(view->widthAnchor().constraintEqualToAnchor(width, 2, 5), "has been freed");
  EXPECT_DEATH(view->topAnchor().constraintEqualToAnchor(top), "has been freed");
  EXPECT_DEATH(view->topAnchor().constraintGreaterThanOrEqualToAnchor(top), "has been freed");
  EXPECT_DEATH(view->topAnchor().constraintLessThanOrEqualToAnchor(top), "has been freed");
  EXPECT_DEATH(width.constraintEqualToConstant(5), "has been freed");
  EXPECT_EQ(NSLayoutConstraint::constraintWithItem(view, NSLayoutAttribute::width, NSLayoutRelation::equal, nullptr,
                                                   NSLayoutAttribute::width, 2, 5)
                ->constant(),
            5);
}

// Ownership

TEST_F(LayoutConstraint, IsOwnedByItsHolderWhileActive) {
  std::weak_ptr<NSLayoutConstraint> constraint = active(view->widthAnchor().constraintEqualToConstant(1));
  EXPECT_FALSE(constraint.expired());
  constraint.lock()->setActive(false);
  EXPECT_TRUE(constraint.expired());
}

TEST_F(LayoutConstraint, GoesWithAnItemThatIsFreed) {
  for (const bool isLaidOut : {false, true}) {
    auto freed = placedIn(root);
    const auto constraint = active(view->widthAnchor().constraintEqualToAnchor(freed->widthAnchor(), 3));
    active(freed->widthAnchor().constraintEqualToConstant(20));
    if (isLaidOut) {
      root->layoutIfNeeded();
      EXPECT_EQ(view->frame().size.width, 23);
    }
    freed->removeFromSuperview();
    freed = nullptr;
    EXPECT_FALSE(constraint->isActive());
    EXPECT_EQ(constraint->secondItem(), nullptr);
    EXPECT_THAT(root->constraints(), IsEmpty());
    root->layoutIfNeeded();
    EXPECT_EQ(view->frame().size.width, 0);
  }
}

TEST_F(LayoutConstraint, GoesWithAGuideThatIsRemoved) {
  const auto guide = UILayoutGuide::init();
  root->addLayoutGuide(guide);
  const auto constraint = active(view->widthAnchor().constraintEqualToAnchor(guide->widthAnchor()));
  root->layoutIfNeeded();
  root->removeLayoutGuide(guide);
  EXPECT_FALSE(constraint->isActive());
  EXPECT_EQ(guide->owningView(), nullptr);
  EXPECT_THAT(root->layoutGuides(), IsEmpty());
  root->layoutIfNeeded();
}

TEST_F(LayoutConstraint, OutlivesTheTreeInactive) {
  const auto constraint = active(view->widthAnchor().constraintEqualToAnchor(root->widthAnchor()));
  root->layoutIfNeeded();
  const auto guide = UILayoutGuide::init();
  root->addLayoutGuide(guide);
  root = nullptr;
  EXPECT_FALSE(constraint->isActive());
  EXPECT_EQ(view->superview(), nullptr);
  EXPECT_EQ(guide->owningView(), nullptr);
  constraint->setConstant(3);
}

TEST_F(LayoutConstraint, IsDeactivatedWhereItCrossesTheBorderOfWhatIsRemoved) {
  const auto below = placedIn(view);
  const auto crossing = active(below->widthAnchor().constraintEqualToAnchor(root->widthAnchor()));
  const auto atBorder = active(view->widthAnchor().constraintEqualToAnchor(root->widthAnchor()));
  const auto within = active(below->heightAnchor().constraintEqualToAnchor(view->heightAnchor()));
  const auto own = active(view->heightAnchor().constraintEqualToConstant(30));
  root->layoutIfNeeded();
  view->removeFromSuperview();
  EXPECT_FALSE(crossing->isActive());
  EXPECT_FALSE(atBorder->isActive());
  EXPECT_TRUE(within->isActive());
  EXPECT_TRUE(own->isActive());
  view->layoutIfNeeded();
  EXPECT_EQ(below->frame().size, (CGSize{0, 30}));
}

// Numbers

TEST_F(LayoutConstraint, CountsAConstantThatIsNoNumberAsZeroAndCutsLargeOnes) {
  const auto constraint = active(view->widthAnchor().constraintEqualToConstant(5));
  for (const auto& [constant, width] : {std::pair(kNan, 0.0), {kInfinity, 1e9}, {1e300, 1e9}, {7.0, 7.0}}) {
    constraint->setConstant(constant);
    root->layoutIfNeeded();
    EXPECT_EQ(view->frame().size.width, width) << constant;
  }
}

TEST_F(LayoutConstraint, CountsAMultiplierThatIsNoNumberAsZero) {
  active(view->widthAnchor().constraintEqualToAnchor(root->widthAnchor(), kNan, 6));
  active(view->heightAnchor().constraintEqualToAnchor(root->heightAnchor(), kInfinity, 0));
  root->layoutIfNeeded();
  EXPECT_EQ(view->frame().size, (CGSize{6, 1'000'000}));
}

TEST_F(LayoutConstraint, AsksForNothingWithAPriorityNotAboveZero) {
  for (const float priority : {0.0F, -5.0F, std::numeric_limits<float>::quiet_NaN()}) {
    const auto constraint = view->widthAnchor().constraintEqualToConstant(5);
    constraint->setPriority(priority);
    constraint->setActive(true);
    root->layoutIfNeeded();
    EXPECT_EQ(view->frame().size.width, 0);
    constraint->setPriority(0.5);
    root->layoutIfNeeded();
    EXPECT_EQ(view->frame().size.width, 5);
    constraint->setActive(false);
    root->layoutIfNeeded();
  }
}

TEST_F(LayoutConstraint, CountsAPriorityAbove1000AsRequired) {
  active(view->widthAnchor().constraintEqualToConstant(5));
  const auto later = view->widthAnchor().constraintEqualToConstant(9);
  later->setPriority(std::numeric_limits<float>::infinity());
  later->setActive(true);
  root->layoutIfNeeded();
  EXPECT_EQ(view->frame().size.width, 5);
}

TEST_F(LayoutConstraint, IsHarmedByNoIntrinsicSize) {
  const auto box = boxIn(root, {});
  for (const CGFloat width : {kNan, kInfinity, -kInfinity, -1.0, -7.0}) {
    box->setContent({width, 12});
    root->layoutIfNeeded();
    EXPECT_EQ(box->frame().size, (CGSize{0, 12})) << width;
  }
  box->setContent({1e300, 0});
  root->layoutIfNeeded();
  EXPECT_EQ(box->frame().size, (CGSize{1e9, 0}));
}

}  // namespace
}  // namespace Brisel::Platform
