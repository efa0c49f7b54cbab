// How high a text is at least, and at most, over a range of sizes: certain, and found without laying it out.
#pragma once

#include <cstdint>
#include <limits>
#include <vector>

#include "brisel/platform/paragraph_style.h"
#include "brisel/platform/shaped_text.h"

namespace Brisel::Platform {

/// The sizes between which a text is set, in points. None is negative but the kern.
struct TextSizeRange {
  CGFloat leastPointSize = 0;       ///< of all text
  CGFloat greatestPointSize = 0;    ///< of all text
  CGFloat leastKern = 0;            ///< added to each cluster's advance
  CGFloat greatestKern = 0;         ///< added to each cluster's advance
  CGFloat leastLineSpacing = 0;     ///< of the paragraph style
  CGFloat greatestLineSpacing = 0;  ///< of the paragraph style
};

/// Bounds of the height that `TextLayout` finds, leading included, for a text that is wrapped by words and has one
/// size, one kern and one paragraph style throughout, its line spacing aside. They allow for what the layout rounds.
/// Sums of advances are kept, so that the end of a line is found without looking at each of its clusters.
class TextHeightBounds {
 public:
  /// `metrics` is that of the text's own typeface. The text must scale linearly. A width that is not above 0 is none.
  TextHeightBounds(const ShapedText& text, const FontMetrics& metrics, CGFloat baselineOffset,
                   const NSParagraphStyle& style, CGFloat width);

  /// No layout in the range is lower; minus infinity where nothing is known. The search ends where the height is
  /// certainly above `enough`.
  CGFloat atLeast(const TextSizeRange& range, CGFloat enough = std::numeric_limits<CGFloat>::infinity()) const;
  /// No layout in the range is higher; infinity where nothing is known.
  CGFloat atMost(const TextSizeRange& range) const { return atMost(range, static_cast<CGFloat>(stretches_.size())); }
  /// The same for a text that goes on with more such paragraphs, each no higher than the highest of this one.
  CGFloat atMost(const TextSizeRange& range, CGFloat paragraphs) const;

 private:
  // One for each cluster, and one behind the last.
  struct Place {
    CGFloat advance = 0;            // of all clusters before, in ems
    std::uint32_t nextVisible = 0;  // the first cluster from here on that is no space
    std::uint32_t lastBreak = 0;    // the last cluster up to here before which a line may break
  };
  // What lies between two line endings.
  struct Stretch {
    std::uint32_t first = 0;
    std::uint32_t endVisible = 0;    // without the white space that it ends in
    std::uint32_t firstMetrics = 0;  // those of its faces in `metrics_`
    std::uint32_t endMetrics = 0;
    bool isParagraphStart = false;
  };
  // The part of a line's height that comes from faces.
  struct Extent {
    CGFloat ascent = 0;
    CGFloat descent = 0;
    CGFloat leading = 0;
  };
  enum class Side : std::uint8_t { least, greatest };

  void addStretch(const ShapedText& text, std::uint32_t first, std::uint32_t end);

  Extent extentOf(const FontMetrics& metrics, const TextSizeRange& range, Side side) const;
  static Extent joined(const Extent& a, const Extent& b);
  CGFloat heightOf(const Extent& extent) const;
  CGFloat highestLine(const Stretch& stretch, const Extent& own, const TextSizeRange& range, Side side) const;
  CGFloat magnitude(const TextSizeRange& range) const;
  CGFloat leastLines(const Stretch& stretch, const TextSizeRange& range, CGFloat most) const;
  CGFloat greatestLines(const Stretch& stretch, const TextSizeRange& range) const;
  CGFloat lines(const Stretch& stretch, CGFloat pointSize, CGFloat kern, CGFloat room, CGFloat most) const;
  bool advancesGrow(CGFloat pointSize, CGFloat kern) const;
  CGFloat doubtOfWidth(const TextSizeRange& range) const;

  std::vector<Place> places_;
  std::vector<Stretch> stretches_;
  std::vector<FontMetrics> metrics_;  // stretch by stretch, those of faces other than its own
  FontMetrics ownMetrics_;
  CGFloat leastAdvance_ = std::numeric_limits<CGFloat>::infinity();  // but of white space before a line ending, in ems
  CGFloat baselineOffset_;
  CGFloat width_;
  CGFloat lineHeightMultiple_;
  CGFloat minimumLineHeight_;
  CGFloat maximumLineHeight_;
  CGFloat paragraphSpacing_;
};

}  // namespace Brisel::Platform
