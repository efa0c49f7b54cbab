// Typefaces, weights and features are neither numbers nor each other; no flag passes for a size.
#include <functional>
#include <string>

#include "brisel/object_interface/type_styles.h"
#include "brisel/typography/font.h"
#include "brisel/typography/type_style.h"

int main() {
  const Brisel::Font font = Brisel::Font::tondal;
  const Brisel::Font::Weight weight = Brisel::Font::Weight::book;
  const Brisel::TypeStyle& style = Brisel::TypeStyle::ballad();
  (void)(font == Brisel::Font::tondal && weight == Brisel::Font::Weight::book);
  (void)std::hash<Brisel::Font>()(font);
  (void)style.withFontSize(3);
  (void)style.withMinimumScaleFactor(0.5F);
#if CASE == 1  // error: no match for 'operator=='
  (void)(font == weight);
#endif
#if CASE == 2  // error: conversion from 'int' to .*Brisel::Font'
  const Brisel::Font number = 1;
#endif
#if CASE == 3  // error: use of deleted function 'void Brisel::operator<=>
  (void)(font < font);
#endif
#if CASE == 4  // error: use of deleted function|no match for call
  (void)std::hash<Brisel::Font::Weight>()(weight);
#endif
#if CASE == 5  // error: cannot convert 'const Brisel::Font' to 'const int'
  const int number = font;
#endif
#if CASE == 6  // error: use of deleted function .*withFontSize
  (void)style.withFontSize(true);
#endif
#if CASE == 7  // error: use of deleted function .*withMinimumScaleFactor
  (void)style.withMinimumScaleFactor(true);
#endif
#if CASE == 8  // error: 'VLMBriselTypeStyle::VLMBriselTypeStyle\(.*\)' is private
  const VLMBriselTypeStyle object(style);
#endif
}
