// Truncated texts and substituted fonts with the bundle's real faces. The host's fonts are off but where they are
// asked.
#include "brisel/platform/views/label.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/platform/bundle.h"
#include "brisel/platform/font.h"
#include "brisel/platform/font_descriptor.h"
#include "brisel/platform/port.h"
#include "brisel/platform/views/text_drawing.h"

namespace Brisel::Platform {
namespace {

using testing::ElementsAre;
using testing::Pair;

constexpr const char* kHebrew =
    "\u05E9\u05DC\u05D5\u05DD \u05DC\u05DB\u05DC \u05D4\u05E0\u05D5\u05E1\u05E2\u05D9\u05DD";
constexpr const char* kArabic = "\u0627\u0644\u0633\u0644\u0627\u0645 \u0639\u0644\u064A\u0643\u0645";

class LinuxLabelTest : public testing::Test {
 protected:
  LinuxLabelTest() {
    engine().setUsesHostFonts(false);
    const auto files = NSBundle::bundleWithPath(BRISEL_TEST_BUNDLE)->URLsForResourcesWithExtension("otf");
    for (const auto& file : *files) engine().registerFontFile(file);
  }

  static std::shared_ptr<const UIFont> font(const char* name, CGFloat size = 40, bool hasCascade = true) {
    List cascade;
    if (hasCascade)
      cascade = List{Value(UIFontDescriptor::fontDescriptorWithName("TondalArab-Book", size)),
                     Value(UIFontDescriptor::fontDescriptorWithName("TondalHebr-Book", size))};
    const auto descriptor = UIFontDescriptor::fontDescriptorWithName(name, size)
                                ->fontDescriptorByAddingAttributes({{UIFontDescriptorCascadeListAttribute, cascade}});
    return UIFont::fontWithDescriptor(descriptor, size);
  }

  static std::shared_ptr<UILabel> label(const std::string& text, CGSize size, NSLineBreakMode mode) {
    auto label = UILabel::initWithFrame({{0, 0}, size});
    label->setFont(font("Tondal-Book"));
    label->setText(text);
    label->setLineBreakMode(mode);
    return label;
  }

  // Whether there is ink in the upper half of the letters, in each tenth of the width.
  static std::string inkAboveTheDots(const UILabel& label) {
    const CGSize size = label.frame().size;
    const auto canvas = engine().makeCanvas(size, 1);
    label.drawHierarchy(*canvas, {0, 0});
    const Bitmap bitmap = canvas->bitmap();
    const FirstBaseline first = label.firstBaseline();
    const auto baseline = static_cast<int>(first.fractionOfHeight * size.height + first.offset);
    std::string tenths(10, '.');
    for (int y = 0; y < baseline - 10; ++y)
      for (int x = 0; x < bitmap.width; ++x)
        if (bitmap.rgba[(static_cast<std::size_t>(y) * static_cast<std::size_t>(bitmap.width) +
                         static_cast<std::size_t>(x)) *
                            4 +
                        3] > 0)
          tenths[static_cast<std::size_t>(x * 10 / bitmap.width)] = '#';
    return tenths;
  }

  // The faces of a text after fixing, run by run.
  static std::vector<std::pair<std::size_t, std::string>> fixed(const std::string& string,
                                                                const std::shared_ptr<const UIFont>& font) {
    const auto text = NSMutableAttributedString::initWithString(string, {{NSFontAttributeName, font}});
    text->fixAttributesInRange({0, text->length()});
    std::vector<std::pair<std::size_t, std::string>> faces;
    for (const AttributeRun& run : text->attributeRuns())
      faces.emplace_back(run.range.length, run.attributes.find(NSFontAttributeName)->as<UIFont>()->typeface()->name());
    return faces;
  }
};

TEST_F(LinuxLabelTest, TheEllipsisStandsWhereTheReaderMissesText) {
  const CGSize size{100, 60};
  EXPECT_EQ(inkAboveTheDots(*label("nnnnnnnnnn", size, NSLineBreakMode::byTruncatingTail)).back(), '.');
  EXPECT_EQ(inkAboveTheDots(*label("nnnnnnnnnn", size, NSLineBreakMode::byTruncatingHead)).front(), '.');
  const auto middle = inkAboveTheDots(*label("nnnnnnnnnn", size, NSLineBreakMode::byTruncatingMiddle));
  EXPECT_EQ(middle.front(), '#');
  EXPECT_NE(middle.substr(3, 5).find('.'), std::string::npos);
  EXPECT_NE(middle.substr(7).find('#'), std::string::npos);
  for (const char* text : {kHebrew, kArabic}) {
    EXPECT_EQ(inkAboveTheDots(*label(text, size, NSLineBreakMode::byTruncatingTail)).front(), '.') << text;
    EXPECT_EQ(inkAboveTheDots(*label(text, size, NSLineBreakMode::byTruncatingHead)).back(), '.') << text;
  }
}

TEST_F(LinuxLabelTest, TheTailOfALeftToRightTextIsAtTheRightWhateverItEndsIn) {
  const auto text = inkAboveTheDots(*label(std::string("n ") + kHebrew, {100, 60}, NSLineBreakMode::byTruncatingTail));
  EXPECT_EQ(text.front(), '#');
  EXPECT_EQ(text.back(), '.');
}

TEST_F(LinuxLabelTest, NoTruncatedLineIsWiderThanItsRoomAtAnyWidth) {
  for (const std::string& string : {std::string("Office e\u0301e\u0301 affine"), std::string(kHebrew),
                                    std::string(kArabic), std::string("n ") + kArabic + " 12 " + kHebrew}) {
    for (const auto mode :
         {NSLineBreakMode::byTruncatingHead, NSLineBreakMode::byTruncatingTail, NSLineBreakMode::byTruncatingMiddle}) {
      const auto style = NSMutableParagraphStyle::init();
      style->setLineBreakMode(mode);
      const auto text = NSAttributedString::initWithString(
          string, {{NSFontAttributeName, font("Tondal-Book")}, {NSParagraphStyleAttributeName, style}});
      const TextSpans spans(*text);
      const auto shaped = shape(*text, spans);
      for (CGFloat width = 1; width < 300; width += 7.3) {
        TextLayout::Options options{.width = width};
        options.limits.emplace();
        options.limits->lines = 1;
        options.limits->ellipsis = [&](std::uint32_t unit) { return shapeEllipsis(spans, unit); };
        const TextLayout layout(shaped, spans.sizes, spans.paragraphs, options);
        ASSERT_EQ(layout.lines().size(), 1U);
        if (!layout.omission()) continue;
        ASSERT_NE(layout.omission()->ellipsis, nullptr);
        EXPECT_GT(layout.omission()->width, 0);
        EXPECT_TRUE(layout.lines()[0].width <= width + 1e-6 || layout.lines()[0].width == layout.omission()->width);
      }
    }
  }
}

TEST_F(LinuxLabelTest, AKeptShapeMeasuresAsAFreshOneDoes) {
  const auto kept = label(std::string("Affine ") + kArabic, {100, 60}, NSLineBreakMode::byTruncatingTail);
  for (const CGFloat size : {40.0, 13.0, 56.5, 0.0, 40.0}) {
    kept->setFont(font("Tondal-Book", size));
    const auto fresh = label(*kept->text(), {100, 60}, NSLineBreakMode::byTruncatingTail);
    fresh->setFont(font("Tondal-Book", size));
    EXPECT_EQ(kept->intrinsicContentSize(), fresh->intrinsicContentSize());
  }
}

TEST_F(LinuxLabelTest, ARegisteredFaceOfTheNearestWeightIsSubstituted) {
  const std::string text = std::string("a ") + kHebrew;
  EXPECT_THAT(fixed(text, font("Tondal-Book", 20, false)),
              ElementsAre(Pair(2, "Tondal-Book"), Pair(4, "TondalHebr-Book"), Pair(1, "Tondal-Book"),
                          Pair(3, "TondalHebr-Book"), Pair(1, "Tondal-Book"), Pair(7, "TondalHebr-Book")));
  EXPECT_THAT(fixed("a\u05D0", font("Tondal-Bold", 20, false)),
              ElementsAre(Pair(1, "Tondal-Bold"), Pair(1, "TondalHebr-Bold")));
}

TEST_F(LinuxLabelTest, WhatTheCascadeHasKeepsItsFont) {
  EXPECT_THAT(fixed(std::string("a ") + kHebrew + kArabic, font("Tondal-Book")), ElementsAre(Pair(30, "Tondal-Book")));
}

TEST_F(LinuxLabelTest, MarksJoinersAndSelectorsGoWithTheirBase) {
  // Shin with two points, a joiner and a selector; then a Latin letter.
  EXPECT_THAT(fixed("\u05E9\u05C1\u05B8\u200D\uFE0Fa", font("Tondal-Book", 20, false)),
              ElementsAre(Pair(5, "TondalHebr-Book"), Pair(1, "Tondal-Book")));
  // A mark that no face has stays with its letter's font.
  EXPECT_THAT(fixed("a\u0483b\u200D\n", font("Tondal-Book", 20, false)), ElementsAre(Pair(5, "Tondal-Book")));
}

TEST_F(LinuxLabelTest, WhatNobodyHasKeepsItsFont) {
  EXPECT_THAT(fixed("a\U0001F600\U0010ABCD", font("Tondal-Book")), ElementsAre(Pair(5, "Tondal-Book")));
}

TEST_F(LinuxLabelTest, AFaceOfTheHostIsKnownByItsNameAtAnySize) {
  engine().setUsesHostFonts(true);
  const auto text =
      NSMutableAttributedString::initWithString("\u65E5\U0001F600", {{NSFontAttributeName, font("Tondal-Book")}});
  text->fixAttributesInRange({0, text->length()});
  bool isAny = false;
  for (const AttributeRun& run : text->attributeRuns()) {
    const auto found = run.attributes.find(NSFontAttributeName)->as<UIFont>();
    if (found->fontName() == "Tondal-Book") continue;
    isAny = true;
    std::size_t at = run.range.location;
    EXPECT_TRUE(found->hasCharacter(at == 0 ? U'\u65E5' : U'\U0001F600'));
    EXPECT_EQ(found->pointSize(), 40);
    EXPECT_EQ(found->fontWithSize(13)->typeface(), found->typeface());
    EXPECT_EQ(found->typeface()->name(), found->fontName());
  }
  if (!isAny) GTEST_SKIP() << "The host has a face for neither character.";
}

}  // namespace
}  // namespace Brisel::Platform
