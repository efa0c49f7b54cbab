// What a layout shows of a text that has more of it than its limits allow.
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "brisel/platform/internal/utf.h"
#include "brisel/platform/recording/engine.h"
#include "brisel/platform/text_layout.h"

namespace Brisel::Platform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Mode = NSLineBreakMode;

constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();
constexpr Mode kModes[] = {Mode::byWordWrapping,   Mode::byCharWrapping,   Mode::byClipping,
                           Mode::byTruncatingHead, Mode::byTruncatingTail, Mode::byTruncatingMiddle};

// Texts shaped by the recording engine: at 20 points every character is 10 points wide, the ellipsis too, and a line 15
// + 5 points high.
class TextTruncationTest : public testing::Test {
 protected:
  static constexpr CGFloat kSize = 20;

  std::shared_ptr<const ShapedText> shape(std::u16string_view text) {
    const TypefaceSpan span{static_cast<std::uint32_t>(text.size()), engine_.typeface({}), kSize, true};
    return engine_.shape({text, {&span, 1}, direction_, false});
  }

  TextLayout::Options options(CGFloat width, std::size_t lines, CGFloat height = kInfinity) {
    TextLayout::Options options{.width = width};
    options.limits.emplace();
    options.limits->lines = lines;
    options.limits->height = height;
    options.limits->ellipsis = [this](std::uint32_t) { return shape(u"\u2026"); };
    return options;
  }

  TextLayout layOut(std::u16string_view text, const TextLayout::Options& options) {
    const TextSizeSpan size{static_cast<std::uint32_t>(text.size()), kSize, kern_, 0, RecordingEngine::kMetrics};
    const ParagraphSpan paragraph{static_cast<std::uint32_t>(text.size()), style_};
    return TextLayout(shape(text), {&size, 1}, {&paragraph, 1}, options);
  }

  // What is drawn, line by line, from left to right.
  std::vector<std::string> drawn(const TextLayout& layout) {
    const auto canvas = engine_.makeCanvas({100, 100}, 1);
    engine_.forget();
    layout.draw(*canvas, {0, 0}, {});
    std::vector<std::string> lines;
    CGFloat y = -1;
    for (const auto& drawing : engine_.record().drawings) {
      for (const PositionedGlyph& glyph : drawing.glyphs) {
        if (glyph.origin.y != y) lines.emplace_back();
        y = glyph.origin.y;
        lines.back() += internal::toUtf8(internal::toUtf16(static_cast<char32_t>(glyph.id)));
      }
    }
    return lines;
  }

  std::vector<std::string> drawn(std::u16string_view text, Mode mode, CGFloat width, std::size_t lines,
                                 CGFloat height = kInfinity) {
    style_->setLineBreakMode(mode);
    return drawn(layOut(text, options(width, lines, height)));
  }

  RecordingEngine engine_;
  std::shared_ptr<NSMutableParagraphStyle> style_ = NSMutableParagraphStyle::init();
  WritingDirection direction_ = WritingDirection::natural;
  CGFloat kern_ = 0;
};

TEST_F(TextTruncationTest, ATextThatFitsIsShownWhole) {
  for (const Mode mode : kModes) {
    EXPECT_THAT(drawn(u"abcd", mode, 40, 1), ElementsAre("abcd"));
    EXPECT_THAT(drawn(u"abcd  ", mode, 40, 1), ElementsAre("abcd"));
    EXPECT_THAT(drawn(u"ab cd", mode, 20, 2, 40), ElementsAre("ab", "cd"));
    EXPECT_FALSE(layOut(u"ab cd", options(20, 2, 40)).isTruncated());
  }
}

TEST_F(TextTruncationTest, EveryModeWrapsWithinLimits) {
  for (const Mode mode : kModes) EXPECT_THAT(drawn(u"aa bb cc", mode, 20, 9), ElementsAre("aa", "bb", "cc"));
}

TEST_F(TextTruncationTest, TheTailGivesWayToAnEllipsis) {
  EXPECT_THAT(drawn(u"abcdef", Mode::byTruncatingTail, 40, 1), ElementsAre("abc…"));
  EXPECT_THAT(drawn(u"abcdef", Mode::byTruncatingTail, 49, 1), ElementsAre("abc…"));
  EXPECT_THAT(drawn(u"aa bb cc dd ee", Mode::byTruncatingTail, 50, 2), ElementsAre("aa bb", "cc d…"));
}

TEST_F(TextTruncationTest, TheHeadGivesWayToAnEllipsis) {
  EXPECT_THAT(drawn(u"abcdef", Mode::byTruncatingHead, 40, 1), ElementsAre("…def"));
  EXPECT_THAT(drawn(u"aa bb cc dd ee", Mode::byTruncatingHead, 50, 2), ElementsAre("aa bb", "…d ee"));
}

TEST_F(TextTruncationTest, TheMiddleGivesWayToAnEllipsis) {
  EXPECT_THAT(drawn(u"abcdefgh", Mode::byTruncatingMiddle, 50, 1), ElementsAre("ab…gh"));
  EXPECT_THAT(drawn(u"abcdefgh", Mode::byTruncatingMiddle, 60, 1), ElementsAre("abc…gh"));
  EXPECT_THAT(drawn(u"aa bb cccccc", Mode::byTruncatingMiddle, 50, 2), ElementsAre("aa bb", "cc…cc"));
}

TEST_F(TextTruncationTest, NoSpaceStandsBesideTheEllipsis) {
  EXPECT_THAT(drawn(u"aa  bb", Mode::byTruncatingTail, 50, 1), ElementsAre("aa…"));
  EXPECT_THAT(drawn(u"aa  bb", Mode::byTruncatingHead, 50, 1), ElementsAre("…bb"));
  EXPECT_THAT(drawn(u"a bbbb c", Mode::byTruncatingMiddle, 50, 1), ElementsAre("a…c"));
}

TEST_F(TextTruncationTest, ClippingCutsAtTheEdge) {
  style_->setLineBreakMode(Mode::byClipping);
  const TextLayout layout = layOut(u"aa bb cc", options(35, 1));
  EXPECT_THAT(drawn(layout), ElementsAre("aa bb cc"));
  EXPECT_TRUE(layout.isTruncated());
  EXPECT_EQ(layout.size(), (CGSize{35, 20}));
  const auto calls = engine_.record().calls;
  ASSERT_EQ(calls.size(), 4U);
  EXPECT_EQ(calls[0].kind, RecordingEngine::CanvasCall::Kind::save);
  EXPECT_EQ(calls[1].kind, RecordingEngine::CanvasCall::Kind::clipToPath);
  EXPECT_EQ(calls[1].path, UIBezierPath::bezierPathWithRect({{0, -20}, {35, 60}}));
  EXPECT_EQ(calls[3].kind, RecordingEngine::CanvasCall::Kind::restore);
}

TEST_F(TextTruncationTest, OfACutLineTheBeginningIsSeen) {
  style_->setLineBreakMode(Mode::byClipping);
  for (const auto alignment : {NSTextAlignment::left, NSTextAlignment::center, NSTextAlignment::right}) {
    style_->setAlignment(alignment);
    direction_ = WritingDirection::natural;
    EXPECT_EQ(layOut(u"abcdef", options(35, 1)).lines()[0].x, 0);
    direction_ = WritingDirection::rightToLeft;
    EXPECT_EQ(layOut(u"abcdef", options(35, 1)).lines()[0].x, -25);
  }
}

TEST_F(TextTruncationTest, WrappingModesEndAtAWordOrACharacter) {
  EXPECT_THAT(drawn(u"aa bb cc", Mode::byWordWrapping, 40, 1), ElementsAre("aa"));
  EXPECT_THAT(drawn(u"aa bb cc", Mode::byCharWrapping, 40, 1), ElementsAre("aa b"));
  EXPECT_TRUE(layOut(u"aa bb cc", options(40, 1)).isTruncated());
}

TEST_F(TextTruncationTest, ALineEndingBehindTheLastLineIsMoreText) {
  EXPECT_THAT(drawn(u"abc\ndef", Mode::byTruncatingTail, 100, 1), ElementsAre("abc…"));
  EXPECT_THAT(drawn(u"abc\ndef", Mode::byTruncatingTail, 30, 1), ElementsAre("ab…"));
  EXPECT_THAT(drawn(u"abc\ndef", Mode::byTruncatingHead, 100, 1), ElementsAre("…def"));
  EXPECT_THAT(drawn(u"abc\ndef", Mode::byTruncatingMiddle, 100, 1), ElementsAre("abc…def"));
  for (const Mode mode : {Mode::byTruncatingTail, Mode::byTruncatingHead, Mode::byTruncatingMiddle}) {
    EXPECT_THAT(drawn(u"abc\n", mode, 100, 1), ElementsAre("abc…"));
    EXPECT_THAT(drawn(u"abc\n\n", mode, 100, 1), ElementsAre("abc…"));
    EXPECT_THAT(drawn(u"\n", mode, 100, 1), ElementsAre("…"));
  }
  EXPECT_THAT(drawn(u"abc\n", Mode::byWordWrapping, 100, 1), ElementsAre("abc"));
}

TEST_F(TextTruncationTest, AsManyLinesAreShownAsAreWhollyInTheHeight) {
  EXPECT_THAT(drawn(u"aa bb cc dd", Mode::byTruncatingTail, 20, 9, 60), ElementsAre("aa", "bb", "c…"));
  EXPECT_THAT(drawn(u"aa bb cc dd", Mode::byTruncatingTail, 20, 9, 59), ElementsAre("aa", "b…"));
  EXPECT_THAT(drawn(u"aa bb cc dd", Mode::byTruncatingTail, 20, 2, 60), ElementsAre("aa", "b…"));
  style_->setLineSpacing(5);
  EXPECT_THAT(drawn(u"aa bb cc dd", Mode::byTruncatingTail, 20, 9, 69), ElementsAre("aa", "b…"));
  EXPECT_THAT(drawn(u"aa bb cc dd", Mode::byTruncatingTail, 20, 9, 70), ElementsAre("aa", "bb", "c…"));
}

TEST_F(TextTruncationTest, OneLineIsShownHoweverLowTheHeight) {
  for (const CGFloat height : {19.0, 0.0, -5.0, kNaN})
    EXPECT_THAT(drawn(u"aa bb cc", Mode::byTruncatingTail, 40, 9, height), ElementsAre("aa…"));
}

TEST_F(TextTruncationTest, RoundingErrorsInTheLimitsTruncateNothing) {
  for (const Mode mode : kModes) EXPECT_THAT(drawn(u"aa bb", mode, 20 - 1e-9, 2, 40 - 1e-9), ElementsAre("aa", "bb"));
}

TEST_F(TextTruncationTest, TheEllipsisStandsAloneWhereNothingElseFits) {
  for (const Mode mode : {Mode::byTruncatingTail, Mode::byTruncatingHead, Mode::byTruncatingMiddle}) {
    for (const CGFloat width : {15.0, 10.0, 5.0, 0.0, -1.0, kNaN}) {
      EXPECT_THAT(drawn(u"abc", mode, width, 1), ElementsAre("…")) << width;
      EXPECT_EQ(layOut(u"abc", options(width, 1)).lines()[0].isCut, !(width >= 10)) << width;
    }
  }
}

TEST_F(TextTruncationTest, WithoutAnEllipsisTheTextEndsWhereItStops) {
  style_->setLineBreakMode(Mode::byTruncatingTail);
  TextLayout::Options bare = options(35, 1);
  bare.limits->ellipsis = nullptr;
  EXPECT_THAT(drawn(layOut(u"abcdef", bare)), ElementsAre("abc"));
  bare.limits->ellipsis = [](std::uint32_t) { return std::shared_ptr<const ShapedText>(); };
  EXPECT_THAT(drawn(layOut(u"abcdef", bare)), ElementsAre("abc"));
}

TEST_F(TextTruncationTest, InTextFromRightToLeftTheTailIsAtTheLeft) {
  direction_ = WritingDirection::rightToLeft;
  EXPECT_THAT(drawn(u"abcdef", Mode::byTruncatingTail, 40, 1), ElementsAre("…cba"));
  EXPECT_THAT(drawn(u"abcdef", Mode::byTruncatingHead, 40, 1), ElementsAre("fed…"));
  EXPECT_THAT(drawn(u"abcdefgh", Mode::byTruncatingMiddle, 50, 1), ElementsAre("hg…ba"));
  EXPECT_EQ(layOut(u"abcdef", options(45, 1)).lines()[0].x, 5);
}

TEST_F(TextTruncationTest, AlignsWhatIsLeft) {
  style_->setAlignment(NSTextAlignment::center);
  style_->setLineBreakMode(Mode::byTruncatingTail);
  const TextLayout layout = layOut(u"abcdef", options(46, 1));
  EXPECT_EQ(layout.lines()[0].width, 40);
  EXPECT_EQ(layout.lines()[0].x, 3);
  style_->setAlignment(NSTextAlignment::justified);
  EXPECT_EQ(layOut(u"a b c d", options(45, 1)).lines()[0].extraPerSpace, 0);
}

TEST_F(TextTruncationTest, KernCountsForTheEllipsisToo) {
  kern_ = 5;
  EXPECT_THAT(drawn(u"abcdef", Mode::byTruncatingTail, 59, 1), ElementsAre("ab…"));
  EXPECT_THAT(drawn(u"abcdef", Mode::byTruncatingTail, 60, 1), ElementsAre("abc…"));
}

TEST_F(TextTruncationTest, TheEllipsisIsAsLargeAsTheTextBesideIt) {
  style_->setLineBreakMode(Mode::byTruncatingTail);
  const TextSizeSpan sizes[] = {{2, 20, 0, 0, RecordingEngine::kMetrics}, {6, 40, 0, 0, RecordingEngine::kMetrics}};
  const ParagraphSpan paragraph{6, style_};
  const auto lineOf = [&](CGFloat width) {
    const TextLayout layout(shape(u"abcdef"), sizes, {&paragraph, 1}, options(width, 1));
    return std::pair(drawn(layout).at(0), layout.size());
  };
  EXPECT_EQ(lineOf(60), std::pair(std::string("abc…"), CGSize{60, 40}));
  // Beside the small text there is room for a small ellipsis only.
  EXPECT_EQ(lineOf(59), std::pair(std::string("ab…"), CGSize{30, 20}));
  EXPECT_EQ(lineOf(29), std::pair(std::string("a…"), CGSize{20, 20}));
}

TEST_F(TextTruncationTest, ALargeEllipsisTakesTheRoomOfTheTextBehindIt) {
  style_->setLineBreakMode(Mode::byTruncatingHead);
  const TextSizeSpan sizes[] = {{4, 40, 0, 0, RecordingEngine::kMetrics}, {6, 20, 0, 0, RecordingEngine::kMetrics}};
  const ParagraphSpan paragraph{6, style_};
  const TextLayout layout(shape(u"abcdef"), sizes, {&paragraph, 1}, options(45, 1));
  EXPECT_THAT(drawn(layout), ElementsAre("…ef"));
}

TEST_F(TextTruncationTest, AHighEllipsisTakesTheRoomOfTheLinesBelowIt) {
  const auto layOutWithHighEllipsis = [&](std::u16string_view text, CGFloat height) {
    style_->setLineBreakMode(Mode::byTruncatingTail);
    auto options = this->options(40, 99, height);
    options.limits->ellipsis = [this](std::uint32_t) {
      auto high = std::make_shared<ShapedText>(*shape(u"\u2026"));
      high->runs[0].metrics.ascender = 2.75;  // 60 points from top to bottom
      return high;
    };
    return layOut(text, options);
  };
  const TextLayout two = layOutWithHighEllipsis(u"a\nb\nc\nd\ne", 90);
  EXPECT_THAT(drawn(two), ElementsAre("a", "b…"));
  EXPECT_EQ(two.size(), (CGSize{20, 80}));
  // Nothing remains of what was laid out below it.
  const TextLayout one = layOutWithHighEllipsis(u"a\nb\ncccccc\n", 70);
  EXPECT_THAT(drawn(one), ElementsAre("a…"));
  EXPECT_EQ(one.size(), (CGSize{20, 60}));
  EXPECT_FALSE(one.tearsWords());
}

TEST_F(TextTruncationTest, AHeadThatIsLeftOutTakesItsParagraphsStyleAlong) {
  const auto first = NSMutableParagraphStyle::init();
  first->setLineBreakMode(Mode::byTruncatingHead);
  const auto second = NSMutableParagraphStyle::init();
  second->setAlignment(NSTextAlignment::right);
  const TextSizeSpan size{7, kSize, 0, 0, RecordingEngine::kMetrics};
  const ParagraphSpan paragraphs[] = {{4, first}, {7, second}};
  const TextLayout layout(shape(u"abc\ndef"), {&size, 1}, paragraphs, options(60, 1));
  EXPECT_THAT(drawn(layout), ElementsAre("…def"));
  EXPECT_EQ(layout.lines()[0].x, 20);
}

TEST_F(TextTruncationTest, ScaleMultipliesEverySizeAndDistance) {
  kern_ = 2;
  style_->setLineSpacing(6);
  style_->setMinimumLineHeight(30);
  TextLayout::Options half{.width = 30, .scale = 0.5};
  EXPECT_EQ(layOut(u"aa bb", half).size(), (CGSize{30, 15}));
  half.width = 25;
  EXPECT_EQ(layOut(u"aa bb", half).size(), (CGSize{12, 33}));
  for (const CGFloat bad : {kNaN, -1.0, kInfinity}) {
    half.scale = bad;
    EXPECT_EQ(layOut(u"aa bb", half).size(), CGSize{}) << bad;
  }
}

TEST_F(TextTruncationTest, TellsWhetherWordsAreTorn) {
  EXPECT_TRUE(layOut(u"aa bbb", options(20, 9)).tearsWords());
  EXPECT_FALSE(layOut(u"aa bb", options(20, 9)).tearsWords());
  style_->setLineBreakMode(Mode::byCharWrapping);
  EXPECT_FALSE(layOut(u"aa bbb", options(20, 9)).tearsWords());
}

TEST_F(TextTruncationTest, AnEmptyTextHasNoLines) {
  EXPECT_THAT(drawn(u"", Mode::byTruncatingTail, 5, 1), IsEmpty());
  EXPECT_FALSE(layOut(u"", options(5, 1)).isTruncated());
}

std::u16string textOf(const std::vector<std::uint8_t>& letters) {
  std::u16string text;
  for (const std::uint8_t letter : letters) text.push_back(letter % 5 == 0 ? u' ' : letter % 17 == 0 ? u'\n' : u'x');
  return text;
}

TEST_F(TextTruncationTest, LimitsThatDoNotBindChangeNothing) {
  EXPECT_TRUE(rc::check([this](const std::vector<std::uint8_t>& letters, std::uint8_t width, std::int8_t kern) {
    const std::u16string text = textOf(letters);
    kern_ = kern / 100.0;
    style_->setLineBreakMode(width % 2 == 0 ? Mode::byWordWrapping : Mode::byCharWrapping);
    const CGFloat room = 12.003 + width;  // no sum of advances is that, give or take a rounding error
    const TextLayout bare = layOut(text, {.width = room});
    const TextLayout limited = layOut(text, options(room, bare.lines().size() + 1, bare.size().height));
    RC_ASSERT(!limited.isTruncated());
    RC_ASSERT(limited.size() == bare.size());
    RC_ASSERT(limited.lines().size() == bare.lines().size());
    for (std::size_t i = 0; i < bare.lines().size(); ++i) {
      RC_ASSERT(limited.lines()[i].endCluster == bare.lines()[i].endCluster);
      RC_ASSERT(limited.lines()[i].baseline == bare.lines()[i].baseline);
      RC_ASSERT(limited.lines()[i].width == bare.lines()[i].width);
    }
  }));
}

TEST_F(TextTruncationTest, NoLineIsWiderThanTheRoomUnlessTheEllipsisAloneIs) {
  EXPECT_TRUE(rc::check([this](const std::vector<std::uint8_t>& letters, std::uint8_t width, std::uint8_t kern) {
    const std::u16string text = textOf(letters);
    kern_ = (kern % 60) * 0.1;
    const std::size_t most = 1 + kern % 3;
    for (const Mode mode : {Mode::byTruncatingTail, Mode::byTruncatingHead, Mode::byTruncatingMiddle}) {
      style_->setLineBreakMode(mode);
      const TextLayout layout = layOut(text, options(width, most));
      RC_ASSERT(layout.lines().size() <= most);
      for (const TextLine& line : layout.lines()) {
        const bool isEllipsis = layout.omission() && line.width == layout.omission()->width;
        const bool isOneCluster = line.endVisibleCluster == line.firstCluster + 1;
        RC_ASSERT(line.isCut == (line.width > width + 1e-6));
        RC_ASSERT(!line.isCut || isEllipsis || (isOneCluster && layout.lines().size() < most));
      }
      RC_ASSERT(layout.size().width <= width + 1e-6);
    }
  }));
}

TEST_F(TextTruncationTest, LowerLimitsShowNoMore) {
  EXPECT_TRUE(rc::check([this](const std::vector<std::uint8_t>& letters, std::uint8_t width, std::uint8_t height) {
    const std::u16string text = textOf(letters);
    style_->setLineBreakMode(kModes[width % 6]);
    const TextLayout layout = layOut(text, options(width, height % 4 + 1, height));
    RC_ASSERT(layout.lines().size() <= 1 || layout.size().height <= height + 1e-6);
    if (!text.empty()) RC_ASSERT(layout.lines().back().endCluster <= text.size());
  }));
}

}  // namespace
}  // namespace Brisel::Platform
