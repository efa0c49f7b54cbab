// Typefaces, weights and features are neither numbers nor each other; no flag passes for a size, and no text for a
// flag.
#include <functional>
#include <string>

#include "brisel/object_interface/text_views.h"
#include "brisel/object_interface/type_styles.h"
#include "brisel/typography/font.h"
#include "brisel/typography/text_view_styling.h"
#include "brisel/typography/type_style.h"

int main() {
  const Brisel::Font font = Brisel::Font::tondal;
  const Brisel::Font::Weight weight = Brisel::Font::Weight::book;
  const Brisel::TypeStyle& style = Brisel::TypeStyle::ballad();
  (void)(font == Brisel::Font::tondal && weight == Brisel::Font::Weight::book);
  (void)std::hash<Brisel::Font>()(font);
  (void)style.withFontSize(3);
  (void)style.withMinimumScaleFactor(0.5F);
  const auto& category = Brisel::Platform::UIContentSizeCategoryLarge;
  const auto label = Brisel::Platform::UILabel::initWithFrame();
  const auto textView = Brisel::Platform::UITextView::initWithFrame();
  apply(*label, style, category, true);
  apply(*textView, style, category, true);
  briselSwift_applyStyle(*label, VLMBriselTypeStyle::ballad(), category, true);
  briselSwift_applyStyle(*textView, VLMBriselTypeStyle::ballad(), category, true);
#if REFUSED  // error: no match for 'operator=='
  (void)(font == weight);
#endif
#if REFUSED  // error: conversion from 'int' to .*Brisel::Font'
  const Brisel::Font numberedFont = 1;
#endif
#if REFUSED  // error: use of deleted function 'void Brisel::operator<=>
  (void)(font < font);
#endif
#if REFUSED  // error: use of deleted function|no match for call
  (void)std::hash<Brisel::Font::Weight>()(weight);
#endif
#if REFUSED  // error: cannot convert 'const Brisel::Font' to 'const int'
  const int fontNumber = font;
#endif
#if REFUSED  // error: use of deleted function .*withFontSize
  (void)style.withFontSize(true);
#endif
#if REFUSED  // error: use of deleted function .*withMinimumScaleFactor
  (void)style.withMinimumScaleFactor(true);
#endif
#if REFUSED  // error: 'VLMBriselTypeStyle::VLMBriselTypeStyle\(.*\)' is private
  const VLMBriselTypeStyle object(style);
#endif
#if REFUSED  // error: use of deleted function .*apply.*UILabel
  apply(*label, style, category, "yes");
#endif
#if REFUSED  // error: use of deleted function .*apply.*UITextView
  apply(*textView, style, category, "yes");
#endif
#if REFUSED  // error: use of deleted function .*briselSwift_applyStyle.*UILabel
  briselSwift_applyStyle(*label, VLMBriselTypeStyle::ballad(), category, "yes");
#endif
#if REFUSED  // error: use of deleted function .*briselSwift_applyStyle.*UITextView
  briselSwift_applyStyle(*textView, VLMBriselTypeStyle::ballad(), category, "yes");
#endif
}
