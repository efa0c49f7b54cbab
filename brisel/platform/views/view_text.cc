#include "brisel/platform/views/view_text.h"

#include <cmath>
#include <limits>

#include "brisel/platform/font_descriptor.h"
#include "brisel/platform/internal/attribute.h"
#include "brisel/platform/internal/distance.h"
#include "brisel/platform/screen.h"

namespace Brisel::Platform::internal {
namespace {

// The text with other attributes: `change` answers those of each part.
template <class Change>
AttributedText changed(const AttributedText& text, const Change& change) {
  if (!text) return nullptr;
  auto result = text->mutableCopy();
  result->changeAttributesInRange({0, result->length()},
                                  [&](NSRange, const Dictionary& attributes) { return change(attributes); });
  return result;
}

// The text; or in the place of an empty one a space, which has a height and no visible width.
AttributedText orSpace(const AttributedText& text) {
  return text && text->length() > 0 ? text : NSAttributedString::initWithString(" ");
}

CGFloat roundedUp(CGFloat points, CGFloat scale) {
  constexpr CGFloat kRounding = 1e-6;  // What rounding has left above a pixel does not count.
  if (!(points > 0)) return 0;
  const CGFloat rounded = std::ceil(points * scale - kRounding) / scale;
  return std::isfinite(rounded) ? rounded : points;
}

}  // namespace

std::shared_ptr<const UIFont> substituteFont(CGFloat pointSize) {
  return UIFont::fontWithDescriptor(UIFontDescriptor::fontDescriptorWithName({}, pointSize), pointSize);
}

std::optional<std::string> charactersOf(const AttributedText& text) {
  return text ? std::optional(text->string()) : std::nullopt;
}

AttributedText textWithAttributes(const std::optional<std::string>& characters, const Dictionary& attributes) {
  return characters ? NSAttributedString::initWithString(*characters, attributes) : nullptr;
}

AttributedText copyOf(const AttributedText& text) { return text ? text->copy() : nullptr; }

AttributedText withAttribute(const AttributedText& text, std::string_view name, const Value& value) {
  return changed(
      text, [&](const Dictionary& own) { return value.isNull() ? own.without(name) : own.with(Value(name), value); });
}

AttributedText withAlignment(const AttributedText& text, NSTextAlignment alignment) {
  return changed(text, [&](const Dictionary& own) { return withAlignment(own, alignment); });
}

Dictionary withAlignment(const Dictionary& attributes, NSTextAlignment alignment) {
  const auto style = paragraphStyleOf(attributes)->mutableCopy();
  style->setAlignment(alignment);
  return attributes.with(Value(NSParagraphStyleAttributeName), Value(style->copy()));
}

std::shared_ptr<const NSParagraphStyle> paragraphStyleOf(const Dictionary& attributes) {
  const auto style = attribute<NSParagraphStyle>(attributes, NSParagraphStyleAttributeName);
  return style ? style : NSParagraphStyle::defaultParagraphStyle();
}

UIEdgeInsets finite(const UIEdgeInsets& insets) noexcept {
  return {finite(insets.top), finite(insets.left), finite(insets.bottom), finite(insets.right)};
}

CGSize roundedUpToPixels(CGSize size) {
  const CGFloat scale = UIScreen::mainScreen().scale();
  return {roundedUp(size.width, scale), roundedUp(size.height, scale)};
}

ShownText::ShownText(const AttributedText& text, const TextDefaults& defaults, UIUserInterfaceLayoutDirection direction,
                     Lines lines)
    : text_(orSpace(text)),
      direction_(direction),
      lines_(lines),
      spans_(*text_, defaults),
      shaped_(shape(*text_, spans_, direction)) {
  if (lines == Lines::all) return;
  for (ParagraphSpan& paragraph : spans_.paragraphs) {
    const auto style = (paragraph.style ? *paragraph.style : *NSParagraphStyle::defaultParagraphStyle()).mutableCopy();
    style->setLineBreakMode(NSLineBreakMode::byTruncatingTail);
    paragraph.style = style;
  }
}

const TextLayout& ShownText::whole() const {
  if (!whole_) whole_.emplace(layOut(std::numeric_limits<CGFloat>::infinity()));
  return *whole_;
}

const TextLayout& ShownText::atWidth(CGFloat width) const {
  if (!fitted_ || width_ != width) {
    fitted_.emplace(layOut(width));
    width_ = width;
  }
  return *fitted_;
}

TextLayout ShownText::layOut(CGFloat width) const {
  TextLayout::Options options{.width = width};
  if (lines_ == Lines::one) {
    options.limits.emplace();
    options.limits->lines = 1;
    options.limits->ellipsis = [this](std::uint32_t unit) { return shapeEllipsis(spans_, unit); };
  }
  return TextLayout(shaped_, spans_.sizes, spans_.paragraphs, options);
}

FirstBaseline ShownText::middleBaseline() const { return {0.5, whole().firstBaseline() - whole().size().height / 2}; }

void ShownText::drawInMiddle(Canvas& canvas, const CGRect& rect) const {
  if (!(rect.size.width > 0 && rect.size.height > 0)) return;
  const TextLayout& layout = atWidth(rect.size.width);
  // Where the baseline of the whole text is: what is left out may have been higher than the rest.
  const auto [fraction, offset] = middleBaseline();
  const CGFloat baseline = rect.size.height * fraction + offset;
  draw(canvas, {rect.origin.x, rect.origin.y + baseline - layout.firstBaseline()}, layout);
}

}  // namespace Brisel::Platform::internal
