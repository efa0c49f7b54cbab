// What the views that show text have in common: attributes for text without its own, and a text in one line.
#pragma once

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

/// Null where there is no text, as below: what is made of no text is none.
using AttributedText = std::shared_ptr<const NSAttributedString>;

/// What the port sets in the place of a font that nobody has chosen.
std::shared_ptr<const UIFont> substituteFont(CGFloat pointSize);

/// The characters alone.
std::optional<std::string> charactersOf(const AttributedText& text);

/// Characters with the same attributes throughout.
AttributedText textWithAttributes(const std::optional<std::string>& characters, const Dictionary& attributes);

/// A text as it is now, which nobody can change.
AttributedText copyOf(const AttributedText& text);

/// The text with these attributes wherever it has none of the same name.
AttributedText withDefaults(const AttributedText& text, const Dictionary& attributes);

/// The text with this attribute throughout; with none of the name for a null value.
AttributedText withAttribute(const AttributedText& text, std::string_view name, const Value& value);

/// The text, or attributes, in this alignment throughout, the paragraph styles else being as they were.
AttributedText withAlignment(const AttributedText& text, NSTextAlignment alignment);
Dictionary withAlignment(const Dictionary& attributes, NSTextAlignment alignment);

/// The paragraph style among attributes; the default one where there is none.
std::shared_ptr<const NSParagraphStyle> paragraphStyleOf(const Dictionary& attributes);

/// A text in one line, in the middle of whatever height it is given, its tail truncated where it is too wide. Laid out
/// when first asked for.
class OneLine {
 public:
  /// An empty text is as high as one in these attributes would be.
  OneLine(const AttributedText& text, const Dictionary& defaults);

  /// Of the whole text, in points.
  CGSize size() const { return whole().size(); }
  FirstBaseline firstBaseline() const;
  void draw(Canvas& canvas, const CGRect& room) const;

 private:
  const TextDrawing& whole() const;

  AttributedText text_;
  mutable std::optional<TextDrawing> whole_;
  mutable std::optional<TextDrawing> fitted_;
  mutable CGFloat fittedWidth_ = 0;
};

}  // namespace Brisel::Platform::internal
