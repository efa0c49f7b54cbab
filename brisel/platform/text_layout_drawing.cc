#include <algorithm>
#include <cstdint>
#include <vector>

#include "brisel/platform/internal/text_spans.h"
#include "brisel/platform/text_layout.h"

namespace Brisel::Platform {

using internal::spanAt;

namespace {

// A part of a line that is drawn in one go: one run of a text (the line's own, or the ellipsis), one size, one paint.
struct Segment {
  const ShapedText* text;
  std::uint32_t firstCluster;
  std::uint32_t endCluster;
  std::uint32_t run;
  std::size_t size;
  std::size_t paint;
  std::uint8_t level;
};

// Collects the segments of one line after the other, in the order of the text.
class Segments {
 public:
  Segments(const ShapedText& text, std::span<const TextSizeSpan> sizes, std::span<const PaintSpan> paints)
      : text_(text), sizes_(sizes), paints_(paints) {}

  std::vector<Segment> of(const TextLine& line, const TextOmission* omission) {
    segments_.clear();
    add(line.firstCluster, line.endVisibleCluster);
    if (omission) {
      moveTo(omission->neighbour);
      if (omission->ellipsis) add(*omission->ellipsis, omission->level);
      add(omission->resumingCluster, omission->endCluster);
    }
    return segments_;
  }

 private:
  void add(std::uint32_t first, std::uint32_t end) {
    for (std::uint32_t i = first; i < end; ++i) {
      const std::uint32_t run = text_.clusters[i].run;
      moveTo(i);
      const bool continues = i > first && segments_.back().run == run && segments_.back().size == size_ &&
                             segments_.back().paint == paint_;
      if (continues) {
        segments_.back().endCluster = i + 1;
      } else {
        segments_.push_back({&text_, i, i + 1, run, size_, paint_, text_.runs[run].level});
      }
    }
  }

  void add(const ShapedText& ellipsis, std::uint8_t level) {
    for (std::uint32_t run = 0; run < ellipsis.runs.size(); ++run)
      segments_.push_back(
          {&ellipsis, ellipsis.runs[run].firstCluster, ellipsis.runs[run].endCluster, run, size_, paint_, level});
  }

  void moveTo(std::uint32_t cluster) {
    const std::uint32_t unit = text_.clusters[cluster].begin;
    size_ = spanAt(sizes_, size_, unit);
    while (paint_ < paints_.size() && paints_[paint_].end <= unit) ++paint_;
  }

  const ShapedText& text_;
  std::span<const TextSizeSpan> sizes_;
  std::span<const PaintSpan> paints_;
  std::size_t size_ = 0;
  std::size_t paint_ = 0;
  std::vector<Segment> segments_;
};

// From the order of the text to that of the eye: rule L2 of the Unicode Bidirectional Algorithm (UAX #9).
void reorder(std::vector<Segment>& segments) {
  std::uint8_t highest = 0;
  for (const Segment& segment : segments) highest = std::max(highest, segment.level);
  for (int level = highest; level > 0; --level) {
    const auto isDeep = [level](const Segment& segment) { return segment.level >= level; };
    for (auto first = segments.begin(); first != segments.end();) {
      first = std::find_if(first, segments.end(), isDeep);
      const auto end = std::find_if_not(first, segments.end(), isDeep);
      std::reverse(first, end);
      first = end;
    }
  }
}

// Places a segment's glyphs from `x` on, and moves `x` behind them.
void place(const Segment& segment, const TextLine& line, const TextSizeSpan& size, CGFloat baseline, CGFloat& x,
           std::vector<PositionedGlyph>& out) {
  const ShapedRun& run = segment.text->runs[segment.run];
  const bool isReversed = run.level % 2 == 1;
  const std::uint32_t count = segment.endCluster - segment.firstCluster;
  const auto isBefore = [&](const ShapedGlyph& glyph) {
    return isReversed ? glyph.cluster >= segment.endCluster : glyph.cluster < segment.firstCluster;
  };
  auto glyph = std::partition_point(run.glyphs.begin(), run.glyphs.end(), isBefore);
  for (std::uint32_t i = 0; i < count; ++i) {
    const std::uint32_t index = isReversed ? segment.endCluster - 1 - i : segment.firstCluster + i;
    const ShapedCluster& cluster = segment.text->clusters[index];
    const CGFloat gap = size.kern + (cluster.isSpace ? line.extraPerSpace : 0);
    CGFloat pen = isReversed ? x + gap : x;
    for (; glyph != run.glyphs.end() && glyph->cluster == index; ++glyph) {
      out.push_back(
          {glyph->id,
           {pen + glyph->xOffset * size.pointSize, baseline - size.baselineOffset - glyph->yOffset * size.pointSize}});
      pen += glyph->advance * size.pointSize;
    }
    x += cluster.advance * size.pointSize + gap;
  }
}

// What a cut line may be drawn in: as wide as there is room, and higher than the line, for letters that reach beyond
// it.
UIBezierPath cutOf(const TextLine& line, CGPoint at, CGFloat width) {
  const CGFloat height = line.ascent + line.descent;
  return UIBezierPath::bezierPathWithRect({{at.x, at.y + line.baseline - line.ascent - height}, {width, 3 * height}});
}

}  // namespace

void TextLayout::draw(Canvas& canvas, CGPoint at, std::span<const PaintSpan> paints) const {
  static constexpr UIColor kBlack = UIColor::grey(0, 1);
  if (lines_.empty()) return;
  std::vector<PositionedGlyph> glyphs;
  Segments segmentsOfLines(*text_, sizes_, paints);
  for (const TextLine& line : lines_) {
    std::vector<Segment> segments = segmentsOfLines.of(line, &line == &lines_.back() ? omission() : nullptr);
    reorder(segments);
    if (line.isCut) {
      canvas.save();
      canvas.clipToPath(cutOf(line, at, room_));
    }
    CGFloat x = at.x + line.x;
    for (const Segment& segment : segments) {
      const TextSizeSpan& size = sizes_[segment.size];
      const PaintSpan* paint = segment.paint < paints.size() ? &paints[segment.paint] : nullptr;
      const CGFloat left = x;
      glyphs.clear();
      place(segment, line, size, at.y + line.baseline, x, glyphs);
      if (paint && paint->background) {
        const CGRect behind{{left, at.y + line.baseline - line.ascent}, {x - left, line.ascent + line.descent}};
        canvas.fillRect(behind, *paint->background);
      }
      const Face& face = *segment.text->runs[segment.run].face;
      canvas.drawGlyphs(face, size.pointSize, glyphs, paint && paint->foreground ? *paint->foreground : kBlack);
    }
    if (line.isCut) canvas.restore();
  }
}

}  // namespace Brisel::Platform
