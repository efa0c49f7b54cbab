#include "brisel/platform/views/text_drawing.h"

#include <string>
#include <utility>

#include "brisel/platform/internal/text_spans.h"
#include "brisel/platform/port.h"

namespace Brisel::Platform {
namespace {

constexpr CGFloat kDefaultPointSize = 12;

// The attributes of a run that matter here, found in one walk: every restyled label looks for them.
struct Attributes {
  explicit Attributes(const Dictionary& attributes) {
    for (const auto& [key, value] : attributes) {
      const std::string* name = key.asString();
      if (!name) continue;
      if (*name == NSFontAttributeName)
        font = value.as<UIFont>();
      else if (*name == NSParagraphStyleAttributeName)
        paragraphStyle = value.as<NSParagraphStyle>();
      else if (*name == NSForegroundColorAttributeName)
        foreground = value.as<UIColor>();
      else if (*name == NSBackgroundColorAttributeName)
        background = value.as<UIColor>();
      else if (*name == NSKernAttributeName)
        kern = value.asDouble().value_or(0);
      else if (*name == NSBaselineOffsetAttributeName)
        baselineOffset = value.asDouble().value_or(0);
    }
  }

  std::shared_ptr<const UIFont> font;
  std::shared_ptr<const NSParagraphStyle> paragraphStyle;
  ColorPtr foreground;
  ColorPtr background;
  CGFloat kern = 0;
  CGFloat baselineOffset = 0;
};

}  // namespace

TextSpans::TextSpans(const NSAttributedString& text, const TextDefaults& defaults, std::pmr::memory_resource* memory)
    : typefaces(memory), sizes(memory), paragraphs(memory), paints(memory) {
  const std::size_t count = text.attributeRuns().size();
  typefaces.reserve(count);
  sizes.reserve(count);
  paragraphs.reserve(count);
  paints.reserve(count);
  for (const AttributeRun& run : text.attributeRuns()) {
    Attributes attributes(run.attributes);
    const auto end = static_cast<std::uint32_t>(run.range.end());
    const auto& font = attributes.font ? attributes.font : defaults.font;
    auto typeface = font ? font->typeface() : engine().typeface({});
    const CGFloat pointSize = font ? font->pointSize() : kDefaultPointSize;
    const CGFloat kern = attributes.kern;

    sizes.push_back({end, pointSize, kern, attributes.baselineOffset, typeface->metrics()});
    // Equal neighbours are shaped together, so that a change of colour does not part a ligature.
    const bool shapesOn = !typefaces.empty() && typefaces.back().typeface == typeface &&
                          typefaces.back().pointSize == pointSize && typefaces.back().usesLigatures == (kern == 0);
    if (shapesOn) {
      typefaces.back().end = end;
    } else {
      typefaces.push_back({end, std::move(typeface), pointSize, kern == 0});
    }
    if (!attributes.paragraphStyle) attributes.paragraphStyle = defaults.paragraphStyle;
    if (!attributes.foreground) attributes.foreground = defaults.color;
    paragraphs.push_back({end, std::move(attributes.paragraphStyle)});
    paints.push_back({end, std::move(attributes.foreground), std::move(attributes.background)});
  }
  if (!paragraphs.empty() && paragraphs.front().style) direction = paragraphs.front().style->baseWritingDirection();
}

std::shared_ptr<const ShapedText> shape(const NSAttributedString& text, const TextSpans& spans,
                                        UIUserInterfaceLayoutDirection fallback) {
  ShapeRequest request;
  request.text = text.utf16();
  request.typefaces = spans.typefaces;
  request.direction = spans.direction;
  request.naturalFallbackIsRightToLeft = fallback == UIUserInterfaceLayoutDirection::rightToLeft;
  return engine().shape(request);
}

std::shared_ptr<const ShapedText> shapeEllipsis(const TextSpans& spans, std::uint32_t unit) {
  if (spans.typefaces.empty()) return nullptr;
  TypefaceSpan span = spans.typefaces[internal::spanAt<TypefaceSpan>(spans.typefaces, 0, unit)];
  ShapeRequest request;
  request.text = span.typeface->hasCharacter(U'\u2026') ? u"\u2026" : u"...";
  span.end = static_cast<std::uint32_t>(request.text.size());
  request.typefaces = {&span, 1};
  return engine().shape(request);
}

TextDrawing::TextDrawing(const NSAttributedString& text, const TextLayout::Options& options)
    : spans_(text), layout_(shape(text, spans_), spans_.sizes, spans_.paragraphs, options) {}

CGRect boundingRectWithSize(const NSAttributedString& text, CGSize size, unsigned options) {
  TextLayout::Options layoutOptions;
  const bool usesLineFragmentOrigin = (options & NSStringDrawingUsesLineFragmentOrigin) != 0;
  if (usesLineFragmentOrigin) layoutOptions.width = size.width;
  layoutOptions.usesFontLeading = (options & NSStringDrawingUsesFontLeading) != 0;
  const TextDrawing drawing(text, layoutOptions);
  const CGFloat top = usesLineFragmentOrigin ? 0 : -drawing.layout().firstBaseline();
  return {{0, top}, drawing.size()};
}

void drawInRect(const NSAttributedString& text, Canvas& canvas, const CGRect& rect) {
  TextDrawing(text, {.width = rect.size.width}).draw(canvas, rect.origin);
}

void drawAtPoint(const NSAttributedString& text, Canvas& canvas, CGPoint point) {
  TextDrawing(text).draw(canvas, point);
}

}  // namespace Brisel::Platform
