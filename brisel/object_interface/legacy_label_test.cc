#include "brisel/object_interface/legacy_label.h"

#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/object_interface/text_views.h"
#include "brisel/platform/views/layout_constraint.h"
#include "brisel/platform/views/window.h"
#include "brisel/typography/dynamic_type_monitor.h"
#include "brisel/typography/text_view_styling.h"

#include "tests/recording_ports.h"

namespace {

using namespace Brisel::Platform;
using Brisel::TypeStyle;

// `ballad`, in points.
constexpr CGFloat kSmallSize = 14.001999999999999;
constexpr CGFloat kLargeSize = 16;
constexpr CGFloat kLargestOrdinarySize = 22;  // extraExtraExtraLarge, scale 1.0
const CGFloat kAccessibilityLargeSize = 22 + (1.4 - 1) * (50 - 22);

class Label final : public VLMBriselLegacyLabel {
 public:
  static std::shared_ptr<Label> initWithFrame(const CGRect& frame) {
    return made(std::shared_ptr<Label>(new Label), frame);
  }

  // Applying a style sends it here first.
  void setSwiftStyle(const Style& style) override {
    ++applications;
    if (onApplication) onApplication();
    VLMBriselLegacyLabel::setSwiftStyle(style);
  }

  // How often since this was asked last.
  int takeApplications() { return std::exchange(applications, 0); }

  int applications = 0;
  std::function<void()> onApplication;
};

class LegacyLabel : public testing::Test {
 protected:
  void SetUp() override {
    Brisel::recordingEngine();
    window = UIWindow::initWithFrame({{}, {400, 400}});
    label = Label::initWithFrame({{0, 0}, {100, 40}});
    label->setText("Text");
  }

  CGFloat fontSize() const { return label->font()->pointSize(); }
  void setTraits(const UIContentSizeCategory& category) {
    window->setTraitCollection(UITraitCollection::traitCollectionWithPreferredContentSizeCategory(category));
  }
  void putIntoWindow() { window->addSubview(label); }

  const VLMBriselLegacyLabel::Style& ballad = VLMBriselTypeStyle::ballad();
  std::shared_ptr<UIWindow> window;
  std::shared_ptr<Label> label;
};

// --- Initialisation and guides ---

TEST_F(LegacyLabel, HasNoStyleAndFollowsTheTextSizeWithoutALimitAtFirst) {
  const auto fresh = VLMBriselLegacyLabel::initWithFrame({{1, 2}, {30, 40}});
  EXPECT_EQ(fresh->frame(), (CGRect{{1, 2}, {30, 40}}));
  EXPECT_EQ(fresh->style(), nullptr);
  EXPECT_TRUE(fresh->isUsingDynamicType());
  EXPECT_EQ(fresh->maxContentSizeCategory(), UIContentSizeCategoryAccessibilityExtraExtraExtraLarge);
  EXPECT_EQ(fresh->lastSize(), CGSize());
  EXPECT_FALSE(fresh->isReapplyingStyle());
}

TEST_F(LegacyLabel, IsMadeWithAStyle) {
  const auto withFrame = VLMBriselLegacyLabel::initWithFrame({{1, 2}, {30, 40}}, ballad);
  EXPECT_EQ(withFrame->frame(), (CGRect{{1, 2}, {30, 40}}));
  EXPECT_EQ(withFrame->style(), ballad);
  EXPECT_EQ(withFrame->font()->pointSize(), kLargeSize);
  const auto withStyle = VLMBriselLegacyLabel::initWithStyle(ballad);
  EXPECT_EQ(withStyle->frame(), (CGRect{{0, 0}, {100, 40}}));
  EXPECT_EQ(withStyle->style(), ballad);
}

TEST_F(LegacyLabel, OwnsItsGuidesInOrder) {
  EXPECT_THAT(label->layoutGuides(),
              testing::ElementsAre(label->firstAscenderLayoutGuide(), label->firstLineHeightLayoutGuide(),
                                   label->firstCapHeightLayoutGuide()));
}

TEST_F(LegacyLabel, TiesEachGuideToItsSidesAndItsFirstBaseline) {
  const auto& constraints = label->constraints();
  ASSERT_EQ(constraints.size(), 9U);
  for (std::size_t i = 0; i < 9; ++i) {
    constexpr NSLayoutAttribute kOfGuide[] = {NSLayoutAttribute::leading, NSLayoutAttribute::trailing,
                                              NSLayoutAttribute::bottom};
    constexpr NSLayoutAttribute kOfLabel[] = {NSLayoutAttribute::leading, NSLayoutAttribute::trailing,
                                              NSLayoutAttribute::firstBaseline};
    EXPECT_EQ(constraints[i]->firstItem(), label->layoutGuides()[i / 3]);
    EXPECT_EQ(constraints[i]->firstAttribute(), kOfGuide[i % 3]);
    EXPECT_EQ(constraints[i]->secondItem(), label);
    EXPECT_EQ(constraints[i]->secondAttribute(), kOfLabel[i % 3]);
    EXPECT_EQ(constraints[i]->relation(), NSLayoutRelation::equal);
    EXPECT_EQ(constraints[i]->constant(), 0);
    EXPECT_TRUE(constraints[i]->isActive());
  }
}

TEST_F(LegacyLabel, LaysItsGuidesDownToTheFirstBaseline) {
  putIntoWindow();
  label->setStyle(ballad);
  // A host gives the guide the height of what it is named after: here of the ascender, three quarters of an em.
  label->firstAscenderLayoutGuide()->heightAnchor().constraintEqualToConstant(12)->setActive(true);
  window->layoutIfNeeded();
  // One line of 16 points in the middle of 40.
  EXPECT_EQ(label->firstAscenderLayoutGuide()->layoutFrame(), (CGRect{{0, 12}, {100, 12}}));
}

TEST_F(LegacyLabel, OffersTheTopsOfItsGuidesAsAnchors) {
  EXPECT_EQ(label->firstAscenderAnchor().item(), label->firstAscenderLayoutGuide());
  EXPECT_EQ(label->firstAscenderAnchor().attribute(), NSLayoutAttribute::top);
  EXPECT_EQ(label->firstLineHeightAnchor().item(), label->firstLineHeightLayoutGuide());
  EXPECT_EQ(label->firstLineHeightAnchor().attribute(), NSLayoutAttribute::top);
  EXPECT_EQ(label->firstCapHeightAnchor().item(), label->firstCapHeightLayoutGuide());
  EXPECT_EQ(label->firstCapHeightAnchor().attribute(), NSLayoutAttribute::top);
}

// --- The style ---

TEST_F(LegacyLabel, AppliesTheSameStyleObjectOnce) {
  label->setStyle(ballad);
  EXPECT_EQ(label->takeApplications(), 1);
  label->setStyle(ballad);
  EXPECT_EQ(label->takeApplications(), 0);
  EXPECT_EQ(label->style(), ballad);
}

TEST_F(LegacyLabel, AppliesAnEqualStyleObjectAgain) {
  label->setStyle(ballad);
  label->takeApplications();
  const auto equal = ballad->copyWithZone();
  label->setStyle(equal);
  EXPECT_EQ(label->takeApplications(), 1);
  EXPECT_EQ(label->style(), equal);
}

TEST_F(LegacyLabel, AppliesNothingWithoutAStyle) {
  label->updateStyle();
  label->setStyle(nullptr);
  label->setStyle(ballad);
  label->takeApplications();
  label->setStyle(nullptr);
  label->updateStyle();
  EXPECT_EQ(label->takeApplications(), 0);
  EXPECT_EQ(label->style(), nullptr);
  EXPECT_EQ(fontSize(), kLargeSize);
}

TEST_F(LegacyLabel, KeepsASwiftStyleWithoutApplyingIt) {
  label->setStyle(ballad);
  const auto other = ballad->withFontSize(99);
  label->setSwiftStyle(other);
  EXPECT_EQ(label->style(), other);
  EXPECT_EQ(fontSize(), kLargeSize);
  label->updateStyle();
  EXPECT_EQ(fontSize(), 99);
}

TEST_F(LegacyLabel, KeepsItsStyleObjectWhereTheSwiftStyleIsEqual) {
  label->setStyle(ballad);
  label->setSwiftStyle(ballad->copyWithZone());
  EXPECT_EQ(label->style(), ballad);
  label->setSwiftStyle(nullptr);
  EXPECT_EQ(label->style(), nullptr);
}

TEST_F(LegacyLabel, RecordsTheStyleThatOthersApplyToIt) {
  label->setStyle(ballad);
  Brisel::apply(*label, TypeStyle::ballad(), UIContentSizeCategorySmall, false);
  EXPECT_EQ(label->style(), ballad);
  EXPECT_EQ(fontSize(), kSmallSize);
  Brisel::apply(*label, TypeStyle::viola(), UIContentSizeCategorySmall, false);
  EXPECT_EQ(label->style()->typeStyle(), TypeStyle::viola());
  label->takeApplications();
  label->setStyle(ballad);
  EXPECT_EQ(label->takeApplications(), 1);
}

TEST_F(LegacyLabel, OutlivesAStyleThatIsNotEvenEqualToItself) {
  const auto unequal = ballad->withFontSize(std::numeric_limits<double>::quiet_NaN());
  label->setStyle(unequal);
  label->updateStyle();
  EXPECT_EQ(label->style()->name(), "Ballad");
}

TEST_F(LegacyLabel, DoesNotFollowTheMonitor) {
  label->setStyle(ballad);
  label->takeApplications();
  Brisel::DynamicTypeMonitor::shared()->setup(UIContentSizeCategorySmall);
  EXPECT_EQ(label->takeApplications(), 0);
  EXPECT_EQ(fontSize(), kLargeSize);
}

// --- The category ---

TEST_F(LegacyLabel, TakesTheCategoryOfItsTraits) {
  setTraits(UIContentSizeCategoryAccessibilityLarge);
  putIntoWindow();
  label->setStyle(ballad);
  EXPECT_EQ(label->accessibilityScale(), 1.4);
  EXPECT_EQ(fontSize(), kAccessibilityLargeSize);
}

TEST_F(LegacyLabel, GrowsNoLargerThanItsMaximum) {
  setTraits(UIContentSizeCategoryAccessibilityLarge);
  putIntoWindow();
  label->setMaxContentSizeCategory(UIContentSizeCategoryExtraExtraExtraLarge);
  label->setStyle(ballad);
  EXPECT_EQ(label->accessibilityScale(), 1.0);
  EXPECT_EQ(fontSize(), kLargestOrdinarySize);
}

TEST_F(LegacyLabel, AppliesAMaximumAtTheNextOccasionOnly) {
  setTraits(UIContentSizeCategoryAccessibilityLarge);
  putIntoWindow();
  label->setStyle(ballad);
  label->takeApplications();
  label->setMaxContentSizeCategory(UIContentSizeCategorySmall);
  EXPECT_EQ(label->takeApplications(), 0);
  EXPECT_EQ(fontSize(), kAccessibilityLargeSize);
  label->updateStyle();
  EXPECT_EQ(fontSize(), kSmallSize);
}

TEST_F(LegacyLabel, TakesAnUnknownMaximumForLarge) {
  setTraits(UIContentSizeCategoryAccessibilityLarge);
  putIntoWindow();
  label->setMaxContentSizeCategory(UIContentSizeCategory("nonsense"));
  EXPECT_EQ(label->maxContentSizeCategory().string(), "nonsense");
  EXPECT_EQ(label->accessibilityScale(), 0.0);
}

TEST_F(LegacyLabel, TakesTheMonitorsCategoryWhereItsTraitsSpecifyNone) {
  Brisel::DynamicTypeMonitor::shared()->setup(UIContentSizeCategoryAccessibilityLarge);
  EXPECT_EQ(label->accessibilityScale(), 1.4);
  putIntoWindow();
  setTraits(UIContentSizeCategory("UIContentSizeCategoryUnspecified"));
  EXPECT_EQ(label->accessibilityScale(), 1.4);
  label->setMaxContentSizeCategory(UIContentSizeCategoryMedium);
  EXPECT_EQ(label->accessibilityScale(), -0.333);
}

TEST_F(LegacyLabel, TakesUnknownTraitsForLargeWhateverTheMonitorSays) {
  Brisel::DynamicTypeMonitor::shared()->setup(UIContentSizeCategoryAccessibilityLarge);
  putIntoWindow();
  setTraits(UIContentSizeCategory("nonsense"));
  EXPECT_EQ(label->accessibilityScale(), 0.0);
}

TEST_F(LegacyLabel, IsLargeWithoutDynamicTypeWhateverTraitsAndMaximumSay) {
  setTraits(UIContentSizeCategoryAccessibilityLarge);
  putIntoWindow();
  label->setMaxContentSizeCategory(UIContentSizeCategorySmall);
  label->setUsingDynamicType(false);
  label->setStyle(ballad);
  EXPECT_EQ(label->accessibilityScale(), 0.0);
  EXPECT_EQ(fontSize(), kLargeSize);
}

TEST_F(LegacyLabel, AppliesItsStyleWhereDynamicTypeIsSwitched) {
  setTraits(UIContentSizeCategorySmall);
  putIntoWindow();
  label->setStyle(ballad);
  label->takeApplications();
  label->setUsingDynamicType(true);
  EXPECT_EQ(label->takeApplications(), 0);
  label->setUsingDynamicType(false);
  EXPECT_EQ(label->takeApplications(), 1);
  EXPECT_EQ(fontSize(), kLargeSize);
  label->setUsingDynamicType(true);
  EXPECT_EQ(label->takeApplications(), 1);
  EXPECT_EQ(fontSize(), kSmallSize);
}

TEST_F(LegacyLabel, AppliesItsStyleWhenItsTraitsChange) {
  putIntoWindow();
  label->setStyle(ballad);
  label->takeApplications();
  setTraits(UIContentSizeCategorySmall);
  EXPECT_EQ(label->takeApplications(), 1);
  EXPECT_EQ(fontSize(), kSmallSize);
}

TEST_F(LegacyLabel, IgnoresItsTraitsWithoutDynamicType) {
  putIntoWindow();
  label->setStyle(ballad);
  label->setUsingDynamicType(false);
  label->takeApplications();
  setTraits(UIContentSizeCategorySmall);
  EXPECT_EQ(label->takeApplications(), 0);
  EXPECT_EQ(fontSize(), kLargeSize);
}

// --- Text ---

TEST_F(LegacyLabel, AppliesItsStyleToANewText) {
  label->setStyle(ballad);
  label->takeApplications();
  label->setText("Other");
  EXPECT_EQ(label->takeApplications(), 1);
  EXPECT_EQ(label->text(), "Other");
  EXPECT_EQ(label->attributedText()->attribute(NSFontAttributeName, 0)->as<UIFont>()->pointSize(), kLargeSize);
}

TEST_F(LegacyLabel, DoesNothingForTheSameText) {
  label->setStyle(ballad);
  label->takeApplications();
  label->setText("Text");
  EXPECT_EQ(label->takeApplications(), 0);
}

TEST_F(LegacyLabel, TellsNoTextFromAnEmptyOne) {
  label->setText(std::nullopt);
  label->setStyle(ballad);
  label->takeApplications();
  label->setText(std::nullopt);
  EXPECT_EQ(label->takeApplications(), 0);
  label->setText("");
  EXPECT_EQ(label->takeApplications(), 1);
  label->setText("");
  EXPECT_EQ(label->takeApplications(), 0);
  label->setText(std::nullopt);
  EXPECT_EQ(label->takeApplications(), 1);
  EXPECT_EQ(label->text(), std::nullopt);
}

// --- Layout ---

TEST_F(LegacyLabel, AppliesItsStyleInLayoutWhenItsSizeHasChanged) {
  putIntoWindow();
  label->setStyle(ballad);
  window->layoutIfNeeded();
  EXPECT_EQ(label->lastSize(), (CGSize{100, 40}));
  label->takeApplications();
  for (const CGSize size : {CGSize{101, 40}, CGSize{101, 41}}) {
    label->setFrame({{}, size});
    window->layoutIfNeeded();
    EXPECT_EQ(label->takeApplications(), 1);
    EXPECT_EQ(label->lastSize(), size);
  }
  label->setFrame({{50, 50}, {101, 41}});
  label->setNeedsLayout();
  window->layoutIfNeeded();
  EXPECT_EQ(label->takeApplications(), 0);
}

TEST_F(LegacyLabel, AppliesNothingInLayoutOutsideAWindowAndOnceInTheNextOneInside) {
  label->setStyle(ballad);
  label->takeApplications();
  label->setFrame({{}, {120, 50}});
  label->layoutIfNeeded();
  EXPECT_EQ(label->takeApplications(), 0);
  EXPECT_EQ(label->lastSize(), CGSize());
  putIntoWindow();
  label->takeApplications();
  label->setNeedsLayout();
  window->layoutIfNeeded();
  EXPECT_EQ(label->takeApplications(), 1);
  EXPECT_EQ(label->lastSize(), (CGSize{120, 50}));
  label->setNeedsLayout();
  window->layoutIfNeeded();
  EXPECT_EQ(label->takeApplications(), 0);
}

TEST_F(LegacyLabel, RemembersNoSizeWithoutAStyle) {
  putIntoWindow();
  window->layoutIfNeeded();
  EXPECT_EQ(label->lastSize(), CGSize());
  label->setStyle(ballad);
  label->takeApplications();
  label->setNeedsLayout();
  window->layoutIfNeeded();
  EXPECT_EQ(label->takeApplications(), 1);
}

TEST_F(LegacyLabel, IsNotAppliedOnceMoreByTheLayoutWithinAnApplication) {
  putIntoWindow();
  label->setStyle(ballad);
  window->layoutIfNeeded();
  // From now on each application measures the label, and so lays it out.
  label->setMinimumScaleFactor(0.5);
  label->takeApplications();
  bool wasReapplying = true;
  label->onApplication = [&] {
    wasReapplying = wasReapplying && label->isReapplyingStyle();
    EXPECT_EQ(label->lastSize(), (CGSize{150, 40}));
  };
  label->setFrame({{}, {150, 40}});
  window->layoutIfNeeded();
  EXPECT_EQ(label->takeApplications(), 1);
  EXPECT_TRUE(wasReapplying);
  EXPECT_FALSE(label->isReapplyingStyle());
}

TEST_F(LegacyLabel, IsAppliedOnceMoreByTheLayoutWithinASetterWhereTheSizeIsNew) {
  putIntoWindow();
  label->setMinimumScaleFactor(0.5);
  label->setStyle(ballad);
  // Measuring lays the label out for the first time; only a layout marks itself as applying.
  EXPECT_EQ(label->takeApplications(), 2);
  EXPECT_EQ(label->lastSize(), (CGSize{100, 40}));
  label->setStyle(ballad->copyWithZone());
  EXPECT_EQ(label->takeApplications(), 1);
}

TEST_F(LegacyLabel, IsNotAppliedOnceMoreWhereApplyingInLayoutResizesIt) {
  putIntoWindow();
  label->setTranslatesAutoresizingMaskIntoConstraints(false);
  label->leadingAnchor().constraintEqualToAnchor(window->leadingAnchor())->setActive(true);
  label->topAnchor().constraintEqualToAnchor(window->topAnchor())->setActive(true);
  label->setMinimumScaleFactor(0.5);
  label->setStyle(ballad);
  EXPECT_EQ(label->takeApplications(), 2);
  EXPECT_EQ(label->frame().size, (CGSize{10'000, 10'000}));  // as large as it may be, to measure it
  for (const int applications : {1, 0, 0}) {
    label->setNeedsLayout();
    window->layoutIfNeeded();
    EXPECT_EQ(label->takeApplications(), applications);
    EXPECT_EQ(label->frame().size, (CGSize{32, 16}));
    EXPECT_EQ(label->lastSize(), (CGSize{32, 16}));
  }
}

TEST_F(LegacyLabel, IsAppliedByLaterLayoutsWhereOneHasThrown) {
  putIntoWindow();
  label->setStyle(ballad);
  label->onApplication = [] { throw std::runtime_error("a host's"); };
  EXPECT_THROW(window->layoutIfNeeded(), std::runtime_error);
  EXPECT_FALSE(label->isReapplyingStyle());
  label->onApplication = nullptr;
  label->takeApplications();
  label->setFrame({{}, {150, 40}});
  window->layoutIfNeeded();
  EXPECT_EQ(label->takeApplications(), 1);
}

}  // namespace
