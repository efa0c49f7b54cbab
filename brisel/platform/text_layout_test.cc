#include "brisel/platform/text_layout.h"

#include <cmath>
#include <limits>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "brisel/platform/recording/engine.h"

namespace Brisel::Platform {
namespace {

using testing::ElementsAre;

constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();

// Texts shaped by the recording engine: at 20 points every character is 10 points wide, and a line 15 + 5 points high.
class TextLayoutTest : public testing::Test {
 protected:
  static constexpr CGFloat kSize = 20;

  std::shared_ptr<const ShapedText> shape(std::u16string_view text,
                                          WritingDirection direction = WritingDirection::natural) {
    const TypefaceSpan span{static_cast<std::uint32_t>(text.size()), engine_.typeface({}), kSize, true};
    return engine_.shape({text, {&span, 1}, direction, false});
  }

  TextLayout layOut(std::u16string_view text, CGFloat width = kInfinity, CGFloat kern = 0) {
    const TextSizeSpan size{static_cast<std::uint32_t>(text.size()), kSize, kern, 0, RecordingEngine::kMetrics};
    const ParagraphSpan paragraph{static_cast<std::uint32_t>(text.size()), style_};
    return TextLayout(shape(text, direction_), {&size, 1}, {&paragraph, 1}, {.width = width});
  }

  std::vector<std::u16string> lines(std::u16string_view text, CGFloat width) {
    std::vector<std::u16string> result;
    const auto shaped = shape(text);
    const TextLayout layout = layOut(text, width);
    for (const TextLine& line : layout.lines()) {
      const auto begin = [&](std::uint32_t cluster) {
        return cluster < shaped->clusters.size() ? shaped->clusters[cluster].begin : text.size();
      };
      result.emplace_back(
          text.substr(begin(line.firstCluster), begin(line.endVisibleCluster) - begin(line.firstCluster)));
    }
    return result;
  }

  RecordingEngine engine_;
  std::shared_ptr<NSMutableParagraphStyle> style_ = NSMutableParagraphStyle::init();
  WritingDirection direction_ = WritingDirection::natural;
};

TEST_F(TextLayoutTest, MeasuresOneLineByTheSumOfItsClusters) {
  EXPECT_EQ(layOut(u"abcd").size(), (CGSize{40, 20}));
  EXPECT_EQ(layOut(u"abcd").firstBaseline(), 15);
}

TEST_F(TextLayoutTest, AnEmptyTextTakesNoRoom) {
  EXPECT_EQ(layOut(u"").size(), (CGSize{0, 0}));
  EXPECT_TRUE(layOut(u"").lines().empty());
}

TEST_F(TextLayoutTest, FillsLinesGreedily) {
  EXPECT_THAT(lines(u"aa bb cc", 50), ElementsAre(u"aa bb", u"cc"));
  EXPECT_THAT(lines(u"aa bb cc", 49), ElementsAre(u"aa", u"bb", u"cc"));
}

TEST_F(TextLayoutTest, SpacesAtALinesEndTakeNoRoom) {
  EXPECT_THAT(lines(u"aa    bb", 20), ElementsAre(u"aa", u"bb"));
  EXPECT_EQ(layOut(u"aa    bb", 20).size().width, 20);
  EXPECT_EQ(layOut(u"aa  ").size().width, 20);
}

TEST_F(TextLayoutTest, TearsAWordThatIsWiderThanTheLine) {
  EXPECT_THAT(lines(u"a bcdefg h", 30), ElementsAre(u"a", u"bcd", u"efg", u"h"));
}

TEST_F(TextLayoutTest, PutsOneClusterOnALineWhereNothingFits) {
  for (const CGFloat width : {5.0, 0.0, -3.0, kNaN}) EXPECT_THAT(lines(u"ab", width), ElementsAre(u"a", u"b"));
}

TEST_F(TextLayoutTest, BreaksAnywhereWhenWrappingByCharacter) {
  style_->setLineBreakMode(NSLineBreakMode::byCharWrapping);
  EXPECT_THAT(lines(u"aa bbb", 40), ElementsAre(u"aa b", u"bb"));
}

TEST_F(TextLayoutTest, DoesNotWrapWhenClippingOrTruncating) {
  for (const auto mode : {NSLineBreakMode::byClipping, NSLineBreakMode::byTruncatingHead,
                          NSLineBreakMode::byTruncatingTail, NSLineBreakMode::byTruncatingMiddle}) {
    style_->setLineBreakMode(mode);
    EXPECT_EQ(layOut(u"aa bb cc", 30).lines().size(), 1U);
    EXPECT_EQ(layOut(u"aa\nbb", 30).lines().size(), 2U);
  }
}

TEST_F(TextLayoutTest, AFinalLineEndingOpensAnEmptyLine) {
  EXPECT_THAT(lines(u"a\n", 100), ElementsAre(u"a", u""));
  EXPECT_THAT(lines(u"\n\n", 100), ElementsAre(u"", u"", u""));
  EXPECT_EQ(layOut(u"a\n").size(), (CGSize{10, 40}));
}

TEST_F(TextLayoutTest, KernWidensEachClusterTheLastIncluded) {
  EXPECT_EQ(layOut(u"abcd", kInfinity, 2).size().width, 48);
  EXPECT_EQ(layOut(u"abcd", kInfinity, -2).size().width, 32);
  EXPECT_EQ(layOut(u"abcd", kInfinity, kNaN).size().width, 40);
}

TEST_F(TextLayoutTest, LineSpacingStandsBetweenLinesAndNotBehindTheLast) {
  style_->setLineSpacing(7);
  EXPECT_EQ(layOut(u"a b", 10).size().height, 47);
  EXPECT_EQ(layOut(u"a\nb").size().height, 47);
  EXPECT_EQ(layOut(u"a").size().height, 20);
  style_->setLineSpacing(-7);
  EXPECT_EQ(layOut(u"a b", 10).size().height, 40);
}

TEST_F(TextLayoutTest, ParagraphSpacingStandsBetweenParagraphsOnly) {
  style_->setParagraphSpacing(7);
  EXPECT_EQ(layOut(u"a b", 10).size().height, 40);
  EXPECT_EQ(layOut(u"a\nb").size().height, 47);
}

TEST_F(TextLayoutTest, PutsExtraLineHeightAboveTheText) {
  style_->setLineHeightMultiple(1.5);
  EXPECT_EQ(layOut(u"a").size().height, 30);
  EXPECT_EQ(layOut(u"a").firstBaseline(), 25);
  style_->setMinimumLineHeight(32);
  EXPECT_EQ(layOut(u"a").size().height, 32);
  style_->setMaximumLineHeight(18);
  EXPECT_EQ(layOut(u"a").size().height, 18);
}

TEST_F(TextLayoutTest, AlignsInTheGivenWidthOrElseInTheTextsOwn) {
  const auto xs = [&](CGFloat width) {
    std::vector<CGFloat> result;
    const TextLayout layout = layOut(u"aaaa\nbb", width);
    for (const TextLine& line : layout.lines()) result.push_back(line.x);
    return result;
  };
  EXPECT_THAT(xs(100), ElementsAre(0, 0));
  style_->setAlignment(NSTextAlignment::center);
  EXPECT_THAT(xs(100), ElementsAre(30, 40));
  style_->setAlignment(NSTextAlignment::right);
  EXPECT_THAT(xs(100), ElementsAre(60, 80));
  EXPECT_THAT(xs(kInfinity), ElementsAre(0, 20));
  style_->setAlignment(NSTextAlignment::natural);
  direction_ = WritingDirection::rightToLeft;
  EXPECT_THAT(xs(100), ElementsAre(60, 80));
  style_->setAlignment(NSTextAlignment::left);
  EXPECT_THAT(xs(100), ElementsAre(0, 0));
}

TEST_F(TextLayoutTest, JustifiesAllLinesButAParagraphsLast) {
  style_->setAlignment(NSTextAlignment::justified);
  const TextLayout layout = layOut(u"a b c d", 54);
  ASSERT_EQ(layout.lines().size(), 2U);
  EXPECT_EQ(layout.lines()[0].extraPerSpace, 2);
  EXPECT_EQ(layout.lines()[1].extraPerSpace, 0);
}

TEST_F(TextLayoutTest, ALineIsAsHighAsItsLargestFont) {
  const TextSizeSpan sizes[] = {{2, 20, 0, 0, RecordingEngine::kMetrics}, {3, 40, 0, 0, RecordingEngine::kMetrics}};
  const TextLayout layout(shape(u"abc"), sizes, {}, {});
  EXPECT_EQ(layout.size(), (CGSize{40, 40}));
  EXPECT_EQ(layout.firstBaseline(), 30);
}

TEST_F(TextLayoutTest, ARaisedTextRaisesItsLine) {
  const TextSizeSpan sizes[] = {{1, 20, 0, 0, RecordingEngine::kMetrics}, {2, 20, 0, 4, RecordingEngine::kMetrics}};
  const TextLayout layout(shape(u"ab"), sizes, {}, {});
  EXPECT_EQ(layout.size().height, 24);
  EXPECT_EQ(layout.firstBaseline(), 19);
}

TEST_F(TextLayoutTest, SizesThatAreNoSizesCountAsZero) {
  for (const CGFloat bad : {-1.0, kNaN, kInfinity, 0.0}) {
    const TextSizeSpan size{2, bad, 0, bad, RecordingEngine::kMetrics};
    const TextLayout layout(shape(u"ab"), {&size, 1}, {}, {});
    EXPECT_EQ(layout.size().width, 0);
    EXPECT_TRUE(std::isfinite(layout.size().height));
  }
}

TEST_F(TextLayoutTest, DrawsEachLineFromItsBaseline) {
  const auto canvas = engine_.makeCanvas({100, 100}, 1);
  layOut(u"ab c", 20).draw(*canvas, {5, 7}, {});
  const auto drawings = engine_.record().drawings;
  ASSERT_EQ(drawings.size(), 2U);
  EXPECT_EQ(drawings[0].glyphs[1].id, U'b');
  EXPECT_EQ(drawings[0].glyphs[1].origin, (CGPoint{15, 22}));
  EXPECT_EQ(drawings[1].glyphs[0].origin, (CGPoint{5, 42}));
  EXPECT_EQ(drawings[0].color, UIColor::grey(0, 1));
}

TEST_F(TextLayoutTest, DrawsRightToLeftTextFromItsRightEnd) {
  direction_ = WritingDirection::rightToLeft;
  const auto canvas = engine_.makeCanvas({100, 100}, 1);
  layOut(u"abc", 100).draw(*canvas, {0, 0}, {});
  const auto drawings = engine_.record().drawings;
  ASSERT_EQ(drawings.size(), 1U);
  EXPECT_EQ(drawings[0].glyphs[0].id, U'c');
  EXPECT_EQ(drawings[0].glyphs[0].origin.x, 70);
  EXPECT_EQ(drawings[0].glyphs[2].id, U'a');
  EXPECT_EQ(drawings[0].glyphs[2].origin.x, 90);
}

TEST_F(TextLayoutTest, PaintsEachStretchInItsColours) {
  const auto canvas = engine_.makeCanvas({100, 100}, 1);
  const auto red = UIColor::initWithRed(1, 0, 0, 1);
  const auto grey = UIColor::initWithWhite(0.5, 1);
  const PaintSpan paints[] = {{1, red, nullptr}, {3, nullptr, grey}};
  layOut(u"abc").draw(*canvas, {0, 0}, paints);
  const auto record = engine_.record();
  ASSERT_EQ(record.drawings.size(), 2U);
  EXPECT_EQ(record.drawings[0].color, *red);
  EXPECT_EQ(record.drawings[1].color, UIColor::grey(0, 1));
  ASSERT_EQ(record.fills.size(), 1U);
  EXPECT_EQ(record.fills[0].rect, (CGRect{{10, 0}, {20, 20}}));
  EXPECT_EQ(record.fills[0].color, *grey);
}

TEST_F(TextLayoutTest, ATextFitsIntoItsOwnWidth) {
  EXPECT_TRUE(rc::check([this](const std::vector<std::uint8_t>& letters, std::uint8_t kernSteps) {
    std::u16string text;
    for (const std::uint8_t letter : letters) text.push_back(letter % 4 == 0 ? u' ' : u'x');
    const CGFloat kern = kernSteps * 0.1;
    const TextLayout unbounded = layOut(text, kInfinity, kern);
    const TextLayout bounded = layOut(text, unbounded.size().width, kern);
    RC_ASSERT(bounded.size() == unbounded.size() || unbounded.size().width == 0);
  }));
}

TEST_F(TextLayoutTest, NoLineIsWiderThanTheWidthUnlessItIsOneCluster) {
  EXPECT_TRUE(rc::check([this](const std::vector<std::uint8_t>& letters, std::uint8_t width) {
    std::u16string text;
    for (const std::uint8_t letter : letters) text.push_back(letter % 5 == 0 ? u' ' : letter % 17 == 0 ? u'\n' : u'x');
    std::uint32_t next = 0;
    const TextLayout layout = layOut(text, width);
    for (const TextLine& line : layout.lines()) {
      RC_ASSERT(line.firstCluster == next);
      next = line.endCluster;
      RC_ASSERT(line.width <= width || line.endVisibleCluster - line.firstCluster == 1);
    }
    RC_ASSERT(next == text.size());
  }));
}

}  // namespace
}  // namespace Brisel::Platform
