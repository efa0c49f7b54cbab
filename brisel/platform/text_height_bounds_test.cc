#include "brisel/platform/text_height_bounds.h"

#include <limits>
#include <memory>
#include <vector>

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "brisel/platform/text_layout.h"

namespace Brisel::Platform {
namespace {

constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();
constexpr FontMetrics kMetrics{.ascender = 0.75, .descender = -0.25};
constexpr FontMetrics kTallMetrics{.ascender = 1.25, .descender = -0.5, .leading = 0.25};

// Letters of half an em, tall ones where they are capitals, of which each is a run; spaces break, and line feeds.
std::shared_ptr<ShapedText> shaped(std::string_view letters) {
  auto text = std::make_shared<ShapedText>();
  for (std::size_t i = 0; i < letters.size(); ++i) {
    const char letter = letters[i];
    const bool isTall = letter >= 'A' && letter <= 'Z';
    const char before = i > 0 ? letters[i - 1] : '\0';
    if (i == 0 || isTall || (before >= 'A' && before <= 'Z')) {
      ShapedRun& run = text->runs.emplace_back();
      run.metrics = isTall ? kTallMetrics : kMetrics;
      run.firstCluster = static_cast<std::uint32_t>(i);
    }
    text->runs.back().endCluster = static_cast<std::uint32_t>(i + 1);
    ShapedCluster& cluster = text->clusters.emplace_back();
    cluster.begin = static_cast<std::uint32_t>(i);
    cluster.run = static_cast<std::uint32_t>(text->runs.size() - 1);
    cluster.isSpace = letter == ' ' || letter == '\n';
    cluster.advance = letter == '\n' ? 0 : 0.5;
    cluster.isParagraphStart = i == 0 || before == '\n';
    if (before == ' ' && !cluster.isSpace) cluster.breakBefore = ShapedCluster::Break::allowed;
    if (before == '\n') cluster.breakBefore = ShapedCluster::Break::required;
  }
  text->length = static_cast<std::uint32_t>(letters.size());
  text->endsWithLineBreak = !letters.empty() && letters.back() == '\n';
  return text;
}

TextSizeRange sizes(CGFloat least, CGFloat greatest) {
  return {.leastPointSize = least, .greatestPointSize = greatest};
}

TextHeightBounds boundsOf(std::string_view letters, CGFloat width) {
  return TextHeightBounds(*shaped(letters), kMetrics, 0, *NSParagraphStyle::defaultParagraphStyle(), width);
}

TEST(TextHeightBounds, MeetAtOneSize) {
  const TextHeightBounds bounds = boundsOf("aaaa bbbb cc", 45);
  EXPECT_NEAR(bounds.atLeast(sizes(20, 20)), 60, 1e-9);
  EXPECT_NEAR(bounds.atMost(sizes(20, 20)), 60, 1e-9);
  EXPECT_LE(bounds.atLeast(sizes(20, 20)), 60);
  EXPECT_GE(bounds.atMost(sizes(20, 20)), 60);
}

TEST(TextHeightBounds, HoldBetweenTwoSizes) {
  const TextHeightBounds bounds = boundsOf("aaaa bbbb cc", 45);
  EXPECT_NEAR(bounds.atLeast(sizes(10, 20)), 20, 1e-9);  // two lines at 10
  EXPECT_NEAR(bounds.atMost(sizes(10, 20)), 60, 1e-9);
}

TEST(TextHeightBounds, KnowThatATallCharacterIsOnSomeLine) {
  const TextHeightBounds bounds = boundsOf("aaaa bBbb", 45);
  EXPECT_NEAR(bounds.atLeast(sizes(20, 20)), 20 + 40, 1e-9);
  EXPECT_NEAR(bounds.atMost(sizes(20, 20)), 2 * 40, 1e-9);
}

TEST(TextHeightBounds, StopLookingWhereTheHeightIsEnough) {
  std::string letters;
  for (int i = 0; i < 1000; ++i) letters += "aaaa ";
  const CGFloat height = boundsOf(letters, 45).atLeast(sizes(20, 20), 100);
  EXPECT_GT(height, 100);
  EXPECT_LT(height, 1000);
}

TEST(TextHeightBounds, CountParagraphsThatAreNotThere) {
  EXPECT_NEAR(boundsOf("Mj\nMj", 1000).atMost(sizes(20, 20), 7), 7 * 40, 1e-9);
  EXPECT_EQ(boundsOf("Mj\nMj", 1000).atMost(sizes(20, 20), 1e18), kInfinity);
}

TEST(TextHeightBounds, KnowNothingWhereAdvancesTurnBack) {
  TextSizeRange range = sizes(20, 20);
  range.leastKern = -15;
  range.greatestKern = -15;
  const TextHeightBounds bounds = boundsOf("aaaa bbbb", 3);
  EXPECT_NEAR(bounds.atLeast(range), 20, 1e-9);
  EXPECT_NEAR(bounds.atMost(range), 9 * 20, 1e-9);
}

TEST(TextHeightBounds, HoldForEveryLayout) {
  EXPECT_TRUE(rc::check([] {
    const auto quarter = [](int least, int end) { return *rc::gen::inRange(least, end) / 4.0; };
    const auto rarely = [&](int least, int end) { return *rc::gen::inRange(0, 4) == 0 ? quarter(least, end) : 0; };
    const auto letters = *rc::gen::nonEmpty(rc::gen::resize(
        60, rc::gen::container<std::string>(rc::gen::element('a', 'b', 'c', 'i', 'i', ' ', ' ', '\n', 'T', 'B'))));
    const auto text = shaped(letters);
    for (ShapedCluster& cluster : text->clusters) {
      if (!cluster.isSpace) cluster.advance = *rc::gen::element(0.0, 0.1, 0.25, 0.3, 0.7, 1.1);
    }
    for (ShapedRun& run : text->runs) {
      run.metrics = *rc::gen::element(kMetrics, kTallMetrics, FontMetrics{.ascender = 0.9, .descender = -0.1},
                                      FontMetrics{.ascender = -0.2, .descender = -0.6, .leading = 0.1},
                                      FontMetrics{.ascender = 0.9, .descender = 0.3, .leading = -0.1});
    }
    const auto style = NSMutableParagraphStyle::init();
    style->setLineHeightMultiple(rarely(0, 9));
    style->setMinimumLineHeight(rarely(0, 120));
    style->setMaximumLineHeight(rarely(0, 120));
    style->setParagraphSpacing(rarely(-8, 40));
    const CGFloat baselineOffset = rarely(-100, 100);
    const CGFloat width = *rc::gen::oneOf(rc::gen::map(rc::gen::inRange(-4, 2000), [](int n) { return n / 4.0; }),
                                          rc::gen::element(kInfinity, 1e308));

    // A layout, and a range around it.
    const TextSizeSpan size{text->length, quarter(0, 240), quarter(-40, 40) / (*rc::gen::element(1, 1, 7, 1000)),
                            baselineOffset, kMetrics};
    style->setLineSpacing(rarely(0, 80));
    const auto slack = [&] { return rarely(0, 40); };
    const TextSizeRange range{.leastPointSize = std::max(0.0, size.pointSize - slack()),
                              .greatestPointSize = size.pointSize + slack(),
                              .leastKern = size.kern - slack(),
                              .greatestKern = size.kern + slack(),
                              .leastLineSpacing = std::max(0.0, style->lineSpacing() - slack()),
                              .greatestLineSpacing = style->lineSpacing() + slack()};

    const ParagraphSpan paragraph{text->length, style};
    const CGFloat height = TextLayout(text, {&size, 1}, {&paragraph, 1}, {.width = width}).size().height;
    const TextHeightBounds bounds(*text, kMetrics, baselineOffset, *style, width);
    RC_ASSERT(bounds.atLeast(range) <= height);
    RC_ASSERT(bounds.atMost(range) >= height);
    const CGFloat enough = quarter(0, 2000);
    const CGFloat stopped = bounds.atLeast(range, enough);
    RC_ASSERT(stopped <= height);
    RC_ASSERT((stopped > enough) == (bounds.atLeast(range) > enough));
  }));
}

}  // namespace
}  // namespace Brisel::Platform
