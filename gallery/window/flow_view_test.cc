#include "gallery/window/flow_view.h"

#include <initializer_list>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Brisel::Gallery {
namespace {

using Platform::CGRect, Platform::CGSize;
using testing::ElementsAre;

// Plain views fit the size that they have.
std::shared_ptr<FlowView> flowOf(std::initializer_list<CGSize> sizes) {
  auto flow = FlowView::initWithGap(10);
  for (const CGSize& size : sizes) flow->addSubview(Platform::UIView::initWithFrame({{}, size}));
  return flow;
}

std::vector<CGRect> laidOut(FlowView& flow, double width) {
  flow.setFrame({{}, {width, 1000}});
  flow.setNeedsLayout();
  flow.layoutIfNeeded();
  std::vector<CGRect> frames;
  for (const auto& view : flow.subviews()) frames.push_back(view->frame());
  return frames;
}

TEST(Flow, SetsViewsInRowsBelowTheHighestOfEach) {
  const auto flow = flowOf({{40, 20}, {30, 30}, {20, 5}, {50, 10}});
  EXPECT_THAT(laidOut(*flow, 110), ElementsAre(CGRect{{0, 0}, {40, 20}}, CGRect{{50, 0}, {30, 30}},
                                               CGRect{{90, 0}, {20, 5}}, CGRect{{0, 40}, {50, 10}}));
  EXPECT_EQ(flow->sizeThatFits({110, 0}), (CGSize{110, 50}));
}

TEST(Flow, BreaksTheRowWhereALackOfAPointBegins) {
  const auto flow = flowOf({{40, 20}, {30, 30}});
  EXPECT_EQ(flow->sizeThatFits({80, 0}).height, 30);
  EXPECT_EQ(flow->sizeThatFits({79, 0}).height, 60);
}

TEST(Flow, CutsAViewDownThatIsWiderThanIt) {
  const auto flow = flowOf({{40, 20}, {300, 30}});
  EXPECT_THAT(laidOut(*flow, 100), ElementsAre(CGRect{{0, 0}, {40, 20}}, CGRect{{0, 30}, {100, 30}}));
}

TEST(Flow, BeginsAtTheRightWhereTheInterfaceDoes) {
  const auto flow = flowOf({{40, 20}, {30, 30}, {50, 10}});
  flow->setSemanticContentAttribute(Platform::UISemanticContentAttribute::forceRightToLeft);
  EXPECT_THAT(laidOut(*flow, 110),
              ElementsAre(CGRect{{70, 0}, {40, 20}}, CGRect{{30, 0}, {30, 30}}, CGRect{{60, 40}, {50, 10}}));
}

TEST(Flow, OfNothingHasNoHeight) { EXPECT_EQ(flowOf({})->sizeThatFits({100, 50}), (CGSize{100, 0})); }

}  // namespace
}  // namespace Brisel::Gallery
