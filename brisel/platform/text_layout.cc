#include "brisel/platform/text_layout.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "brisel/platform/internal/distance.h"
#include "brisel/platform/internal/text_spans.h"
#include "brisel/platform/internal/truncation.h"

namespace Brisel::Platform {

using internal::distance;
using internal::finite;
using internal::spanAt;

namespace {

// By how many points a text may exceed its limits: what sums of distances differ by when they are taken in other
// orders.
constexpr CGFloat kRounding = 1e-6;

bool wraps(NSLineBreakMode mode) {
  return mode == NSLineBreakMode::byWordWrapping || mode == NSLineBreakMode::byCharWrapping;
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
        options_(options),
        width_(options.width > 0 ? options.width : 0),
        scale_(distance(options.scale)),
        room_(options.limits ? width_ + kRounding : width_) {}

  void fill() {
    std::size_t most = options_.limits ? std::max<std::size_t>(options_.limits->lines, 1) : SIZE_MAX;
    while (!fillLines(most)) {
      // What seemed to be one line of many is the last.
      most = layout_.lines_.size() - 1;
      goBackTo(most - 1);
    }
    layout_.size_.height = bottom_;
    align();
  }

 private:
  // What a line goes by, as it was before the line was filled.
  struct Start {
    std::size_t paragraph = 0;
    std::size_t firstSize = 0;
    CGFloat bottom = 0;
    CGFloat spacing = 0;
    CGFloat paragraphSpacing = 0;
    CGFloat width = 0;
    bool isTruncated = false;
    bool tearsWords = false;
  };

  void noteStart() {
    if (!options_.limits || layout_.lines_.empty()) return;  // Nobody goes back, or nothing was filled before.
    starts_.push_back({paragraph_, firstSize_, bottom_, spacing_, paragraphSpacing_, layout_.size_.width,
                       layout_.isTruncated_, layout_.tearsWords_});
  }

  // Takes out the lines from this one on, and no more: where a last line is far higher than the others, that may happen
  // as often as there are lines.
  void goBackTo(std::size_t line) {
    const Start start = line > 0 ? starts_[line - 1] : Start();
    starts_.resize(line > 0 ? line - 1 : 0);
    layout_.lines_.resize(line);
    layout_.omission_.reset();
    layout_.size_.width = start.width;
    layout_.isTruncated_ = start.isTruncated;
    layout_.tearsWords_ = start.tearsWords;
    firstSize_ = start.firstSize;
    bottom_ = start.bottom;
    spacing_ = start.spacing;
    paragraphSpacing_ = start.paragraphSpacing;
    takeParagraph(start.paragraph);
  }

  // False where the last line that was filled is too low down; at least one never is.
  bool fillLines(std::size_t most) {
    const auto count = static_cast<std::uint32_t>(clusters_.size());
    const bool endsWithLineBreak = layout_.text_->endsWithLineBreak;
    for (std::uint32_t first = layout_.lines_.empty() ? 0 : layout_.lines_.back().endCluster; first < count;) {
      noteStart();
      if (clusters_[first].isParagraphStart || first == 0) beginParagraph(first);
      TextLine line = fillLine(first);
      const bool isLast = layout_.lines_.size() + 1 == most;
      if (isLast && (line.endCluster < count || endsWithLineBreak || line.width > room_)) {
        layout_.isTruncated_ = true;
        addLastLine(line);
        return fitsHeight();
      }
      line.endsParagraph = line.endCluster == count || clusters_[line.endCluster].isParagraphStart;
      measureHeight(line, first, line.endCluster);
      add(line, clusters_[first].paragraphIsRightToLeft);
      if (!fitsHeight()) return false;
      first = line.endCluster;
    }
    if (!endsWithLineBreak) return true;
    noteStart();
    addEmptyLine(count);
    return fitsHeight();
  }

  bool fitsHeight() const {
    return !options_.limits || layout_.lines_.size() == 1 || bottom_ <= options_.limits->height + kRounding;
  }

  // The last line that there is room for, of a text that does not end with it.
  void addLastLine(TextLine line) {
    std::uint32_t first = line.firstCluster;
    switch (style_->lineBreakMode()) {
      case NSLineBreakMode::byWordWrapping:
      case NSLineBreakMode::byCharWrapping:
        measureHeight(line, first, line.endCluster);
        break;
      case NSLineBreakMode::byClipping:
        line = fillLine(first, std::numeric_limits<CGFloat>::infinity());
        line.endsParagraph = true;
        measureHeight(line, first, line.endCluster);
        break;
      case NSLineBreakMode::byTruncatingHead:
      case NSLineBreakMode::byTruncatingTail:
      case NSLineBreakMode::byTruncatingMiddle:
        line = truncated(first);
        if (line.endVisibleCluster > first) break;
        // A line that shows the end of the text alone is set like that.
        first = layout_.omission_->neighbour;
        while (first > line.firstCluster && !clusters_[first].isParagraphStart) --first;
        if (first > line.firstCluster) beginParagraph(first);
        break;
    }
    add(line, clusters_[first].paragraphIsRightToLeft);
  }

  TextLine truncated(std::uint32_t first) {
    auto [line, omission] =
        internal::truncate(*layout_.text_, sizes_, first, room_, style_->lineBreakMode(), options_.limits->ellipsis);
    raise(line, line.firstCluster, line.endVisibleCluster);
    raise(line, omission.resumingCluster, omission.endCluster);
    const TextSizeSpan& size = sizes_[spanAt(sizes_, 0, clusters_[omission.neighbour].begin)];
    raise(line, size.metrics, size);
    if (omission.ellipsis)
      for (const ShapedRun& run : omission.ellipsis->runs) raise(line, run.metrics, size);
    applyRules(line);
    layout_.omission_ = std::move(omission);
    return line;
  }

  void beginParagraph(std::uint32_t cluster) {
    takeParagraph(spanAt(paragraphs_, paragraph_, clusters_[cluster].begin));
  }

  void takeParagraph(std::size_t paragraph) {
    paragraph_ = paragraph;
    style_ = paragraphs_.empty() ? nullptr : paragraphs_[paragraph_].style;
    if (!style_) style_ = NSParagraphStyle::defaultParagraphStyle();
  }

  TextLine fillLine(std::uint32_t first) {
    return fillLine(
        first, options_.limits || wraps(style_->lineBreakMode()) ? room_ : std::numeric_limits<CGFloat>::infinity());
  }

  // Takes clusters as long as they fit; then goes back to the last place where the line may end.
  TextLine fillLine(std::uint32_t first, CGFloat room) {
    const auto count = static_cast<std::uint32_t>(clusters_.size());
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
      if (!cluster.isSpace && i > first && width + advance > room) {
        if (lineAtBreak.endCluster > first) return lineAtBreak;
        layout_.tearsWords_ = true;
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
    firstSize_ = raise(line, first, end);
    applyRules(line);
  }

  // Makes the line as high as these clusters are, and returns the size span of the last.
  std::size_t raise(TextLine& line, std::uint32_t first, std::uint32_t end) {
    std::size_t size = firstSize_;
    for (std::uint32_t i = first; i < end;) {
      size = spanAt<TextSizeSpan>(sizes_, size, clusters_[i].begin);
      const ShapedRun& run = runs_[clusters_[i].run];
      raise(line, sizes_[size].metrics, sizes_[size]);
      raise(line, run.metrics, sizes_[size]);
      // On to where the run or the size changes.
      const std::uint32_t runEnd = std::min(end, run.endCluster);
      ++i;
      if (size + 1 == sizes_.size()) {
        i = std::max(i, runEnd);
      } else {
        while (i < runEnd && clusters_[i].begin < sizes_[size].end) ++i;
      }
    }
    return size;
  }

  void raise(TextLine& line, const FontMetrics& metrics, const TextSizeSpan& size) {
    line.ascent = std::max(line.ascent, metrics.ascender * size.pointSize + size.baselineOffset);
    line.descent = std::max(line.descent, -metrics.descender * size.pointSize - size.baselineOffset);
    if (options_.usesFontLeading) line.leading = std::max(line.leading, metrics.leading * size.pointSize);
  }

  CGFloat styleDistance(CGFloat points) const { return distance(points) * scale_; }

  // What the paragraph asks for beyond the faces' own height is put above the text.
  void applyRules(TextLine& line) const {
    const CGFloat own = line.ascent + line.descent;
    CGFloat height = own;
    if (const CGFloat multiple = distance(style_->lineHeightMultiple()); multiple > 0) height *= multiple;
    height = std::max(height, styleDistance(style_->minimumLineHeight()));
    if (const CGFloat maximum = styleDistance(style_->maximumLineHeight()); maximum > 0)
      height = std::min(height, maximum);
    if (height != own) line.ascent += height - own;
  }

  void add(const TextLine& given, bool isRightToLeft) {
    TextLine line = given;
    // Within limits, nothing is drawn beyond them.
    line.isCut = options_.limits && line.width > room_;
    layout_.isTruncated_ |= line.isCut;
    if (!layout_.lines_.empty()) {
      bottom_ += spacing_;
      if (layout_.lines_.back().endsParagraph) bottom_ += paragraphSpacing_;
    }
    line.baseline = bottom_ + line.ascent;
    bottom_ = line.baseline + line.descent + line.leading;
    spacing_ = styleDistance(style_->lineSpacing());
    paragraphSpacing_ = styleDistance(style_->paragraphSpacing());
    layout_.size_.width = std::max(layout_.size_.width, line.isCut ? width_ : line.width);
    line.alignment = style_->alignment();
    line.isRightToLeft = isRightToLeft;
    layout_.lines_.push_back(line);
  }

  // The line that a final line ending opens: as high as the one that it closes.
  void addEmptyLine(std::uint32_t count) {
    TextLine line;
    line.firstCluster = line.endCluster = line.endVisibleCluster = count;
    line.endsParagraph = true;
    measureHeight(line, count - 1, count);
    add(line, clusters_.back().paragraphIsRightToLeft);
  }

  void align() {
    const CGFloat width = std::isfinite(width_) ? width_ : layout_.size_.width;
    for (TextLine& line : layout_.lines_) {
      const CGFloat room = width - line.width;
      if (line.alignment == NSTextAlignment::justified && !line.endsParagraph && room > 0) {
        const auto* first = clusters_.data() + line.firstCluster;
        const auto* end = clusters_.data() + line.endVisibleCluster;
        const auto spaces = std::count_if(first, end, [](const auto& cluster) { return cluster.isSpace; });
        if (spaces > 0) {
          line.extraPerSpace = room / static_cast<CGFloat>(spaces);
          continue;
        }
      }
      // Of a line that is cut, its beginning is seen.
      switch (sideOf(line.isCut ? NSTextAlignment::natural : line.alignment, line.isRightToLeft)) {
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
  CGFloat width_;
  CGFloat scale_;
  CGFloat room_;
  std::vector<Start> starts_;  // of each line but the first
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
  const CGFloat scale = distance(options.scale);
  for (TextSizeSpan& size : sizes_) {
    size.pointSize = distance(size.pointSize) * scale;
    size.kern = finite(size.kern) * scale;
    size.baselineOffset = finite(size.baselineOffset) * scale;
  }
  room_ = options.width > 0 ? options.width : 0;
  Filler(*this, paragraphs, options).fill();
}

}  // namespace Brisel::Platform
