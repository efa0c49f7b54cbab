// Styles on text fields, text views and buttons.
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/typography/styled_string.h"
#include "brisel/typography/styled_views_test.h"
#include "brisel/typography/text_view_styling.h"

namespace Brisel {
namespace {

using namespace Platform;
using testing::ElementsAre;
using testing::IsEmpty;

// Counts how often it is given each of the three.
class CountingField final : public UITextField {
 public:
  static std::shared_ptr<CountingField> initWithFrame(const CGRect& frame = {}) {
    return made(std::shared_ptr<CountingField>(new CountingField), frame);
  }

  void setAttributedText(const std::shared_ptr<const NSAttributedString>& text) override {
    ++texts;
    UITextField::setAttributedText(text);
  }
  void setAttributedPlaceholder(const std::shared_ptr<const NSAttributedString>& placeholder) override {
    ++placeholders;
    UITextField::setAttributedPlaceholder(placeholder);
  }
  void setDefaultTextAttributes(const Dictionary& attributes) override {
    ++defaults;
    UITextField::setDefaultTextAttributes(attributes);
  }

  int texts = 0;
  int placeholders = 0;
  int defaults = 0;
};

// Keeps the sizes of the fonts and the lengths of the texts that it is given.
class CountingTextView final : public UITextView {
 public:
  static std::shared_ptr<CountingTextView> initWithFrame(const CGRect& frame = {}) {
    return made(std::shared_ptr<CountingTextView>(new CountingTextView), frame);
  }

  void setFont(const std::shared_ptr<const UIFont>& font) override {
    UITextView::setFont(font);
    sizes.push_back(fontSize(*this));
    if (onFont) onFont();
  }
  void setAttributedText(const std::shared_ptr<const NSAttributedString>& text) override {
    lengths.push_back(text ? text->length() : 0);
    UITextView::setAttributedText(text);
  }

  std::vector<CGFloat> sizes;
  std::vector<std::size_t> lengths;
  std::function<void()> onFont;
};

// Keeps the states whose titles it is given.
class CountingButton final : public UIButton {
 public:
  static std::shared_ptr<CountingButton> initWithFrame(const CGRect& frame = {}) {
    return made(std::shared_ptr<CountingButton>(new CountingButton), frame);
  }

  void setAttributedTitle(const std::shared_ptr<const NSAttributedString>& title, UIControlState state) override {
    states.push_back(state);
    UIButton::setAttributedTitle(title, state);
  }

  std::vector<std::uint32_t> states;
};

using TextFieldStyling = StyledViews;
using TextViewStyling = StyledViews;
using TextViewSubscription = StyledViews;
using ButtonStyling = StyledViews;

// --- Text fields ---

TEST_F(TextFieldStyling, SetsDefaultAttributesAndText) {
  const auto field = UITextField::initWithFrame();
  field->setText("Bonjour");
  apply(*field, TypeStyle::minuet(), kSmall);
  EXPECT_EQ(field->defaultTextAttributes(), TypeStyle::minuet().stringAttributes(kSmall));
  EXPECT_TRUE(field->attributedText()->isEqual(*attributedString("Bonjour", TypeStyle::minuet(), kSmall)));
}

TEST_F(TextFieldStyling, SetsDefaultAttributesAloneWhereThereIsNoText) {
  const auto field = CountingField::initWithFrame();
  apply(*field, TypeStyle::ballad(), kSmall);
  EXPECT_EQ(field->defaultTextAttributes(), TypeStyle::ballad().stringAttributes(kSmall));
  EXPECT_EQ(field->defaults, 1);
  EXPECT_EQ(field->texts, 0);
}

TEST_F(TextFieldStyling, SetsDefaultAttributesAloneWhereTheTextIsEmpty) {
  const auto field = CountingField::initWithFrame();
  field->setText("");
  apply(*field, TypeStyle::ballad(), kSmall);
  EXPECT_EQ(field->defaultTextAttributes(), TypeStyle::ballad().stringAttributes(kSmall));
  EXPECT_EQ(field->defaults, 1);
  EXPECT_EQ(field->texts, 0);
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
  const auto field = CountingField::initWithFrame();
  applyPlaceholder(*field, TypeStyle::ballad(), kSmall);
  field->setPlaceholder("");
  applyPlaceholder(*field, TypeStyle::ballad(), kSmall);
  EXPECT_EQ(field->placeholders, 0);
  field->setPlaceholder("Name");
  applyPlaceholder(*field, TypeStyle::ballad(), kSmall);
  EXPECT_EQ(field->placeholders, 1);
  EXPECT_EQ(field->texts + field->defaults, 0);
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
  const auto view = CountingTextView::initWithFrame();
  apply(*view, TypeStyle::ballad(), kSmall, false);
  EXPECT_THAT(view->sizes, ElementsAre(14.001999999999999));
  EXPECT_THAT(view->lengths, IsEmpty());
}

TEST_F(TextViewStyling, SetsAnEmptyAttributedTextWhereTheTextIsEmpty) {
  const auto view = CountingTextView::initWithFrame();
  view->setText("");
  apply(*view, TypeStyle::ballad(), kSmall, false);
  EXPECT_THAT(view->lengths, ElementsAre(0U));
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

TEST_F(TextViewSubscription, IsNotRenewedByAChange) {
  const auto view = CountingTextView::initWithFrame();
  apply(*view, TypeStyle::ballad(), kLarge, true);
  view->onFont = [&] { disableDynamicTypeMonitor(*view); };
  monitor().setup(kSmall);
  monitor().setup(kLarge);
  EXPECT_THAT(view->sizes, ElementsAre(16, 14.001999999999999));
}

TEST_F(TextViewSubscription, UsesTheMonitorsCategoryAndNotTheOneThatItIsHanded) {
  // The first subscriber of another kind to be told that the size is small tells all, before it goes on, that it is
  // huge.
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
  const auto button = CountingButton::initWithFrame();
  button->setTitle("Play", UIControlStateNormal);
  apply(*button, TypeStyle::ballad(), kSmall);
  EXPECT_THAT(button->states, ElementsAre(UIControlStateNormal));
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
