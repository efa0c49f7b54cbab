#include "brisel/platform/views/text_view.h"

#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/drawn_text.h"

namespace Brisel::Platform {
namespace {

using Kind = RecordingEngine::CanvasCall::Kind;

constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();

class TextView : public testing::Test {
 protected:
  TextView() {
    recordingEngine();
    view->setFont(fontOfSize(20));
  }

  static ColorPtr red() { return UIColor::initWithRed(1, 0, 0, 1); }

  std::shared_ptr<UITextView> view = UITextView::initWithFrame({{0, 0}, {50, 100}});
};

TEST_F(TextView, TellsAnEmptyTextFromNone) {
  EXPECT_EQ(view->text(), std::nullopt);
  EXPECT_EQ(view->attributedText(), nullptr);
  view->setText("");
  EXPECT_EQ(view->text(), "");
  view->setText(std::nullopt);
  EXPECT_EQ(view->text(), std::nullopt);
  view->setAttributedText(NSAttributedString::initWithString("ab"));
  EXPECT_EQ(view->text(), "ab");
}

TEST_F(TextView, GivesTextItsFontColourAndAlignment) {
  view->setTextColor(red());
  view->setTextAlignment(NSTextAlignment::right);
  view->setText("ab");
  const auto style = NSMutableParagraphStyle::init();
  style->setAlignment(NSTextAlignment::right);
  const Dictionary expected{{Value(NSFontAttributeName), Value(fontOfSize(20))},
                            {Value(NSForegroundColorAttributeName), Value(red())},
                            {Value(NSParagraphStyleAttributeName), Value(style)}};
  EXPECT_TRUE(view->attributedText()->isEqual(*NSAttributedString::initWithString("ab", expected)));
}

TEST_F(TextView, ChangesOneAttributeOfTheWholeTextAndKeepsTheOthers) {
  const auto text = NSMutableAttributedString::initWithString("abcd");
  text->addAttribute(NSKernAttributeName, Value(3), {0, 2});
  view->setAttributedText(text);
  view->setFont(fontOfSize(30));
  text->addAttribute(NSFontAttributeName, Value(fontOfSize(30)), {0, 4});
  EXPECT_TRUE(view->attributedText()->isEqual(*text));
  view->setTextColor(red());
  text->addAttribute(NSForegroundColorAttributeName, Value(red()), {0, 4});
  EXPECT_TRUE(view->attributedText()->isEqual(*text));
  view->setTextColor(nullptr);
  view->setFont(nullptr);
  text->setAttributes({}, {2, 2});
  text->setAttributes({{Value(NSKernAttributeName), Value(3)}}, {0, 2});
  EXPECT_TRUE(view->attributedText()->isEqual(*text));
}

TEST_F(TextView, KeepsTheFontColourAndAlignmentItWasGivenWhateverItsTextHas) {
  view->setAttributedText(NSAttributedString::initWithString(
      "ab",
      {{Value(NSForegroundColorAttributeName), Value(red())}, {Value(NSFontAttributeName), Value(fontOfSize(9))}}));
  EXPECT_EQ(view->textColor(), nullptr);
  EXPECT_EQ(view->font()->pointSize(), 20);
  EXPECT_EQ(view->textAlignment(), NSTextAlignment::natural);
}

TEST_F(TextView, CopiesWhatItIsGiven) {
  const auto text = NSMutableAttributedString::initWithString("ab");
  view->setAttributedText(text);
  text->replaceCharactersInRange({0, 2}, "other");
  EXPECT_EQ(view->text(), "ab");
}

TEST_F(TextView, WrapsFromItsTopWithinItsInsets) {
  view->setText("aa bb");
  auto drawn = drawnText(*view, {100, 200});
  ASSERT_EQ(drawn.size(), 1U);  // five characters of 10 points
  EXPECT_EQ(drawn[0].origin, (CGPoint{100, 200 + 8 + 15}));
  view->setTextContainerInset({1, 2, 3, 4});
  drawn = drawnText(*view, {100, 200});
  ASSERT_EQ(drawn.size(), 2U);
  EXPECT_EQ(drawn[0].text, U"aa");
  EXPECT_EQ(drawn[0].origin, (CGPoint{102, 200 + 1 + 15}));
  EXPECT_EQ(drawn[1].text, U"bb");
  EXPECT_EQ(drawn[1].origin, (CGPoint{102, 200 + 1 + 20 + 15}));
}

TEST_F(TextView, AlignsItsTextBetweenItsInsets) {
  view->setTextContainerInset({0, 2, 0, 4});
  view->setText("aa");
  view->setTextAlignment(NSTextAlignment::right);
  EXPECT_EQ(drawnText(*view).at(0).origin.x, 50 - 4 - 20);
}

TEST_F(TextView, CutsWhatIsBeyondItsEdges) {
  const auto clips = [&] {
    drawnText(*view, {3, 4});
    std::vector<UIBezierPath> paths;
    for (const auto& call : recordingEngine().record().calls)
      if (call.kind == Kind::clipToPath) paths.push_back(call.path);
    return paths;
  };
  view->setText("aa bb cc dd");
  view->setFrame({{0, 0}, {50, 48}});  // two lines and the upper inset
  EXPECT_TRUE(clips().empty());
  view->setFrame({{0, 0}, {50, 47}});
  EXPECT_EQ(clips(), std::vector{UIBezierPath::bezierPathWithRect({{3, 4}, {50, 47}})});
}

TEST_F(TextView, IsAsHighAsItsTextAtItsWidth) {
  view->setText("aa bb cc");
  EXPECT_EQ(view->intrinsicContentSize(), (CGSize{80, 20 + 16}));
  EXPECT_EQ(view->sizeThatFits({50, 0}), (CGSize{50, 40 + 16}));
  EXPECT_EQ(view->sizeThatFits({20, 0}), (CGSize{20, 60 + 16}));
  view->setTextContainerInset({1, 10, 2, 20});
  EXPECT_EQ(view->sizeThatFits({80, 0}), (CGSize{50 + 30, 40 + 3}));
}

TEST_F(TextView, IsAsHighAsALineWithoutAText) {
  EXPECT_EQ(view->sizeThatFits({50, 0}), (CGSize{0, 20 + 16}));
  view->setText("");
  EXPECT_EQ(view->intrinsicContentSize(), (CGSize{0, 20 + 16}));
  view->setFont(nullptr);
  EXPECT_EQ(view->intrinsicContentSize(), (CGSize{0, 12 + 16}));
}

TEST_F(TextView, HasItsFirstBaselineBelowItsUpperInsetWhateverItsHeight) {
  view->setText("aa bb cc");
  view->setTextContainerInset({3, 0, 0, 0});
  EXPECT_EQ(view->firstBaseline().fractionOfHeight, 0);
  EXPECT_EQ(view->firstBaseline().offset, 3 + 15);
  EXPECT_EQ(drawnText(*view).at(0).origin.y, 3 + 15);
}

TEST_F(TextView, IsLaidOutAsHighAsItsTextAtTheWidthThatItIsGiven) {
  const auto top = UIView::initWithFrame({{0, 0}, {50, 300}});
  view->setTranslatesAutoresizingMaskIntoConstraints(false);
  top->addSubview(view);
  NSLayoutConstraint::activateConstraints({view->leftAnchor().constraintEqualToAnchor(top->leftAnchor()),
                                           view->rightAnchor().constraintEqualToAnchor(top->rightAnchor()),
                                           view->topAnchor().constraintEqualToAnchor(top->topAnchor())});
  const auto height = [&] {
    top->layoutIfNeeded();
    return view->frame().size.height;
  };
  EXPECT_EQ(height(), 20 + 16);
  view->setText("aa bb cc");
  EXPECT_EQ(height(), 40 + 16);
  view->setFont(fontOfSize(40));
  EXPECT_EQ(height(), 120 + 16);
  view->setTextContainerInset({});
  EXPECT_EQ(height(), 120);
  view->setAttributedText(nullptr);
  EXPECT_EQ(height(), 40);
}

TEST_F(TextView, BearsNumbersThatAreNone) {
  view->setText("aa bb");
  for (const CGFloat odd : {kNaN, kInfinity, -kInfinity, -1.0, 1e300}) {
    view->setTextContainerInset({odd, odd, odd, odd});
    EXPECT_EQ(view->textContainerInset().bottom == odd, odd == odd);
    view->setFrame({{odd, odd}, {odd, odd}});
    view->setFont(fontOfSize(odd));
    drawnText(*view, {odd, odd});
    view->sizeThatFits({odd, odd});
    view->intrinsicContentSize();
    view->firstBaseline();
  }
}

TEST_F(TextView, CountsInsetsThatAreNotFiniteAsNone) {
  view->setText("aa bb");
  view->setTextContainerInset({kNaN, kInfinity, 2, kNaN});
  EXPECT_EQ(view->intrinsicContentSize(), (CGSize{50, 22}));
}

}  // namespace
}  // namespace Brisel::Platform
