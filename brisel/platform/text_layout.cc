#include "brisel/platform/text_layout.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Brisel::Platform {
namespace {

CGFloat distance(CGFloat value) { return std::isfinite(value) && value > 0 ? value : 0; }

CGFloat finite(CGFloat value) { return std::isfinite(value) ? value : 0; }

bool wraps(NSLineBreakMode mode) {
  return mode == NSLineBreakMode::byWordWrapping || mode == NSLineBreakMode::byCharWrapping;
}

// Walks along spans as the text advances.
template <class Span>
std::size_t spanAt(std::span<const Span> spans, std::size_t from, std::uint32_t unit) {
  while (from + 1 < spans.size() && spans[from].end <= unit) ++from;
  return from;
}

enum class Side : std::uint8_t { left, center, right };

Side sideOf(NSTextAlignment alignment, bool isRightToLeft) {
  switch (alignment) {
    case NSTextAlignment::left:
      return Side::left;
    case NSTextAlignment::center:
      return Side::center;
    case NSTextAlignment::right:
      return Side::right;
    case NSTextAlignment::justified:
    case NSTextAlignment::natural:
      break;
  }
  return isRightToLeft ? Side::right : Side::left;
}

}  // namespace

// Fills the lines, from the first to the last.
class TextLayout::Filler {
 public:
  Filler(TextLayout& layout, std::span<const ParagraphSpan> paragraphs, const Options& options)
      : layout_(layout),
        clusters_(layout.text_->clusters),
        runs_(layout.text_->runs),
        sizes_(layout.sizes_),
        paragraphs_(paragraphs),
        options_(options) {}

  void fill() {
    const auto count = static_cast<std::uint32_t>(clusters_.size());
    std::vector<Placement> placements;
    for (std::uint32_t first = 0; first < count;) {
      if (clusters_[first].isParagraphStart || first == 0) beginParagraph(first);
      TextLine line = fillLine(first);
      line.endsParagraph = line.endCluster == count || clusters_[line.endCluster].isParagraphStart;
      measureHeight(line, first, line.endCluster);
      add(line, placements, clusters_[first].paragraphIsRightToLeft);
      first = line.endCluster;
    }
    if (layout_.text_->endsWithLineBreak && count > 0) addEmptyLine(count, placements);
    layout_.size_.height = bottom_;
    align(placements);
  }

 private:
  struct Placement {
    NSTextAlignment alignment;
    bool isRightToLeft;
  };

  void beginParagraph(std::uint32_t cluster) {
    paragraph_ = spanAt(paragraphs_, paragraph_, clusters_[cluster].begin);
    style_ = paragraphs_.empty() ? nullptr : paragraphs_[paragraph_].style;
    if (!style_) style_ = NSParagraphStyle::defaultParagraphStyle();
  }

  // Takes clusters as long as they fit; then goes back to the last place where the line may end.
  TextLine fillLine(std::uint32_t first) {
    const auto count = static_cast<std::uint32_t>(clusters_.size());
    const bool mayWrap = wraps(style_->lineBreakMode());
    const bool breaksAnywhere = style_->lineBreakMode() == NSLineBreakMode::byCharWrapping;
    TextLine line;
    line.firstCluster = line.endVisibleCluster = first;
    TextLine lineAtBreak = line;
    CGFloat width = 0;
    std::size_t size = firstSize_;
    for (std::uint32_t i = first; i < count; ++i) {
      const ShapedCluster& cluster = clusters_[i];
      if (i > first) {
        if (cluster.breakBefore == ShapedCluster::Break::required) {
          line.endCluster = i;
          return line;
        }
        if (breaksAnywhere || cluster.breakBefore == ShapedCluster::Break::allowed) {
          lineAtBreak = line;
          lineAtBreak.endCluster = i;
        }
      }
      size = spanAt<TextSizeSpan>(sizes_, size, cluster.begin);
      const CGFloat advance = cluster.advance * sizes_[size].pointSize + sizes_[size].kern;
      if (mayWrap && !cluster.isSpace && i > first && width + advance > options_.width) {
        if (lineAtBreak.endCluster > first) return lineAtBreak;
        line.endCluster = i;
        return line;
      }
      width += advance;
      if (!cluster.isSpace) {
        line.width = width;
        line.endVisibleCluster = i + 1;
      }
    }
    line.endCluster = count;
    return line;
  }

  void measureHeight(TextLine& line, std::uint32_t first, std::uint32_t end) {
    std::size_t size = firstSize_;
    std::uint32_t run = 0;
    for (std::uint32_t i = first; i < end; ++i) {
      const std::size_t sizeHere = spanAt<TextSizeSpan>(sizes_, size, clusters_[i].begin);
      if (i == first || sizeHere != size || clusters_[i].run != run) {
        size = sizeHere;
        run = clusters_[i].run;
        raise(line, sizes_[size].metrics, sizes_[size]);
        raise(line, runs_[run].metrics, sizes_[size]);
      }
    }
    firstSize_ = size;
    applyRules(line);
  }

  void raise(TextLine& line, const FontMetrics& metrics, const TextSizeSpan& size) {
    line.ascent = std::max(line.ascent, metrics.ascender * size.pointSize + size.baselineOffset);
    line.descent = std::max(line.descent, -metrics.descender * size.pointSize - size.baselineOffset);
    if (options_.usesFontLeading) line.leading = std::max(line.leading, metrics.leading * size.pointSize);
  }

  // What the paragraph asks for beyond the faces' own height is put above the text.
  void applyRules(TextLine& line) const {
    const CGFloat own = line.ascent + line.descent;
    CGFloat height = own;
    if (const CGFloat multiple = distance(style_->lineHeightMultiple()); multiple > 0) height *= multiple;
    height = std::max(height, distance(style_->minimumLineHeight()));
    if (const CGFloat maximum = distance(style_->maximumLineHeight()); maximum > 0) height = std::min(height, maximum);
    if (height != own) line.ascent += height - own;
  }

  void add(TextLine& line, std::vector<Placement>& placements, bool isRightToLeft) {
    if (!layout_.lines_.empty()) {
      bottom_ += spacing_;
      if (layout_.lines_.back().endsParagraph) bottom_ += paragraphSpacing_;
    }
    line.baseline = bottom_ + line.ascent;
    bottom_ = line.baseline + line.descent + line.leading;
    spacing_ = distance(style_->lineSpacing());
    paragraphSpacing_ = distance(style_->paragraphSpacing());
    layout_.size_.width = std::max(layout_.size_.width, line.width);
    layout_.lines_.push_back(line);
    placements.push_back({style_->alignment(), isRightToLeft});
  }

  // The line that a final line ending opens: as high as the one that it closes.
  void addEmptyLine(std::uint32_t count, std::vector<Placement>& placements) {
    TextLine line;
    line.firstCluster = line.endCluster = line.endVisibleCluster = count;
    line.endsParagraph = true;
    measureHeight(line, count - 1, count);
    add(line, placements, clusters_.back().paragraphIsRightToLeft);
  }

  void align(std::span<const Placement> placements) {
    const CGFloat width = std::isfinite(options_.width) ? options_.width : layout_.size_.width;
    for (std::size_t i = 0; i < placements.size(); ++i) {
      TextLine& line = layout_.lines_[i];
      const auto [alignment, isRightToLeft] = placements[i];
      const CGFloat room = width - line.width;
      if (alignment == NSTextAlignment::justified && !line.endsParagraph && room > 0) {
        const auto* first = clusters_.data() + line.firstCluster;
        const auto* end = clusters_.data() + line.endVisibleCluster;
        const auto spaces = std::count_if(first, end, [](const auto& cluster) { return cluster.isSpace; });
        if (spaces > 0) {
          line.extraPerSpace = room / static_cast<CGFloat>(spaces);
          continue;
        }
      }
      switch (sideOf(alignment, isRightToLeft)) {
        case Side::left:
          break;
        case Side::center:
          line.x = room / 2;
          break;
        case Side::right:
          line.x = room;
          break;
      }
    }
  }

  TextLayout& layout_;
  const std::vector<ShapedCluster>& clusters_;
  const std::vector<ShapedRun>& runs_;
  std::span<const TextSizeSpan> sizes_;
  std::span<const ParagraphSpan> paragraphs_;
  const Options& options_;
  std::shared_ptr<const NSParagraphStyle> style_;
  std::size_t paragraph_ = 0;
  std::size_t firstSize_ = 0;  // the size span of the line's first cluster
  CGFloat bottom_ = 0;
  CGFloat spacing_ = 0;
  CGFloat paragraphSpacing_ = 0;
};

TextLayout::TextLayout(std::shared_ptr<const ShapedText> text, std::span<const TextSizeSpan> sizes,
                       std::span<const ParagraphSpan> paragraphs, const Options& options)
    : text_(std::move(text)), sizes_(sizes.begin(), sizes.end()) {
  if (!text_ || text_->clusters.empty() || sizes_.empty()) return;
  for (TextSizeSpan& size : sizes_) {
    size.pointSize = distance(size.pointSize);
    size.kern = finite(size.kern);
    size.baselineOffset = finite(size.baselineOffset);
  }
  Options repaired = options;
  if (!(repaired.width > 0)) repaired.width = 0;
  Filler(*this, paragraphs, repaired).fill();
}

namespace {

// A part of a line that is drawn in one go: one run, one size, one paint.
struct Segment {
  std::uint32_t firstCluster;
  std::uint32_t endCluster;
  std::uint32_t run;
  std::size_t size;
  std::size_t paint;
  std::uint8_t level;
};

// `size` and `paint` say where the spans of the line before ended, and then where those of this line do.
std::vector<Segment> segmentsOf(const TextLine& line, const ShapedText& text, std::span<const TextSizeSpan> sizes,
                                std::span<const PaintSpan> paints, std::size_t& size, std::size_t& paint) {
  std::vector<Segment> segments;
  for (std::uint32_t i = line.firstCluster; i < line.endVisibleCluster; ++i) {
    const ShapedCluster& cluster = text.clusters[i];
    size = spanAt(sizes, size, cluster.begin);
    while (paint < paints.size() && paints[paint].end <= cluster.begin) ++paint;
    const bool continues = !segments.empty() && segments.back().run == cluster.run && segments.back().size == size &&
                           segments.back().paint == paint;
    if (continues) {
      segments.back().endCluster = i + 1;
    } else {
      segments.push_back({i, i + 1, cluster.run, size, paint, text.runs[cluster.run].level});
    }
  }
  return segments;
}

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
void place(const Segment& segment, const TextLine& line, const ShapedText& text, const TextSizeSpan& size,
           CGFloat baseline, CGFloat& x, std::vector<PositionedGlyph>& out) {
  const ShapedRun& run = text.runs[segment.run];
  const bool isReversed = run.level % 2 == 1;
  const std::uint32_t count = segment.endCluster - segment.firstCluster;
  const auto isBefore = [&](const ShapedGlyph& glyph) {
    return isReversed ? glyph.cluster >= segment.endCluster : glyph.cluster < segment.firstCluster;
  };
  auto glyph = std::partition_point(run.glyphs.begin(), run.glyphs.end(), isBefore);
  for (std::uint32_t i = 0; i < count; ++i) {
    const std::uint32_t index = isReversed ? segment.endCluster - 1 - i : segment.firstCluster + i;
    const ShapedCluster& cluster = text.clusters[index];
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

}  // namespace

void TextLayout::draw(Canvas& canvas, CGPoint at, std::span<const PaintSpan> paints) const {
  static constexpr UIColor kBlack = UIColor::grey(0, 1);
  std::vector<PositionedGlyph> glyphs;
  std::size_t lastSize = 0;
  std::size_t lastPaint = 0;
  for (const TextLine& line : lines_) {
    std::vector<Segment> segments = segmentsOf(line, *text_, sizes_, paints, lastSize, lastPaint);
    reorder(segments);
    CGFloat x = at.x + line.x;
    for (const Segment& segment : segments) {
      const TextSizeSpan& size = sizes_[segment.size];
      const PaintSpan* paint = segment.paint < paints.size() ? &paints[segment.paint] : nullptr;
      const CGFloat left = x;
      glyphs.clear();
      place(segment, line, *text_, size, at.y + line.baseline, x, glyphs);
      if (paint && paint->background) {
        const CGRect behind{{left, at.y + line.baseline - line.ascent}, {x - left, line.ascent + line.descent}};
        canvas.fillRect(behind, *paint->background);
      }
      const Face& face = *text_->runs[segment.run].face;
      canvas.drawGlyphs(face, size.pointSize, glyphs, paint && paint->foreground ? *paint->foreground : kBlack);
    }
  }
}

}  // namespace Brisel::Platform
