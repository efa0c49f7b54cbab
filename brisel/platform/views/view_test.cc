#include "brisel/platform/views/view.h"

#include <limits>
#include <memory>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/platform/views/placed_views_test.h"
#include "brisel/platform/views/window.h"

#include "tests/recording_ports.h"

namespace Brisel::Platform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Kind = RecordingEngine::CanvasCall::Kind;

std::shared_ptr<UIView> viewIn(const std::shared_ptr<UIView>& superview, const CGRect& frame = {}) {
  auto view = UIView::initWithFrame(frame);
  superview->addSubview(view);
  return view;
}

// The tree

TEST(View, HasItsSubviewsFromTheHindmostToTheForemost) {
  const auto view = UIView::initWithFrame();
  const auto a = viewIn(view), b = viewIn(view), c = viewIn(view);
  EXPECT_THAT(view->subviews(), ElementsAre(a, b, c));
  EXPECT_EQ(a->superview(), view);
  view->addSubview(a);
  EXPECT_THAT(view->subviews(), ElementsAre(b, c, a));
  view->addSubview(view->subviews().front());
  EXPECT_THAT(view->subviews(), ElementsAre(c, a, b));
  c->removeFromSuperview();
  c->removeFromSuperview();
  EXPECT_THAT(view->subviews(), ElementsAre(a, b));
  EXPECT_EQ(c->superview(), nullptr);
}

TEST(View, MovesFromOneSuperviewToAnother) {
  const auto from = UIView::initWithFrame(), to = UIView::initWithFrame();
  const auto view = viewIn(from);
  to->addSubview(from->subviews().front());
  EXPECT_THAT(from->subviews(), IsEmpty());
  EXPECT_EQ(view->superview(), to);
}

TEST(View, OwnsItsSubviewsAndNotItsSuperview) {
  auto view = UIView::initWithFrame();
  std::weak_ptr<UIView> below = viewIn(view);
  const auto kept = viewIn(view);
  EXPECT_FALSE(below.expired());
  view = nullptr;
  EXPECT_TRUE(below.expired());
  EXPECT_EQ(kept->superview(), nullptr);
}

TEST(View, EndsTheProcessWhereItIsAddedBelowItself) {
  const auto view = UIView::initWithFrame();
  const auto below = viewIn(viewIn(view));
  EXPECT_DEATH(view->addSubview(view), "neither to itself nor below itself");
  EXPECT_DEATH(below->addSubview(view), "neither to itself nor below itself");
  EXPECT_DEATH(view->addSubview(nullptr), "neither to itself nor below itself");
}

TEST(View, KnowsWhoseDescendantItIs) {
  const auto view = UIView::initWithFrame(), stranger = UIView::initWithFrame();
  const auto below = viewIn(viewIn(view));
  EXPECT_TRUE(view->isDescendantOfView(*view));
  EXPECT_TRUE(below->isDescendantOfView(*view));
  EXPECT_FALSE(view->isDescendantOfView(*below));
  EXPECT_FALSE(below->isDescendantOfView(*stranger));
}

TEST(View, FindsItsWindowAtTheTop) {
  const auto window = UIWindow::initWithFrame();
  const auto view = UIView::initWithFrame();
  const auto below = viewIn(view);
  EXPECT_EQ(below->window(), nullptr);
  window->addSubview(view);
  EXPECT_EQ(below->window(), window);
  EXPECT_EQ(window->window(), window);
  view->removeFromSuperview();
  EXPECT_EQ(below->window(), nullptr);
}

// The stack would not hold calls as deep as this tree.
TEST(View, MayStandInATreeOf100000Levels) {
  auto top = UIView::initWithFrame({{0, 0}, {1, 1}});
  auto deepest = top;
  for (int i = 0; i < 100'000; ++i) deepest = viewIn(deepest, {{1, 0}, {1, 1}});
  EXPECT_EQ(deepest->convertPointToView({0, 0}, *top), (CGPoint{100'000, 0}));
  setFree(*deepest);
  active(deepest->leftAnchor().constraintEqualToAnchor(top->leftAnchor(), 5));
  top->layoutIfNeeded();
  EXPECT_EQ(deepest->frame().origin.x, 5 - 99'999);
  const auto canvas = recordingEngine().makeCanvas({1, 1}, 1);
  top->drawHierarchy(*canvas, {0, 0});
  deepest = nullptr;
  std::weak_ptr<UIView> gone = top;
  top = nullptr;
  EXPECT_TRUE(gone.expired());
}

// The rectangle

TEST(View, CountsDistancesThatAreNotFiniteAsZero) {
  constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();
  constexpr CGFloat kNan = std::numeric_limits<CGFloat>::quiet_NaN();
  const auto view = UIView::initWithFrame({{kNan, 2}, {3, kInfinity}});
  EXPECT_EQ(view->frame(), (CGRect{{0, 2}, {3, 0}}));
  EXPECT_EQ(view->bounds(), (CGRect{{0, 0}, {3, 0}}));
}

TEST(View, ConvertsToTheCoordinatesOfAnotherView) {
  const auto top = UIView::initWithFrame({{1, 1}, {}});
  const auto left = viewIn(top, {{10, 20}, {}}), right = viewIn(top, {{100, 200}, {}});
  const auto below = viewIn(left, {{3, 4}, {}});
  EXPECT_EQ(below->convertPointToView({1, 1}, *top), (CGPoint{14, 25}));
  EXPECT_EQ(below->convertPointToView({1, 1}, *right), (CGPoint{-86, -175}));
  EXPECT_EQ(top->convertRectToView({{14, 25}, {7, 8}}, *below), (CGRect{{1, 1}, {7, 8}}));
}

// Drawing

class ViewDrawing : public testing::Test {
 protected:
  RecordingEngine& engine = recordingEngine();
  std::shared_ptr<UIView> view = colored(nullptr, {{50, 60}, {20, 10}}, 0.5);

  static std::shared_ptr<UIView> colored(const std::shared_ptr<UIView>& superview, const CGRect& frame, double grey) {
    auto made = UIView::initWithFrame(frame);
    made->setBackgroundColor(std::make_shared<const UIColor>(UIColor::grey(grey, 1)));
    if (superview) superview->addSubview(made);
    return made;
  }
  std::vector<RecordingEngine::CanvasCall> draw() {
    const auto canvas = engine.makeCanvas({100, 100}, 1);
    engine.forget();
    view->drawHierarchy(*canvas, {2, 3});
    return engine.record().calls;
  }
  std::vector<CGRect> fills() {
    std::vector<CGRect> rects;
    for (const auto& call : draw())
      if (call.kind == Kind::fillRect) rects.push_back(call.rect);
    return rects;
  }
};

TEST_F(ViewDrawing, DrawsBackgroundsFromBackToFront) {
  const auto a = colored(view, {{1, 1}, {5, 5}}, 0.1);
  colored(a, {{1, 2}, {2, 2}}, 0.2);
  colored(view, {{4, 4}, {6, 6}}, 0.3);
  EXPECT_THAT(fills(), ElementsAre(CGRect{{2, 3}, {20, 10}}, CGRect{{3, 4}, {5, 5}}, CGRect{{4, 6}, {2, 2}},
                                   CGRect{{6, 7}, {6, 6}}));
}

TEST_F(ViewDrawing, LeavesOutHiddenViewsWithWhatIsBelow) {
  const auto a = colored(view, {{1, 1}, {5, 5}}, 0.1);
  colored(a, {{1, 2}, {2, 2}}, 0.2);
  a->setHidden(true);
  EXPECT_THAT(fills(), ElementsAre(CGRect{{2, 3}, {20, 10}}));
}

TEST_F(ViewDrawing, ClipsSubviewsAndNotSiblings) {
  const auto a = colored(view, {{1, 1}, {5, 5}}, 0.1);
  a->setClipsToBounds(true);
  colored(a, {{1, 2}, {20, 20}}, 0.2);
  colored(view, {{4, 4}, {6, 6}}, 0.3);
  std::vector<Kind> kinds;
  for (const auto& call : draw()) kinds.push_back(call.kind);
  EXPECT_THAT(kinds, ElementsAre(Kind::fillRect, Kind::fillRect, Kind::save, Kind::clipToPath, Kind::fillRect,
                                 Kind::restore, Kind::fillRect));
}

// Takes a view out when it is drawn, and lets go of it.
struct Remover final : UIView {
  void drawContent(Canvas&, CGPoint) const override {
    const std::weak_ptr<UIView> weak = victim;
    std::exchange(victim, nullptr)->removeFromSuperview();
    foundVictim = !weak.expired();
  }
  mutable std::shared_ptr<UIView> victim;
  mutable bool foundVictim = false;
};

TEST_F(ViewDrawing, DrawsASiblingThatIsTakenOutMeanwhile) {
  const auto remover = std::make_shared<Remover>();
  view->addSubview(remover);
  remover->victim = colored(view, {{4, 4}, {6, 6}}, 0.3);
  EXPECT_THAT(fills(), ElementsAre(CGRect{{2, 3}, {20, 10}}, CGRect{{6, 7}, {6, 6}}));
  EXPECT_TRUE(remover->foundVictim);
  EXPECT_THAT(view->subviews(), ElementsAre(remover));
}

TEST_F(ViewDrawing, DrawsNothingForAViewWithoutBackground) {
  view->setBackgroundColor(nullptr);
  EXPECT_THAT(draw(), IsEmpty());
}

}  // namespace
}  // namespace Brisel::Platform
