#include "brisel/platform/internal/truncation.h"

#include <algorithm>
#include <utility>

namespace Brisel::Platform::internal {
namespace {

using Break = ShapedCluster::Break;
using EllipsisShaper = std::function<std::shared_ptr<const ShapedText>(std::uint32_t unit)>;

// The line shows [first, prefixEnd), the ellipsis, and [suffixBegin, suffixEnd).
class Truncation {
 public:
  Truncation(const ShapedText& text, std::span<const TextSizeSpan> sizes, std::uint32_t first, CGFloat room,
             const EllipsisShaper& shapeEllipsis)
      : clusters_(text.clusters),
        runs_(text.runs),
        sizes_(sizes),
        first_(first),
        count_(static_cast<std::uint32_t>(text.clusters.size())),
        room_(room),
        shapeEllipsis_(shapeEllipsis) {}

  TruncatedLine truncateTail() {
    start(count_);
    while (prefixEnd_ < count_ && !beginsLine(prefixEnd_)) {
      const CGFloat width = prefixWidth_ + advance(prefixEnd_);
      if (!clusters_[prefixEnd_].isSpace && width > room_) break;
      prefixWidth_ = width;
      ++prefixEnd_;
    }
    return finish();
  }

  TruncatedLine truncateHead() {
    start(endOfText());
    while (suffixBegin_ > first_ && !beginsLine(suffixBegin_)) {
      const CGFloat width = suffixWidth_ + advance(suffixBegin_ - 1);
      if (!clusters_[suffixBegin_ - 1].isSpace && width > room_) break;
      suffixWidth_ = width;
      --suffixBegin_;
    }
    // Nothing but a line ending is left out, and that at the tail.
    return suffixBegin_ == first_ ? truncateTail() : finish();
  }

  // Takes clusters on both sides, always on the narrower one, as long as they fit.
  TruncatedLine truncateMiddle() {
    start(endOfText());
    bool prefixGrows = true;
    bool suffixGrows = true;
    while (prefixEnd_ < suffixBegin_ && (prefixGrows || suffixGrows)) {
      if (prefixGrows && (!suffixGrows || prefixWidth_ <= suffixWidth_)) {
        const CGFloat width = prefixWidth_ + advance(prefixEnd_);
        prefixGrows = !beginsLine(prefixEnd_) && width + suffixWidth_ + ellipsisWidth(prefixEnd_) <= room_;
        if (!prefixGrows) continue;
        prefixWidth_ = width;
        ++prefixEnd_;
      } else {
        const CGFloat width = suffixWidth_ + advance(suffixBegin_ - 1);
        suffixGrows = !beginsLine(suffixBegin_) && prefixWidth_ + width + ellipsisWidth(neighbour()) <= room_;
        if (!suffixGrows) continue;
        suffixWidth_ = width;
        --suffixBegin_;
      }
    }
    // Where the two meet within a line, nothing but a line ending at the tail is left out.
    return prefixEnd_ == suffixBegin_ && !beginsLine(prefixEnd_) ? truncateTail() : finish();
  }

 private:
  void start(std::uint32_t suffixEnd) {
    prefixEnd_ = first_;
    suffixBegin_ = suffixEnd_ = suffixEnd;
    prefixWidth_ = suffixWidth_ = 0;
  }

  // Where the text ends for the eye.
  std::uint32_t endOfText() const {
    std::uint32_t end = count_;
    while (end > first_ && clusters_[end - 1].isSpace) --end;
    return end;
  }

  bool beginsLine(std::uint32_t cluster) const {
    return cluster > first_ && cluster < suffixEnd_ && clusters_[cluster].breakBefore == Break::required;
  }

  const TextSizeSpan& sizeOf(std::uint32_t cluster) const {
    const auto begin = clusters_[cluster].begin;
    const auto found = std::upper_bound(sizes_.begin(), sizes_.end(), begin,
                                        [](std::uint32_t unit, const TextSizeSpan& size) { return unit < size.end; });
    return found == sizes_.end() ? sizes_.back() : *found;
  }

  static CGFloat advance(const ShapedCluster& cluster, const TextSizeSpan& size) {
    return cluster.advance * size.pointSize + size.kern;
  }
  CGFloat advance(std::uint32_t cluster) const { return advance(clusters_[cluster], sizeOf(cluster)); }

  // Of an ellipsis beside the cluster. It is shaped anew only where the size changes.
  CGFloat ellipsisWidth(std::uint32_t cluster) {
    const TextSizeSpan& size = sizeOf(cluster);
    if (&size == ellipsisSize_) return ellipsisWidth_;
    ellipsisSize_ = &size;
    ellipsisWidth_ = 0;
    ellipsis_ = shapeEllipsis_ ? shapeEllipsis_(clusters_[cluster].begin) : nullptr;
    if (!ellipsis_) return 0;
    for (const ShapedCluster& part : ellipsis_->clusters) ellipsisWidth_ += advance(part, size);
    return ellipsisWidth_;
  }

  // The cluster that the ellipsis stands beside.
  std::uint32_t neighbour() const {
    if (prefixEnd_ > first_) return prefixEnd_ - 1;
    return suffixBegin_ < suffixEnd_ ? suffixBegin_ : first_;
  }

  void dropSpaces() {
    while (prefixEnd_ > first_ && clusters_[prefixEnd_ - 1].isSpace) dropOne();
    while (suffixBegin_ < suffixEnd_ && clusters_[suffixBegin_].isSpace) suffixWidth_ -= advance(suffixBegin_++);
  }

  void dropOne() {
    if (prefixEnd_ > first_)
      prefixWidth_ -= advance(--prefixEnd_);
    else
      suffixWidth_ -= advance(suffixBegin_++);
  }

  TruncatedLine finish() {
    dropSpaces();
    // Negated, so that sums that are no numbers end it too.
    while (!(prefixWidth_ + ellipsisWidth(neighbour()) + suffixWidth_ <= room_) &&
           (prefixEnd_ > first_ || suffixBegin_ < suffixEnd_)) {
      dropOne();
      dropSpaces();
    }

    TruncatedLine result;
    TextOmission& omission = result.omission;
    omission.width = ellipsisWidth(neighbour());
    omission.ellipsis = ellipsis_;
    omission.neighbour = neighbour();
    omission.resumingCluster = suffixBegin_;
    omission.endCluster = suffixEnd_;
    omission.level = ellipsisLevel();

    TextLine& line = result.line;
    line.firstCluster = first_;
    line.endVisibleCluster = prefixEnd_;
    line.endCluster = count_;
    line.endsParagraph = true;
    for (std::uint32_t i = first_; i < prefixEnd_; ++i) line.width += advance(i);
    line.width += omission.width;
    for (std::uint32_t i = suffixBegin_; i < suffixEnd_; ++i) line.width += advance(i);
    return result;
  }

  // An ellipsis within text of one direction is part of it; else it runs as the paragraph does (rules N1 and N2 of the
  // Unicode Bidirectional Algorithm, UAX #9).
  std::uint8_t ellipsisLevel() const {
    if (prefixEnd_ > first_ && suffixBegin_ < suffixEnd_) {
      const std::uint8_t before = runs_[clusters_[prefixEnd_ - 1].run].level;
      if (before == runs_[clusters_[suffixBegin_].run].level) return before;
    }
    return clusters_[neighbour()].paragraphIsRightToLeft ? 1 : 0;
  }

  const std::vector<ShapedCluster>& clusters_;
  const std::vector<ShapedRun>& runs_;
  std::span<const TextSizeSpan> sizes_;
  std::uint32_t first_;
  std::uint32_t count_;
  CGFloat room_;
  const EllipsisShaper& shapeEllipsis_;

  std::uint32_t prefixEnd_ = 0;
  std::uint32_t suffixBegin_ = 0;
  std::uint32_t suffixEnd_ = 0;
  CGFloat prefixWidth_ = 0;
  CGFloat suffixWidth_ = 0;
  const TextSizeSpan* ellipsisSize_ = nullptr;
  std::shared_ptr<const ShapedText> ellipsis_;
  CGFloat ellipsisWidth_ = 0;
};

}  // namespace

TruncatedLine truncate(const ShapedText& text, std::span<const TextSizeSpan> sizes, std::uint32_t first, CGFloat room,
                       NSLineBreakMode mode, const EllipsisShaper& shapeEllipsis) {
  Truncation truncation(text, sizes, first, room, shapeEllipsis);
  if (mode == NSLineBreakMode::byTruncatingHead) return truncation.truncateHead();
  if (mode == NSLineBreakMode::byTruncatingMiddle) return truncation.truncateMiddle();
  return truncation.truncateTail();
}

}  // namespace Brisel::Platform::internal
