// What the views that show text have in common: changes of attributes, and a text as it is shown.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "brisel/platform/attributed_string.h"
#include "brisel/platform/font.h"
#include "brisel/platform/paragraph_style.h"
#include "brisel/platform/views/text_drawing.h"
#include "brisel/platform/views/view.h"

namespace Brisel::Platform::internal {

/// Null where there is no text; what is made of no text is none.
using AttributedText = std::shared_ptr<const NSAttributedString>;

/// What the port sets in the place of a font that nobody has chosen.
std::shared_ptr<const UIFont> substituteFont(CGFloat pointSize);

/// The characters alone.
std::optional<std::string> charactersOf(const AttributedText& text);

/// Characters with the same attributes throughout.
AttributedText textWithAttributes(const std::optional<std::string>& characters, const Dictionary& attributes);

/// A text as it is now, which nobody can change.
AttributedText copyOf(const AttributedText& text);

/// The text with this attribute throughout; with none of the name for a null value.
AttributedText withAttribute(const AttributedText& text, std::string_view name, const Value& value);

/// The text, or attributes, in this alignment throughout, the paragraph styles else being as they were.
AttributedText withAlignment(const AttributedText& text, NSTextAlignment alignment);
Dictionary withAlignment(const Dictionary& attributes, NSTextAlignment alignment);

/// The paragraph style among attributes; the default one where there is none.
std::shared_ptr<const NSParagraphStyle> paragraphStyleOf(const Dictionary& attributes);

/// 0 for distances that are not finite.
UIEdgeInsets finite(const UIEdgeInsets& insets) noexcept;

/// Up to whole pixels of the main screen, so that a frame on the pixel grid has room for it.
CGSize roundedUpToPixels(CGSize size);

/// A text as a view shows it: shaped when first asked for, and once for all widths.
class ShownText {
 public:
  /// One line truncates its tail, whatever the text's paragraph styles say.
  enum class Lines : std::uint8_t { one, all };

  /// No text, or an empty one, is as high as a line of it would be. Where a paragraph's letters do not tell its
  /// direction, it is the given one.
  ShownText(const AttributedText& text, const TextDefaults& defaults, UIUserInterfaceLayoutDirection direction,
            Lines lines);

  UIUserInterfaceLayoutDirection direction() const noexcept { return direction_; }

  /// Of all of the text without wrapping.
  const TextLayout& whole() const;
  const TextLayout& atWidth(CGFloat width) const;
  void draw(Canvas& canvas, CGPoint at, const TextLayout& layout) const { layout.draw(canvas, at, spans_.paints); }

  /// In one line, in the middle of a height: where the baseline is, and the drawing of it in a rectangle. Nothing is
  /// drawn in an empty one.
  FirstBaseline middleBaseline() const;
  void drawInMiddle(Canvas& canvas, const CGRect& rect) const;

 private:
  TextLayout layOut(CGFloat width) const;

  AttributedText text_;
  UIUserInterfaceLayoutDirection direction_;
  Lines lines_;
  TextSpans spans_;
  std::shared_ptr<const ShapedText> shaped_;
  mutable std::optional<TextLayout> whole_;
  mutable std::optional<TextLayout> fitted_;  // the last one, at this width
  mutable CGFloat width_ = 0;
};

}  // namespace Brisel::Platform::internal
