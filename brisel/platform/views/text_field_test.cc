#include "brisel/platform/views/text_field.h"

#include <limits>
#include <memory>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "tests/drawn_text.h"

namespace Brisel::Platform {
namespace {

constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();

class TextField : public testing::Test {
 protected:
  TextField() { recordingEngine(); }

  static Dictionary inFont(CGFloat size) { return {{Value(NSFontAttributeName), Value(fontOfSize(size))}}; }
  static ColorPtr red() { return UIColor::initWithRed(1, 0, 0, 1); }

  std::shared_ptr<UITextField> field = UITextField::initWithFrame({{0, 0}, {100, 60}});
};

TEST_F(TextField, HasNeitherTextNorPlaceholderAtFirst) {
  EXPECT_EQ(field->text(), std::nullopt);
  EXPECT_EQ(field->attributedText(), nullptr);
  EXPECT_EQ(field->placeholder(), std::nullopt);
  EXPECT_EQ(field->attributedPlaceholder(), nullptr);
  EXPECT_TRUE(field->defaultTextAttributes().empty());
  EXPECT_TRUE(drawnText(*field).empty());
}

TEST_F(TextField, TellsAnEmptyTextFromNone) {
  field->setText("");
  EXPECT_EQ(field->text(), "");
  field->setText(std::nullopt);
  EXPECT_EQ(field->text(), std::nullopt);
  field->setPlaceholder("");
  EXPECT_EQ(field->placeholder(), "");
  field->setPlaceholder(std::nullopt);
  EXPECT_EQ(field->placeholder(), std::nullopt);
  field->setAttributedText(NSAttributedString::initWithString(""));
  EXPECT_EQ(field->text(), "");
  field->setAttributedText(nullptr);
  EXPECT_EQ(field->text(), std::nullopt);
}

TEST_F(TextField, GivesTextTheDefaultAttributes) {
  field->setDefaultTextAttributes(inFont(20));
  field->setText("ab");
  EXPECT_TRUE(field->attributedText()->isEqual(*NSAttributedString::initWithString("ab", inFont(20))));
  field->setDefaultTextAttributes(inFont(30));
  EXPECT_TRUE(field->attributedText()->isEqual(*NSAttributedString::initWithString("ab", inFont(30))));
}

TEST_F(TextField, TakesAllOfATextsOwnAttributesWhenDefaultOnesAreSet) {
  field->setAttributedText(
      NSAttributedString::initWithString("ab", inFont(20).with(Value(NSKernAttributeName), Value(3))));
  field->setDefaultTextAttributes(inFont(30));
  EXPECT_TRUE(field->attributedText()->isEqual(*NSAttributedString::initWithString("ab", inFont(30))));
}

TEST_F(TextField, ChangesOneAttributeOfTheWholeTextAndKeepsTheOthers) {
  const auto text = NSMutableAttributedString::initWithString("abcd", inFont(20));
  text->addAttribute(NSKernAttributeName, Value(3), {0, 2});
  field->setAttributedText(text);
  field->setFont(fontOfSize(30));
  text->addAttribute(NSFontAttributeName, Value(fontOfSize(30)), {0, 4});
  EXPECT_TRUE(field->attributedText()->isEqual(*text));
  EXPECT_EQ(field->font()->pointSize(), 30);
  field->setTextColor(red());
  text->addAttribute(NSForegroundColorAttributeName, Value(red()), {0, 4});
  EXPECT_TRUE(field->attributedText()->isEqual(*text));
  EXPECT_EQ(*field->textColor(), *red());
  field->setFont(nullptr);
  field->setTextColor(nullptr);
  text->removeAttribute(NSFontAttributeName, {0, 4});
  text->removeAttribute(NSForegroundColorAttributeName, {0, 4});
  EXPECT_TRUE(field->attributedText()->isEqual(*text));
  EXPECT_EQ(field->font(), nullptr);
  EXPECT_EQ(field->textColor(), nullptr);
}

TEST_F(TextField, KeepsTheRestOfAParagraphStyleWhenItsAlignmentIsSet) {
  const auto style = NSMutableParagraphStyle::init();
  style->setLineSpacing(4);
  field->setAttributedText(
      NSAttributedString::initWithString("ab", {{Value(NSParagraphStyleAttributeName), Value(style)}}));
  EXPECT_EQ(field->textAlignment(), NSTextAlignment::natural);
  field->setTextAlignment(NSTextAlignment::center);
  EXPECT_EQ(field->textAlignment(), NSTextAlignment::center);
  const auto set = field->attributedText()->attribute(NSParagraphStyleAttributeName, 0)->as<NSParagraphStyle>();
  EXPECT_EQ(set->alignment(), NSTextAlignment::center);
  EXPECT_EQ(set->lineSpacing(), 4);
  EXPECT_EQ(style->alignment(), NSTextAlignment::natural);  // the caller's own
}

TEST_F(TextField, CopiesWhatItIsGiven) {
  const auto text = NSMutableAttributedString::initWithString("ab");
  field->setAttributedText(text);
  field->setAttributedPlaceholder(text);
  text->replaceCharactersInRange({0, 2}, "other");
  EXPECT_EQ(field->text(), "ab");
  EXPECT_EQ(field->placeholder(), "ab");
}

TEST_F(TextField, DrawsItsTextInTheMiddleOfItsHeight) {
  field->setFont(fontOfSize(20));
  field->setTextColor(red());
  field->setText("abcd");
  const auto drawn = drawnText(*field, {5, 7});
  ASSERT_EQ(drawn.size(), 1U);
  EXPECT_EQ(drawn[0].text, U"abcd");
  EXPECT_EQ(drawn[0].origin, (CGPoint{5, 7 + 20 + 15}));  // 20 points above the line and below
  EXPECT_EQ(drawn[0].pointSize, 20);
  EXPECT_EQ(drawn[0].color, *red());
}

TEST_F(TextField, HasItsFirstBaselineWhereItDrawsIt) {
  field->setFont(fontOfSize(20));
  field->setText("abcd");
  const auto [fraction, offset] = field->firstBaseline();
  EXPECT_EQ(fraction, 0.5);
  EXPECT_EQ(offset, 15 - 10);
  for (const CGFloat height : {1.0, 20.0, 61.5, 200.0}) {
    field->setFrame({{0, 0}, {100, height}});
    EXPECT_EQ(drawnText(*field).at(0).origin.y, height * fraction + offset);
  }
}

TEST_F(TextField, AlignsItsTextInItsWidth) {
  field->setFont(fontOfSize(20));
  field->setText("abcd");
  field->setTextAlignment(NSTextAlignment::right);
  EXPECT_EQ(drawnText(*field).at(0).origin.x, 60);
  field->setTextAlignment(NSTextAlignment::center);
  EXPECT_EQ(drawnText(*field).at(0).origin.x, 30);
}

TEST_F(TextField, DrawsItsPlaceholderOnlyWhileItIsEmpty) {
  field->setFont(fontOfSize(20));
  field->setPlaceholder("name");
  EXPECT_EQ(drawnText(*field).at(0).text, U"name");
  field->setText("");
  EXPECT_EQ(drawnText(*field).at(0).text, U"name");
  field->setText("ab");
  EXPECT_EQ(drawnText(*field).at(0).text, U"ab");
  EXPECT_EQ(drawnText(*field).size(), 1U);
}

TEST_F(TextField, DrawsItsPlaceholderInTheDefaultFontAndAWeakerColour) {
  field->setPlaceholder("name");
  EXPECT_EQ(drawnText(*field).at(0).pointSize, 17);
  EXPECT_EQ(drawnText(*field).at(0).color, UIColor::grey(0, 0.3));
  field->setFont(fontOfSize(20));
  field->setTextColor(UIColor::initWithRed(1, 0, 0, 0.5));
  EXPECT_EQ(drawnText(*field).at(0).pointSize, 20);
  EXPECT_EQ(drawnText(*field).at(0).color, UIColor::rgb(1, 0, 0, 0.15));
}

TEST_F(TextField, LeavesAnAttributedPlaceholderItsOwnAttributes) {
  field->setAttributedPlaceholder(NSAttributedString::initWithString("name", inFont(30)));
  field->setDefaultTextAttributes(inFont(20));
  EXPECT_TRUE(field->attributedPlaceholder()->isEqual(*NSAttributedString::initWithString("name", inFont(30))));
  EXPECT_EQ(drawnText(*field).at(0).pointSize, 30);
  EXPECT_EQ(drawnText(*field).at(0).color, UIColor::grey(0, 0.3));
}

TEST_F(TextField, SetsTextWithoutAFontInTheSubstituteAtSeventeenPoints) {
  field->setAttributedText(NSAttributedString::initWithString("ab"));
  EXPECT_EQ(drawnText(*field).at(0).pointSize, 17);
  EXPECT_EQ(field->intrinsicContentSize(), (CGSize{17, 17}));
}

TEST_F(TextField, IsAsLargeAsWhatItShows) {
  field->setFont(fontOfSize(20));
  EXPECT_EQ(field->intrinsicContentSize(), (CGSize{0, 20}));  // room for a line, even without one
  field->setPlaceholder("name");
  EXPECT_EQ(field->intrinsicContentSize(), (CGSize{40, 20}));
  field->setText("a name");
  EXPECT_EQ(field->intrinsicContentSize(), (CGSize{60, 20}));
  EXPECT_EQ(field->sizeThatFits({1, 1}), (CGSize{60, 20}));
  field->sizeToFit();
  EXPECT_EQ(field->frame(), (CGRect{{0, 0}, {60, 20}}));
}

TEST_F(TextField, StaysOneLineWhateverItsParagraphStyleSays) {
  const auto wrapping = NSMutableParagraphStyle::init();
  field->setAttributedText(NSAttributedString::initWithString(
      "aa bb cc", inFont(20).with(Value(NSParagraphStyleAttributeName), Value(wrapping))));
  field->setFrame({{0, 0}, {50, 20}});
  for (const DrawnText& piece : drawnText(*field)) EXPECT_EQ(piece.origin.y, 15);
  EXPECT_EQ(field->intrinsicContentSize(), (CGSize{80, 20}));
}

TEST_F(TextField, TruncatesTheTailOfWhatIsTooWide) {
  field->setFont(fontOfSize(20));
  field->setText("abcdef");
  field->setFrame({{0, 0}, {40, 20}});
  std::u32string shown;
  for (const DrawnText& piece : drawnText(*field)) shown += piece.text;
  EXPECT_EQ(shown, U"abc\u2026");
  field->setText("ab\ncd");
  shown.clear();
  for (const DrawnText& piece : drawnText(*field)) shown += piece.text;
  EXPECT_EQ(shown, U"ab\u2026");
  EXPECT_EQ(field->intrinsicContentSize().height, 20);
}

TEST_F(TextField, IsLaidOutAnewWhenItsContentChanges) {
  const auto top = UIView::initWithFrame({{0, 0}, {300, 300}});
  field->setTranslatesAutoresizingMaskIntoConstraints(false);
  top->addSubview(field);
  NSLayoutConstraint::activateConstraints({field->leftAnchor().constraintEqualToAnchor(top->leftAnchor()),
                                           field->topAnchor().constraintEqualToAnchor(top->topAnchor())});
  const auto size = [&] {
    top->layoutIfNeeded();
    return field->frame().size;
  };
  field->setFont(fontOfSize(20));
  EXPECT_EQ(size(), (CGSize{0, 20}));
  field->setPlaceholder("name");
  EXPECT_EQ(size(), (CGSize{40, 20}));
  field->setAttributedPlaceholder(NSAttributedString::initWithString("a name"));
  EXPECT_EQ(size(), (CGSize{60, 20}));
  field->setText("ab");
  EXPECT_EQ(size(), (CGSize{20, 20}));
  field->setAttributedText(NSAttributedString::initWithString("abc"));
  EXPECT_EQ(size(), (CGSize{30, 20}));
  field->setDefaultTextAttributes(inFont(40));
  EXPECT_EQ(size(), (CGSize{60, 40}));
}

TEST_F(TextField, BearsNumbersThatAreNone) {
  field->setText("ab");
  for (const CGFloat odd : {kNaN, kInfinity, -kInfinity, -1.0, 1e300}) {
    field->setFont(fontOfSize(odd));
    field->setFrame({{odd, odd}, {odd, odd}});
    drawnText(*field, {odd, odd});
    EXPECT_GE(field->intrinsicContentSize().width, 0);
    field->sizeThatFits({odd, odd});
    field->firstBaseline();
  }
}

}  // namespace
}  // namespace Brisel::Platform
