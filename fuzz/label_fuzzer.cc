// Any text with any attributes in a label of any size, in all its modes: nothing crashes, hangs or leaks, a size is a
// number and not negative, no more lines are drawn than are allowed, and fixing the fonts changes nothing but these and
// changes nothing twice.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "brisel/platform/font.h"
#include "brisel/platform/font_descriptor.h"
#include "brisel/platform/paragraph_style.h"
#include "brisel/platform/port.h"
#include "brisel/platform/views/label.h"
#include "brisel/platform/views/text_drawing.h"

#include "fuzz/bundle_fonts.h"
#include "fuzz/input.h"

using namespace Brisel::Platform;
using Brisel::Fuzz::registerBundleFonts;
using Brisel::Fuzz::require;
using Brisel::Fuzz::Source;

namespace {

// Mostly a plain number, else any bits at all.
CGFloat takeNumber(Source& source) {
  const auto kind = source.take<std::uint8_t>();
  return kind % 4 != 0 ? source.take<std::uint8_t>() : source.take<double>();
}

std::shared_ptr<const UIFont> takeFont(Source& source) {
  constexpr const char* kNames[] = {"Tondal-Book", "TondalTitle-Black", "TondalArab-Bold", "Missing-Bold"};
  const auto kind = source.take<std::uint8_t>();
  const CGFloat size = takeNumber(source);
  auto descriptor = UIFontDescriptor::fontDescriptorWithName(kNames[kind % 4], size);
  if (kind & 4) {
    const List cascade{Value(UIFontDescriptor::fontDescriptorWithName("TondalArab-Book", 1)),
                       Value(UIFontDescriptor::fontDescriptorWithName("TondalHebr-Book", 1))};
    descriptor = descriptor->fontDescriptorByAddingAttributes({{UIFontDescriptorCascadeListAttribute, cascade}});
  }
  return UIFont::fontWithDescriptor(descriptor, size);
}

std::shared_ptr<const NSParagraphStyle> takeParagraphStyle(Source& source) {
  const auto style = NSMutableParagraphStyle::init();
  style->setAlignment(static_cast<NSTextAlignment>(source.below(5)));
  style->setLineBreakMode(static_cast<NSLineBreakMode>(source.below(6)));
  style->setBaseWritingDirection(static_cast<WritingDirection>(source.below(3)));
  style->setLineSpacing(takeNumber(source));
  style->setMaximumLineHeight(takeNumber(source));
  return style;
}

void fix(NSMutableAttributedString& text) {
  const auto before = text.copy();
  text.fixAttributesInRange({0, text.length()});
  require(text.string() == before->string());
  const auto once = text.copy();
  text.fixAttributesInRange({0, text.length()});
  require(text.isEqual(*once));
}

bool isSize(CGSize size) { return size.width >= 0 && size.height >= 0; }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool isReady = (registerBundleFonts(), true);
  (void)isReady;
  Source source(data, size);
  const CGSize frame{takeNumber(source), takeNumber(source)};
  const auto label = UILabel::initWithFrame({{}, frame});
  const auto flags = source.take<std::uint8_t>();
  label->setNumberOfLines(flags & 1 ? source.take<std::int64_t>() : source.below(5));
  label->setLineBreakMode(static_cast<NSLineBreakMode>(source.below(6)));
  label->setAdjustsFontSizeToFitWidth((flags & 2) != 0);
  if (flags & 4) label->setMinimumScaleFactor(takeNumber(source) / 255);
  if (flags & 8) label->setPreferredMaxLayoutWidth(takeNumber(source));
  label->setSemanticContentAttribute(static_cast<UISemanticContentAttribute>(source.below(3)));
  label->setFont(takeFont(source));

  const Dictionary first{{NSFontAttributeName, takeFont(source)},
                         {NSParagraphStyleAttributeName, takeParagraphStyle(source)},
                         {NSKernAttributeName, takeNumber(source)}};
  const Dictionary second{{NSBaselineOffsetAttributeName, takeNumber(source)}};
  const auto cut = source.take<std::uint8_t>();
  const auto text = NSMutableAttributedString::initWithString(source.rest(), first);
  const std::size_t location = cut % (text->length() + 1);
  text->setAttributes(second, {location, text->length() - location});
  if (flags & 16) fix(*text);
  if (flags & 32) {
    label->setText(text->string());
  } else {
    label->setAttributedText(text);
  }

  require(label->text() == text->string());
  require(isSize(label->intrinsicContentSize()));
  require(isSize(label->sizeThatFits(frame)));
  if (flags & 64) label->setFont(takeFont(source));
  require(label->firstBaseline().fractionOfHeight == 0.5);
  if (const auto canvas = engine().makeCanvas({64, 64}, 1)) label->drawHierarchy(*canvas, {0, 0});

  const auto shown = label->attributedText();
  const TextSpans spans(*shown);
  TextLayout::Options options{.width = frame.width};
  options.limits.emplace();
  options.limits->lines = flags % 4U;
  options.limits->height = frame.height;
  options.limits->ellipsis = [&](std::uint32_t unit) { return shapeEllipsis(spans, unit); };
  const TextLayout layout(shape(*shown, spans), spans.sizes, spans.paragraphs, options);
  require(layout.lines().size() <= std::max(1U, flags % 4U));
  const CGFloat room = frame.width > 0 ? frame.width : 0;
  for (const TextLine& line : layout.lines()) require(line.width <= room + 1e-6 || line.isCut);
  return 0;
}
