// When views are laid out, and what callbacks may do meanwhile.
#include <cstdint>
#include <functional>
#include <memory>
#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "brisel/platform/views/layout_guide.h"
#include "brisel/platform/views/placed_views_test.h"

#include "tests/view_tree_model.h"

namespace Brisel::Platform {
namespace {

std::shared_ptr<TestBox> fixedIn(const std::shared_ptr<UIView>& superview) {
  auto box = TestBox::make({5, 5});
  if (superview) superview->addSubview(box);
  return box;
}

class ViewLayout : public testing::Test {
 protected:
  std::shared_ptr<TestBox> top = fixedIn(nullptr);
  std::shared_ptr<TestBox> middle = fixedIn(top);
  std::shared_ptr<TestBox> low = fixedIn(middle);
};

TEST_F(ViewLayout, CallsLayoutSubviewsOnceOfAViewThatNeedsIt) {
  top->layoutIfNeeded();
  EXPECT_EQ(top->layouts(), 1);
  EXPECT_EQ(low->layouts(), 1);
  top->layoutIfNeeded();
  EXPECT_EQ(low->layouts(), 1);
  low->setNeedsLayout();
  low->setNeedsLayout();
  EXPECT_EQ(low->layouts(), 1);
  top->layoutIfNeeded();
  EXPECT_EQ(top->layouts(), 1);
  EXPECT_EQ(low->layouts(), 2);
}

TEST_F(ViewLayout, CallsItAfterAChangeOfSizeAndNotOfPlace) {
  top->layoutIfNeeded();
  low->setFrame({{5, 5}, {0, 0}});
  top->layoutIfNeeded();
  EXPECT_EQ(low->layouts(), 1);
  low->setFrame({{5, 5}, {1, 0}});
  top->layoutIfNeeded();
  EXPECT_EQ(low->layouts(), 2);
}

TEST_F(ViewLayout, LeavesWhatIsAboveForTheNextLayout) {
  low->layoutIfNeeded();
  EXPECT_EQ(top->layouts(), 0);
  EXPECT_EQ(low->layouts(), 1);
  top->layoutIfNeeded();
  EXPECT_EQ(top->layouts(), 1);
  EXPECT_EQ(low->layouts(), 1);
}

TEST_F(ViewLayout, CallsItForASuperviewWhoseSubviewsChange) {
  top->layoutIfNeeded();
  const auto added = fixedIn(middle);
  top->layoutIfNeeded();
  EXPECT_EQ(middle->layouts(), 2);
  EXPECT_EQ(added->layouts(), 1);
  added->removeFromSuperview();
  top->layoutIfNeeded();
  EXPECT_EQ(middle->layouts(), 3);
}

TEST_F(ViewLayout, FollowsFramesThatLayoutSubviewsSets) {
  top->setOnLayout([this] { middle->setFrame({{}, {top->frame().size.width / 2, 1}}); });
  middle->setOnLayout([this] { low->setFrame({{}, {middle->frame().size.width / 2, 1}}); });
  top->layoutIfNeeded();
  top->setFrame({{}, {80, 10}});
  top->layoutIfNeeded();
  EXPECT_EQ(low->frame().size.width, 20);
}

TEST_F(ViewLayout, FollowsChangesThatGoUpwards) {
  low->setOnLayout([this] { top->setFrame({{}, {low->frame().size.width + 1, 1}}); });
  low->setFrame({{}, {30, 1}});
  top->layoutIfNeeded();
  EXPECT_EQ(top->frame().size.width, 31);
  EXPECT_EQ(top->layouts(), 2);
}

TEST_F(ViewLayout, ComesToAnEndWhereAViewAlwaysAsksForMore) {
  low->setOnLayout([this] { low->setNeedsLayout(); });
  top->layoutIfNeeded();
  EXPECT_EQ(low->layouts(), 16);
}

TEST_F(ViewLayout, ComesToAnEndWhereCallbacksCallThemselves) {
  for (TestBox* const box : {top.get(), middle.get(), low.get()}) {
    box->setOnLayout([this, box] {
      box->setNeedsLayout();
      top->layoutIfNeeded();
    });
  }
  setFree(*low);
  low->setOnSize([this] {
    low->invalidateIntrinsicContentSize();
    low->layoutIfNeeded();
    low->systemLayoutSizeFittingSize({});
  });
  top->layoutIfNeeded();
  EXPECT_GT(low->layouts(), 0);
}

TEST_F(ViewLayout, LetsANestedLayoutDoWhatIsStillToBeDone) {
  const auto second = fixedIn(top);
  int laidOutBefore = -1;
  middle->setOnLayout([&] {
    top->layoutIfNeeded();
    laidOutBefore = second->layouts();
  });
  top->layoutIfNeeded();
  EXPECT_EQ(laidOutBefore, 1);
  EXPECT_EQ(second->layouts(), 1);
}

TEST_F(ViewLayout, LetsLayoutSubviewsChangeTheTree) {
  const auto second = fixedIn(top);
  std::shared_ptr<TestBox> added;
  middle->setOnLayout([&] {
    middle->removeFromSuperview();
    second->removeFromSuperview();
    if (!added) added = fixedIn(top);
    low = nullptr;
    for (const auto below = middle->subviews(); const auto& view : below) view->removeFromSuperview();
  });
  top->layoutIfNeeded();
  EXPECT_EQ(added->layouts(), 1);
  EXPECT_EQ(top->subviews().size(), 1U);
}

TEST_F(ViewLayout, LetsAContentChangeTheTree) {
  setFree(*low);
  const auto other = fixedIn(nullptr);
  active(low->leftAnchor().constraintEqualToAnchor(top->leftAnchor(), 9));
  low->setOnSize([&] { other->addSubview(top); });
  top->layoutIfNeeded();
  EXPECT_EQ(top->superview(), other);
  low->setOnSize({});
  other->layoutIfNeeded();
  EXPECT_EQ(low->frame().origin.x, 9);
}

TEST_F(ViewLayout, LetsTheLastOwnerGoWhileAViewIsLaidOut) {
  const std::weak_ptr<TestBox> gone = top;
  TestBox* const box = top.get();
  top->setOnLayout([this] { top = nullptr; });
  box->layoutIfNeeded();
  EXPECT_TRUE(gone.expired());
}

TEST_F(ViewLayout, GoesOnAfterACallbackHasThrown) {
  setFree(*low);
  const auto width = active(low->widthAnchor().constraintEqualToConstant(3));
  middle->setOnLayout([] { throw std::runtime_error("no"); });
  EXPECT_THROW(top->layoutIfNeeded(), std::runtime_error);
  middle->setOnLayout({});
  width->setConstant(4);
  top->layoutIfNeeded();
  EXPECT_EQ(low->frame().size.width, 4);
  EXPECT_EQ(low->layouts(), 1);
}

TEST_F(ViewLayout, AsksAgainWhereMeasuringHasThrown) {
  setFree(*low);
  active(low->widthAnchor().constraintEqualToConstant(20));
  low->setArea(100);
  low->setOnSize([] { throw std::runtime_error("no"); });
  EXPECT_THROW(top->layoutIfNeeded(), std::runtime_error);
  low->setOnSize({});
  low->setOnFit([] { throw std::runtime_error("no"); });
  EXPECT_THROW(top->layoutIfNeeded(), std::runtime_error);
  low->setOnFit({});
  top->layoutIfNeeded();
  EXPECT_EQ(low->frame().size, (CGSize{20, 5}));
}

TEST_F(ViewLayout, ForgetsTheQuestionForASizeThatHasThrown) {
  active(low->leftAnchor().constraintEqualToAnchor(top->leftAnchor(), 9));
  low->setOnSize([] { throw std::runtime_error("no"); });
  EXPECT_THROW(low->systemLayoutSizeFittingSize({300, 300}), std::runtime_error);
  low->setOnSize({});
  low->setFrame({{1, 2}, {3, 4}});
  top->layoutIfNeeded();
  EXPECT_EQ(low->frame(), (CGRect{{1, 2}, {3, 4}}));
  setFree(*low);
  low->setOnSize([] { throw std::runtime_error("no"); });
  EXPECT_THROW(low->systemLayoutSizeFittingSize({300, 300}), std::runtime_error);
  low->setOnSize({});
  for (const auto axis : {UILayoutConstraintAxis::horizontal, UILayoutConstraintAxis::vertical})
    low->setContentHuggingPriority(1, axis);
  top->layoutIfNeeded();
  EXPECT_EQ(low->frame().size, (CGSize{5, 5}));
}

// A view whose content is a tree of its own.
class SelfSizing final : public UIView {
 public:
  static std::shared_ptr<SelfSizing> make() { return made(std::shared_ptr<SelfSizing>(new SelfSizing), {}); }
  const std::shared_ptr<UIView>& inner() const { return inner_; }
  CGSize intrinsicContentSize() const override {
    return inner_->systemLayoutSizeFittingSize(UILayoutFittingCompressedSize);
  }

 private:
  SelfSizing() = default;
  std::shared_ptr<UIView> inner_ = UIView::initWithFrame({{}, {77, 77}});
};

// So many of them around a content of 10 × 20 points, each with a point more on all sides.
std::shared_ptr<UIView> nestedSelfSizing(int depth) {
  std::shared_ptr<UIView> view = TestBox::make({10, 20});
  for (; depth > 0; --depth) {
    const auto around = SelfSizing::make();
    setFree(*view);
    around->inner()->addSubview(view);
    active(view->leftAnchor().constraintEqualToAnchor(around->inner()->leftAnchor(), 1));
    active(view->topAnchor().constraintEqualToAnchor(around->inner()->topAnchor(), 1));
    active(view->rightAnchor().constraintEqualToAnchor(around->inner()->rightAnchor(), -1));
    active(view->bottomAnchor().constraintEqualToAnchor(around->inner()->bottomAnchor(), -1));
    view = around;
  }
  return view;
}

TEST_F(ViewLayout, FindsTheSizeOfViewsThatLayOutTheirContentHoweverDeep) {
  for (int depth = 1; depth <= 8; ++depth)
    EXPECT_EQ(nestedSelfSizing(depth)->intrinsicContentSize(), (CGSize{10.0 + 2 * depth, 20.0 + 2 * depth})) << depth;
}

TEST_F(ViewLayout, TellsWhereLayoutsNestWithoutEnd) {
  const LogRecord log;
  std::vector<std::shared_ptr<TestBox>> boxes;
  std::function<void()> layOutAnother = [&] {
    const auto box = boxes.emplace_back(fixedIn(nullptr));
    box->setOnLayout(layOutAnother);
    box->layoutIfNeeded();
  };
  layOutAnother();
  EXPECT_EQ(boxes.size(), 65U);
  EXPECT_EQ(LogRecord::lines().size(), 1U);
}

TEST_F(ViewLayout, AsksForTheSizeOfAContentOnceUntilItChanges) {
  setFree(*low);
  top->layoutIfNeeded();
  const int asked = low->sizesAsked();
  active(low->leftAnchor().constraintEqualToAnchor(top->leftAnchor(), 9))->setConstant(10);
  top->layoutIfNeeded();
  EXPECT_EQ(low->sizesAsked(), asked);
  low->invalidateIntrinsicContentSize();
  low->invalidateIntrinsicContentSize();
  top->layoutIfNeeded();
  EXPECT_EQ(low->sizesAsked(), asked + 1);
}

TEST_F(ViewLayout, AsksForNoContentWhereNoConstraintIs) {
  low->invalidateIntrinsicContentSize();
  top->layoutIfNeeded();
  EXPECT_EQ(low->sizesAsked(), 0);
}

// What was changed and laid out over and over stands where the same tree stands that is laid out once.
TEST_F(ViewLayout, DoesNotDependOnWhatWasBefore) {
  EXPECT_TRUE(rc::check([](const std::vector<std::uint8_t>& choices) {
    auto at = choices.begin();
    const auto below = [&](int end) { return at == choices.end() ? 0 : *at++ % end; };
    Tests::ViewTreeModel model;
    while (at != choices.end()) {
      for (int changes = 1 + below(6); changes > 0; --changes) model.change(below);
      model.layOut();
    }
    RC_ASSERT(Tests::ViewTreeModel::areNear(model.frames(), model.framesLaidOutAfresh()));
  }));
}

}  // namespace
}  // namespace Brisel::Platform
