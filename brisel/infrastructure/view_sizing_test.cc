#include "brisel/infrastructure/view_sizing.h"

#include <cstddef>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/platform/views/layout_constraint.h"
#include "brisel/typography/dynamic_type_monitor.h"

#include "tests/recording_ports.h"

namespace Brisel {
namespace {

using namespace Platform;
using testing::ElementsAre;

DynamicTypeMonitor& monitor() { return *DynamicTypeMonitor::shared(); }

// A view with content of 80 by 30 points, which keeps what it is asked, and the constraints at each layout.
class MeasuredView final : public UIView {
 public:
  static std::shared_ptr<MeasuredView> init() {
    auto view = made(std::shared_ptr<MeasuredView>(new MeasuredView), {});
    view->setTranslatesAutoresizingMaskIntoConstraints(false);
    return view;
  }

  CGSize intrinsicContentSize() const override { return {80, 30}; }
  CGSize systemLayoutSizeFittingSize(CGSize size) override {
    asked.push_back(size);
    events.emplace_back("asked");
    return {1, 1};
  }
  void layoutSubviews() override {
    UIView::layoutSubviews();
    events.emplace_back("laid out");
    priorities.clear();
    constants.clear();
    for (const auto& constraint : constraints()) {
      if (constraint->firstItem().get() != this || constraint->secondItem()) continue;
      priorities.push_back(constraint->priority());
      constants.push_back(constraint->constant());
    }
  }

  std::vector<CGSize> asked;
  std::vector<std::string> events;
  std::vector<UILayoutPriority> priorities;
  std::vector<CGFloat> constants;
};

// --- Measuring ---

TEST(ViewSizing, AsksForTheSizeByTwoConstraintsOfTheGivenPriorities) {
  const auto view = MeasuredView::init();
  brisel_systemLayoutSizeFitting(*view, {120, 60}, 400, 600);
  EXPECT_THAT(view->constants, ElementsAre(120, 60));
  EXPECT_THAT(view->priorities, ElementsAre(400.F, 600.F));
}

TEST(ViewSizing, CutsPrioritiesAtThatOfWhatIsRequired) {
  const auto view = MeasuredView::init();
  brisel_systemLayoutSizeFitting(*view, {120, 60}, 1000.5F, std::numeric_limits<float>::infinity());
  EXPECT_THAT(view->priorities, ElementsAre(1000.F, 1000.F));
}

TEST(ViewSizing, WeighsThePlainViewsSizeAt501) {
  const auto view = MeasuredView::init();
  brisel_systemLayoutSizeFitting(*view, {120, 60});
  EXPECT_THAT(view->priorities, ElementsAre(501.F, 501.F));
}

TEST(ViewSizing, TakesEachAxisPrioritiesForItself) {
  const auto view = MeasuredView::init();
  view->setContentHuggingPriority(100, UILayoutConstraintAxis::horizontal);
  view->setContentCompressionResistancePriority(300, UILayoutConstraintAxis::horizontal);
  view->setContentHuggingPriority(1000, UILayoutConstraintAxis::vertical);
  view->setContentCompressionResistancePriority(1000, UILayoutConstraintAxis::vertical);
  brisel_systemLayoutSizeFitting(*view, {120, 60});
  // 1001 on the vertical axis before it is cut.
  EXPECT_THAT(view->priorities, ElementsAre(201.F, 1000.F));
}

TEST(ViewSizing, AnswersTheSizeThatLayoutGivesAndNotThePlatforms) {
  const auto view = MeasuredView::init();
  // 501 is stronger than hugging at 250: larger than the content is granted, smaller than it is not.
  EXPECT_EQ(brisel_systemLayoutSizeFitting(*view, {120, 60}), (CGSize{120, 60}));
  EXPECT_EQ(brisel_systemLayoutSizeFitting(*view, {10, 60}), (CGSize{80, 60}));
  EXPECT_EQ(brisel_systemLayoutSizeFitting(*view, {10, 10}, 1000, 1000), (CGSize{10, 10}));
  EXPECT_EQ(brisel_systemLayoutSizeFitting(*view, {10, 10}, 100, 100), (CGSize{80, 30}));
}

TEST(ViewSizing, AsksThePlatformFirstOnceAndWithTheSameSize) {
  const auto view = MeasuredView::init();
  brisel_systemLayoutSizeFitting(*view, {120, 60});
  EXPECT_THAT(view->asked, ElementsAre(CGSize{120, 60}));
  EXPECT_THAT(view->events, ElementsAre("asked", "laid out"));
}

TEST(ViewSizing, DoesNotAskThePlatformWherePrioritiesAreGiven) {
  const auto view = MeasuredView::init();
  brisel_systemLayoutSizeFitting(*view, {120, 60}, 501, 501);
  EXPECT_THAT(view->events, ElementsAre("laid out"));
}

TEST(ViewSizing, LeavesTheConstraintsAsTheyWereAndTheFrameAsMeasured) {
  const auto view = MeasuredView::init();
  const auto own = view->heightAnchor().constraintGreaterThanOrEqualToConstant(20);
  own->setActive(true);
  brisel_systemLayoutSizeFitting(*view, {120, 60});
  EXPECT_THAT(view->constraints(), ElementsAre(own));
  EXPECT_EQ(view->frame().size, (CGSize{120, 60}));
  EXPECT_THAT(view->events, ElementsAre("asked", "laid out"));
  view->setNeedsLayout();
  view->layoutIfNeeded();
  EXPECT_EQ(view->frame().size, (CGSize{80, 30}));
}

class ThrowingView final : public UIView {
 public:
  static std::shared_ptr<ThrowingView> init() {
    auto view = made(std::shared_ptr<ThrowingView>(new ThrowingView), {});
    view->setTranslatesAutoresizingMaskIntoConstraints(false);
    return view;
  }
  void layoutSubviews() override {
    constraintsWhileLaidOut = constraints().size();
    throw std::runtime_error("cannot be laid out");
  }

  std::size_t constraintsWhileLaidOut = 0;
};

TEST(ViewSizing, LeavesNoConstraintWhereLayingOutThrows) {
  const auto view = ThrowingView::init();
  EXPECT_THROW(brisel_systemLayoutSizeFitting(*view, {120, 60}), std::runtime_error);
  EXPECT_EQ(view->constraintsWhileLaidOut, 2U);
  EXPECT_THAT(view->constraints(), testing::IsEmpty());
}

TEST(ViewSizing, LaysOutEvenWhatNeedsNone) {
  const auto view = MeasuredView::init();
  view->layoutIfNeeded();
  view->events.clear();
  brisel_systemLayoutSizeFitting(*view, view->frame().size, 501, 501);
  EXPECT_THAT(view->events, ElementsAre("laid out"));
}

TEST(ViewSizing, AnswersTheFrameOfAViewThatStandsAsItIsSet) {
  const auto view = UIView::initWithFrame({{5, 5}, {70, 20}});
  EXPECT_EQ(brisel_systemLayoutSizeFitting(*view, UILayoutFittingExpandedSize), (CGSize{70, 20}));
}

// --- Limits ---

class ContentSizeLimit : public testing::Test {
 protected:
  const UIContentSizeCategory& seen() const { return child->traitCollection()->preferredContentSizeCategory(); }

  std::shared_ptr<UIViewController> parent = UIViewController::init();
  std::shared_ptr<UIViewController> child = [this] {
    auto controller = UIViewController::init();
    parent->addChildViewController(controller);
    return controller;
  }();
};

TEST_F(ContentSizeLimit, ShowsTheMaximumWhereTheUsersCategoryIsLarger) {
  monitor().setup(UIContentSizeCategoryAccessibilityLarge);
  briselSwift_setMaxPreferredContentSizeCategory(child, UIContentSizeCategoryExtraExtraExtraLarge);
  EXPECT_EQ(seen(), UIContentSizeCategoryExtraExtraExtraLarge);
}

TEST_F(ContentSizeLimit, ShowsTheUsersCategoryWhereItIsSmaller) {
  monitor().setup(UIContentSizeCategorySmall);
  briselSwift_setMaxPreferredContentSizeCategory(child, UIContentSizeCategoryExtraExtraExtraLarge);
  EXPECT_EQ(seen(), UIContentSizeCategorySmall);
}

TEST_F(ContentSizeLimit, ShowsTheUsersCategoryWhereBothAreEqual) {
  monitor().setup(UIContentSizeCategoryExtraLarge);
  briselSwift_setMaxPreferredContentSizeCategory(child, UIContentSizeCategoryExtraLarge);
  EXPECT_EQ(seen(), UIContentSizeCategoryExtraLarge);
}

TEST_F(ContentSizeLimit, FollowsTheUser) {
  briselSwift_setMaxPreferredContentSizeCategory(child, UIContentSizeCategoryExtraExtraExtraLarge);
  EXPECT_EQ(seen(), UIContentSizeCategoryLarge);
  monitor().setup(UIContentSizeCategoryAccessibilityLarge);
  EXPECT_EQ(seen(), UIContentSizeCategoryExtraExtraExtraLarge);
  monitor().setup(UIContentSizeCategoryExtraSmall);
  EXPECT_EQ(seen(), UIContentSizeCategoryExtraSmall);
}

TEST_F(ContentSizeLimit, TakesUnknownNamesForLarge) {
  monitor().setup(UIContentSizeCategoryExtraLarge);
  briselSwift_setMaxPreferredContentSizeCategory(child, UIContentSizeCategory("nonsense"));
  EXPECT_EQ(seen(), UIContentSizeCategoryLarge);
  briselSwift_setMaxPreferredContentSizeCategory(child, UIContentSizeCategoryAccessibilityLarge);
  monitor().setup(UIContentSizeCategory("nonsense"));
  EXPECT_EQ(seen(), UIContentSizeCategoryLarge);
}

TEST_F(ContentSizeLimit, KeepsTheOtherTraits) {
  parent->setOverrideTraitCollection(
      UITraitCollection::traitCollectionWithLayoutDirection(UITraitEnvironmentLayoutDirection::rightToLeft), child);
  briselSwift_setMaxPreferredContentSizeCategory(child, UIContentSizeCategorySmall);
  EXPECT_EQ(seen(), UIContentSizeCategorySmall);
  EXPECT_EQ(child->traitCollection()->layoutDirection(), UITraitEnvironmentLayoutDirection::rightToLeft);
}

TEST_F(ContentSizeLimit, NeedsAParentAndTakesEffectAtTheNextChangeOnceThereIsOne) {
  const auto orphan = UIViewController::init();
  briselSwift_setMaxPreferredContentSizeCategory(orphan, UIContentSizeCategorySmall);
  const auto seenByOrphan = [&] { return orphan->traitCollection()->preferredContentSizeCategory(); };
  EXPECT_EQ(seenByOrphan(), UIContentSizeCategoryUnspecified);
  parent->addChildViewController(orphan);
  EXPECT_EQ(seenByOrphan(), UIContentSizeCategoryUnspecified);
  monitor().setup(UIContentSizeCategoryAccessibilityLarge);
  EXPECT_EQ(seenByOrphan(), UIContentSizeCategorySmall);
}

TEST_F(ContentSizeLimit, GoesByTheMaximumThatWasSetLast) {
  monitor().setup(UIContentSizeCategoryAccessibilityLarge);
  briselSwift_setMaxPreferredContentSizeCategory(child, UIContentSizeCategorySmall);
  briselSwift_setMaxPreferredContentSizeCategory(child, UIContentSizeCategoryExtraLarge);
  EXPECT_EQ(seen(), UIContentSizeCategoryExtraLarge);
  monitor().setup(UIContentSizeCategoryAccessibilityExtraLarge);
  EXPECT_EQ(seen(), UIContentSizeCategoryExtraLarge);
}

TEST_F(ContentSizeLimit, KeepsTheControllerAliveUntilItIsUnsubscribed) {
  std::weak_ptr<UIViewController> weak;
  {
    const auto controller = UIViewController::init();
    briselSwift_setMaxPreferredContentSizeCategory(controller, UIContentSizeCategorySmall);
    weak = controller;
  }
  monitor().setup(UIContentSizeCategoryExtraLarge);
  EXPECT_FALSE(weak.expired());
  monitor().unsubscribe(weak.lock());
  EXPECT_TRUE(weak.expired());
}

TEST(ContentSizeLimitDeathTest, RefusesNoController) {
  EXPECT_DEATH(briselSwift_setMaxPreferredContentSizeCategory(nullptr, UIContentSizeCategorySmall),
               "held by a shared_ptr");
}

}  // namespace
}  // namespace Brisel
