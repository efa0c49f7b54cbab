#include "brisel/platform/font_descriptor.h"
#include "brisel/platform/views/view_text.h"

namespace Brisel::Platform::internal {
namespace {

// The text with other attributes: `change` answers those of each part.
template <class Change>
AttributedText changed(const AttributedText& text, const Change& change) {
  if (!text) return nullptr;
  auto result = text->mutableCopy();
  for (const AttributeRun& run : text->attributeRuns()) result->setAttributes(change(run.attributes), run.range);
  return result;
}

template <class Change>
Dictionary withParagraphStyle(const Dictionary& attributes, const Change& change) {
  const auto style = paragraphStyleOf(attributes)->mutableCopy();
  change(*style);
  return attributes.with(Value(NSParagraphStyleAttributeName), Value(style->copy()));
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

AttributedText withDefaults(const AttributedText& text, const Dictionary& attributes) {
  return changed(text, [&](const Dictionary& own) { return attributes.mergedWith(own); });
}

AttributedText withAttribute(const AttributedText& text, std::string_view name, const Value& value) {
  return changed(
      text, [&](const Dictionary& own) { return value.isNull() ? own.without(name) : own.with(Value(name), value); });
}

AttributedText withAlignment(const AttributedText& text, NSTextAlignment alignment) {
  return changed(text, [&](const Dictionary& own) { return withAlignment(own, alignment); });
}

Dictionary withAlignment(const Dictionary& attributes, NSTextAlignment alignment) {
  return withParagraphStyle(attributes, [&](NSMutableParagraphStyle& style) { style.setAlignment(alignment); });
}

std::shared_ptr<const NSParagraphStyle> paragraphStyleOf(const Dictionary& attributes) {
  const Value* value = attributes.find(NSParagraphStyleAttributeName);
  const auto style = value ? value->as<NSParagraphStyle>() : nullptr;
  return style ? style : NSParagraphStyle::defaultParagraphStyle();
}

OneLine::OneLine(const AttributedText& text, const Dictionary& defaults) {
  const bool isEmpty = !text || text->length() == 0;
  const auto whole = isEmpty ? NSAttributedString::initWithString(" ", defaults) : withDefaults(text, defaults);
  // Whatever the text's own mode is: that of a styled text wraps.
  text_ = changed(whole, [](const Dictionary& own) {
    return withParagraphStyle(own, [](auto& style) { style.setLineBreakMode(NSLineBreakMode::byClipping); });
  });
}

const TextDrawing& OneLine::whole() const {
  if (!whole_) whole_.emplace(*text_);
  return *whole_;
}

FirstBaseline OneLine::firstBaseline() const {
  return {0.5, whole().layout().firstBaseline() - whole().size().height / 2};
}

void OneLine::draw(Canvas& canvas, const CGRect& room) const {
  if (!fitted_ || fittedWidth_ != room.size.width) {
    fitted_.emplace(*text_, TextLayout::Options{.width = room.size.width});
    fittedWidth_ = room.size.width;
  }
  // Where the baseline of the whole text is: what is left out may have been higher than the rest.
  const auto [fraction, offset] = firstBaseline();
  const CGFloat baseline = room.size.height * fraction + offset;
  fitted_->draw(canvas, {room.origin.x, room.origin.y + baseline - fitted_->layout().firstBaseline()});
}

}  // namespace Brisel::Platform::internal
