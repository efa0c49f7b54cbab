#include "brisel/platform/views/button.h"

#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "tests/drawn_text.h"

namespace Brisel::Platform {
namespace {

constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();

constexpr UIControlState kStates[] = {UIControlStateNormal,   UIControlStateHighlighted, UIControlStateDisabled,
                                      UIControlStateSelected, UIControlStateFocused,     UIControlStateApplication,
                                      UIControlStateReserved};

class Button : public testing::Test {
 protected:
  Button() { recordingEngine(); }

  static std::shared_ptr<const NSAttributedString> attributed(const char* text, CGFloat size = 20) {
    return NSAttributedString::initWithString(text, {{Value(NSFontAttributeName), Value(fontOfSize(size))}});
  }
  static ColorPtr red() { return UIColor::initWithRed(1, 0, 0, 1); }
  static ColorPtr blue() { return UIColor::initWithRed(0, 0, 1, 1); }

  std::shared_ptr<UIButton> button = UIButton::initWithFrame({{0, 0}, {100, 60}});
};

TEST_F(Button, NumbersItsStatesAsPublished) {
  EXPECT_EQ(std::uint32_t{UIControlStateNormal}, 0U);
  EXPECT_EQ(std::uint32_t{UIControlStateHighlighted}, 1U);
  EXPECT_EQ(std::uint32_t{UIControlStateDisabled}, 2U);
  EXPECT_EQ(std::uint32_t{UIControlStateSelected}, 4U);
  EXPECT_EQ(std::uint32_t{UIControlStateFocused}, 8U);
  EXPECT_EQ(std::uint32_t{UIControlStateApplication}, 0x00FF0000U);
  EXPECT_EQ(std::uint32_t{UIControlStateReserved}, 0xFF000000U);
}

TEST_F(Button, AnswersOnlyWhatWasSetForAState) {
  button->setTitle("title", UIControlStateNormal);
  button->setTitleColor(red(), UIControlStateNormal);
  button->setAttributedTitle(attributed("attributed"), UIControlStateNormal);
  EXPECT_EQ(button->titleForState(UIControlStateNormal), "title");
  EXPECT_EQ(*button->titleColorForState(UIControlStateNormal), *red());
  EXPECT_EQ(button->attributedTitleForState(UIControlStateNormal)->string(), "attributed");
  for (const UIControlState state : kStates) {
    if (state == UIControlStateNormal) continue;
    EXPECT_EQ(button->titleForState(state), std::nullopt);
    EXPECT_EQ(button->titleColorForState(state), nullptr);
    EXPECT_EQ(button->attributedTitleForState(state), nullptr);
  }
}

TEST_F(Button, TakesAMaskForAStateOfItsOwn) {
  button->setTitle("application", UIControlStateApplication);
  button->setTitle("reserved", UIControlStateReserved);
  EXPECT_EQ(button->titleForState(UIControlStateApplication), "application");
  EXPECT_EQ(button->titleForState(UIControlStateReserved), "reserved");
  EXPECT_EQ(button->titleForState(static_cast<UIControlState>(0x00010000U)), std::nullopt);
  EXPECT_EQ(button->titleForState(static_cast<UIControlState>(0xFFFF0000U)), std::nullopt);
}

TEST_F(Button, TellsAnEmptyTitleFromNone) {
  button->setTitle("", UIControlStateNormal);
  EXPECT_EQ(button->titleForState(UIControlStateNormal), "");
  button->setTitle(std::nullopt, UIControlStateNormal);
  EXPECT_EQ(button->titleForState(UIControlStateNormal), std::nullopt);
}

TEST_F(Button, RemembersForEachOfThirtyTwoBitsWorthOfStatesWhatWasSetLast) {
  EXPECT_TRUE(rc::check([] {
    const auto anyState = [] {
      return static_cast<UIControlState>(*rc::gen::oneOf(
          rc::gen::arbitrary<std::uint32_t>(),
          rc::gen::elementOf(std::vector<std::uint32_t>({0, 1, 2, 3, 4, 8, 0x00FF0000, 0xFF000000, 0xFFFFFFFF}))));
    };
    const auto anyButton = UIButton::initWithFrame();
    std::map<std::uint32_t, std::optional<std::string>> titles;
    std::map<std::uint32_t, ColorPtr> colors;
    std::map<std::uint32_t, std::optional<std::string>> attributedTitles;
    const auto steps = *rc::gen::inRange(0, 40);
    for (int i = 0; i < steps; ++i) {
      const UIControlState state = anyState();
      const auto text = *rc::gen::element<std::optional<std::string>>(std::nullopt, "", "a", "b");
      switch (*rc::gen::inRange(0, 3)) {
        case 0:
          anyButton->setTitle(text, state);
          titles[state] = text;
          break;
        case 1:
          colors[state] = text ? red() : nullptr;
          anyButton->setTitleColor(colors[state], state);
          break;
        default:
          anyButton->setAttributedTitle(text ? NSAttributedString::initWithString(*text) : nullptr, state);
          attributedTitles[state] = text;
          break;
      }
      const UIControlState asked = anyState();
      RC_ASSERT(anyButton->titleForState(asked) == titles[asked]);
      RC_ASSERT(anyButton->titleColorForState(asked) == colors[asked]);
      const auto attributed = anyButton->attributedTitleForState(asked);
      RC_ASSERT((attributed ? std::optional(attributed->string()) : std::nullopt) == attributedTitles[asked]);
    }
  }));
}

TEST_F(Button, CopiesWhatItIsGiven) {
  const auto title = NSMutableAttributedString::initWithString("ab");
  button->setAttributedTitle(title, UIControlStateNormal);
  title->replaceCharactersInRange({0, 2}, "other");
  EXPECT_EQ(button->attributedTitleForState(UIControlStateNormal)->string(), "ab");
}

TEST_F(Button, HasTheStateOfTheFlagsThatAreSet) {
  EXPECT_EQ(button->state(), UIControlStateNormal);
  EXPECT_TRUE(button->isEnabled());
  button->setEnabled(false);
  button->setHighlighted(true);
  EXPECT_EQ(std::uint32_t{button->state()}, 3U);
  button->setSelected(true);
  button->setFocused(true);
  button->setHighlighted(false);
  EXPECT_EQ(std::uint32_t{button->state()}, 14U);
  EXPECT_FALSE(button->isEnabled());
  EXPECT_FALSE(button->isHighlighted());
  EXPECT_TRUE(button->isSelected());
  EXPECT_TRUE(button->isFocused());
  button->setEnabled(true);
  button->setSelected(false);
  button->setFocused(false);
  EXPECT_EQ(button->state(), UIControlStateNormal);
}

TEST_F(Button, DrawsTheNormalTitleInAStateWithoutOne) {
  button->setTitle("normal", UIControlStateNormal);
  for (const bool isOn : {true, false}) {
    button->setHighlighted(isOn);
    EXPECT_EQ(drawnText(*button).at(0).text, U"normal");
  }
}

TEST_F(Button, DrawsTheTitleOfItsStateAndNotOfAPartOfIt) {
  button->setTitle("normal", UIControlStateNormal);
  button->setTitle("selected", UIControlStateSelected);
  button->setSelected(true);
  EXPECT_EQ(drawnText(*button).at(0).text, U"selected");
  button->setEnabled(false);
  EXPECT_EQ(drawnText(*button).at(0).text, U"normal");
  button->setTitle("both", static_cast<UIControlState>(UIControlStateSelected | UIControlStateDisabled));
  EXPECT_EQ(drawnText(*button).at(0).text, U"both");
}

TEST_F(Button, DrawsAnAttributedTitleBeforeAPlainOneOfTheSameState) {
  button->setTitle("plain", UIControlStateNormal);
  button->setAttributedTitle(attributed("attributed"), UIControlStateNormal);
  EXPECT_EQ(button->currentAttributedTitle()->string(), "attributed");
  button->setTitle("plain disabled", UIControlStateDisabled);
  button->setEnabled(false);
  EXPECT_EQ(button->currentAttributedTitle()->string(), "plain disabled");
  button->setTitle(std::nullopt, UIControlStateDisabled);
  EXPECT_EQ(button->currentAttributedTitle()->string(), "attributed");
  button->setEnabled(true);
  button->setAttributedTitle(nullptr, UIControlStateNormal);
  EXPECT_EQ(button->currentAttributedTitle()->string(), "plain");
  button->setTitle(std::nullopt, UIControlStateNormal);
  EXPECT_EQ(button->currentAttributedTitle(), nullptr);
}

TEST_F(Button, DrawsInTheColourOfItsStateElseTheNormalOneElseBlack) {
  button->setTitle("title", UIControlStateNormal);
  EXPECT_EQ(drawnText(*button).at(0).color, UIColor::grey(0, 1));
  button->setTitleColor(red(), UIControlStateNormal);
  button->setTitleColor(blue(), UIControlStateDisabled);
  EXPECT_EQ(drawnText(*button).at(0).color, *red());
  button->setHighlighted(true);
  EXPECT_EQ(drawnText(*button).at(0).color, *red());
  button->setHighlighted(false);
  button->setEnabled(false);
  EXPECT_EQ(drawnText(*button).at(0).color, *blue());
}

TEST_F(Button, LeavesAnAttributedTitleItsOwnColour) {
  button->setTitleColor(red(), UIControlStateNormal);
  const auto title = attributed("ab")->mutableCopy();
  button->setAttributedTitle(title, UIControlStateNormal);
  EXPECT_EQ(drawnText(*button).at(0).color, *red());
  title->addAttribute(NSForegroundColorAttributeName, Value(blue()), {0, 2});
  button->setAttributedTitle(title, UIControlStateNormal);
  EXPECT_EQ(drawnText(*button).at(0).color, *blue());
  EXPECT_TRUE(button->currentAttributedTitle()->isEqual(*title));
}

TEST_F(Button, DrawsItsTitleInTheMiddleWithinItsInsets) {
  button->setAttributedTitle(attributed("abcd"), UIControlStateNormal);
  EXPECT_EQ(drawnText(*button, {5, 7}).at(0).origin, (CGPoint{5 + 30, 7 + 20 + 15}));
  button->setContentEdgeInsets({10, 20, 0, 0});
  EXPECT_EQ(drawnText(*button, {5, 7}).at(0).origin, (CGPoint{5 + 40, 7 + 25 + 15}));
}

TEST_F(Button, HasItsFirstBaselineWhereItDrawsIt) {
  button->setAttributedTitle(attributed("abcd"), UIControlStateNormal);
  button->setContentEdgeInsets({8, 0, 2, 0});
  const auto [fraction, offset] = button->firstBaseline();
  EXPECT_EQ(fraction, 0.5);
  EXPECT_EQ(offset, 15 - 10 + 3);
  for (const CGFloat height : {12.0, 20.0, 61.5, 200.0}) {
    button->setFrame({{0, 0}, {100, height}});
    EXPECT_EQ(drawnText(*button).at(0).origin.y, height * fraction + offset);
  }
}

TEST_F(Button, IsAsLargeAsItsTitleAndItsInsets) {
  EXPECT_EQ(button->intrinsicContentSize(), (CGSize{0, 0}));
  EXPECT_EQ(button->firstBaseline().fractionOfHeight, 1);  // its bottom, without text
  EXPECT_TRUE(drawnText(*button).empty());
  button->setTitle("ab", UIControlStateNormal);
  EXPECT_EQ(button->intrinsicContentSize(), (CGSize{17, 17}));
  button->setAttributedTitle(attributed("abcd"), UIControlStateNormal);
  button->setContentEdgeInsets({1, 2, 3, 4});
  EXPECT_EQ(button->intrinsicContentSize(), (CGSize{46, 24}));
  EXPECT_EQ(button->sizeThatFits({1, 1}), (CGSize{46, 24}));
  button->setAttributedTitle(attributed("ab", 40), UIControlStateHighlighted);
  button->setHighlighted(true);
  EXPECT_EQ(button->intrinsicContentSize(), (CGSize{46, 44}));
}

TEST_F(Button, TruncatesTheTailOfATitleThatIsTooWide) {
  button->setAttributedTitle(attributed("aa bb cc"), UIControlStateNormal);
  button->setContentEdgeInsets({0, 30, 0, 30});
  std::u32string shown;
  for (const DrawnText& piece : drawnText(*button)) shown += piece.text;
  EXPECT_EQ(shown, U"aa\u2026");  // no space before the ellipsis
}

TEST_F(Button, IsLaidOutAnewWhenItsTitleOrItsStateChanges) {
  const auto top = UIView::initWithFrame({{0, 0}, {300, 300}});
  button->setTranslatesAutoresizingMaskIntoConstraints(false);
  top->addSubview(button);
  NSLayoutConstraint::activateConstraints({button->leftAnchor().constraintEqualToAnchor(top->leftAnchor()),
                                           button->topAnchor().constraintEqualToAnchor(top->topAnchor())});
  const auto size = [&] {
    top->layoutIfNeeded();
    return button->frame().size;
  };
  button->setTitle("ab", UIControlStateNormal);
  EXPECT_EQ(size(), (CGSize{17, 17}));
  button->setAttributedTitle(attributed("abcd"), UIControlStateSelected);
  button->setSelected(true);
  EXPECT_EQ(size(), (CGSize{40, 20}));
  button->setContentEdgeInsets({1, 2, 3, 4});
  EXPECT_EQ(size(), (CGSize{46, 24}));
}

TEST_F(Button, BearsNumbersThatAreNone) {
  button->setTitle("ab", UIControlStateNormal);
  for (const CGFloat odd : {kNaN, kInfinity, -kInfinity, -1.0, 1e300}) {
    button->setContentEdgeInsets({odd, odd, odd, odd});
    button->setFrame({{odd, odd}, {odd, odd}});
    drawnText(*button, {odd, odd});
    button->intrinsicContentSize();
    button->firstBaseline();
  }
  button->setContentEdgeInsets({kNaN, kInfinity, 2, -kInfinity});
  EXPECT_EQ(button->intrinsicContentSize(), (CGSize{17, 19}));
}

}  // namespace
}  // namespace Brisel::Platform
