#include "brisel/tokens/color_parsing.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "brisel/tokens/color.h"

#include "tests/decimal_comma.h"

namespace Brisel {
namespace {

using Platform::UIColor;
using namespace std::string_view_literals;

UIColor bytes(int red, int green, int blue, int alpha = 255) {
  return UIColor::rgb(red / 255.0, green / 255.0, blue / 255.0, alpha / 255.0);
}

std::string hex(const char* format, std::uint32_t number) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), format, number);
  return text.data();
}

TEST(ColorParsing, ReadsSixDigitsInEitherCase) {
  EXPECT_EQ(colorFromRGBHexString("1ed760"), bytes(30, 215, 96));
  EXPECT_EQ(colorFromRGBHexString("#1ED760"), bytes(30, 215, 96));
  EXPECT_EQ(colorFromRGBHexString("000000"), bytes(0, 0, 0));
  EXPECT_EQ(colorFromRGBHexString("aBcDeF"), bytes(0xAB, 0xCD, 0xEF));
}

TEST(ColorParsing, GivesRgbFormAndFullAlpha) {
  const auto color = colorFromRGBHexString("#808080");
  ASSERT_TRUE(color);
  EXPECT_EQ(color->form(), UIColor::Form::rgb);
  EXPECT_EQ(color->alpha(), 1.0);
}

TEST(ColorParsing, ReadsEightDigitsWithAlphaLastOrFirst) {
  EXPECT_EQ(colorFromRGBAHexString("FF000080"), bytes(255, 0, 0, 128));
  EXPECT_EQ(colorFromARGBHexString("FF000080"), bytes(0, 0, 128, 255));
  EXPECT_EQ(colorFromRGBAHexString("#01020304"), bytes(1, 2, 3, 4));
  EXPECT_EQ(colorFromARGBHexString("#01020304"), bytes(2, 3, 4, 1));
}

TEST(ColorParsing, ReadsNumbersThatDoNotFitASignedInteger) {
  EXPECT_EQ(colorFromRGBAHexString("FFFFFFFF"), bytes(255, 255, 255, 255));
  EXPECT_EQ(colorFromRGBAHexString("80000000"), bytes(128, 0, 0, 0));
}

TEST(ColorParsing, RefusesAnyOtherLength) {
  for (const auto text : {"", "#", "1ED7", "1ED76", "1ED7600", "1ED76000", "zzzzzz"})
    EXPECT_FALSE(colorFromRGBHexString(text)) << text;
  for (const auto text : {"", "1ED760", "1ED7600", "1ED760001", "zzzzzzzz"}) {
    EXPECT_FALSE(colorFromRGBAHexString(text)) << text;
    EXPECT_FALSE(colorFromARGBHexString(text)) << text;
  }
}

TEST(ColorParsing, TrimsWhateverIsNoDigitFromBothEnds) {
  for (const auto text : {" #1ED760 ", "x1ED760", "--1ED760;", "\t\n1ED760\r\n", "é1ED760\U0001F3B5",
                          "\xFF\xC3"
                          "1ED760\xE2\x82",
                          "１1ED760"})
    EXPECT_EQ(colorFromRGBHexString(text), bytes(30, 215, 96)) << text;
  EXPECT_EQ(colorFromRGBHexString("\0"
                                  "1ED760\0"sv),
            bytes(30, 215, 96));
}

TEST(ColorParsing, KeepsWhatIsInside) {
  EXPECT_FALSE(colorFromRGBHexString("1E D7 60"));
  EXPECT_EQ(colorFromRGBAHexString("1E D7 60"), bytes(0, 0, 0, 0x1E));
}

TEST(ColorParsing, StopsAtTheFirstCharacterInsideThatIsNoDigit) {
  EXPECT_EQ(colorFromRGBHexString("12G456"), bytes(0, 0, 0x12));
  EXPECT_EQ(colorFromRGBHexString("1+3456"), bytes(0, 0, 1));
  EXPECT_EQ(colorFromRGBAHexString("1234567G9"), std::nullopt);
  EXPECT_EQ(colorFromRGBAHexString("123456G8"), bytes(0, 0x12, 0x34, 0x56));
}

// The dot parts groups of digits there.
TEST(ColorParsing, DoesNotFollowTheLocale) {
  const DecimalCommaOfStreams streams;
  const DecimalCommaOfC c;  // if the machine has one
  EXPECT_EQ(colorFromRGBHexString("1ED760"), bytes(30, 215, 96));
  EXPECT_EQ(colorFromRGBHexString("12.345"), bytes(0, 0, 0x12));
  EXPECT_EQ(colorFromRGBAHexString("1234.567"), bytes(0, 0, 0x12, 0x34));
}

TEST(ColorParsing, CountsUtf16UnitsAndNotBytes) {
  EXPECT_EQ(colorFromRGBHexString("12é456"), bytes(0, 0, 0x12));
  EXPECT_EQ(colorFromRGBHexString("1２3456"), bytes(0, 0, 1));  // a full-width digit is no digit
  EXPECT_EQ(colorFromRGBHexString("12\U0001F3B5"
                                  "45"),
            bytes(0, 0, 0x12));
  EXPECT_FALSE(colorFromRGBHexString("12é45"));
  EXPECT_FALSE(colorFromRGBHexString("1é345"));  // six bytes, five units
  EXPECT_FALSE(
      colorFromRGBHexString("12\U0001F3B5"
                            "456"));
  EXPECT_EQ(colorFromRGBHexString("12\xFF"
                                  "456"),
            bytes(0, 0, 0x12));  // an ill-formed byte is one unit
}

TEST(ColorParsing, ReadsAPrefixAsPartOfTheLength) {
  EXPECT_FALSE(colorFromRGBHexString("0x1ED760"));
  EXPECT_EQ(colorFromRGBAHexString("0x1ED760"), bytes(0, 30, 215, 96));
  EXPECT_EQ(colorFromARGBHexString("0X1ED760"), bytes(30, 215, 96, 0));
  EXPECT_EQ(colorFromRGBHexString("0x1ED7"), bytes(0, 30, 215));
  EXPECT_EQ(colorFromRGBHexString("#0X1ed7"), bytes(0, 30, 215));
}

TEST(ColorParsing, ReadsZeroWhereNoDigitFollowsThePrefix) {
  EXPECT_EQ(colorFromRGBHexString("0xG123"), bytes(0, 0, 0));
  EXPECT_EQ(colorFromRGBHexString("0x x12"), bytes(0, 0, 0));
  EXPECT_EQ(colorFromRGBHexString("0x0x12"), bytes(0, 0, 0));
  EXPECT_EQ(colorFromRGBHexString("1x3456"), bytes(0, 0, 1));
}

TEST(ColorParsing, GivesComponentsDividedBy255) {
  for (std::uint32_t byte = 0; byte < 256; ++byte) {
    const auto color = colorFromRGBHexString(hex("0000%02x", byte));
    ASSERT_TRUE(color);
    EXPECT_EQ(color->getRed().blue, static_cast<double>(byte) / 255.0);
  }
}

RC_GTEST_PROP(ColorParsing, ReadsBackWhatWasPrinted, (std::uint32_t number)) {
  const auto byte = [number](int shift) { return static_cast<int>(number >> shift & 0xFF); };
  const auto upper = hex("%08X", number), lower = hex("#%08x", number);
  RC_ASSERT(colorFromRGBAHexString(upper) == bytes(byte(24), byte(16), byte(8), byte(0)));
  RC_ASSERT(colorFromARGBHexString(upper) == bytes(byte(16), byte(8), byte(0), byte(24)));
  RC_ASSERT(colorFromRGBAHexString(lower) == colorFromRGBAHexString(upper));
  RC_ASSERT(colorFromRGBHexString(upper.substr(2)) == bytes(byte(16), byte(8), byte(0)));
}

RC_GTEST_PROP(ColorParsing, TakesAnyBytesAndAnswersInRange, (const std::string& text)) {
  for (const auto& color : {colorFromRGBHexString(text), colorFromRGBAHexString(text), colorFromARGBHexString(text)}) {
    if (!color) continue;
    const auto [red, green, blue, alpha] = color->getRed();
    for (const double component : {red, green, blue, alpha}) RC_ASSERT(component >= 0.0 && component <= 1.0);
  }
}

RC_GTEST_PROP(ColorParsing, IgnoresWhatSurroundsTheDigits, (std::uint32_t number)) {
  const auto noise = *rc::gen::container<std::string>(rc::gen::suchThat<char>(
      [](char c) { return std::string_view("0123456789abcdefABCDEF").find(c) == std::string_view::npos; }));
  const std::string digits = hex("%06x", number & 0xFFFFFF);
  RC_ASSERT(colorFromRGBHexString(noise + digits + noise) == colorFromRGBHexString(digits));
}

TEST(ColorComparison, CountsADifferenceOfExactlyThePrecisionAsEqual) {
  const UIColor a = UIColor::rgb(0.75, 0.5, 0.5, 0.5);
  EXPECT_TRUE(colorsAreEqual(a, UIColor::rgb(0.5, 0.5, 0.5, 0.5), 0.25));
  EXPECT_FALSE(colorsAreEqual(a, UIColor::rgb(0.5, 0.5, 0.5, 0.5), 0.125));
}

TEST(ColorComparison, LooksAtEachComponent) {
  const UIColor a = UIColor::rgb(0.5, 0.5, 0.5, 0.5);
  EXPECT_FALSE(colorsAreEqual(a, UIColor::rgb(0.75, 0.5, 0.5, 0.5), 0.125));
  EXPECT_FALSE(colorsAreEqual(a, UIColor::rgb(0.5, 0.25, 0.5, 0.5), 0.125));
  EXPECT_FALSE(colorsAreEqual(a, UIColor::rgb(0.5, 0.5, 0.75, 0.5), 0.125));
  EXPECT_FALSE(colorsAreEqual(a, UIColor::rgb(0.5, 0.5, 0.5, 0.25), 0.125));
}

TEST(ColorComparison, LooksAtComponentsAndNotAtForms) {
  EXPECT_TRUE(colorsAreEqual(*Color::gray7().value(), UIColor::rgb(0.071, 0.071, 0.071), 0.0));
}

TEST(ColorComparison, FindsAColourEqualToItselfWhateverThePrecision) {
  const UIColor a = UIColor::rgb(0.5, 0.5, 0.5);
  const UIColor b = a;
  EXPECT_TRUE(colorsAreEqual(a, a, -1.0));
  EXPECT_FALSE(colorsAreEqual(a, b, -1.0));
}

TEST(ColorComparison, CountsWhatCannotBeToldAsEqual) {
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  const UIColor a = UIColor::rgb(0.0, 0.5, 0.5);
  EXPECT_TRUE(colorsAreEqual(a, UIColor::rgb(nan, 0.5, 0.5), 0.0));
  EXPECT_TRUE(colorsAreEqual(a, UIColor::rgb(1.0, 0.5, 0.5), nan));
  EXPECT_FALSE(colorsAreEqual(a, UIColor::rgb(nan, 0.75, 0.5), 0.0));
}

RC_GTEST_PROP(ColorComparison, IsSymmetric, (double a, double b, double precision)) {
  const UIColor first = UIColor::rgb(a, 0, 0), second = UIColor::rgb(b, 0, 0);
  RC_ASSERT(colorsAreEqual(first, second, precision) == colorsAreEqual(second, first, precision));
}

}  // namespace
}  // namespace Brisel
