// What the library draws with the bundle's faces, from type style to pixels. The host's fonts are off.
#include <cmath>
#include <string>

#include <gtest/gtest.h>

#include "brisel/foundation.h"
#include "brisel/platform/paragraph_style.h"
#include "brisel/platform/port.h"
#include "brisel/platform/views/text_drawing.h"

#include "tests/pictures/reference.h"

namespace Brisel::Pictures {
namespace {

using namespace Platform;

class Picture : public testing::Test {
 protected:
  Picture() { engine().setUsesHostFonts(false); }

  static Value object(std::shared_ptr<const NSObject> pointer) { return Value(std::move(pointer)); }

  static Dictionary light() {
    return Dictionary{{Value(NSForegroundColorAttributeName), Value(Theme::dark().base().text().base())}};
  }

  // A text in a box of some width, on the dark theme's ground, as high as it needs.
  static Bitmap draw(const NSAttributedString& text, CGFloat width, CGFloat scale) {
    constexpr CGFloat kMargin = 8;
    const TextDrawing drawing(text, {.width = width});
    const CGSize size{width + 2 * kMargin, drawing.size().height + 2 * kMargin};
    const auto canvas = engine().makeCanvas(size, scale);
    canvas->fillRect({{0, 0}, {size.width + 1, size.height + 1}}, *Theme::dark().base().background().base());
    drawing.draw(*canvas, {kMargin, kMargin});
    return canvas->bitmap();
  }
};

TEST_F(Picture, OfAStyleInSixScripts) {
  const auto text = attributedString(
      "Morning light, 16 windows\nضوء الصباح على النوافذ\nאור בוקר על החלונות\nУтренний свет в окнах\nΠρωινό φως στα "
      "παράθυρα\nखिड़कियों पर सुबह की रोशनी",
      TypeStyle::ballad(), UIContentSizeCategoryLarge, light());
  EXPECT_TRUE(equalsReference(draw(*text, 240, 2), "ballad_six_scripts"));
}

TEST_F(Picture, OfEachWeightOfTextAndTitle) {
  const auto text = attributedString("", TypeStyle::ballad(), UIContentSizeCategoryLarge, light());
  for (const TypeStyle* style : {&TypeStyle::viola(), &TypeStyle::balladBold(), &TypeStyle::metronome(),
                                 &TypeStyle::canon(), &TypeStyle::bass()}) {
    if (text->length() > 0) text->replaceCharactersInRange({text->length(), 0}, "\n");  // as high as the line it ends
    text->appendAttributedString(*attributedString(style->name(), *style, UIContentSizeCategoryLarge, light()));
  }
  EXPECT_TRUE(equalsReference(draw(*text, 200, 1), "weights"));
}

TEST_F(Picture, OfWrappedTextOfBothDirectionsAlignedToItsEnd) {
  const auto style = NSMutableParagraphStyle::init();
  style->setAlignment(NSTextAlignment::natural);
  style->setBaseWritingDirection(WritingDirection::rightToLeft);
  style->setLineSpacing(4);
  Dictionary attributes = light();
  const auto text = attributedString("הרכבת ל-Morning Bay יוצאת בשעה 16:45 מרציף (3), ואחריה קטר 7 לכיוון הצפון.",
                                     TypeStyle::viola(), UIContentSizeCategoryExtraLarge, attributes);
  text->addAttribute(NSParagraphStyleAttributeName, object(style), {0, text->length()});
  EXPECT_TRUE(equalsReference(draw(*text, 180, 2), "both_directions"));
}

TEST_F(Picture, OfMonospacedDigitsUnderEachOther) {
  const Font::Feature features[] = {Font::Feature::numberSpacing(Font::Feature::NumberSpacingOption::monospaced)};
  const auto style = TypeStyle::cello().withFontFeatures({features[0]});
  const auto text = attributedString("1:11:01\n8:40:26", style, UIContentSizeCategoryLarge, light());
  EXPECT_TRUE(equalsReference(draw(*text, 100, 2), "monospaced_digits"));
}

TEST_F(Picture, OfVietnameseAndTheRestOfLatin) {
  const auto text = attributedString("Tiếng Việt: Ngữ pháp, ở, ỗ, ự\nŁódź, İstanbul, Þór, Čeština, ŵŷ, œuvre, ß",
                                     TypeStyle::balladBold(), UIContentSizeCategoryLarge, light());
  EXPECT_TRUE(equalsReference(draw(*text, 330, 2), "latin"));
}

TEST_F(Picture, OfSpacedColouredAndRaisedText) {
  const auto text = attributedString("Even, spaced, raised", TypeStyle::cello(), UIContentSizeCategoryLarge, light());
  text->addAttribute(NSKernAttributeName, Value(3), {6, 6});
  text->addAttribute(NSForegroundColorAttributeName, Value(Color::kleinBlue61().value()), {6, 6});
  text->addAttribute(NSBackgroundColorAttributeName, Value(Color::citric186().value()), {6, 6});
  text->addAttribute(NSBaselineOffsetAttributeName, Value(5), {14, 6});
  EXPECT_TRUE(equalsReference(draw(*text, 220, 1.5), "attributes"));
}

}  // namespace
}  // namespace Brisel::Pictures
