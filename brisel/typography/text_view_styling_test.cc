#include "brisel/typography/text_view_styling.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "brisel/typography/dynamic_type_monitor.h"
#include "brisel/typography/fitting.h"
#include "brisel/typography/style_recorder.h"
#include "brisel/typography/styled_string.h"

#include "tests/recording_ports.h"

namespace Brisel {
namespace {

using namespace Platform;
using testing::ElementsAre;
using testing::IsEmpty;

// Capitals, so that no style's upper-casing changes them; in the engine of these tests each is half an em wide.
constexpr const char* kTwentyCharacters = "AAAA AAAA AAAA AAAAA";

const UIContentSizeCategory& kSmall = UIContentSizeCategorySmall;
const UIContentSizeCategory& kLarge = UIContentSizeCategoryLarge;
const UIContentSizeCategory& kHuge = UIContentSizeCategoryAccessibilityLarge;

DynamicTypeMonitor& monitor() { return *DynamicTypeMonitor::shared(); }

CGFloat sizeIn(const TypeStyle& style, const UIContentSizeCategory& category) {
  return style.configuration().fontSize().value(category);
}

template <class View>
CGFloat fontSize(const View& view) {
  return view.font() ? view.font()->pointSize() : -1;
}

template <class T>
std::shared_ptr<const T> attributeAtStart(const NSAttributedString& string, std::string_view name) {
  const Value* const value = string.attribute(name, 0);
  return value ? value->as<T>() : nullptr;
}

CGFloat textSize(const std::shared_ptr<const NSAttributedString>& string) {
  return attributeAtStart<UIFont>(*string, NSFontAttributeName)->pointSize();
}

const ColorPtr& green() {
  static const ColorPtr color = std::make_shared<const UIColor>(UIColor::rgb(0, 1, 0, 1));
  return color;
}

// Counts how often it is given attributed text.
class CountingLabel : public UILabel {
 public:
  static std::shared_ptr<CountingLabel> initWithFrame(const CGRect& frame = {}) {
    return made(std::shared_ptr<CountingLabel>(new CountingLabel), frame);
  }

  void setAttributedText(const std::shared_ptr<const NSAttributedString>& text) override {
    lengths.push_back(text ? text->length() : 0);
    UILabel::setAttributedText(text);
  }

  std::vector<std::size_t> lengths;
};

// Keeps the styles that are applied to it, each with the size of the font that it had at that time.
class RecordingLabel final : public UILabel, public StyleRecorder {
 public:
  static std::shared_ptr<RecordingLabel> initWithFrame(const CGRect& frame = {}) {
    return made(std::shared_ptr<RecordingLabel>(new RecordingLabel), frame);
  }

  void recordStyle(const TypeStyle& style) override {
    names.push_back(style.name());
    sizes.push_back(fontSize(*this));
    if (onRecord) onRecord();
  }

  std::vector<std::string> names;
  std::vector<CGFloat> sizes;
  std::function<void()> onRecord;
};

class TextViewStyling : public testing::Test {
 protected:
  void SetUp() override { recordingEngine(); }
};
using LabelStyling = TextViewStyling;
using LabelSubscription = TextViewStyling;
using TextFieldStyling = TextViewStyling;
using TextViewSubscription = TextViewStyling;
using ButtonStyling = TextViewStyling;

std::shared_ptr<UILabel> labelWithText(const std::optional<std::string>& text, CGFloat width = 1000) {
  auto label = UILabel::initWithFrame({{}, {width, 40}});
  label->setText(text);
  return label;
}

// --- Labels ---

TEST_F(LabelStyling, SetsTheFontAndTheTextInIt) {
  const auto label = labelWithText("Bonjour");
  apply(*label, TypeStyle::ballad(), kSmall, false);
  EXPECT_TRUE(objectsAreEqual(label->font(), TypeStyle::ballad().font(kSmall)));
  EXPECT_EQ(fontSize(*label), 14.001999999999999);
  EXPECT_EQ(label->attributedText()->string(), "Bonjour");
  EXPECT_TRUE(objectsAreEqual(attributeAtStart<UIFont>(*label->attributedText(), NSFontAttributeName),
                              TypeStyle::ballad().font(kSmall)));
}

TEST_F(LabelStyling, TakesUnknownCategoriesForLarge) {
  const auto label = labelWithText("Bonjour");
  apply(*label, TypeStyle::ballad(), UIContentSizeCategory("nonsense"), false);
  EXPECT_EQ(fontSize(*label), 16);
  EXPECT_EQ(textSize(label->attributedText()), 16);
}

TEST_F(LabelStyling, KeepsTheLabelsAlignmentAndLineBreakMode) {
  const auto label = labelWithText("Bonjour");
  label->setTextAlignment(NSTextAlignment::center);
  label->setLineBreakMode(NSLineBreakMode::byTruncatingMiddle);
  apply(*label, TypeStyle::ballad(), kLarge, false);
  const auto paragraph = attributeAtStart<NSParagraphStyle>(*label->attributedText(), NSParagraphStyleAttributeName);
  ASSERT_TRUE(paragraph);
  EXPECT_EQ(paragraph->alignment(), NSTextAlignment::center);
  EXPECT_EQ(paragraph->lineBreakMode(), NSLineBreakMode::byTruncatingMiddle);
}

TEST_F(LabelStyling, SharesAttributesAmongLabelsThatAreStyledAlike) {
  const auto styled = [](NSTextAlignment alignment, const UIContentSizeCategory& category) {
    const auto label = UILabel::initWithFrame();
    label->setText("A");
    label->setTextAlignment(alignment);
    apply(*label, TypeStyle::ballad(), category, false);
    return label->attributedText()->attributesAtIndex(0);
  };
  const Dictionary attributes = styled(NSTextAlignment::left, kSmall);
  EXPECT_EQ(styled(NSTextAlignment::left, kSmall).begin(), attributes.begin());
  EXPECT_FALSE(styled(NSTextAlignment::right, kSmall) == attributes);
  EXPECT_FALSE(styled(NSTextAlignment::left, kHuge) == attributes);
}

TEST_F(LabelStyling, SetsTheFontAloneWhereThereIsNoText) {
  const auto label = CountingLabel::initWithFrame();
  apply(*label, TypeStyle::ballad(), kSmall, false);
  EXPECT_EQ(fontSize(*label), 14.001999999999999);
  EXPECT_THAT(label->lengths, IsEmpty());
  EXPECT_FALSE(label->text());
}

TEST_F(LabelStyling, SetsAnEmptyAttributedTextWhereTheTextIsEmpty) {
  const auto label = CountingLabel::initWithFrame();
  label->setText("");
  label->lengths.clear();
  apply(*label, TypeStyle::ballad(), kSmall, false);
  EXPECT_THAT(label->lengths, ElementsAre(0U));
  EXPECT_EQ(label->text(), "");
}

TEST_F(LabelStyling, ShowsCapitalsWhereTheStyleAsksForThem) {
  const auto label = labelWithText("Bonjour");
  apply(*label, TypeStyle::minuet(), kLarge, false);
  EXPECT_EQ(label->text(), "BONJOUR");
}

TEST_F(LabelStyling, DoesNotFitTheTextOfALabelThatShrinksItItself) {
  const auto label = labelWithText(kTwentyCharacters, 100);
  label->setAdjustsFontSizeToFitWidth(true);
  label->setMinimumScaleFactor(0.5);
  apply(*label, TypeStyle::ballad(), kLarge, false);
  EXPECT_EQ(textSize(label->attributedText()), 16);
}

TEST_F(LabelStyling, FitsTheTextOfALabelThatDoesNotByItsOwnFactor) {
  const auto label = labelWithText(kTwentyCharacters, 100);
  label->setMinimumScaleFactor(0.5);
  apply(*label, TypeStyle::ballad(), kLarge, false);
  // Twenty halves of an em in 100 points.
  EXPECT_EQ(textSize(label->attributedText()), 10);
}

TEST_F(LabelStyling, FitsIntoTheLabelsOwnNumberOfLines) {
  const auto label = labelWithText(kTwentyCharacters, 100);
  label->setMinimumScaleFactor(0.5);
  label->setNumberOfLines(2);
  apply(*label, TypeStyle::ballad(), kLarge, false);
  EXPECT_EQ(textSize(label->attributedText()), 16);
}

TEST_F(LabelStyling, DoesNotFitTheTextOfALabelWithoutAFactor) {
  const auto label = labelWithText(kTwentyCharacters, 100);
  ASSERT_EQ(label->minimumScaleFactor(), 0);
  apply(*label, TypeStyle::ballad(), kLarge, false);
  EXPECT_EQ(textSize(label->attributedText()), 16);
}

TEST_F(LabelStyling, RecordsTheStyleBeforeAnythingElse) {
  const auto label = RecordingLabel::initWithFrame();
  apply(*label, TypeStyle::ballad(), kSmall, false);
  apply(*label, TypeStyle::viola(), kSmall, false);
  EXPECT_THAT(label->names, ElementsAre("Ballad", TypeStyle::viola().name()));
  EXPECT_THAT(label->sizes, ElementsAre(-1, 14.001999999999999));
}

TEST_F(LabelStyling, GivesRandomLabelsTheStringOfTheBuilder) {
  EXPECT_TRUE(rc::check([] {
    const auto text = *rc::gen::string<std::string>();
    const auto& style = TypeStyle::allCases()[*rc::gen::inRange<std::size_t>(0, TypeStyle::allCases().size())];
    const auto category = *rc::gen::element(kSmall, kLarge, kHuge, UIContentSizeCategory("nonsense"));
    const auto alignment = *rc::gen::element(NSTextAlignment::left, NSTextAlignment::center, NSTextAlignment::natural);
    const auto mode = *rc::gen::element(NSLineBreakMode::byWordWrapping, NSLineBreakMode::byTruncatingTail);
    const bool adjusts = *rc::gen::arbitrary<bool>();
    const double factor = *rc::gen::inRange(-1, 12) / 10.0;
    const std::int64_t lines = *rc::gen::inRange(0, 4);
    const double width = *rc::gen::inRange(0, 400);
    const auto label = [&] {
      auto made = labelWithText(text, width);
      made->setTextAlignment(alignment);
      made->setLineBreakMode(mode);
      made->setAdjustsFontSizeToFitWidth(adjusts);
      made->setMinimumScaleFactor(factor);
      made->setNumberOfLines(lines);
      return made;
    };
    const auto styled = label(), twin = label();
    apply(*styled, style, category, *rc::gen::arbitrary<bool>());

    const auto paragraph = NSMutableParagraphStyle::init();
    paragraph->setAlignment(alignment);
    paragraph->setLineBreakMode(mode);
    twin->setFont(style.font(category));
    const auto expected = attributedString(*twin->text(), style, category, adjusts ? -1.0 : twin->minimumScaleFactor(),
                                           lines, *twin, {{NSParagraphStyleAttributeName, paragraph}});
    RC_ASSERT(styled->attributedText()->isEqual(*expected));
  }));
}

// --- Labels that follow ---

TEST_F(LabelSubscription, FollowsChangesWithTheFlag) {
  const auto label = labelWithText("Bonjour");
  apply(*label, TypeStyle::ballad(), kLarge, true);
  EXPECT_EQ(fontSize(*label), 16);
  monitor().setup(kHuge);
  EXPECT_EQ(fontSize(*label), sizeIn(TypeStyle::ballad(), kHuge));
  EXPECT_EQ(textSize(label->attributedText()), sizeIn(TypeStyle::ballad(), kHuge));
  monitor().setup(kSmall);
  EXPECT_EQ(fontSize(*label), 14.001999999999999);
}

TEST_F(LabelSubscription, DoesNotFollowWithoutTheFlag) {
  const auto label = labelWithText("Bonjour");
  apply(*label, TypeStyle::ballad(), kLarge, false);
  monitor().setup(kHuge);
  EXPECT_EQ(fontSize(*label), 16);
}

TEST_F(LabelSubscription, FollowsWithTextThatWasSetLater) {
  const auto label = labelWithText(std::nullopt);
  apply(*label, TypeStyle::ballad(), kLarge, true);
  label->setText("Salut");
  monitor().setup(kSmall);
  EXPECT_EQ(label->attributedText()->string(), "Salut");
  EXPECT_EQ(textSize(label->attributedText()), 14.001999999999999);
}

TEST_F(LabelSubscription, FollowsInTheStyleThatWasAppliedLastWithTheFlag) {
  const auto label = labelWithText("Bonjour");
  apply(*label, TypeStyle::ballad(), kLarge, true);
  apply(*label, TypeStyle::viola(), kLarge, true);
  monitor().setup(kSmall);
  EXPECT_EQ(fontSize(*label), sizeIn(TypeStyle::viola(), kSmall));
}

TEST_F(LabelSubscription, GoesBackToTheOldStyleAfterOneAppliedWithoutTheFlag) {
  const auto label = labelWithText("Bonjour");
  apply(*label, TypeStyle::ballad(), kLarge, true);
  apply(*label, TypeStyle::viola(), kLarge, false);
  EXPECT_EQ(fontSize(*label), sizeIn(TypeStyle::viola(), kLarge));
  monitor().setup(kSmall);
  EXPECT_EQ(fontSize(*label), 14.001999999999999);
}

TEST_F(LabelSubscription, RecordsTheStyleAtEachChange) {
  const auto label = RecordingLabel::initWithFrame();
  apply(*label, TypeStyle::ballad(), kLarge, true);
  monitor().setup(kSmall);
  monitor().setup(kHuge);
  EXPECT_THAT(label->names, ElementsAre("Ballad", "Ballad", "Ballad"));
}

TEST_F(LabelSubscription, UsesTheCategoryThatItIsHandedAndNotTheMonitors) {
  const auto one = RecordingLabel::initWithFrame(), other = RecordingLabel::initWithFrame();
  apply(*one, TypeStyle::ballad(), kLarge, true);
  apply(*other, TypeStyle::ballad(), kLarge, true);
  // Whichever is told first that the size is small tells, before it goes on, both of them that it is huge.
  bool isFirst = true;
  one->onRecord = other->onRecord = [&] {
    if (std::exchange(isFirst, false)) monitor().setup(kHuge);
  };
  monitor().setup(kSmall);
  EXPECT_EQ(monitor().preferredContentSizeCategory(), kHuge);
  EXPECT_EQ(fontSize(*one), 14.001999999999999);
  EXPECT_EQ(fontSize(*other), 14.001999999999999);
}

TEST_F(LabelSubscription, EndsWhenTheLabelIsFreed) {
  auto label = RecordingLabel::initWithFrame();
  int calls = 0;
  label->onRecord = [&] { ++calls; };
  apply(*label, TypeStyle::ballad(), kLarge, true);
  const std::weak_ptr<UILabel> weak = label;
  label.reset();
  EXPECT_TRUE(weak.expired());
  monitor().setup(kSmall);
  EXPECT_EQ(calls, 1);
}

TEST_F(LabelSubscription, EndsByRequestAndLeavesTheStyling) {
  const auto label = labelWithText("Bonjour");
  apply(*label, TypeStyle::ballad(), kSmall, true);
  disableDynamicTypeMonitor(*label);
  monitor().setup(kHuge);
  EXPECT_EQ(fontSize(*label), 14.001999999999999);
  EXPECT_EQ(textSize(label->attributedText()), 14.001999999999999);
  disableDynamicTypeMonitor(*label);
}

class LabelOnTheStack final : public UILabel {};

TEST_F(LabelSubscription, DiesOfALabelThatNobodyOwns) {
  EXPECT_DEATH(
      {
        LabelOnTheStack label;
        apply(label, TypeStyle::ballad(), kLarge, true);
      },
      "held by a shared_ptr");
}

// --- Text fields ---

TEST_F(TextFieldStyling, SetsDefaultAttributesAndText) {
  const auto field = UITextField::initWithFrame();
  field->setText("Bonjour");
  apply(*field, TypeStyle::minuet(), kSmall);
  EXPECT_EQ(field->defaultTextAttributes(), TypeStyle::minuet().stringAttributes(kSmall));
  EXPECT_TRUE(field->attributedText()->isEqual(*attributedString("Bonjour", TypeStyle::minuet(), kSmall)));
}

TEST_F(TextFieldStyling, SetsDefaultAttributesAloneWhereThereIsNoText) {
  const auto field = UITextField::initWithFrame();
  apply(*field, TypeStyle::ballad(), kSmall);
  EXPECT_EQ(field->defaultTextAttributes(), TypeStyle::ballad().stringAttributes(kSmall));
  EXPECT_EQ(field->text(), std::nullopt);
}

TEST_F(TextFieldStyling, SetsDefaultAttributesAloneWhereTheTextIsEmpty) {
  const auto field = UITextField::initWithFrame();
  field->setText("");
  const auto before = field->attributedText();
  apply(*field, TypeStyle::ballad(), kSmall);
  EXPECT_EQ(field->defaultTextAttributes(), TypeStyle::ballad().stringAttributes(kSmall));
  EXPECT_TRUE(objectsAreEqual(field->attributedText(), before));
}

TEST_F(TextFieldStyling, SetsThePlaceholderAndNothingElse) {
  const auto field = UITextField::initWithFrame();
  field->setText("Bonjour");
  field->setPlaceholder("Name");
  const auto defaults = field->defaultTextAttributes();
  const auto text = field->attributedText()->copy();
  applyPlaceholder(*field, TypeStyle::ballad(), kSmall);
  EXPECT_TRUE(field->attributedPlaceholder()->isEqual(*attributedString("Name", TypeStyle::ballad(), kSmall)));
  EXPECT_EQ(field->defaultTextAttributes(), defaults);
  EXPECT_TRUE(field->attributedText()->isEqual(*text));
}

TEST_F(TextFieldStyling, LeavesAMissingOrEmptyPlaceholderAlone) {
  const auto field = UITextField::initWithFrame();
  applyPlaceholder(*field, TypeStyle::ballad(), kSmall);
  EXPECT_EQ(field->placeholder(), std::nullopt);
  field->setPlaceholder("");
  const auto before = field->attributedPlaceholder();
  applyPlaceholder(*field, TypeStyle::ballad(), kSmall);
  EXPECT_TRUE(objectsAreEqual(field->attributedPlaceholder(), before));
}

// --- Text views ---

std::shared_ptr<UITextView> textViewWithText(const std::optional<std::string>& text) {
  auto view = UITextView::initWithFrame({{}, {200, 100}});
  view->setText(text);
  return view;
}

TEST_F(TextViewStyling, SetsTheFontAndTheTextInIt) {
  const auto view = textViewWithText("Bonjour");
  apply(*view, TypeStyle::minuet(), kSmall, false);
  EXPECT_TRUE(objectsAreEqual(view->font(), TypeStyle::minuet().font(kSmall)));
  EXPECT_EQ(view->attributedText()->string(), "BONJOUR");
  EXPECT_EQ(textSize(view->attributedText()), sizeIn(TypeStyle::minuet(), kSmall));
}

TEST_F(TextViewStyling, KeepsAlignmentAndColour) {
  const auto view = textViewWithText("Bonjour");
  view->setTextAlignment(NSTextAlignment::right);
  view->setTextColor(green());
  apply(*view, TypeStyle::ballad(), kSmall, false);
  const NSAttributedString& text = *view->attributedText();
  EXPECT_EQ(*attributeAtStart<UIColor>(text, NSForegroundColorAttributeName), *green());
  const auto paragraph = attributeAtStart<NSParagraphStyle>(text, NSParagraphStyleAttributeName);
  ASSERT_TRUE(paragraph);
  EXPECT_EQ(paragraph->alignment(), NSTextAlignment::right);
  EXPECT_EQ(paragraph->lineBreakMode(), NSLineBreakMode::byWordWrapping);
}

TEST_F(TextViewStyling, GivesNoColourWhereTheTextViewHasNone) {
  const auto view = textViewWithText("Bonjour");
  view->setTextAlignment(NSTextAlignment::right);
  ASSERT_FALSE(view->textColor());
  apply(*view, TypeStyle::ballad(), kSmall, false);
  const NSAttributedString& text = *view->attributedText();
  EXPECT_EQ(text.attribute(NSForegroundColorAttributeName, 0), nullptr);
  EXPECT_EQ(attributeAtStart<NSParagraphStyle>(text, NSParagraphStyleAttributeName)->alignment(),
            NSTextAlignment::right);
}

TEST_F(TextViewStyling, SetsTheFontAloneWhereThereIsNoText) {
  const auto view = UITextView::initWithFrame();
  apply(*view, TypeStyle::ballad(), kSmall, false);
  EXPECT_EQ(fontSize(*view), 14.001999999999999);
  EXPECT_EQ(view->text(), std::nullopt);
}

TEST_F(TextViewSubscription, FollowsChangesWithTheFlagUntilItIsDisabled) {
  const auto view = textViewWithText("Bonjour");
  apply(*view, TypeStyle::ballad(), kLarge, true);
  EXPECT_EQ(fontSize(*view), 16);
  monitor().setup(kSmall);
  EXPECT_EQ(fontSize(*view), 14.001999999999999);
  EXPECT_EQ(textSize(view->attributedText()), 14.001999999999999);
  disableDynamicTypeMonitor(*view);
  monitor().setup(kHuge);
  EXPECT_EQ(fontSize(*view), 14.001999999999999);
}

TEST_F(TextViewSubscription, StaysAsItIsWhereAStyleIsAppliedWithoutTheFlag) {
  const auto view = textViewWithText("Bonjour"), other = textViewWithText("Bonjour");
  apply(*view, TypeStyle::ballad(), kLarge, true);
  apply(*view, TypeStyle::viola(), kLarge, false);
  apply(*other, TypeStyle::ballad(), kLarge, false);
  monitor().setup(kSmall);
  EXPECT_EQ(fontSize(*view), 14.001999999999999);
  EXPECT_EQ(fontSize(*other), 16);
}

TEST_F(TextViewSubscription, UsesTheMonitorsCategoryAndNotTheOneThatItIsHanded) {
  // The first subscriber of another kind to be told that the size is small tells all, before it goes on, that it is
  // huge. Subscribers are told in no particular order, hence the many.
  class Other : public NSObject {};
  std::vector<std::shared_ptr<Other>> others;
  std::vector<std::shared_ptr<UITextView>> views;
  bool isFirst = true;
  std::size_t toldBefore = 0;
  const auto tellAll = [&](const UIContentSizeCategory&) {
    if (!std::exchange(isFirst, false)) return;
    for (const auto& view : views) toldBefore += fontSize(*view) == 14.001999999999999 ? 1 : 0;
    monitor().setup(kHuge);
  };
  for (int i = 0; i < 50; ++i) {
    apply(*views.emplace_back(UITextView::initWithFrame()), TypeStyle::ballad(), kLarge, true);
    monitor().subscribe(others.emplace_back(std::make_shared<Other>()), tellAll);
  }
  monitor().setup(kSmall);
  // Otherwise nobody was handed the small size while the monitor's was huge already, and the test says nothing.
  ASSERT_LT(toldBefore, views.size());
  for (const auto& view : views) EXPECT_EQ(fontSize(*view), sizeIn(TypeStyle::ballad(), kHuge));
}

TEST_F(TextViewSubscription, EndsWhenTheTextViewIsFreed) {
  auto view = textViewWithText("Bonjour");
  apply(*view, TypeStyle::ballad(), kLarge, true);
  const std::weak_ptr<UITextView> weak = view;
  view.reset();
  EXPECT_TRUE(weak.expired());
  monitor().setup(kSmall);
}

// --- Buttons ---

TEST_F(ButtonStyling, SetsTheTitleOfOneStateInItsColour) {
  const auto button = UIButton::initWithFrame();
  button->setTitle("Play", UIControlStateNormal);
  button->setTitle("Playing", UIControlStateSelected);
  button->setTitleColor(green(), UIControlStateSelected);
  apply(*button, TypeStyle::ballad(), UIControlStateSelected, kSmall);
  EXPECT_FALSE(button->attributedTitleForState(UIControlStateNormal));
  const auto expected =
      attributedString("Playing", TypeStyle::ballad(), kSmall, {{NSForegroundColorAttributeName, green()}});
  EXPECT_TRUE(button->attributedTitleForState(UIControlStateSelected)->isEqual(*expected));
}

TEST_F(ButtonStyling, GivesNoColourWhereTheStateHasNone) {
  const auto button = UIButton::initWithFrame();
  button->setTitle("Playing", UIControlStateSelected);
  button->setTitleColor(green(), UIControlStateNormal);
  apply(*button, TypeStyle::ballad(), UIControlStateSelected, kSmall);
  EXPECT_TRUE(button->attributedTitleForState(UIControlStateSelected)
                  ->isEqual(*attributedString("Playing", TypeStyle::ballad(), kSmall)));
}

TEST_F(ButtonStyling, StylesAllSevenStatesThatHaveTitles) {
  const auto button = UIButton::initWithFrame();
  const std::uint32_t states[] = {0, 1, 2, 4, 8, 0x00FF0000U, 0xFF000000U};
  for (const auto state : states) button->setTitle(std::to_string(state), static_cast<UIControlState>(state));
  button->setTitle("both", static_cast<UIControlState>(5));
  apply(*button, TypeStyle::ballad(), kSmall);
  for (const auto state : states) {
    const auto title = button->attributedTitleForState(static_cast<UIControlState>(state));
    ASSERT_TRUE(title) << state;
    EXPECT_TRUE(title->isEqual(*attributedString(std::to_string(state), TypeStyle::ballad(), kSmall))) << state;
  }
  EXPECT_FALSE(button->attributedTitleForState(static_cast<UIControlState>(5)));
}

TEST_F(ButtonStyling, LeavesStatesWithoutATitleAlone) {
  const auto button = UIButton::initWithFrame();
  button->setTitle("Play", UIControlStateNormal);
  apply(*button, TypeStyle::ballad(), kSmall);
  EXPECT_EQ(button->attributedTitleForState(UIControlStateNormal)->string(), "Play");
  for (const std::uint32_t state : {1U, 2U, 4U, 8U, 0x00FF0000U, 0xFF000000U})
    EXPECT_FALSE(button->attributedTitleForState(static_cast<UIControlState>(state))) << state;
}

TEST_F(ButtonStyling, DoesNotFollowChanges) {
  const auto button = UIButton::initWithFrame();
  button->setTitle("Play", UIControlStateNormal);
  apply(*button, TypeStyle::ballad(), kLarge);
  monitor().setup(kSmall);
  EXPECT_EQ(textSize(button->attributedTitleForState(UIControlStateNormal)), 16);
}

}  // namespace
}  // namespace Brisel
