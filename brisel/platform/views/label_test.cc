// What a label measures and draws. With the recording engine a character is half its font's size wide, and a line as
// high as the size: three quarters of it above the baseline.
#include "brisel/platform/views/label.h"

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "brisel/platform/font_descriptor.h"
#include "brisel/platform/internal/utf.h"
#include "brisel/platform/port.h"
#include "brisel/platform/recording/engine.h"
#include "brisel/platform/screen.h"

namespace Brisel::Platform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Mode = NSLineBreakMode;

constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();

std::shared_ptr<const UIFont> font(CGFloat size, const char* name = "Any-Book") {
  return UIFont::fontWithDescriptor(UIFontDescriptor::fontDescriptorWithName(name, size), size);
}

class LabelTest : public testing::Test {
 protected:
  struct Line {
    std::string text;
    CGFloat x;
    CGFloat baseline;
    CGFloat pointSize;
    friend bool operator==(const Line&, const Line&) = default;
    friend void PrintTo(const Line& line, std::ostream* out) {
      *out << line.text << " at " << line.x << ", " << line.baseline << " in " << line.pointSize;
    }
  };

  LabelTest() { setEngine(engine_); }

  static std::shared_ptr<UILabel> label(const std::string& text, CGFloat width, CGFloat height,
                                        std::int64_t lines = 1) {
    auto label = UILabel::initWithFrame({{0, 0}, {width, height}});
    label->setFont(font(20));
    label->setText(text);
    label->setNumberOfLines(lines);
    return label;
  }

  // What is drawn with the label's upper left corner at (100, 200).
  std::vector<Line> drawn(const UILabel& label) {
    const auto canvas = engine_->makeCanvas({100, 100}, 1);
    engine_->forget();
    label.drawHierarchy(*canvas, {100, 200});
    std::vector<Line> lines;
    for (const auto& drawing : engine_->record().drawings) {
      for (const PositionedGlyph& glyph : drawing.glyphs) {
        if (lines.empty() || glyph.origin.y != lines.back().baseline)
          lines.push_back({"", glyph.origin.x, glyph.origin.y, drawing.pointSize});
        lines.back().text += internal::toUtf8(internal::toUtf16(static_cast<char32_t>(glyph.id)));
      }
    }
    return lines;
  }

  std::vector<std::string> texts(const UILabel& label) {
    std::vector<std::string> texts;
    for (const Line& line : drawn(label)) texts.push_back(line.text);
    return texts;
  }

  std::size_t shapings() { return engine_->record().shapedTexts.size(); }

  std::shared_ptr<RecordingEngine> engine_ = std::make_shared<RecordingEngine>();
};

TEST_F(LabelTest, HasNoTextAtFirst) {
  const auto label = UILabel::initWithFrame();
  EXPECT_EQ(label->text(), std::nullopt);
  EXPECT_EQ(label->attributedText(), nullptr);
  EXPECT_EQ(label->font(), nullptr);
  EXPECT_EQ(label->textColor(), nullptr);
  EXPECT_EQ(label->textAlignment(), NSTextAlignment::natural);
  EXPECT_EQ(label->lineBreakMode(), Mode::byTruncatingTail);
  EXPECT_EQ(label->numberOfLines(), 1);
  EXPECT_FALSE(label->adjustsFontSizeToFitWidth());
  EXPECT_EQ(label->minimumScaleFactor(), 0);
  EXPECT_EQ(label->intrinsicContentSize(), (CGSize{0, 0}));
}

TEST_F(LabelTest, NoTextAndAnEmptyOneAreNotTheSame) {
  const auto label = UILabel::initWithFrame({{0, 0}, {50, 50}});
  label->setText("");
  EXPECT_EQ(label->text(), "");
  ASSERT_NE(label->attributedText(), nullptr);
  EXPECT_EQ(label->attributedText()->length(), 0U);
  EXPECT_EQ(label->intrinsicContentSize(), (CGSize{0, 0}));
  EXPECT_THAT(drawn(*label), IsEmpty());
  label->setText(std::nullopt);
  EXPECT_EQ(label->text(), std::nullopt);
  label->setAttributedText(NSAttributedString::initWithString(""));
  EXPECT_EQ(label->text(), "");
  label->setAttributedText(nullptr);
  EXPECT_EQ(label->text(), std::nullopt);
  EXPECT_THAT(drawn(*label), IsEmpty());
}

TEST_F(LabelTest, TextAndAttributedTextFollowEachOther) {
  const auto label = UILabel::initWithFrame();
  label->setAttributedText(NSAttributedString::initWithString("one", {{NSKernAttributeName, 3}}));
  EXPECT_EQ(label->text(), "one");
  EXPECT_TRUE(label->attributedText()->attribute(NSKernAttributeName, 0));
  label->setText("two");
  EXPECT_EQ(label->attributedText()->string(), "two");
  EXPECT_FALSE(label->attributedText()->attribute(NSKernAttributeName, 0));
}

TEST_F(LabelTest, APlainTextBearsTheLabelsAttributes) {
  const auto red = UIColor::initWithRed(1, 0, 0, 1);
  const auto label = this->label("ab", 100, 20);
  label->setTextColor(red);
  label->setTextAlignment(NSTextAlignment::center);
  label->setLineBreakMode(Mode::byClipping);
  const auto text = label->attributedText();
  EXPECT_EQ(text->attribute(NSFontAttributeName, 0)->as<UIFont>(), label->font());
  EXPECT_EQ(text->attribute(NSForegroundColorAttributeName, 0)->as<UIColor>(), red);
  const auto style = text->attribute(NSParagraphStyleAttributeName, 0)->as<NSParagraphStyle>();
  EXPECT_EQ(style->alignment(), NSTextAlignment::center);
  EXPECT_EQ(style->lineBreakMode(), Mode::byClipping);
  label->setTextColor(nullptr);
  EXPECT_FALSE(label->attributedText()->attribute(NSForegroundColorAttributeName, 0));
}

TEST_F(LabelTest, WithoutAFontItIsSetAtSeventeenPoints) {
  const auto label = UILabel::initWithFrame();
  label->setText("ab");
  EXPECT_EQ(label->intrinsicContentSize(), (CGSize{17, 17}));
  EXPECT_EQ(label->font(), nullptr);
  EXPECT_EQ(label->attributedText()->attribute(NSFontAttributeName, 0)->as<UIFont>()->pointSize(), 17);
}

TEST_F(LabelTest, AnAttributedTextLeavesTheLabelsOwnAttributesAlone) {
  const auto label = this->label("ab", 100, 20);
  label->setAttributedText(NSAttributedString::initWithString("ab", {{NSFontAttributeName, font(40)}}));
  EXPECT_EQ(label->font()->pointSize(), 20);
  EXPECT_EQ(label->intrinsicContentSize(), (CGSize{40, 40}));
}

TEST_F(LabelTest, WhatAnAttributedTextDoesNotSayTheLabelDoes) {
  const auto label = this->label("", 100, 20);
  label->setTextColor(UIColor::initWithRed(1, 0, 0, 1));
  label->setTextAlignment(NSTextAlignment::right);
  label->setAttributedText(NSAttributedString::initWithString("ab", {{NSKernAttributeName, 5}}));
  EXPECT_EQ(drawn(*label), (std::vector<Line>{{"ab", 170, 215, 20}}));
  EXPECT_EQ(engine_->record().drawings[0].color, *label->textColor());
}

TEST_F(LabelTest, AnAttributeThatIsSetLaterHoldsForTheWholeText) {
  const auto style = NSMutableParagraphStyle::init();
  style->setLineSpacing(3);
  const auto text = NSMutableAttributedString::initWithString(
      "abcd", {{NSFontAttributeName, font(40)}, {NSParagraphStyleAttributeName, style}, {NSKernAttributeName, 2}});
  text->addAttribute(NSFontAttributeName, font(10), {0, 2});
  const auto label = UILabel::initWithFrame();
  label->setAttributedText(text);
  EXPECT_EQ(label->intrinsicContentSize(), (CGSize{58, 40}));
  label->setFont(font(20));
  EXPECT_EQ(label->intrinsicContentSize(), (CGSize{48, 20}));
  label->setTextAlignment(NSTextAlignment::center);
  label->setLineBreakMode(Mode::byClipping);
  const auto red = UIColor::initWithRed(1, 0, 0, 1);
  label->setTextColor(red);
  for (const std::size_t i : {0U, 3U}) {
    const auto attributes = label->attributedText()->attributesAtIndex(i);
    EXPECT_EQ(attributes.find(NSFontAttributeName)->as<UIFont>()->pointSize(), 20);
    EXPECT_EQ(attributes.find(NSForegroundColorAttributeName)->as<UIColor>(), red);
    const auto paragraph = attributes.find(NSParagraphStyleAttributeName)->as<NSParagraphStyle>();
    EXPECT_EQ(paragraph->alignment(), NSTextAlignment::center);
    EXPECT_EQ(paragraph->lineBreakMode(), Mode::byClipping);
    EXPECT_EQ(paragraph->lineSpacing(), 3);
  }
  EXPECT_EQ(style->alignment(), NSTextAlignment::natural);
  label->setTextColor(nullptr);
  EXPECT_FALSE(label->attributedText()->attribute(NSForegroundColorAttributeName, 0));
}

TEST_F(LabelTest, KeepsACopyOfAStringThatMayChange) {
  const auto text = NSMutableAttributedString::initWithString("ab", {{NSFontAttributeName, font(20)}});
  const auto label = UILabel::initWithFrame();
  label->setAttributedText(text);
  text->appendAttributedString(*NSAttributedString::initWithString("cd"));
  EXPECT_EQ(label->text(), "ab");
  EXPECT_EQ(label->intrinsicContentSize().width, 20);
}

TEST_F(LabelTest, OneLineMeasuresItsText) {
  EXPECT_EQ(label("abcd", 0, 0)->intrinsicContentSize(), (CGSize{40, 20}));
  EXPECT_EQ(label("abcd", 7, 7)->sizeThatFits({15, 5}), (CGSize{40, 20}));
  const auto fitted = label("abcd", 7, 7);
  fitted->sizeToFit();
  EXPECT_EQ(fitted->frame().size, (CGSize{40, 20}));
}

TEST_F(LabelTest, SizesAreRoundedUpToPixels) {
  const auto label = this->label("a", 0, 0);
  label->setFont(font(20.5));
  EXPECT_EQ(label->intrinsicContentSize(), (CGSize{11, 21}));
  UIScreen::mainScreen().setScale(2);
  EXPECT_EQ(label->intrinsicContentSize(), (CGSize{10.5, 20.5}));
  EXPECT_EQ(label->sizeThatFits({}), (CGSize{10.5, 20.5}));
}

TEST_F(LabelTest, SeveralLinesMeasureWithinAWidth) {
  const auto label = this->label("aa bb cc", 0, 0, 0);
  EXPECT_EQ(label->intrinsicContentSize(), (CGSize{80, 20}));
  EXPECT_EQ(label->sizeThatFits({50, 1}), (CGSize{50, 40}));
  EXPECT_EQ(label->sizeThatFits({20, kInfinity}), (CGSize{20, 60}));
  label->setPreferredMaxLayoutWidth(50);
  EXPECT_EQ(label->intrinsicContentSize(), (CGSize{50, 40}));
  label->setNumberOfLines(2);
  EXPECT_EQ(label->sizeThatFits({20, 1000}), (CGSize{20, 40}));
  label->setNumberOfLines(1);
  EXPECT_EQ(label->intrinsicContentSize(), (CGSize{80, 20}));
}

TEST_F(LabelTest, DrawsInTheMiddleOfItsHeight) {
  EXPECT_EQ(drawn(*label("ab", 100, 50)), (std::vector<Line>{{"ab", 100, 230, 20}}));
  EXPECT_EQ(drawn(*label("aa bb", 30, 50, 2)), (std::vector<Line>{{"aa", 100, 220, 20}, {"bb", 100, 240, 20}}));
  EXPECT_EQ(drawn(*label("ab", 100, 10)), (std::vector<Line>{{"ab", 100, 210, 20}}));
}

TEST_F(LabelTest, DrawsNothingWithoutRoom) {
  EXPECT_THAT(drawn(*label("ab", 0, 20)), IsEmpty());
  EXPECT_THAT(drawn(*label("ab", 20, 0)), IsEmpty());
  EXPECT_THAT(drawn(*label("ab", -20, 20)), IsEmpty());
}

TEST_F(LabelTest, TruncatesByItsLineBreakMode) {
  const auto label = this->label("abcdef", 40, 20);
  EXPECT_THAT(texts(*label), ElementsAre("abc…"));
  label->setLineBreakMode(Mode::byTruncatingHead);
  EXPECT_THAT(texts(*label), ElementsAre("…def"));
  label->setLineBreakMode(Mode::byTruncatingMiddle);
  EXPECT_THAT(texts(*label), ElementsAre("ab…f"));
  label->setLineBreakMode(Mode::byCharWrapping);
  EXPECT_THAT(texts(*label), ElementsAre("abcd"));
}

TEST_F(LabelTest, ShowsAsManyLinesAsItMayAndCan) {
  EXPECT_THAT(texts(*label("aa bb cc dd", 20, 100, 0)), ElementsAre("aa", "bb", "cc", "dd"));
  EXPECT_THAT(texts(*label("aa bb cc dd", 20, 100, -7)), ElementsAre("aa", "bb", "cc", "dd"));
  EXPECT_THAT(texts(*label("aa bb cc dd", 20, 100, 2)), ElementsAre("aa", "b…"));
  EXPECT_THAT(texts(*label("aa bb cc dd", 20, 70, 0)), ElementsAre("aa", "bb", "c…"));
}

TEST_F(LabelTest, AnAttributedTextBreaksAsItsParagraphStyleSays) {
  const auto style = NSMutableParagraphStyle::init();
  style->setLineBreakMode(Mode::byTruncatingHead);
  style->setAlignment(NSTextAlignment::right);
  const auto label = this->label("", 45, 20);
  label->setAttributedText(NSAttributedString::initWithString(
      "abcdef", {{NSFontAttributeName, font(20)}, {NSParagraphStyleAttributeName, style}}));
  EXPECT_EQ(drawn(*label), (std::vector<Line>{{"…def", 105, 215, 20}}));
  EXPECT_EQ(label->lineBreakMode(), Mode::byTruncatingTail);
}

TEST_F(LabelTest, TheEllipsisIsThreeFullStopsWhereTheTypefaceHasNone) {
  engine_->setMissingCharacters(U"…");
  EXPECT_THAT(texts(*label("abcdef", 50, 20)), ElementsAre("ab..."));
}

TEST_F(LabelTest, OneLineShrinksToExactlyItsWidth) {
  const auto label = this->label("abcdefgh", 60, 20);
  label->setAdjustsFontSizeToFitWidth(true);
  EXPECT_EQ(drawn(*label), (std::vector<Line>{{"abcdefgh", 100, 200 + 2.5 + 11.25, 15}}));
  EXPECT_EQ(label->intrinsicContentSize(), (CGSize{80, 20}));
  label->setFrame({{}, {100, 20}});
  EXPECT_EQ(drawn(*label), (std::vector<Line>{{"abcdefgh", 100, 215, 20}}));
}

TEST_F(LabelTest, BelowTheMinimumScaleItTruncates) {
  const auto label = this->label("abcdefgh", 30, 20);
  label->setAdjustsFontSizeToFitWidth(true);
  label->setMinimumScaleFactor(0.5);
  EXPECT_EQ(drawn(*label), (std::vector<Line>{{"abcde…", 100, 212.5, 10}}));
  label->setMinimumScaleFactor(0.25);
  EXPECT_EQ(drawn(*label)[0].text, "abcdefgh");
  for (const CGFloat large : {1.0, 7.0, kInfinity}) {
    label->setMinimumScaleFactor(large);
    EXPECT_EQ(drawn(*label), (std::vector<Line>{{"ab…", 100, 215, 20}})) << large;
  }
  for (const CGFloat small : {0.0, -3.0, kNaN, -kInfinity}) {
    label->setMinimumScaleFactor(small);
    EXPECT_EQ(drawn(*label)[0].pointSize, 7.5) << small;
  }
}

TEST_F(LabelTest, SeveralLinesShrinkUntilAllIsShown) {
  const auto label = this->label("aaaa bbbb cccc", 60, 40, 2);
  label->setAdjustsFontSizeToFitWidth(true);
  // "aaaa bbbb" takes nine halves of the size.
  const auto lines = drawn(*label);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].text, "aaaa bbbb");
  EXPECT_EQ(lines[1].text, "cccc");
  EXPECT_LE(lines[0].pointSize, 60 / 4.5);
  EXPECT_GT(lines[0].pointSize, 60 / 4.5 - 20.0 / 4096);
  label->setMinimumScaleFactor(0.9);
  EXPECT_EQ(drawn(*label)[0].pointSize, 18);
}

TEST_F(LabelTest, SeveralLinesShrinkRatherThanTearAWord) {
  const auto label = this->label("aaaa bb", 30, 100, 0);
  label->setAdjustsFontSizeToFitWidth(true);
  const auto lines = drawn(*label);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_LE(lines[0].pointSize, 15);
  EXPECT_GT(lines[0].pointSize, 15 - 20.0 / 4096);
}

TEST_F(LabelTest, TheFirstBaselineIsWhereItDraws) {
  for (const CGFloat height : {20.0, 50.0, 133.0}) {
    for (const std::int64_t lines : {1, 2, 0}) {
      const auto label = this->label("aa bb cc", 30, height, lines);
      const FirstBaseline baseline = label->firstBaseline();
      EXPECT_EQ(200 + baseline.fractionOfHeight * height + baseline.offset, drawn(*label)[0].baseline)
          << height << ' ' << lines;
    }
  }
}

TEST_F(LabelTest, WithoutTextTheFirstBaselineIsThatOfItsFont) {
  for (const auto& text : {std::optional<std::string>(), std::optional<std::string>("")}) {
    const auto label = this->label("", 30, 50);
    label->setText(text);
    EXPECT_EQ(label->firstBaseline().fractionOfHeight, 0.5);
    EXPECT_EQ(label->firstBaseline().offset, 5);
  }
}

TEST_F(LabelTest, ANaturalAlignmentFollowsTheParagraph) {
  const auto style = NSMutableParagraphStyle::init();
  style->setBaseWritingDirection(WritingDirection::rightToLeft);
  const auto label = this->label("", 100, 20);
  label->setAttributedText(NSAttributedString::initWithString("ab", {{NSParagraphStyleAttributeName, style}}));
  EXPECT_EQ(drawn(*label), (std::vector<Line>{{"ba", 180, 215, 20}}));
}

TEST_F(LabelTest, SettersLayNothingOut) {
  const auto label = this->label("abcdef", 40, 20);
  label->setAttributedText(NSAttributedString::initWithString("abc", {{NSFontAttributeName, font(20)}}));
  label->setFont(font(30));
  label->setLineBreakMode(Mode::byClipping);
  EXPECT_EQ(shapings(), 0U);
  label->intrinsicContentSize();
  EXPECT_EQ(shapings(), 1U);
}

TEST_F(LabelTest, IsMeasuredFromWhenItsSizeIsAskedForUntilItChanges) {
  const auto label = this->label("abcdef", 40, 20);
  EXPECT_FALSE(label->isMeasured());
  label->sizeThatFits({30, 0});
  EXPECT_FALSE(label->isMeasured());
  label->intrinsicContentSize();
  EXPECT_TRUE(label->isMeasured());
  label->setTextColor(nullptr);
  EXPECT_TRUE(label->isMeasured());
  label->setFont(font(30));
  EXPECT_FALSE(label->isMeasured());
}

TEST_F(LabelTest, MayBePrefetchedInAnyState) {
  const auto label = UILabel::initWithFrame();
  label->prefetchText();
  label->setText("abc");
  label->prefetchText();
  const CGSize size = label->intrinsicContentSize();
  label->prefetchText();
  EXPECT_EQ(label->intrinsicContentSize(), size);
}

TEST_F(LabelTest, ATextIsShapedOnceForAllItsSizesAndColours) {
  const auto label = this->label("abcdef", 100, 20);
  const auto styled = [](CGFloat size, const ColorPtr& color) {
    return NSAttributedString::initWithString(
        "abcdef", {{NSFontAttributeName, font(size)}, {NSForegroundColorAttributeName, color}});
  };
  label->intrinsicContentSize();
  EXPECT_EQ(shapings(), 1U);
  for (const CGFloat size : {20.0, 30.0, 10.0}) {
    label->setAttributedText(styled(size, UIColor::initWithWhite(0.5, 1)));
    EXPECT_EQ(label->intrinsicContentSize(), (CGSize{3 * size, size}));
    label->setTextColor(UIColor::initWithRed(1, 0, 0, 1));
    label->sizeThatFits({30, 30});
  }
  EXPECT_EQ(shapings(), 1U);
}

TEST_F(LabelTest, AnotherTextTypefaceOrLigatureIsShapedAnew) {
  const auto label = this->label("abcdef", 100, 20);
  const auto styled = [](const char* text, const char* name, CGFloat kern) {
    return NSAttributedString::initWithString(text,
                                              {{NSFontAttributeName, font(20, name)}, {NSKernAttributeName, kern}});
  };
  std::size_t expected = 0;
  for (const auto& text : {styled("abcdef", "Any-Book", 0), styled("abcdeg", "Any-Book", 0),
                           styled("abcdeg", "Any-Bold", 0), styled("abcdeg", "Any-Bold", 1)}) {
    label->setAttributedText(text);
    label->intrinsicContentSize();
    EXPECT_EQ(shapings(), ++expected);
  }
  label->setAttributedText(styled("abcdeg", "Any-Bold", 2));
  EXPECT_EQ(label->intrinsicContentSize().width, 72);
  EXPECT_EQ(shapings(), expected);
}

TEST_F(LabelTest, IsShapedAnewWhenItsTextIsSetAfterTheFacesHaveChanged) {
  const auto label = this->label("abc", 100, 20);
  std::size_t expected = 0;
  const auto setAgain = [&] {
    label->setText("abc");
    label->intrinsicContentSize();
    return shapings();
  };
  EXPECT_EQ(setAgain(), ++expected);
  EXPECT_EQ(setAgain(), expected);
  engine_->setUsesHostFonts(false);
  EXPECT_EQ(setAgain(), ++expected);
  engine_->setSubstituteFamily("Other");
  EXPECT_EQ(setAgain(), ++expected);
  engine_->registerFontFile("a.otf");
  EXPECT_EQ(setAgain(), ++expected);
  engine_->registerFontFile("a.otf");  // Known already: nothing changes.
  EXPECT_EQ(setAgain(), expected);
}

TEST_F(LabelTest, KeepsItsGlyphsUntilSomethingIsSetThoughTheFacesHaveChanged) {
  const auto label = this->label("abc", 100, 20);
  label->intrinsicContentSize();
  engine_->setUsesHostFonts(false);
  label->sizeThatFits({100, 20});
  EXPECT_EQ(shapings(), 1U);
  label->setTextColor(UIColor::initWithRed(1, 0, 0, 1));
  EXPECT_THAT(texts(*label), ElementsAre("abc"));
  EXPECT_EQ(shapings(), 0U);  // since drawing began
}

TEST_F(LabelTest, AsksForASubstituteAnewWhenTheFacesHaveChanged) {
  const auto label = UILabel::initWithFrame();
  label->firstBaseline();
  const auto requests = engine_->record().typefaces.size();
  label->firstBaseline();
  EXPECT_EQ(engine_->record().typefaces.size(), requests);
  engine_->setSubstituteFamily("Other");
  label->firstBaseline();
  EXPECT_EQ(engine_->record().typefaces.size(), requests + 1);
}

TEST_F(LabelTest, AnotherDirectionOfItsSurroundingsIsShapedAnew) {
  const auto label = this->label("abc", 100, 20);
  label->intrinsicContentSize();
  label->setSemanticContentAttribute(UISemanticContentAttribute::forceRightToLeft);
  drawn(*label);
  EXPECT_EQ(shapings(), 1U);
}

TEST_F(LabelTest, WhereFontsDoNotScaleLinearlyEachSizeIsShaped) {
  engine_->setScalesLinearly(false);
  const auto label = this->label("abcdef", 30, 20);
  label->intrinsicContentSize();
  label->setFont(font(30));
  EXPECT_EQ(label->intrinsicContentSize(), (CGSize{90, 30}));
  EXPECT_EQ(shapings(), 2U);
  label->setFont(font(30));
  label->intrinsicContentSize();
  EXPECT_EQ(shapings(), 2U);
  label->setAdjustsFontSizeToFitWidth(true);
  EXPECT_EQ(drawn(*label)[0].pointSize, 10);
}

TEST_F(LabelTest, HostileNumbersDoNoHarm) {
  const CGFloat numbers[] = {kNaN, kInfinity, -kInfinity, -1, 0, 1e-300, 1e300};
  const auto label = this->label("aa bb\ncc", 50, 50, 0);
  for (const CGFloat a : numbers) {
    for (const CGFloat b : numbers) {
      label->setFrame({{a, b}, {a, b}});
      label->setPreferredMaxLayoutWidth(a);
      label->setMinimumScaleFactor(b);
      label->setAdjustsFontSizeToFitWidth(std::isfinite(a));
      label->setFont(font(b));
      drawn(*label);
      EXPECT_FALSE(std::isnan(label->intrinsicContentSize().width));
      EXPECT_FALSE(std::isnan(label->sizeThatFits({b, a}).height));
      EXPECT_EQ(label->firstBaseline().fractionOfHeight, 0.5);
    }
  }
  for (const std::int64_t lines : {INT64_MIN, INT64_MAX}) {
    label->setNumberOfLines(lines);
    label->setFont(font(20));
    EXPECT_EQ(label->sizeThatFits({20, 0}), (CGSize{20, 60}));
  }
}

TEST_F(LabelTest, ItsIntrinsicSizeHoldsItsText) {
  EXPECT_TRUE(rc::check([this](const std::vector<std::uint8_t>& letters, std::uint8_t size, std::uint8_t width) {
    std::string text;
    for (const std::uint8_t letter : letters) text.push_back(letter % 5 == 0 ? ' ' : 'x');
    const auto label = this->label(text, 0, 0, 0);
    label->setFont(font(1 + size * 0.1));
    label->setPreferredMaxLayoutWidth(60 + width);
    label->setFrame({{}, label->intrinsicContentSize()});
    std::size_t shown = 0;
    std::string seen;
    for (const Line& line : drawn(*label)) seen += line.text;
    for (const char c : text) shown += c == 'x' ? 1 : 0;
    RC_ASSERT(seen.find("…") == std::string::npos);
    RC_ASSERT(static_cast<std::size_t>(std::count(seen.begin(), seen.end(), 'x')) == shown);
  }));
}

}  // namespace
}  // namespace Brisel::Platform
