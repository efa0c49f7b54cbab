#include "brisel/object_interface/view_sizing.h"

#include <memory>

#include <gtest/gtest.h>

#include "brisel/typography/dynamic_type_monitor.h"

#include "tests/recording_ports.h"

namespace {

using namespace Brisel;
using namespace Brisel::Platform;

class Content final : public UIView {
 public:
  static std::shared_ptr<Content> init() {
    auto view = made(std::shared_ptr<Content>(new Content), {});
    view->setTranslatesAutoresizingMaskIntoConstraints(false);
    return view;
  }
  CGSize intrinsicContentSize() const override { return {80, 30}; }
  CGSize systemLayoutSizeFittingSize(CGSize size) override {
    ++timesAsked;
    return UIView::systemLayoutSizeFittingSize(size);
  }

  int timesAsked = 0;
};

TEST(ObjectViewSizing, MeasuresLikeTheValueInterfaceUnderBothNames) {
  for (const CGSize size : {CGSize{120, 60}, CGSize{10, 60}, CGSize{}}) {
    const CGSize expected = brisel_systemLayoutSizeFitting(*Content::init(), size);
    for (const auto& measure : {+[](UIView&v, CGSize s) { return briselSwift_systemLayoutSizeFittingSize(v, s); },
                                +[](UIView&v, CGSize s) { return brisel_systemLayoutSizeFittingSize(v, s); }}) {
      const auto view = Content::init();
      EXPECT_EQ(measure(*view, size), expected);
      EXPECT_EQ(view->timesAsked, 1);
    }
  }
}

TEST(ObjectViewSizing, MeasuresByPrioritiesUnderBothNames) {
  const auto view = Content::init();
  EXPECT_EQ(briselSwift_systemLayoutSizeFittingSize(*view, {10, 60}, 2000, 100), (CGSize{10, 30}));
  EXPECT_EQ(brisel_systemLayoutSizeFittingSize(*view, {10, 60}, 100, 501), (CGSize{80, 60}));
  EXPECT_EQ(view->timesAsked, 0);
}

// That this compiles says too that the name is one function on both interfaces.
TEST(ObjectViewSizing, LimitsTheContentSizeUnderBothNames) {
  DynamicTypeMonitor::shared()->setup(UIContentSizeCategoryAccessibilityLarge);
  const auto parent = UIViewController::init();
  for (const auto& limit : {+[](const std::shared_ptr<UIViewController>&child, const UIContentSizeCategory&most) {
                              briselSwift_setMaxPreferredContentSizeCategory(child, most);
                            },
                            +[](const std::shared_ptr<UIViewController>&child, const UIContentSizeCategory&most) {
                              brisel_setMaxPreferredContentSizeCategory(child, most);
                            }}) {
    const auto child = UIViewController::init();
    parent->addChildViewController(child);
    limit(child, UIContentSizeCategoryExtraLarge);
    EXPECT_EQ(child->traitCollection()->preferredContentSizeCategory(), UIContentSizeCategoryExtraLarge);
    DynamicTypeMonitor::shared()->unsubscribe(child);
  }
}

}  // namespace
