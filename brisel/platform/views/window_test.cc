#include "brisel/platform/views/window.h"

#include <memory>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/platform/views/view_controller.h"

namespace Brisel::Platform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Window : public testing::Test {
 protected:
  std::shared_ptr<UIWindow> window = UIWindow::initWithFrame({{10, 20}, {300, 200}});
  std::shared_ptr<UIViewController> root = UIViewController::init();
};

TEST_F(Window, HasNoRootAtFirst) {
  EXPECT_EQ(window->rootViewController(), nullptr);
  window->layoutIfNeeded();
  EXPECT_THAT(window->subviews(), IsEmpty());
}

TEST_F(Window, IsFilledByTheViewOfItsRoot) {
  window->setRootViewController(root);
  EXPECT_EQ(window->rootViewController(), root);
  EXPECT_THAT(window->subviews(), ElementsAre(root->view()));
  EXPECT_EQ(root->view()->window(), window);
  EXPECT_EQ(root->view()->frame(), (CGRect{{0, 0}, {300, 200}}));
}

TEST_F(Window, IsFilledAtLayoutWhenItsSizeHasChanged) {
  window->setRootViewController(root);
  window->layoutIfNeeded();
  window->setFrame({{0, 0}, {50, 60}});
  window->layoutIfNeeded();
  EXPECT_EQ(root->view()->frame(), (CGRect{{0, 0}, {50, 60}}));
}

TEST_F(Window, LaysOutWhatIsInTheViewThatFillsIt) {
  const auto label = UIView::initWithFrame();
  label->setTranslatesAutoresizingMaskIntoConstraints(false);
  const auto& view = root->view();
  view->addSubview(label);
  NSLayoutConstraint::activateConstraints({label->leftAnchor().constraintEqualToAnchor(view->leftAnchor(), 10),
                                           label->rightAnchor().constraintEqualToAnchor(view->rightAnchor(), -10),
                                           label->topAnchor().constraintEqualToAnchor(view->topAnchor()),
                                           label->bottomAnchor().constraintEqualToAnchor(view->bottomAnchor())});
  window->setRootViewController(root);
  window->layoutIfNeeded();
  EXPECT_EQ(label->frame(), (CGRect{{10, 0}, {280, 200}}));
  window->setFrame({{0, 0}, {50, 60}});
  window->layoutIfNeeded();
  EXPECT_EQ(label->frame(), (CGRect{{10, 0}, {30, 60}}));
}

TEST_F(Window, TakesTheViewOfTheRootBeforeOut) {
  const auto next = UIViewController::init();
  window->setRootViewController(root);
  window->setRootViewController(next);
  EXPECT_THAT(window->subviews(), ElementsAre(next->view()));
  EXPECT_EQ(root->view()->superview(), nullptr);
  window->setRootViewController(nullptr);
  EXPECT_THAT(window->subviews(), IsEmpty());
}

TEST_F(Window, LeavesTheViewOfTheRootBeforeWhereItsOwnerHasPutIt) {
  const auto elsewhere = UIView::initWithFrame();
  window->setRootViewController(root);
  elsewhere->addSubview(root->view());
  root->view()->setFrame({{1, 2}, {3, 4}});
  window->setNeedsLayout();
  window->layoutIfNeeded();
  EXPECT_EQ(root->view()->frame(), (CGRect{{1, 2}, {3, 4}}));
  window->setRootViewController(nullptr);
  EXPECT_EQ(root->view()->superview(), elsewhere);
}

TEST_F(Window, KeepsItsRootAliveAndIsNotKeptByIt) {
  const std::weak_ptr<UIViewController> weakRoot = root;
  const std::weak_ptr<UIWindow> weakWindow = window;
  window->setRootViewController(root);
  root.reset();
  EXPECT_FALSE(weakRoot.expired());
  window.reset();
  EXPECT_TRUE(weakWindow.expired());
  EXPECT_TRUE(weakRoot.expired());
}

// Sets another root as soon as its own view is loaded.
struct Impatient final : UIViewController {
  Impatient(UIWindow& forWindow, std::shared_ptr<UIViewController> another)
      : window(forWindow), next(std::move(another)) {}
  void viewDidLoad() override { window.setRootViewController(next); }

  UIWindow& window;
  std::shared_ptr<UIViewController> next;
};

TEST_F(Window, TakesTheRootThatItsRootSetsOnLoading) {
  window->setRootViewController(std::make_shared<Impatient>(*window, root));
  EXPECT_EQ(window->rootViewController(), root);
  EXPECT_THAT(window->subviews(), ElementsAre(root->view()));
}

// Lets go of a window, of which it is the last owner, when its view is taken out.
struct WindowKeeper final : UIViewController {
  struct View final : UIView {
    explicit View(WindowKeeper& forKeeper) : keeper(forKeeper) {}
    void didMoveToWindow() override {
      UIView::didMoveToWindow();
      if (!window()) keeper.window.reset();
    }
    WindowKeeper& keeper;
  };
  std::shared_ptr<UIView> loadView() override { return std::make_shared<View>(*this); }

  std::shared_ptr<UIWindow> window;
};

// Notes whether a window is there when its view is made.
struct WindowWatcher final : UIViewController {
  void viewDidLoad() override { foundWindow = !window.expired(); }

  std::weak_ptr<UIWindow> window;
  bool foundWindow = false;
};

TEST_F(Window, StaysUntilItsRootIsSetThoughItsLastOwnerLetsGoOfIt) {
  const auto keeper = std::make_shared<WindowKeeper>();
  const auto watcher = std::make_shared<WindowWatcher>();
  window->setRootViewController(keeper);
  watcher->window = window;
  UIWindow& bare = *window;
  keeper->window = std::move(window);
  bare.setRootViewController(watcher);
  EXPECT_TRUE(watcher->foundWindow);
  EXPECT_TRUE(watcher->window.expired());
  EXPECT_EQ(watcher->view()->window(), nullptr);
}

}  // namespace
}  // namespace Brisel::Platform
