#include "brisel/object_interface/text_views.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/object_interface/base_legacy_label.h"
#include "brisel/typography/dynamic_type_monitor.h"
#include "brisel/typography/text_view_styling.h"

#include "tests/recording_ports.h"

namespace {

using namespace Brisel::Platform;
using Brisel::TypeStyle;

const auto& kSmall = UIContentSizeCategorySmall;
const auto& kLarge = UIContentSizeCategoryLarge;
const auto& kMedium = UIContentSizeCategoryMedium;

void setCategory(const UIContentSizeCategory& category) { Brisel::DynamicTypeMonitor::shared()->setup(category); }

class ObjectTextViews : public testing::Test {
 protected:
  void SetUp() override {
    Brisel::recordingEngine();
    setCategory(kMedium);
  }

  template <class View>
  static std::shared_ptr<View> withText() {
    auto view = View::initWithFrame({{}, {100, 40}});
    view->setText("Bonjour");
    return view;
  }

  template <class View>
  static CGFloat fontSize(const View& view) {
    return view.font()->pointSize();
  }
  static CGFloat sizeIn(const UIContentSizeCategory& category) {
    return TypeStyle::viola().configuration().fontSize().value(category);
  }

  // Whether both show the same, and will after the next change.
  template <class View>
  static void expectAlike(const std::shared_ptr<View>& a, const std::shared_ptr<View>& b) {
    EXPECT_TRUE(a->attributedText()->isEqual(*b->attributedText()));
    setCategory(UIContentSizeCategoryAccessibilityMedium);
    EXPECT_TRUE(a->attributedText()->isEqual(*b->attributedText()));
    setCategory(kMedium);
  }

  const std::shared_ptr<const VLMBriselTypeStyle> viola = VLMBriselTypeStyle::viola();
};

TEST_F(ObjectTextViews, StyleLabelsLikeTheValueInterface) {
  const auto label = withText<UILabel>(), other = withText<UILabel>();
  briselSwift_applyStyle(*label, viola);
  Brisel::apply(*other, TypeStyle::viola(), kMedium, true);
  expectAlike(label, other);
  briselSwift_applyStyle(*label, viola, kSmall);
  Brisel::apply(*other, TypeStyle::viola(), kSmall, true);
  expectAlike(label, other);
  for (const bool flag : {false, true}) {
    const auto one = withText<UILabel>(), another = withText<UILabel>();
    briselSwift_applyStyle(*one, viola, kLarge, flag);
    Brisel::apply(*another, TypeStyle::viola(), kLarge, flag);
    expectAlike(one, another);
  }
}

TEST_F(ObjectTextViews, StyleLabelsInTheMonitorsCategoryFromNowOnWhereNoneIsGiven) {
  const auto label = withText<UILabel>();
  briselSwift_applyStyle(*label, viola);
  EXPECT_EQ(fontSize(*label), sizeIn(kMedium));
  setCategory(kSmall);
  EXPECT_EQ(fontSize(*label), sizeIn(kSmall));
}

TEST_F(ObjectTextViews, StyleLabelsInAGivenCategoryFromNowOn) {
  const auto label = withText<UILabel>();
  briselSwift_applyStyle(*label, viola, kLarge);
  EXPECT_EQ(fontSize(*label), sizeIn(kLarge));
  setCategory(kSmall);
  EXPECT_EQ(fontSize(*label), sizeIn(kSmall));
}

TEST_F(ObjectTextViews, StyleLabelsOnceWithoutTheFlag) {
  const auto label = withText<UILabel>();
  briselSwift_applyStyle(*label, viola, kLarge, false);
  setCategory(kSmall);
  EXPECT_EQ(fontSize(*label), sizeIn(kLarge));
}

TEST_F(ObjectTextViews, LeaveALabelsLastStylingWhenItIsUnsubscribed) {
  const auto label = withText<UILabel>();
  briselSwift_applyStyle(*label, viola);
  briselSwift_disableDynamicTypeMorning(*label);
  setCategory(kSmall);
  EXPECT_EQ(fontSize(*label), sizeIn(kMedium));
}

TEST_F(ObjectTextViews, StyleTextFieldsLikeTheValueInterface) {
  const auto field = withText<UITextField>(), other = withText<UITextField>();
  briselSwift_applyStyle(*field, viola);
  Brisel::apply(*other, TypeStyle::viola(), kMedium);
  expectAlike(field, other);
  EXPECT_EQ(field->defaultTextAttributes(), TypeStyle::viola().stringAttributes(kMedium));
  briselSwift_applyStyle(*field, viola, kSmall);
  Brisel::apply(*other, TypeStyle::viola(), kSmall);
  expectAlike(field, other);
}

TEST_F(ObjectTextViews, NeverSubscribeTextFields) {
  const auto field = withText<UITextField>();
  briselSwift_applyStyle(*field, viola);
  setCategory(kSmall);
  EXPECT_EQ(fontSize(*field), sizeIn(kMedium));
}

TEST_F(ObjectTextViews, StyleTextViewsLikeTheValueInterface) {
  const auto view = withText<UITextView>(), other = withText<UITextView>();
  briselSwift_applyStyle(*view, viola);
  Brisel::apply(*other, TypeStyle::viola(), kMedium, true);
  expectAlike(view, other);
  for (const bool flag : {false, true}) {
    const auto one = withText<UITextView>(), another = withText<UITextView>();
    briselSwift_applyStyle(*one, viola, kLarge, flag);
    Brisel::apply(*another, TypeStyle::viola(), kLarge, flag);
    expectAlike(one, another);
  }
}

TEST_F(ObjectTextViews, StyleTextViewsFromNowOnUntilTheyAreUnsubscribed) {
  const auto view = withText<UITextView>();
  briselSwift_applyStyle(*view, viola);
  EXPECT_EQ(fontSize(*view), sizeIn(kMedium));
  setCategory(kSmall);
  EXPECT_EQ(fontSize(*view), sizeIn(kSmall));
  briselSwift_disableDynamicTypeMonitor(*view);
  setCategory(kLarge);
  EXPECT_EQ(fontSize(*view), sizeIn(kSmall));
}

TEST_F(ObjectTextViews, StyleButtonsLikeTheValueInterface) {
  constexpr UIControlState kStates[] = {UIControlStateNormal, UIControlStateSelected};
  const auto button = UIButton::initWithFrame(), other = UIButton::initWithFrame();
  for (const auto state : kStates) {
    button->setTitle("Play", state);
    other->setTitle("Play", state);
  }
  const auto expectAlikeTitles = [&] {
    for (const auto state : kStates)
      EXPECT_TRUE(objectsAreEqual(button->attributedTitleForState(state), other->attributedTitleForState(state)));
  };
  briselSwift_applyStyle(*button, viola, UIControlStateSelected, kSmall);
  Brisel::apply(*other, TypeStyle::viola(), UIControlStateSelected, kSmall);
  expectAlikeTitles();
  EXPECT_FALSE(button->attributedTitleForState(UIControlStateNormal));
  briselSwift_applyStyle(*button, viola);
  Brisel::apply(*other, TypeStyle::viola(), kMedium);
  expectAlikeTitles();
  briselSwift_applyStyle(*button, viola, kLarge);
  Brisel::apply(*other, TypeStyle::viola(), kLarge);
  expectAlikeTitles();
}

// A host's own label that keeps its style.
class HostLabel final : public UILabel, public VLMBriselBaseLegacyLabel {
 public:
  static std::shared_ptr<HostLabel> init() { return made(std::shared_ptr<HostLabel>(new HostLabel), {}); }
  void setSwiftStyle(const std::shared_ptr<const VLMBriselTypeStyle>& style) override { styles.push_back(style); }

  std::vector<std::shared_ptr<const VLMBriselTypeStyle>> styles;
};

TEST_F(ObjectTextViews, SendANewWrapperToALabelThatKeepsItsStyle) {
  const auto label = HostLabel::init();
  briselSwift_applyStyle(*label, viola);
  setCategory(kSmall);
  ASSERT_EQ(label->styles.size(), 2U);
  for (const auto& style : label->styles) {
    EXPECT_NE(style, viola);
    EXPECT_TRUE(style->isEqual(*viola));
  }
  EXPECT_NE(label->styles[0], label->styles[1]);
}

using ObjectTextViewsDeathTest = ObjectTextViews;

TEST_F(ObjectTextViewsDeathTest, RefuseANullStyle) {
  EXPECT_DEATH(briselSwift_applyStyle(*UILabel::initWithFrame(), nullptr), "null pointer");
  EXPECT_DEATH(briselSwift_applyStyle(*UITextField::initWithFrame(), nullptr), "null pointer");
  EXPECT_DEATH(briselSwift_applyStyle(*UITextView::initWithFrame(), nullptr), "null pointer");
  EXPECT_DEATH(briselSwift_applyStyle(*UIButton::initWithFrame(), nullptr), "null pointer");
}

}  // namespace
