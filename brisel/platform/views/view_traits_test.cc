#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/platform/log.h"
#include "brisel/platform/views/view.h"
#include "brisel/platform/views/view_controller.h"
#include "brisel/platform/views/window.h"

namespace Brisel::Platform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Traits = std::shared_ptr<const UITraitCollection>;

Traits category(const char* name) {
  return UITraitCollection::traitCollectionWithPreferredContentSizeCategory(UIContentSizeCategory(name));
}

Traits rightToLeft() {
  return UITraitCollection::traitCollectionWithLayoutDirection(UITraitEnvironmentLayoutDirection::rightToLeft);
}

std::string nameOf(const Traits& traits) {
  const auto& category = traits->preferredContentSizeCategory();
  return category == UIContentSizeCategoryUnspecified ? "none" : std::string(category.string());
}

// What views and controllers were told, in order: "view: small to large", "view: window".
using Calls = std::vector<std::string>;

class ToldView final : public UIView {
 public:
  static std::shared_ptr<ToldView> make(Calls& calls, std::string name) {
    return made(std::shared_ptr<ToldView>(new ToldView(calls, std::move(name))), {});
  }
  ~ToldView() override { calls_.push_back(name_ + ": freed"); }

  std::function<void()> onTraits, onWindow;

  void traitCollectionDidChange(const Traits& previous) override {
    UIView::traitCollectionDidChange(previous);
    calls_.push_back(name_ + ": " + nameOf(previous) + " to " + nameOf(traitCollection()));
    if (onTraits) onTraits();
  }

  void didMoveToWindow() override {
    UIView::didMoveToWindow();
    calls_.push_back(name_ + (window() ? ": in a window" : ": in no window"));
    if (onWindow) onWindow();
  }

 private:
  ToldView(Calls& calls, std::string name) : calls_(calls), name_(std::move(name)) {}

  Calls& calls_;
  std::string name_;
};

class ToldController final : public UIViewController {
 public:
  ToldController(Calls& calls, std::string name) : calls_(calls), name_(std::move(name)) {}

  std::function<void()> onTraits;

  void traitCollectionDidChange(const Traits& previous) override {
    UIViewController::traitCollectionDidChange(previous);
    calls_.push_back(name_ + ": " + nameOf(previous) + " to " + nameOf(traitCollection()));
    if (onTraits) onTraits();
  }

 private:
  std::shared_ptr<UIView> loadView() override { return ToldView::make(calls_, name_ + "'s view"); }

  Calls& calls_;
  std::string name_;
};

class ViewTraits : public testing::Test {
 protected:
  std::shared_ptr<ToldView> view(std::string name) { return ToldView::make(calls, std::move(name)); }
  std::shared_ptr<ToldController> controller(std::string name) {
    return std::make_shared<ToldController>(calls, std::move(name));
  }
  Calls taken() { return std::exchange(calls, {}); }

  Calls calls;  // outlives the views
  std::shared_ptr<UIWindow> window = UIWindow::initWithFrame({{0, 0}, {100, 100}});
};

TEST_F(ViewTraits, AreUnspecifiedWithoutAWindow) {
  const auto top = view("top"), below = view("below");
  top->addSubview(below);
  EXPECT_TRUE(below->traitCollection()->isEqual(*UITraitCollection::init()));
  EXPECT_EQ(below->window(), nullptr);
  EXPECT_THAT(calls, IsEmpty());
}

TEST_F(ViewTraits, AreUnspecifiedInAWindowThatWasToldNothing) {
  const auto inside = view("inside");
  window->addSubview(inside);
  EXPECT_TRUE(inside->traitCollection()->isEqual(*UITraitCollection::init()));
  EXPECT_THAT(calls, ElementsAre("inside: in a window"));
}

TEST_F(ViewTraits, ComeFromTheWindowToAllBelowFromTheTopDown) {
  const auto a = view("a"), aa = view("aa"), b = view("b");
  window->addSubview(a);
  window->addSubview(b);
  a->addSubview(aa);
  taken();
  window->setTraitCollection(category("small"));
  EXPECT_THAT(taken(), ElementsAre("a: none to small", "aa: none to small", "b: none to small"));
  EXPECT_EQ(nameOf(window->traitCollection()), "small");
  EXPECT_EQ(nameOf(aa->traitCollection()), "small");
  window->setTraitCollection(nullptr);
  EXPECT_THAT(taken(), ElementsAre("a: small to none", "aa: small to none", "b: small to none"));
}

TEST_F(ViewTraits, AreNotToldAnewWhereTheyAreEqual) {
  const auto inside = view("inside");
  window->setTraitCollection(category("small"));
  window->addSubview(inside);
  taken();
  window->setTraitCollection(category("small"));
  EXPECT_THAT(calls, IsEmpty());
}

TEST_F(ViewTraits, ComeWithTheSuperviewAndGoWithIt) {
  const auto top = view("top"), below = view("below");
  top->addSubview(below);
  window->setTraitCollection(category("small"));
  window->addSubview(top);
  EXPECT_THAT(taken(),
              ElementsAre("top: none to small", "top: in a window", "below: none to small", "below: in a window"));
  EXPECT_EQ(below->window(), window);
  top->removeFromSuperview();
  EXPECT_THAT(taken(),
              ElementsAre("top: small to none", "top: in no window", "below: small to none", "below: in no window"));
  EXPECT_EQ(below->window(), nullptr);
}

TEST_F(ViewTraits, GoWithAWindowThatIsFreed) {
  const auto inside = view("inside"), below = view("below");
  window->setTraitCollection(category("small"));
  window->addSubview(inside);
  inside->addSubview(below);
  taken();
  window = nullptr;
  EXPECT_THAT(taken(), ElementsAre("inside: small to none", "inside: in no window", "below: small to none",
                                   "below: in no window"));
  EXPECT_EQ(inside->superview(), nullptr);
  EXPECT_EQ(below->superview(), inside);
}

TEST_F(ViewTraits, OfAWindowAreItsOwn) {
  EXPECT_EQ(window->window(), window);
  window->setTraitCollection(rightToLeft());
  EXPECT_EQ(window->effectiveUserInterfaceLayoutDirection(), UIUserInterfaceLayoutDirection::rightToLeft);
}

TEST_F(ViewTraits, OfAWindowInsideAnotherAreThoseOfTheOuterOne) {
  const auto inner = UIWindow::initWithFrame();
  inner->setTraitCollection(category("large"));
  window->setTraitCollection(category("small"));
  window->addSubview(inner);
  EXPECT_EQ(nameOf(inner->traitCollection()), "small");
  EXPECT_EQ(inner->window(), window);
  inner->removeFromSuperview();
  EXPECT_EQ(nameOf(inner->traitCollection()), "large");
  EXPECT_EQ(inner->window(), inner);
}

TEST_F(ViewTraits, AreToldOfAMoveBetweenWindows) {
  const auto other = UIWindow::initWithFrame();
  const auto inside = view("inside");
  window->addSubview(inside);
  taken();
  inside->onWindow = [&] { EXPECT_NE(inside->window(), window); };
  other->addSubview(inside);
  EXPECT_EQ(inside->window(), other);
  EXPECT_EQ(taken().back(), "inside: in a window");
}

TEST_F(ViewTraits, ReachTheDeepestOfAHundredThousandViews) {
  window->setTraitCollection(category("small"));
  std::vector<std::shared_ptr<UIView>> views{UIView::initWithFrame()};
  while (views.size() < 100'000) {  // from the bottom up
    views.push_back(UIView::initWithFrame());
    views.back()->addSubview(views[views.size() - 2]);
  }
  window->addSubview(views.back());
  EXPECT_EQ(nameOf(views.front()->traitCollection()), "small");
  EXPECT_EQ(views.front()->window(), window);
  window->setTraitCollection(category("large"));
  EXPECT_EQ(nameOf(views.front()->traitCollection()), "large");
  for (const auto& view : views) view->removeFromSuperview();
}

// Calls that change what they are told of.

TEST_F(ViewTraits, AreRightEverywhereWhenTheFirstIsTold) {
  const auto a = view("a"), b = view("b");
  window->addSubview(a);
  window->addSubview(b);
  a->onTraits = [&] { EXPECT_EQ(nameOf(b->traitCollection()), "small"); };
  window->setTraitCollection(category("small"));
  EXPECT_EQ(nameOf(a->traitCollection()), "small");
}

TEST_F(ViewTraits, SetAgainByACallAreToldOnceToThoseWhoWait) {
  const auto a = view("a"), b = view("b");
  window->addSubview(a);
  window->addSubview(b);
  taken();
  a->onTraits = [&] {
    window->setTraitCollection(category("large"));
    EXPECT_EQ(nameOf(b->traitCollection()), "large");
  };
  window->setTraitCollection(category("small"));
  EXPECT_THAT(taken(), ElementsAre("a: none to small", "b: none to large", "a: small to large"));
}

TEST_F(ViewTraits, SetBackByACallAreNotToldToThoseWhoWait) {
  const auto a = view("a"), b = view("b");
  window->setTraitCollection(category("small"));
  window->addSubview(a);
  window->addSubview(b);
  taken();
  a->onTraits = [&] { window->setTraitCollection(category("small")); };
  window->setTraitCollection(category("large"));
  EXPECT_THAT(taken(), ElementsAre("a: small to large", "a: large to small"));
}

TEST_F(ViewTraits, ThatCallsChangeToAndFroComeToAnEnd) {
  static std::string logged;
  setLogHandler([](std::string_view message) { logged += message; });
  const auto restless = view("restless"), patient = view("patient");
  window->addSubview(restless);
  window->addSubview(patient);
  bool isSmall = false;
  restless->onTraits = [&] {
    isSmall = !isSmall;
    window->setTraitCollection(category(isSmall ? "small" : "large"));
  };
  window->setTraitCollection(category("large"));
  setLogHandler(nullptr);
  EXPECT_LT(calls.size(), 100U);
  EXPECT_THAT(logged, testing::HasSubstr("traits change whenever"));
  EXPECT_TRUE(restless->traitCollection()->isEqual(*window->traitCollection()));
  restless->onTraits = nullptr;
  taken();
  window->setTraitCollection(category("medium"));  // It is told again.
  EXPECT_THAT(taken(), testing::Contains(testing::StartsWith("restless")));
}

TEST_F(ViewTraits, AreToldToAViewThatACallAdds) {
  const auto top = view("top");
  window->addSubview(top);
  taken();
  top->onTraits = [&] {
    const auto added = view("added");
    top->addSubview(added);
    EXPECT_EQ(nameOf(added->traitCollection()), "small");
    EXPECT_EQ(added->window(), window);
    EXPECT_THAT(calls, ElementsAre("top: none to small"));  // Calls are not nested.
  };
  window->setTraitCollection(category("small"));
  EXPECT_THAT(taken(), ElementsAre("top: none to small", "added: none to small", "added: in a window"));
}

TEST_F(ViewTraits, OfAViewThatACallTakesOutAreNotToldToIt) {
  const auto a = view("a"), b = view("b");
  window->addSubview(a);
  window->addSubview(b);
  taken();
  a->onTraits = [&] { b->removeFromSuperview(); };
  window->setTraitCollection(category("small"));
  EXPECT_THAT(taken(), ElementsAre("a: none to small", "b: in no window"));
}

TEST_F(ViewTraits, LetACallFreeTheViewThatIsCalledAndThoseThatWait) {
  auto a = view("a"), below = view("below");
  a->addSubview(below);
  window->addSubview(a);
  taken();
  below.reset();
  a->onTraits = [&] {
    if (const auto freed = std::exchange(a, nullptr)) freed->removeFromSuperview();
  };
  window->setTraitCollection(category("small"));
  EXPECT_THAT(calls, testing::Contains("a: freed"));
  EXPECT_THAT(calls, testing::Contains("below: freed"));
  EXPECT_THAT(window->subviews(), IsEmpty());
}

TEST_F(ViewTraits, LetACallFreeTheWindow) {
  const auto a = view("a"), b = view("b");
  window->addSubview(a);
  window->addSubview(b);
  taken();
  a->onTraits = [&] { window = nullptr; };
  window->setTraitCollection(category("small"));
  EXPECT_THAT(taken(), testing::IsSupersetOf({"a: none to small", "a: in no window", "b: in no window"}));
  EXPECT_EQ(a->superview(), nullptr);
  EXPECT_TRUE(a->traitCollection()->isEqual(*UITraitCollection::init()));
}

TEST_F(ViewTraits, LetACallTakeAViewOutAndAddItAgain) {
  const auto a = view("a"), b = view("b");
  window->addSubview(a);
  window->addSubview(b);
  taken();
  a->onTraits = [&] {
    b->removeFromSuperview();
    window->addSubview(b);
  };
  window->setTraitCollection(category("small"));
  EXPECT_THAT(taken(), ElementsAre("a: none to small", "b: none to small"));  // It is where it was.
}

// Controllers.

TEST_F(ViewTraits, OfAControllerComeBeforeThoseOfItsView) {
  const auto root = controller("root");
  window->setRootViewController(root);
  taken();
  window->setTraitCollection(category("small"));
  EXPECT_THAT(taken(), ElementsAre("root: none to small", "root's view: none to small"));
}

TEST_F(ViewTraits, OfAControllerWithoutAParentAreThoseThatComeToItsView) {
  const auto root = controller("root");
  EXPECT_EQ(nameOf(root->traitCollection()), "none");
  window->setTraitCollection(category("small"));
  window->addSubview(root->view());
  EXPECT_EQ(nameOf(root->traitCollection()), "small");
  root->view()->removeFromSuperview();
  EXPECT_EQ(nameOf(root->traitCollection()), "none");
}

TEST_F(ViewTraits, OverriddenForAChildReachItAndAllBelowAtOnce) {
  const auto root = controller("root"), child = controller("child"), grandchild = controller("grandchild");
  const auto inside = view("inside");
  window->setTraitCollection(category("small"));
  window->setRootViewController(root);
  root->addChildViewController(child);
  child->addChildViewController(grandchild);
  root->view()->addSubview(child->view());
  child->view()->addSubview(inside);
  taken();
  root->setOverrideTraitCollection(category("large"), child);
  EXPECT_THAT(taken(), ElementsAre("child: small to large", "child's view: small to large", "inside: small to large",
                                   "grandchild: small to large"));
  EXPECT_EQ(nameOf(root->view()->traitCollection()), "small");
  EXPECT_EQ(nameOf(root->overrideTraitCollectionForChildViewController(*child)), "large");
  root->setOverrideTraitCollection(nullptr, child);
  EXPECT_EQ(nameOf(grandchild->traitCollection()), "small");
}

TEST_F(ViewTraits, OfAnOverrideGoBeforeAllOthersAndLeaveOthersAlone) {
  const auto root = controller("root"), child = controller("child");
  root->addChildViewController(child);
  window->setRootViewController(root);
  root->setOverrideTraitCollection(rightToLeft(), child);
  window->setTraitCollection(category("small"));
  EXPECT_EQ(nameOf(child->traitCollection()), "small");
  EXPECT_EQ(child->traitCollection()->layoutDirection(), UITraitEnvironmentLayoutDirection::rightToLeft);
  root->setOverrideTraitCollection(category("large"), child);  // in the place of the one before
  EXPECT_EQ(nameOf(child->traitCollection()), "large");
  EXPECT_EQ(child->traitCollection()->layoutDirection(), UITraitEnvironmentLayoutDirection::unspecified);
}

TEST_F(ViewTraits, OfEachParentAreOverriddenInTurn) {
  const auto root = controller("root"), child = controller("child"), grandchild = controller("grandchild");
  root->addChildViewController(child);
  child->addChildViewController(grandchild);
  root->setOverrideTraitCollection(category("large"), child);
  EXPECT_EQ(nameOf(grandchild->traitCollection()), "large");
  child->setOverrideTraitCollection(category("small"), grandchild);
  root->setOverrideTraitCollection(category("medium"), child);
  EXPECT_EQ(nameOf(grandchild->traitCollection()), "small");
}

TEST_F(ViewTraits, OfAChildFollowItsParentWhereverItsViewIs) {
  const auto root = controller("root"), child = controller("child");
  root->addChildViewController(child);
  window->setTraitCollection(category("small"));
  window->setRootViewController(root);
  EXPECT_EQ(nameOf(child->view()->traitCollection()), "small");
  EXPECT_EQ(child->view()->window(), nullptr);
}

TEST_F(ViewTraits, OverriddenAreLostByAChildThatIsRemoved) {
  const auto root = controller("root"), child = controller("child");
  window->setTraitCollection(category("small"));
  window->setRootViewController(root);
  root->addChildViewController(child);
  root->setOverrideTraitCollection(category("large"), child);
  root->view()->addSubview(child->view());
  child->removeFromParentViewController();
  EXPECT_EQ(nameOf(child->traitCollection()), "small");  // Its view stands where it stood.
  EXPECT_EQ(root->overrideTraitCollectionForChildViewController(*child), nullptr);
  root->addChildViewController(child);
  EXPECT_EQ(nameOf(child->traitCollection()), "small");
}

TEST_F(ViewTraits, OverriddenForNoChildAreIgnored) {
  const auto root = controller("root"), other = controller("other");
  root->setOverrideTraitCollection(category("large"), other);
  root->setOverrideTraitCollection(category("large"), nullptr);
  root->setOverrideTraitCollection(category("large"), root);
  EXPECT_EQ(nameOf(other->traitCollection()), "none");
  EXPECT_EQ(nameOf(root->traitCollection()), "none");
}

TEST_F(ViewTraits, OfAViewWhoseControllerIsFreedAreItsSuperviews) {
  auto parent = controller("parent"), child = controller("child");
  window->setTraitCollection(category("small"));
  const auto left = child->view();
  window->addSubview(left);
  parent->addChildViewController(child);
  parent->setOverrideTraitCollection(category("large"), child);
  EXPECT_EQ(nameOf(left->traitCollection()), "large");
  child.reset();
  taken();
  parent.reset();
  EXPECT_THAT(taken(), ElementsAre("child's view: large to small"));
  EXPECT_EQ(left->superview(), window);
  window->setTraitCollection(category("medium"));
  EXPECT_EQ(nameOf(left->traitCollection()), "medium");
}

TEST_F(ViewTraits, OfAChildWhoseParentIsFreedAreThoseThatComeToItsView) {
  auto parent = controller("parent");
  const auto child = controller("child");
  window->setTraitCollection(category("small"));
  window->addSubview(child->view());
  parent->addChildViewController(child);
  parent->setOverrideTraitCollection(category("large"), child);
  taken();
  parent.reset();
  EXPECT_THAT(taken(), ElementsAre("child: large to small", "child's view: large to small"));
  EXPECT_EQ(child->parentViewController(), nullptr);
}

TEST_F(ViewTraits, LetACallFreeTheControllerThatIsCalled) {
  auto root = controller("root");
  window->setRootViewController(root);
  taken();
  root->onTraits = [&] {
    window->setRootViewController(nullptr);
    root.reset();
  };
  window->setTraitCollection(category("small"));
  EXPECT_THAT(calls, testing::Contains("root's view: freed"));
  EXPECT_THAT(window->subviews(), IsEmpty());
}

TEST_F(ViewTraits, MayRunInACircle) {
  // The child's view holds that of its parent, so that the parent's traits come from its child.
  const auto parent = controller("parent"), child = controller("child");
  parent->addChildViewController(child);
  child->view()->addSubview(parent->view());
  parent->setOverrideTraitCollection(category("large"), child);
  EXPECT_EQ(nameOf(parent->traitCollection()), "large");
  parent->setOverrideTraitCollection(category("small"), child);
  EXPECT_EQ(nameOf(parent->traitCollection()), "small");
}

}  // namespace
}  // namespace Brisel::Platform
