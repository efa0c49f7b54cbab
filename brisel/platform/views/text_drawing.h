// Attributed strings measured and drawn: from attributes to shaped text, lines and pixels.
#pragma once

#include <cstdint>
#include <memory>
#include <memory_resource>
#include <vector>

#include "brisel/platform/attributed_string.h"
#include "brisel/platform/engine.h"
#include "brisel/platform/font.h"
#include "brisel/platform/layout_direction.h"
#include "brisel/platform/text_layout.h"

namespace Brisel::Platform {

/// What text is set in where its attributes do not say. Null: the port's substitute at 12 points, black, the default
/// paragraph style.
struct TextDefaults {
  std::shared_ptr<const UIFont> font;                      ///< where there is no `NSFontAttributeName`
  ColorPtr color;                                          ///< where there is no `NSForegroundColorAttributeName`
  std::shared_ptr<const NSParagraphStyle> paragraphStyle;  ///< where there is no `NSParagraphStyleAttributeName`
};

/// What an attributed string asks of shaping, layout and painting, span by span. The paragraph style at a paragraph's
/// first character holds for all of it; the base direction at the text's first character holds for the text.
struct TextSpans {
  /// The spans of a text. The memory must outlive them; copies do not use it, but what they are moved to does.
  explicit TextSpans(const NSAttributedString& text, const TextDefaults& defaults = {},
                     std::pmr::memory_resource* memory = std::pmr::get_default_resource());

  std::pmr::vector<TypefaceSpan> typefaces;                ///< for shaping
  std::pmr::vector<TextSizeSpan> sizes;                    ///< for layout
  std::pmr::vector<ParagraphSpan> paragraphs;              ///< for layout
  std::pmr::vector<PaintSpan> paints;                      ///< for drawing
  WritingDirection direction = WritingDirection::natural;  ///< for shaping
};

/// Shapes a text. The result serves all sizes as long as it scales linearly (a change of size within the text parts
/// runs), all colours, and all kerning but the change between none and some, which parts ligatures. Paragraphs without
/// a letter that tells their direction run in the given one.
std::shared_ptr<const ShapedText> shape(const NSAttributedString& text, const TextSpans& spans,
                                        UIUserInterfaceLayoutDirection fallback = userInterfaceLayoutDirection());

/// The sign of omission, set like the text at a code unit: an ellipsis, or three full stops where the typeface has
/// none.
std::shared_ptr<const ShapedText> shapeEllipsis(const TextSpans& spans, std::uint32_t unit);

/// A text set into lines, with all that is needed to draw it.
class TextDrawing {
 public:
  /// Shapes a text and sets it into lines.
  explicit TextDrawing(const NSAttributedString& text, const TextLayout::Options& options = {});

  /// The lines.
  const TextLayout& layout() const noexcept { return layout_; }
  /// How large the text is, in points, not rounded.
  CGSize size() const noexcept { return layout_.size(); }
  /// Draws it, its upper left corner at the point.
  void draw(Canvas& canvas, CGPoint at) const { layout_.draw(canvas, at, spans_.paints); }

 private:
  TextSpans spans_;
  TextLayout layout_;
};

/// Options for measuring, to be combined with |.
enum NSStringDrawingOptions : unsigned {
  /// The rectangle's origin is the upper left corner, and lines wrap at the width; else it is the first baseline, and
  /// only line endings begin new lines.
  NSStringDrawingUsesLineFragmentOrigin = 1U << 0,
  /// The fonts' leading counts as part of the lines.
  NSStringDrawingUsesFontLeading = 1U << 1,
};

/// `boundingRectWithSize:options:context:`: the room that the text takes within the width of `size`, in points, not
/// rounded. Its height is not cut to that of `size`. Nothing for an empty text.
CGRect boundingRectWithSize(const NSAttributedString& text, CGSize size, unsigned options);

/// `drawInRect:`: draws the text into the rectangle's width, from its top. What is higher than the rectangle is drawn
/// all the same.
void drawInRect(const NSAttributedString& text, Canvas& canvas, const CGRect& rect);

/// `drawAtPoint:`: draws the text without wrapping, its upper left corner at the point.
void drawAtPoint(const NSAttributedString& text, Canvas& canvas, CGPoint point);

}  // namespace Brisel::Platform
