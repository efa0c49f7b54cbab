// Typefaces, fonts, the resource bundle and type styles.
#include <cstdio>

#include "brisel/object_interface/type_styles.h"
#include "brisel/platform/content_size_category.h"
#include "brisel/typography/font.h"
#include "brisel/typography/resource_bundle.h"
#include "brisel/typography/styled_string.h"
#include "brisel/typography/type_style.h"

using Brisel::Font;
using Brisel::TypeStyle;
using Brisel::Platform::UIContentSizeCategoryExtraExtraExtraLarge;
using Brisel::Platform::UIContentSizeCategoryLarge;
using NumberSpacing = Font::Feature::NumberSpacingOption;

void showFonts() {
  //! [font]
  // Hebrew and Arabic come from the fallbacks; digits are of one width, as in a table of times.
  const auto font = Font::font(Font::tondal, {Font::tondalHebr, Font::tondalArab}, Font::Weight::bold, 20,
                               {Font::Feature::numberSpacing(NumberSpacing::monospaced)});
  std::printf("%s, %g points, %s\n", font->fontName().c_str(), font->pointSize(),
              font->hasCharacter(U'ש') ? "has a shin" : "lacks a shin");
  //! [font]

  //! [bundle]
  const auto bundle = Brisel::resourceBundle();
  std::printf("the icon font is %s\n", bundle->pathForResource("halvicon", "ttf") ? "there" : "missing");
  //! [bundle]
}

void showStyles() {
  //! [type style]
  const auto& ballad = TypeStyle::ballad();
  std::printf("%g points, and %g for those who read large text\n", ballad.font(UIContentSizeCategoryLarge)->pointSize(),
              ballad.font(UIContentSizeCategoryExtraExtraExtraLarge)->pointSize());

  // Derived styles are new values.
  const auto badge = ballad.withFontSize(11).withUsesUpperCaseLayout(true);
  const auto text = Brisel::attributedString("new", badge, UIContentSizeCategoryLarge);
  std::printf("%s, as ever %g points\n", text->string().c_str(),
              badge.font(UIContentSizeCategoryExtraExtraExtraLarge)->pointSize());
  //! [type style]

  //! [type style object]
  const auto& object = VLMBriselTypeStyle::ballad();  // one instance a style
  std::printf("%s at %g points\n", object->name().c_str(),
              object->fontWithContentSizeCategory(UIContentSizeCategoryLarge)->pointSize());
  //! [type style object]
}

int main() {
  showFonts();
  showStyles();
}
