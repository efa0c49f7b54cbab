#include "brisel/platform/views/view_controller.h"

#include <memory>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/platform/views/view.h"

namespace Brisel::Platform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Controller = std::shared_ptr<UIViewController>;

TEST(ViewController, MakesItsViewWhenItIsFirstAskedForIt) {
  const auto controller = UIViewController::init();
  EXPECT_FALSE(controller->isViewLoaded());
  const auto view = controller->view();
  ASSERT_NE(view, nullptr);
  EXPECT_TRUE(controller->isViewLoaded());
  EXPECT_EQ(controller->view(), view);
}

struct CountingController : UIViewController {
  std::shared_ptr<UIView> loadView() override {
    ++loads;
    return made;
  }
  void viewDidLoad() override {
    ++didLoads;
    EXPECT_EQ(view(), made);
  }

  std::shared_ptr<UIView> made = UIView::initWithFrame({{0, 0}, {7, 8}});
  int loads = 0, didLoads = 0;
};

TEST(ViewController, LoadsTheViewOfItsSubclassOnce) {
  const auto controller = std::make_shared<CountingController>();
  EXPECT_EQ(controller->view(), controller->made);
  EXPECT_EQ(controller->view(), controller->made);
  EXPECT_EQ(controller->loads, 1);
  EXPECT_EQ(controller->didLoads, 1);
}

TEST(ViewController, MustMakeAView) {
  const auto controller = std::make_shared<CountingController>();
  controller->made = nullptr;
  EXPECT_DEATH(controller->view(), "loadView");
}

TEST(ViewController, OwnsItsChildrenInTheOrderOfTheirAddition) {
  const Controller parent = UIViewController::init(), a = UIViewController::init(), b = UIViewController::init();
  parent->addChildViewController(a);
  parent->addChildViewController(b);
  EXPECT_THAT(parent->childViewControllers(), ElementsAre(a, b));
  EXPECT_EQ(a->parentViewController(), parent);
  EXPECT_FALSE(a->isViewLoaded());
  parent->addChildViewController(a);  // where it is already
  EXPECT_THAT(parent->childViewControllers(), ElementsAre(a, b));
}

TEST(ViewController, LeavesItsParentForAnother) {
  const Controller one = UIViewController::init(), other = UIViewController::init();
  one->addChildViewController(UIViewController::init());
  other->addChildViewController(one->childViewControllers().front());  // a reference into the list that it leaves
  EXPECT_THAT(one->childViewControllers(), IsEmpty());
  ASSERT_EQ(other->childViewControllers().size(), 1U);
  EXPECT_EQ(other->childViewControllers().front()->parentViewController(), other);
}

TEST(ViewController, IsRemovedFromItsParentEvenIfThatIsAllThatHoldsIt) {
  const Controller parent = UIViewController::init();
  parent->addChildViewController(UIViewController::init());
  parent->childViewControllers().front()->removeFromParentViewController();
  EXPECT_THAT(parent->childViewControllers(), IsEmpty());
  parent->removeFromParentViewController();  // nothing, without one
}

TEST(ViewController, CannotBeAddedToItselfOrBelow) {
  const Controller top = UIViewController::init(), middle = UIViewController::init(), low = UIViewController::init();
  top->addChildViewController(middle);
  middle->addChildViewController(low);
  EXPECT_DEATH(top->addChildViewController(nullptr), "view controller");
  EXPECT_DEATH(top->addChildViewController(top), "view controller");
  EXPECT_DEATH(low->addChildViewController(top), "view controller");
}

TEST(ViewController, MayHaveAHundredThousandDescendantsAndBeFreed) {
  Controller top = UIViewController::init();
  std::weak_ptr<UIViewController> lowest = top;
  for (int i = 0; i < 100'000; ++i) {
    const Controller above = UIViewController::init();
    above->addChildViewController(top);
    top = above;
  }
  EXPECT_FALSE(lowest.expired());
  top.reset();
  EXPECT_TRUE(lowest.expired());
}

TEST(ViewController, OutlivedByAGrandchildIsFreedAllTheSame) {
  Controller top = UIViewController::init();
  const Controller grandchild = UIViewController::init();
  top->addChildViewController(UIViewController::init());
  const std::weak_ptr<UIViewController> child = top->childViewControllers().front();
  child.lock()->addChildViewController(grandchild);
  top.reset();
  EXPECT_TRUE(child.expired());
  EXPECT_EQ(grandchild->parentViewController(), nullptr);
}

}  // namespace
}  // namespace Brisel::Platform
