// Shaped text set into lines: the one measure behind bounding rectangles, labels, drawing and fitting.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "brisel/platform/engine.h"
#include "brisel/platform/paragraph_style.h"
#include "brisel/platform/shaped_text.h"

namespace Brisel::Platform {

/// The sizes of a stretch of text, which ends before the UTF-16 code unit `end`.
struct TextSizeSpan {
  std::uint32_t end = 0;       ///< UTF-16 code units
  CGFloat pointSize = 0;       ///< points
  CGFloat kern = 0;            ///< points, added to each cluster's advance
  CGFloat baselineOffset = 0;  ///< points, upwards
  FontMetrics metrics;         ///< of the stretch's own typeface, in ems; a line is never lower
};

/// The style of the paragraphs that begin before the UTF-16 code unit `end`.
struct ParagraphSpan {
  std::uint32_t end = 0;                          ///< UTF-16 code units
  std::shared_ptr<const NSParagraphStyle> style;  ///< null: the default one
};

/// The colours of a stretch of text. Null: nothing is drawn behind, black is drawn with.
struct PaintSpan {
  std::uint32_t end = 0;  ///< UTF-16 code units
  ColorPtr foreground;    ///< of the glyphs
  ColorPtr background;    ///< behind them
};

/// One line. Distances are points.
struct TextLine {
  std::uint32_t firstCluster = 0;                        ///< index into ShapedText::clusters
  std::uint32_t endCluster = 0;                          ///< with the white space that it ends in
  std::uint32_t endVisibleCluster = 0;                   ///< without
  CGFloat x = 0;                                         ///< of its left end
  CGFloat baseline = 0;                                  ///< from the top of the text
  CGFloat width = 0;                                     ///< without trailing white space
  CGFloat ascent = 0;                                    ///< above the baseline
  CGFloat descent = 0;                                   ///< below the baseline, positive
  CGFloat leading = 0;                                   ///< below the descent, where the fonts' leading counts
  CGFloat extraPerSpace = 0;                             ///< what justification adds to each space
  bool endsParagraph = false;                            ///< the next one begins a paragraph, or there is none
  bool isCut = false;                                    ///< wider than there is room, and drawn only as far as that
  NSTextAlignment alignment = NSTextAlignment::natural;  ///< of its paragraph
  bool isRightToLeft = false;                            ///< its paragraph is
};

/// Where the last line leaves text out, and what stands there instead.
struct TextOmission {
  std::uint32_t resumingCluster = 0;           ///< from which on the line shows text again …
  std::uint32_t endCluster = 0;                ///< … and up to which
  std::uint32_t neighbour = 0;                 ///< the cluster whose size and colours the ellipsis takes
  std::shared_ptr<const ShapedText> ellipsis;  ///< null: none
  CGFloat width = 0;                           ///< of the ellipsis, points
  std::uint8_t level = 0;                      ///< the bidirectional embedding level of the ellipsis
};

/// How much of a text is shown. Every line-break mode wraps then; text beyond the last line is left out there, as the
/// mode of that line's paragraph says: behind its last word or character, cut at the edge, or replaced by an ellipsis
/// where the head, the middle or the tail of what is left of the text would stand. What is too wide or too high by no
/// more than rounding fits.
struct TextLimits {
  std::size_t lines = std::numeric_limits<std::size_t>::max();  ///< 0 counts as 1
  /// How high the text may be, in points: as many whole lines as fit, but at least one.
  CGFloat height = std::numeric_limits<CGFloat>::infinity();
  /// Shapes an ellipsis like the text at a code unit; may be empty, or answer null, for no ellipsis.
  std::function<std::shared_ptr<const ShapedText>(std::uint32_t unit)> ellipsis;
};

/// Lines of a shaped text at given sizes and a given width. Immutable; may be shared between threads.
///
/// Lines are filled greedily. A word that is wider than the line is torn between its clusters; without limits, the
/// clipping and truncating modes do not wrap. Within a line every cluster adds (advance × size + kern), in the order of
/// the text, so that a width is the same wherever it is measured. Heights are sums of the faces' own heights, nothing
/// is rounded.
class TextLayout {
 public:
  /// In what room, and how large, a text is set.
  struct Options {
    CGFloat width = std::numeric_limits<CGFloat>::infinity();  ///< points; what is not above 0 counts as no room at all
    bool usesFontLeading = true;                               ///< whether the fonts' leading is part of the lines
    CGFloat scale = 1;                                ///< by which all sizes and distances of the text are multiplied
    std::optional<TextLimits> limits = std::nullopt;  ///< absent: all of the text is shown
  };

  /// `sizes` and `paragraphs` ascend and end with the text. Sizes that are negative or not finite count as 0.
  TextLayout(std::shared_ptr<const ShapedText> text, std::span<const TextSizeSpan> sizes,
             std::span<const ParagraphSpan> paragraphs, const Options& options);

  /// The width of the widest line and the height of all; nothing for an empty text.
  CGSize size() const noexcept { return size_; }
  /// From the top.
  std::span<const TextLine> lines() const noexcept { return lines_; }
  /// Whether text is left out or cut off.
  bool isTruncated() const noexcept { return isTruncated_; }
  /// Whether a line ends within a word, for want of room.
  bool tearsWords() const noexcept { return tearsWords_; }
  /// What the last line leaves out by truncating; null where it does not.
  const TextOmission* omission() const noexcept { return omission_ ? &*omission_ : nullptr; }
  /// The first line's baseline, from the top.
  CGFloat firstBaseline() const noexcept { return lines_.empty() ? 0 : lines_.front().baseline; }

  /// Draws the text with its upper left corner at `at`. Lines that are aligned to a side are aligned in the width that
  /// the text was laid out in, or its own width where that is unbounded. `paints` ascend; text behind the last is
  /// black.
  void draw(Canvas& canvas, CGPoint at, std::span<const PaintSpan> paints) const;

 private:
  class Filler;

  std::shared_ptr<const ShapedText> text_;
  std::vector<TextSizeSpan> sizes_;
  std::vector<TextLine> lines_;
  std::optional<TextOmission> omission_;
  CGSize size_;
  CGFloat room_ = 0;  // what cut lines are cut to
  bool isTruncated_ = false;
  bool tearsWords_ = false;
};

}  // namespace Brisel::Platform
