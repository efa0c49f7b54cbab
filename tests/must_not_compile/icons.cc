// Glyphs have no equality, so that icons are not taken for one because they draw the same; no text becomes an icon by
// itself; sizes have no order.
#include "brisel/object_interface/icons.h"

#include <functional>
#include <string>

#include "brisel/icons/icon.h"

int main() {
  const Brisel::Icon& icon = Brisel::Icon::ban();
  const Brisel::Icon::Glyph glyph = *icon.glyphs().x16();
  const Brisel::Icon::GlyphSize size = Brisel::Icon::GlyphSize::x16;
  (void)(icon == Brisel::Icon::skip() && size == Brisel::Icon::GlyphSize::x24);
  (void)std::hash<Brisel::Icon>()(icon);
  (void)Brisel::Icon("Ban");
#if REFUSED  // error: no match for 'operator=='
  (void)(glyph == *Brisel::Icon::skip().glyphs().x16());
#endif
#if REFUSED  // error: no match for 'operator=='
  (void)(icon.glyphs() == Brisel::Icon::skip().glyphs());
#endif
#if REFUSED  // error: conversion from .* to non-scalar type 'const Brisel::Icon'
  const Brisel::Icon named = "Ban";
#endif
#if REFUSED  // error: use of deleted function 'void Brisel::operator<=>
  (void)(size < Brisel::Icon::GlyphSize::x24);
#endif
#if REFUSED  // error: use of deleted function|no match for call
  (void)std::hash<Brisel::Icon::Glyphs>()(icon.glyphs());
#endif
#if REFUSED  // error: invalid conversion from 'int' to 'VLMBriselIcon'
  const VLMBriselIcon number = 1;
#endif
#if REFUSED  // error: use of deleted function 'void operator<=>
  (void)(VLMBriselSwiftIcons::GlyphSize::small < VLMBriselSwiftIcons::GlyphSize::medium);
#endif
#if REFUSED  // error: 'VLMBriselSwiftIcons::VLMBriselSwiftIcons\(.*\)' is private
  const VLMBriselSwiftIcons object(icon);
#endif
  (void)glyph;
}
