#include "brisel/platform/views/internal/label_state.h"

#include "brisel/platform/internal/attribute.h"
#include "brisel/platform/port.h"
#include "brisel/platform/views/view_text.h"

namespace Brisel::Platform::internal {
namespace {

constexpr CGFloat kDefaultPointSize = 17;

std::shared_ptr<const NSParagraphStyle> paragraphStyleOf(NSTextAlignment alignment, NSLineBreakMode lineBreakMode) {
  const auto style = NSMutableParagraphStyle::init();
  style->setAlignment(alignment);
  style->setLineBreakMode(lineBreakMode);
  return style->copy();
}

}  // namespace

const std::shared_ptr<const UIFont>& LabelState::ownFont() {
  if (font) return font;
  const std::uint64_t generation = engine().generation();
  if (!substituteFont || substituteGeneration != generation) {
    substituteFont = internal::substituteFont(kDefaultPointSize);
    substituteGeneration = generation;
  }
  return substituteFont;
}

const std::shared_ptr<const NSParagraphStyle>& LabelState::ownParagraphStyle() {
  if (textAlignment == kTextAlignment && lineBreakMode == kLineBreakMode) {
    // Never destroyed: text may be laid out as late as in an exit handler.
    static const auto& ofMostLabels = *new std::shared_ptr(paragraphStyleOf(kTextAlignment, kLineBreakMode));
    return ofMostLabels;
  }
  if (!paragraphStyle) paragraphStyle = paragraphStyleOf(textAlignment, lineBreakMode);
  return paragraphStyle;
}

const std::shared_ptr<const NSAttributedString>& LabelState::currentText() {
  if (!text || isPlain || !hasNewerAttributes()) return text;
  const auto changed = text->mutableCopy();
  const NSRange all{0, changed->length()};
  if (fontIsNewer) changed->addAttribute(NSFontAttributeName, Value(ownFont()), all);
  if (colorIsNewer && textColor) changed->addAttribute(NSForegroundColorAttributeName, Value(textColor), all);
  if (colorIsNewer && !textColor) changed->removeAttribute(NSForegroundColorAttributeName, all);
  if (alignmentIsNewer || lineBreakModeIsNewer) {
    changed->changeAttributesInRange(all, [&](NSRange, const Dictionary& attributes) {
      const auto old = internal::attribute<NSParagraphStyle>(attributes, NSParagraphStyleAttributeName);
      const auto style = (old ? *old : *ownParagraphStyle()).mutableCopy();
      if (alignmentIsNewer) style->setAlignment(textAlignment);
      if (lineBreakModeIsNewer) style->setLineBreakMode(lineBreakMode);
      return attributes.with(Value(NSParagraphStyleAttributeName), Value(style));
    });
  }
  setText(changed->copy(), false);
  return text;
}

}  // namespace Brisel::Platform::internal
