#include "gallery/window/scroll_view.h"

#include <gtest/gtest.h>

namespace Brisel::Gallery {
namespace {

using Platform::CGRect;

struct Scrolled {
  explicit Scrolled(double height) {
    height_ = content->heightAnchor().constraintEqualToConstant(height);
    height_->setActive(true);
    view->setFrame({{}, {100, 200}});
    view->layoutIfNeeded();
  }
  const CGRect& frameAt(double offset) {
    view->setOffset(offset);
    view->layoutIfNeeded();
    return content->frame();
  }

  std::shared_ptr<Platform::UIView> content = Platform::UIView::initWithFrame();
  std::shared_ptr<ScrollView> view = ScrollView::initWithContent(content);
  std::shared_ptr<Platform::NSLayoutConstraint> height_;
};

TEST(Scroll, MovesContentThatIsHigherAndNotBeyondItsEnds) {
  Scrolled scrolled(500);
  EXPECT_EQ(scrolled.frameAt(0), (CGRect{{0, 0}, {100, 500}}));
  EXPECT_EQ(scrolled.frameAt(120.5), (CGRect{{0, -120.5}, {100, 500}}));
  EXPECT_EQ(scrolled.frameAt(301), (CGRect{{0, -300}, {100, 500}}));
  EXPECT_EQ(scrolled.frameAt(-1), (CGRect{{0, 0}, {100, 500}}));
}

TEST(Scroll, LeavesContentAtTheTopThatIsLower) { EXPECT_EQ(Scrolled(150).frameAt(10), (CGRect{{0, 0}, {100, 150}})); }

TEST(Scroll, KeepsTheEndInSightWhenTheContentBecomesLower) {
  Scrolled scrolled(500);
  scrolled.frameAt(300);
  scrolled.height_->setConstant(260);
  scrolled.view->setNeedsLayout();
  scrolled.view->layoutIfNeeded();
  scrolled.view->layoutIfNeeded();
  EXPECT_EQ(scrolled.view->offset(), 60);
  EXPECT_EQ(scrolled.content->frame(), (CGRect{{0, -60}, {100, 260}}));
}

}  // namespace
}  // namespace Brisel::Gallery
