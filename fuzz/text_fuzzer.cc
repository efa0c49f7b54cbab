// Any text with any attributes through measuring and drawing: nothing crashes, hangs or leaks, a measure is a number
// and no width negative, the rectangle is that of the lines that are drawn, and the lines hold each cluster once.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "brisel/platform/font.h"
#include "brisel/platform/font_descriptor.h"
#include "brisel/platform/paragraph_style.h"
#include "brisel/platform/port.h"
#include "brisel/platform/views/text_drawing.h"

#include "fuzz/bundle_fonts.h"
#include "fuzz/input.h"

using namespace Brisel::Platform;
using Brisel::Fuzz::registerBundleFonts;
using Brisel::Fuzz::require;
using Brisel::Fuzz::Source;

namespace {

// Half the time a plain number, else any bits at all.
CGFloat takeNumber(Source& source) {
  const auto kind = source.take<std::uint8_t>();
  return kind % 2 == 0 ? source.take<std::int8_t>() / 2.0 : source.take<double>();
}

Value object(std::shared_ptr<const NSObject> pointer) { return Value(std::move(pointer)); }

std::shared_ptr<const UIFont> takeFont(Source& source) {
  constexpr const char* kNames[] = {"Tondal-Book", "TondalTitle-Black", "TondalArab-Bold", "Missing-Bold"};
  List cascade;
  const auto kind = source.take<std::uint8_t>();
  if (kind & 4) {
    cascade = List{object(UIFontDescriptor::fontDescriptorWithName("TondalArab-Book", 1)),
                   object(UIFontDescriptor::fontDescriptorWithName("TondalHebr-Book", 1)),
                   object(UIFontDescriptor::fontDescriptorWithName("TondalDeva-Book", 1))};
  }
  const auto descriptor =
      UIFontDescriptor::fontDescriptorWithName(kNames[kind % 4], 12)
          ->fontDescriptorByAddingAttributes(Dictionary{{Value(UIFontDescriptorCascadeListAttribute), Value(cascade)}});
  return UIFont::fontWithDescriptor(descriptor, takeNumber(source));
}

std::shared_ptr<const NSParagraphStyle> takeParagraphStyle(Source& source) {
  const auto style = NSMutableParagraphStyle::init();
  style->setAlignment(static_cast<NSTextAlignment>(source.take<std::uint8_t>() % 5));
  style->setLineBreakMode(static_cast<NSLineBreakMode>(source.take<std::uint8_t>() % 6));
  style->setBaseWritingDirection(static_cast<WritingDirection>(source.take<std::uint8_t>() % 3));
  style->setLineSpacing(takeNumber(source));
  style->setLineHeightMultiple(takeNumber(source));
  style->setMaximumLineHeight(takeNumber(source));
  return style;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool isReady = (registerBundleFonts(), true);
  (void)isReady;
  Source source(data, size);
  const CGFloat width = takeNumber(source);
  const Dictionary first{{Value(NSFontAttributeName), object(takeFont(source))},
                         {Value(NSParagraphStyleAttributeName), object(takeParagraphStyle(source))},
                         {Value(NSKernAttributeName), Value(takeNumber(source))}};
  const Dictionary second{{Value(NSFontAttributeName), object(takeFont(source))},
                          {Value(NSBaselineOffsetAttributeName), Value(takeNumber(source))}};
  const auto cut = source.take<std::uint8_t>();
  const auto text = NSMutableAttributedString::initWithString(source.rest(), first);
  const std::size_t location = cut % (text->length() + 1);
  text->setAttributes(second, {location, text->length() - location});

  const CGRect rect = boundingRectWithSize(*text, {width, 1e9}, NSStringDrawingUsesLineFragmentOrigin);
  require(rect.size.width >= 0 && !std::isnan(rect.size.height));

  const TextDrawing drawing(*text, {.width = width, .usesFontLeading = false});
  require(drawing.size() == rect.size);
  std::uint32_t next = 0;
  for (const TextLine& line : drawing.layout().lines()) {
    require(line.firstCluster == next && line.endVisibleCluster <= line.endCluster);
    next = line.endCluster;
  }
  if (const auto canvas = engine().makeCanvas({64, 64}, 1)) drawing.draw(*canvas, {0, 0});
  return 0;
}
