// Any text with any attributes made to fit into any box: it ends soon, sizes and flags are those of the written loop
// wherever that can be waited for, and elsewhere what it promises for every fitting.
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "brisel/platform/font.h"
#include "brisel/platform/font_descriptor.h"
#include "brisel/platform/paragraph_style.h"
#include "brisel/platform/port.h"
#include "brisel/platform/screen.h"
#include "brisel/typography/fitting.h"

#include "fuzz/bundle_fonts.h"
#include "fuzz/input.h"
#include "tests/written_fitting.h"

using namespace Brisel::Platform;
using Brisel::ScaledResult;
using Brisel::Fuzz::registerBundleFonts;
using Brisel::Fuzz::require;
using Brisel::Fuzz::Source;

namespace {

// Mostly a plain number, else any bits at all.
CGFloat takeNumber(Source& source) {
  const auto kind = source.take<std::uint8_t>();
  if (kind % 4 == 0) return source.take<double>();
  return kind % 4 == 1 ? source.take<std::int16_t>() / 8.0 : source.take<std::int8_t>() / 2.0;
}

Value object(std::shared_ptr<const NSObject> pointer) { return Value(std::move(pointer)); }

std::shared_ptr<const UIFont> takeFont(Source& source) {
  constexpr const char* kNames[] = {"Tondal-Book", "TondalTitle-Black", "TondalArab-Bold", "Missing-Bold"};
  const auto kind = source.take<std::uint8_t>();
  List cascade;
  if (kind & 4) {
    cascade = List{object(UIFontDescriptor::fontDescriptorWithName("TondalArab-Book", 1)),
                   object(UIFontDescriptor::fontDescriptorWithName("TondalDeva-Book", 1))};
  }
  const auto descriptor =
      UIFontDescriptor::fontDescriptorWithName(kNames[kind % 4], 12)
          ->fontDescriptorByAddingAttributes(Dictionary{{Value(UIFontDescriptorCascadeListAttribute), Value(cascade)}});
  return UIFont::fontWithDescriptor(descriptor, takeNumber(source));
}

std::shared_ptr<const NSParagraphStyle> takeParagraphStyle(Source& source) {
  const auto style = NSMutableParagraphStyle::init();
  style->setLineBreakMode(static_cast<NSLineBreakMode>(source.below(6)));
  style->setBaseWritingDirection(static_cast<WritingDirection>(source.below(3)));
  style->setLineSpacing(takeNumber(source));
  style->setLineHeightMultiple(takeNumber(source));
  style->setMinimumLineHeight(takeNumber(source));
  style->setMaximumLineHeight(takeNumber(source));
  style->setParagraphSpacing(takeNumber(source));
  return style;
}

double pointSize(const NSAttributedString& text) {
  return text.attribute(NSFontAttributeName, 0)->as<UIFont>()->pointSize();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool isReady = (registerBundleFonts(), true);
  (void)isReady;
  Source source(data, size);
  const auto kind = source.take<std::uint8_t>();
  UIScreen::mainScreen().setScale(1 + kind % 3);
  const CGSize box{takeNumber(source), takeNumber(source)};
  const double minScale = kind & 4 ? takeNumber(source) : source.take<std::uint8_t>() / 256.0;
  const std::int64_t lines = kind & 8 ? source.take<std::int64_t>() : source.take<std::int8_t>();
  const auto font = takeFont(source);
  Dictionary attributes{{Value(NSFontAttributeName), object(font)}};
  if (kind & 16) attributes = attributes.with(NSParagraphStyleAttributeName, object(takeParagraphStyle(source)));
  if (kind & 32) attributes = attributes.with(NSKernAttributeName, takeNumber(source));
  if (kind & 64) attributes = attributes.with(NSBaselineOffsetAttributeName, takeNumber(source));
  const auto text = NSAttributedString::initWithString(source.rest(), attributes);
  if (text->length() == 0) return 0;

  const ScaledResult result = Brisel::scaledToFit(text, box, lines, minScale);
  require(result.attributedString->string() == text->string());
  require(pointSize(*result.attributedString) <= font->pointSize());
  if (lines < 1 || box.width < 1) require(result.attributedString == text && result.scaledStringFits == (lines < 1));

  if (font->pointSize() < 100 && lines < 50 && text->length() < 100) {
    const ScaledResult written = Brisel::Tests::WrittenFitting().scaledToFit(text, box, lines, minScale);
    require(result.scaledStringFits == written.scaledStringFits);
    require(pointSize(*result.attributedString) == pointSize(*written.attributedString));
  }
  return 0;
}
