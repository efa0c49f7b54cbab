#include "brisel/typography/fitting.h"

#include <limits>
#include <memory>
#include <string_view>

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "brisel/platform/font.h"
#include "brisel/platform/paragraph_style.h"
#include "brisel/platform/screen.h"
#include "brisel/typography/fitting_case_test.h"

#include "tests/recording_ports.h"
#include "tests/written_fitting.h"

namespace Brisel {
namespace {

using namespace Platform;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

std::shared_ptr<const UIFont> font(double size) {
  return UIFont::fontWithDescriptor(UIFontDescriptor::fontDescriptorWithName("Any", size), size);
}

std::shared_ptr<const NSAttributedString> text(std::string_view characters, double size, Dictionary attributes = {}) {
  return NSAttributedString::initWithString(characters, attributes.with(NSFontAttributeName, font(size)));
}

double pointSize(const ScaledResult& result) {
  return result.attributedString->attribute(NSFontAttributeName, 0)->as<UIFont>()->pointSize();
}

std::shared_ptr<const NSParagraphStyle> paragraphStyle(const ScaledResult& result) {
  return result.attributedString->attribute(NSParagraphStyleAttributeName, 0)->as<NSParagraphStyle>();
}

Value kern(const ScaledResult& result) { return *result.attributedString->attribute(NSKernAttributeName, 0); }

// On an engine that makes every character half as wide, and every line as high, as the font's size.
class Fitting : public testing::Test {
 protected:
  void SetUp() override { recordingEngine(); }
};
using FittingDeathTest = Fitting;

TEST_F(Fitting, ShrinksByWholePointsUntilTheTextFitsItsLines) {
  // Nine characters, and so 4.5 times the size wide.
  const ScaledResult result = scaledToFit(text("aaaa bbbb", 20), {60, 1000}, 1, 0.1);
  EXPECT_EQ(pointSize(result), 13);
  EXPECT_TRUE(result.scaledStringFits);
}

TEST_F(Fitting, LeavesATextThatFitsAtItsSize) {
  const ScaledResult result = scaledToFit(text("aaaa bbbb", 20), {60, 1000}, 2, 0.1);
  EXPECT_EQ(pointSize(result), 20);
  EXPECT_TRUE(result.scaledStringFits);
}

TEST_F(Fitting, HandsBackTheReceiverForNoLinesWhateverTheSize) {
  const auto string = text("aaaa", 20);
  for (const double width : {100.0, 0.5, 0.0, -1.0, kNaN}) {
    for (const std::int64_t lines : {std::int64_t{0}, std::int64_t{-1}, std::numeric_limits<std::int64_t>::min()}) {
      const ScaledResult result = scaledToFit(string, {width, 1}, lines, 0.1);
      EXPECT_EQ(result.attributedString, string);
      EXPECT_TRUE(result.scaledStringFits);
    }
  }
}

TEST_F(Fitting, HandsBackTheReceiverBelowAPointOfWidth) {
  const auto string = text("aaaa", 20);
  for (const double width : {0.5, 0.0, -7.0, -kInfinity}) {
    const ScaledResult result = scaledToFit(string, {width, 1000}, 1, 0.1);
    EXPECT_EQ(result.attributedString, string);
    EXPECT_FALSE(result.scaledStringFits);
  }
  EXPECT_NE(scaledToFit(string, {1, 1000}, 1, 0.1).attributedString, string);
}

TEST_F(Fitting, HandsBackTheReceiverWhereTheFirstCharacterHasNoFont) {
  const auto string = NSMutableAttributedString::initWithString("aaaa");
  string->addAttribute(NSFontAttributeName, font(20), {1, 3});
  EXPECT_EQ(scaledToFit(string, {100, 1000}, 1, 0.1).attributedString, string);
  EXPECT_FALSE(scaledToFit(string, {100, 1000}, 1, 0.1).scaledStringFits);
  string->addAttribute(NSFontAttributeName, "no font", {0, 1});
  EXPECT_EQ(scaledToFit(string, {100, 1000}, 1, 0.1).attributedString, string);
}

TEST_F(Fitting, AsksForLinesBeforeWidthAndForWidthBeforeTheFont) {
  const auto string = NSAttributedString::initWithString("aaaa");
  EXPECT_TRUE(scaledToFit(string, {0.5, 1000}, 0, 0.1).scaledStringFits);
  const auto empty = NSAttributedString::initWithString("");
  EXPECT_EQ(scaledToFit(empty, {100, 1000}, 0, 0.1).attributedString, empty);
  EXPECT_EQ(scaledToFit(empty, {0.5, 1000}, 1, 0.1).attributedString, empty);
}

TEST_F(FittingDeathTest, AnEmptyTextIsAProgrammingError) {
  EXPECT_DEATH(scaledToFit(NSAttributedString::initWithString(""), {100, 100}, 1, 0.5), "empty text");
  EXPECT_DEATH(scaledToFit(nullptr, {100, 100}, 1, 0.5), "empty text");
}

TEST_F(Fitting, NeverShrinksAtAMinimumScaleOfOneOrMore) {
  for (const double minScale : {1.0, 1.5, kInfinity, kNaN}) {
    const ScaledResult result = scaledToFit(text("aaaa bbbb", 20), {60, 1000}, 1, minScale);
    EXPECT_EQ(pointSize(result), 20);
    EXPECT_FALSE(result.scaledStringFits);
    EXPECT_TRUE(scaledToFit(text("aaaa", 20), {60, 1000}, 1, minScale).scaledStringFits);
  }
}

TEST_F(Fitting, TakesAtLeastOneStepBelowOne) {
  EXPECT_EQ(pointSize(scaledToFit(text("aaaa bbbb", 20), {60, 1000}, 1, 0.999)), 19);
}

TEST_F(Fitting, MayEndBelowTheMinimumScaleByLessThanAPoint) {
  const ScaledResult result = scaledToFit(text("aaaa bbbb", 48), {10, 1000}, 1, 0.3);
  EXPECT_EQ(pointSize(result), 14);  // 15 / 48 = 0.3125 is still above
  EXPECT_FALSE(result.scaledStringFits);
  EXPECT_EQ(pointSize(scaledToFit(text("aaaa bbbb", 20), {10, 1000}, 1, 0.5)), 10);  // exactly the minimum ends it
}

TEST_F(Fitting, StopsAtSizeZeroBelowWhichThereIsNone) {
  const ScaledResult result = scaledToFit(text("aa", 3), {100, -1}, 1, -1);
  EXPECT_EQ(pointSize(result), 0);
  EXPECT_TRUE(result.scaledStringFits);
  EXPECT_EQ(pointSize(scaledToFit(text("aa", 20.5), {100, -1}, 1, -1)), 0.5);
  EXPECT_EQ(pointSize(scaledToFit(text("aa", 0.75), {100, -1}, 1, -1)), 0.75);
  EXPECT_EQ(pointSize(scaledToFit(text("aa", 1), {100, -1}, 1, -1)), 0);
  EXPECT_EQ(pointSize(scaledToFit(text("aa", 0), {100, -1}, 1, -1)), 0);
}

TEST_F(Fitting, ShrinksForTheHeightOfTheBoxButSaysOnlyWhetherTheLinesHoldTheText) {
  const ScaledResult result = scaledToFit(text("aa", 20), {100, 5}, 1, 0.5);
  EXPECT_EQ(pointSize(result), 10);
  EXPECT_TRUE(result.scaledStringFits);
  EXPECT_EQ(pointSize(scaledToFit(text("aa", 20), {100, 17}, 1, 0.5)), 17);
}

TEST_F(Fitting, TakesAHeightThatIsNoNumberForNoLimit) {
  EXPECT_EQ(pointSize(scaledToFit(text("aa", 20), {100, kNaN}, 1, 0.5)), 20);
  EXPECT_EQ(pointSize(scaledToFit(text("aa", 20), {100, kInfinity}, 1, 0.5)), 20);
}

TEST_F(Fitting, TakesAWidthThatIsNoNumberForNone) {
  // Every character has a line of its own, those of the probe too.
  EXPECT_TRUE(scaledToFit(text("aa", 20), {kNaN, 1000}, 1, 0.5).scaledStringFits);
  EXPECT_FALSE(scaledToFit(text("aaa", 20), {kNaN, 1000}, 1, 0.5).scaledStringFits);
  EXPECT_TRUE(scaledToFit(text("aaa aaa", 20), {kInfinity, 1000}, 1, 0.5).scaledStringFits);
}

TEST_F(Fitting, MeasuresTheProbeAtTheSameWidth) {
  // At 20 points "Mj" is 20 wide: in 15 it takes two lines, and so does a text of two characters.
  const ScaledResult result = scaledToFit(text("aa", 20), {15, 1000}, 1, 0.1);
  EXPECT_EQ(pointSize(result), 20);
  EXPECT_TRUE(result.scaledStringFits);
}

TEST_F(Fitting, AppliesTheFirstCharactersAttributesToAllOfTheText) {
  const auto string = text("aaaa", 20, {{NSBaselineOffsetAttributeName, 2}, {"own", "kept"}})->mutableCopy();
  string->setAttributes({{NSFontAttributeName, font(90)}, {NSKernAttributeName, 9}}, {1, 3});
  const ScaledResult result = scaledToFit(string, {100, 1000}, 1, 1);
  ASSERT_EQ(result.attributedString->attributeRuns().size(), 1U);
  EXPECT_EQ(result.attributedString->attributesAtIndex(3), string->attributesAtIndex(0));
  EXPECT_EQ(result.attributedString->string(), "aaaa");
}

TEST_F(Fitting, LeavesTheReceiverAlone) {
  const auto style = NSMutableParagraphStyle::init();
  style->setLineBreakMode(NSLineBreakMode::byTruncatingTail);
  style->setLineSpacing(4);
  const auto string = text("aaaa bbbb", 20, {{NSParagraphStyleAttributeName, style}, {NSKernAttributeName, 1.0}});
  const auto before = string->copy();
  scaledToFit(string, {60, 1000}, 1, 0.1);
  EXPECT_TRUE(string->isEqual(*before));
  EXPECT_EQ(style->lineBreakMode(), NSLineBreakMode::byTruncatingTail);
  EXPECT_EQ(style->lineSpacing(), 4);
}

TEST_F(Fitting, MultipliesTheKernByTheScaleOfEveryStep) {
  // Four characters of half the size and the kern: 48, 45.6 and 42.84 points at 20, 19 and 18.
  const ScaledResult result = scaledToFit(text("aaaa", 20, {{NSKernAttributeName, 2.0}}), {43, 1000}, 1, 0.1);
  EXPECT_EQ(pointSize(result), 18);
  EXPECT_EQ(kern(result).asDouble(), 2.0 * 0.95 * 0.9);
  EXPECT_TRUE(result.scaledStringFits);
}

TEST_F(Fitting, ScalesAKernThatIsAnyNumberAsLayoutCountsIt) {
  for (const Value& two : {Value(2), Value(2.0)}) {
    const ScaledResult result = scaledToFit(text("aaaa", 20, {{NSKernAttributeName, two}}), {43, 1000}, 1, 0.1);
    EXPECT_EQ(kern(result), Value(2.0 * 0.95 * 0.9));
  }
  EXPECT_EQ(kern(scaledToFit(text("aaaa", 20, {{NSKernAttributeName, true}}), {42, 1000}, 1, 0.1)).asDouble(), 0.95);
}

TEST_F(Fitting, KeepsAKernThatIsNoNumberOrThatNoStepHasChanged) {
  EXPECT_EQ(kern(scaledToFit(text("aaaa", 20, {{NSKernAttributeName, "2"}}), {38, 1000}, 1, 0.1)), Value("2"));
  const Value untouched = kern(scaledToFit(text("aaaa", 20, {{NSKernAttributeName, 2}}), {100, 1000}, 1, 0.1));
  EXPECT_EQ(untouched.kind(), Value::Kind::integer);
}

TEST_F(Fitting, ScalesTheLineSpacingFromTheInitialOneAlone) {
  const auto style = NSMutableParagraphStyle::init();
  style->setLineSpacing(10);
  const ScaledResult result =
      scaledToFit(text("aaaa", 20, {{NSParagraphStyleAttributeName, style}}), {36, 1000}, 1, 0.1);
  EXPECT_EQ(pointSize(result), 18);
  EXPECT_EQ(paragraphStyle(result)->lineSpacing(), 10 * (18.0 / 20));
}

TEST_F(Fitting, CountsTheSpacingBetweenLinesOfTextAndProbe) {
  const auto style = NSMutableParagraphStyle::init();
  style->setLineSpacing(10);
  const auto string = text("aaaa bbbb", 20, {{NSParagraphStyleAttributeName, style}});
  EXPECT_EQ(pointSize(scaledToFit(string, {40, 50}, 2, 0.1)), 20);
  EXPECT_EQ(pointSize(scaledToFit(string, {40, 47.5}, 2, 0.1)), 18);  // at 19: 38 and 9.5 of spacing make 48
}

TEST_F(Fitting, WrapsByWordsWhateverTheStyleAndGivesBackItsLineBreakMode) {
  for (const auto mode :
       {NSLineBreakMode::byWordWrapping, NSLineBreakMode::byCharWrapping, NSLineBreakMode::byClipping,
        NSLineBreakMode::byTruncatingHead, NSLineBreakMode::byTruncatingTail, NSLineBreakMode::byTruncatingMiddle}) {
    const auto style = NSMutableParagraphStyle::init();
    style->setLineBreakMode(mode);
    const auto string = text("aaaa bbbb", 20, {{NSParagraphStyleAttributeName, style}});
    const ScaledResult shrunk = scaledToFit(string, {60, 1000}, 1, 0.1);
    EXPECT_EQ(pointSize(shrunk), 13);
    EXPECT_EQ(paragraphStyle(shrunk)->lineBreakMode(), mode);
    const ScaledResult asItWas = scaledToFit(string, {60, 1000}, 2, 0.1);
    EXPECT_EQ(pointSize(asItWas), 20);
    EXPECT_EQ(paragraphStyle(asItWas)->lineBreakMode(), mode);
  }
}

TEST_F(Fitting, GivesATextWithoutAParagraphStyleNone) {
  const ScaledResult result = scaledToFit(text("aaaa bbbb", 20), {60, 1000}, 1, 0.1);
  EXPECT_EQ(result.attributedString->attribute(NSParagraphStyleAttributeName, 0), nullptr);
}

TEST_F(Fitting, RoundsHeightsUpToThePixelsOfTheScreen) {
  const auto sizeIn = [](double scale, double height) {
    UIScreen::mainScreen().setScale(scale);
    return pointSize(scaledToFit(text("aa", 20.5), {100, height}, 1, 0.1));
  };
  EXPECT_EQ(sizeIn(1, 20.5), 19.5);  // 20.5 points count as 21
  EXPECT_EQ(sizeIn(2, 20.5), 20.5);  // as 20.5
  EXPECT_EQ(sizeIn(3, 20.5), 19.5);  // as 20 2/3
  EXPECT_EQ(sizeIn(3, 20.7), 20.5);
  EXPECT_EQ(sizeIn(1, 19.5), 18.5);
  EXPECT_EQ(sizeIn(2, 19.5), 19.5);
}

TEST_F(Fitting, RoundsTextAndProbeAlike) {
  UIScreen::mainScreen().setScale(1);
  const ScaledResult result = scaledToFit(text("aa", 20.5), {100, 1000}, 1, 0.1);
  EXPECT_EQ(pointSize(result), 20.5);
  EXPECT_TRUE(result.scaledStringFits);
}

TEST_F(Fitting, CountsVeryManyLinesWithoutLayingThemOut) {
  const std::int64_t most = std::numeric_limits<std::int64_t>::max();
  EXPECT_EQ(pointSize(scaledToFit(text("aaaa bbbb", 20), {10, 1e6}, most, 0.1)), 20);
  EXPECT_EQ(pointSize(scaledToFit(text("aaaa bbbb", 20), {10, 160}, most, 0.1)), 20);
  EXPECT_EQ(pointSize(scaledToFit(text("aa", 0), {10, 160}, most, 0.1)), 0);
  std::string lines = "a";
  for (int i = 1; i < 100; ++i) lines += "\na";
  EXPECT_TRUE(scaledToFit(text(lines, 20), {100, 1e6}, 100, 1).scaledStringFits);
  EXPECT_FALSE(scaledToFit(text(lines, 20), {100, 1e6}, 99, 1).scaledStringFits);
}

TEST_F(Fitting, EndsForSizesThatNobodySets) {
  // One point taken from the greatest sizes changes nothing.
  EXPECT_EQ(pointSize(scaledToFit(text("aaaa bbbb", 1e300), {60, 1000}, 1, 0.1)), 1e300);
  EXPECT_EQ(pointSize(scaledToFit(text("aaaa bbbb", 1e9), {60, 1000}, 1, 0.1)), 1e9 - 65'536);
  EXPECT_EQ(pointSize(scaledToFit(text("aaaa bbbb", 60'000.5), {60, 1000}, 1, 0)), 12.5);
}

TEST_F(Fitting, ShapesTextAndProbeOnceForAllSizes) {
  const auto string = text("aaaa bbbb", 56);
  recordingEngine().forget();
  EXPECT_EQ(pointSize(scaledToFit(string, {5, 1000}, 1, 0.25)), 14);
  EXPECT_EQ(recordingEngine().record().shapedTexts.size(), 2U);
}

void isTheLoopAsItIsWritten() {
  EXPECT_TRUE(rc::check([] {
    UIScreen::mainScreen().setScale(*rc::gen::element(1.0, 2.0, 3.0));
    const double size = *rc::gen::oneOf(rc::gen::map(rc::gen::inRange(0, 240), [](int n) { return n / 4.0; }),
                                        rc::gen::element(17.1, 33.3, 0.3, 1e300));
    const Tests::FittingCase fitting = Tests::anyFittingCase(font(size));
    // The written loop would never end there.
    RC_PRE(size < 1e100 || !(fitting.minScale < 1));
    Tests::WrittenFitting written;
    const ScaledResult expected =
        written.scaledToFit(fitting.string, fitting.size, fitting.numberOfLines, fitting.minScale);
    RC_CLASSIFY(written.measurements() > 1, "shrinks");
    RC_CLASSIFY(written.measurements() > 5, "shrinks by more than four points");
    const ScaledResult result = scaledToFit(fitting.string, fitting.size, fitting.numberOfLines, fitting.minScale);
    RC_ASSERT(Tests::areTheSame(result, expected));
  }));
}

TEST_F(Fitting, IsTheLoopAsItIsWritten) { isTheLoopAsItIsWritten(); }

TEST_F(Fitting, ShapesAtEverySizeWhereFontsDoNotScale) {
  recordingEngine().setScalesLinearly(false);
  const auto string = text("aaaa bbbb", 20);
  recordingEngine().forget();
  EXPECT_EQ(pointSize(scaledToFit(string, {60, 1000}, 1, 0.1)), 13);
  EXPECT_EQ(recordingEngine().record().shapedTexts.size(), 2U * 8);  // from 20 to 13
  isTheLoopAsItIsWritten();
}

}  // namespace
}  // namespace Brisel
