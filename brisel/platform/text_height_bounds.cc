#include "brisel/platform/text_height_bounds.h"

#include <algorithm>
#include <cmath>

#include "brisel/platform/internal/distance.h"

namespace Brisel::Platform {

using internal::distance;
using internal::finite;

namespace {

constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();

// What sums of so many terms may be off by, as a share of the whole: several times what the additions, of which there
// are four to a line and two to a cluster, can round.
CGFloat share(CGFloat terms) { return 32 * std::numeric_limits<CGFloat>::epsilon() * (terms + 4); }

// The end of the range at which a measure in ems is least, or greatest: distances below the baseline grow the other
// way.
CGFloat scaled(CGFloat ems, const TextSizeRange& range, bool isLeast) {
  return ems * ((ems >= 0) == isLeast ? range.leastPointSize : range.greatestPointSize);
}

}  // namespace

TextHeightBounds::TextHeightBounds(const ShapedText& text, const FontMetrics& metrics, CGFloat baselineOffset,
                                   const NSParagraphStyle& style, CGFloat width)
    : ownMetrics_(metrics),
      baselineOffset_(finite(baselineOffset)),
      width_(width > 0 ? width : 0),
      lineHeightMultiple_(distance(style.lineHeightMultiple())),
      minimumLineHeight_(distance(style.minimumLineHeight())),
      maximumLineHeight_(distance(style.maximumLineHeight())),
      paragraphSpacing_(distance(style.paragraphSpacing())) {
  const auto& clusters = text.clusters;
  const auto count = static_cast<std::uint32_t>(clusters.size());
  places_.resize(clusters.size() + 1);
  std::uint32_t first = 0;
  for (std::uint32_t i = 0; i < count; ++i) {
    const ShapedCluster& cluster = clusters[i];
    if (i > first && cluster.breakBefore == ShapedCluster::Break::required) {
      addStretch(text, first, i);
      first = i;
    }
    const bool mayBreak = i == 0 || cluster.breakBefore != ShapedCluster::Break::none;
    places_[i].lastBreak = mayBreak ? i : places_[i - 1].lastBreak;
    places_[i + 1].advance = places_[i].advance + cluster.advance;
    if (!(cluster.advance >= 0)) leastAdvance_ = -kInfinity;
  }
  if (count > 0) addStretch(text, first, count);
  if (count > 0 && text.endsWithLineBreak) addStretch(text, count, count);

  places_[count].nextVisible = count;
  places_[count].lastBreak = count;
  for (std::uint32_t i = count; i-- > 0;) {
    places_[i].nextVisible = clusters[i].isSpace ? places_[i + 1].nextVisible : i;
  }
}

// An empty stretch is the line that a final line ending opens.
void TextHeightBounds::addStretch(const ShapedText& text, std::uint32_t first, std::uint32_t end) {
  const auto& clusters = text.clusters;
  const auto firstMetrics = static_cast<std::uint32_t>(metrics_.size());
  const auto addOnce = [&](const FontMetrics& metrics) {
    if (metrics == ownMetrics_) return;
    if (std::find(metrics_.begin() + firstMetrics, metrics_.end(), metrics) == metrics_.end())
      metrics_.push_back(metrics);
  };
  if (first == end) addOnce(text.runs[clusters.back().run].metrics);
  for (std::uint32_t i = first; i < end; ++i) {
    if (i == first || clusters[i].run != clusters[i - 1].run) addOnce(text.runs[clusters[i].run].metrics);
  }
  std::uint32_t endVisible = end;
  while (endVisible > first && clusters[endVisible - 1].isSpace) --endVisible;
  for (std::uint32_t i = first; i < endVisible; ++i) leastAdvance_ = std::min(leastAdvance_, clusters[i].advance);
  stretches_.push_back({.first = first,
                        .endVisible = endVisible,
                        .firstMetrics = firstMetrics,
                        .endMetrics = static_cast<std::uint32_t>(metrics_.size()),
                        .isParagraphStart = first == end || clusters[first].isParagraphStart});
}

TextHeightBounds::Extent TextHeightBounds::extentOf(const FontMetrics& metrics, const TextSizeRange& range,
                                                    Side side) const {
  const bool isLeast = side == Side::least;
  return {.ascent = std::max(0.0, scaled(metrics.ascender, range, isLeast) + baselineOffset_),
          .descent = std::max(0.0, scaled(-metrics.descender, range, isLeast) - baselineOffset_),
          .leading = std::max(0.0, scaled(metrics.leading, range, isLeast))};
}

TextHeightBounds::Extent TextHeightBounds::joined(const Extent& a, const Extent& b) {
  return {std::max(a.ascent, b.ascent), std::max(a.descent, b.descent), std::max(a.leading, b.leading)};
}

// The layout's own rules, which never make the higher of two lines the lower.
CGFloat TextHeightBounds::heightOf(const Extent& extent) const {
  CGFloat height = extent.ascent + extent.descent;
  if (lineHeightMultiple_ > 0) height *= lineHeightMultiple_;
  height = std::max(height, minimumLineHeight_);
  if (maximumLineHeight_ > 0) height = std::min(height, maximumLineHeight_);
  return height + extent.leading;
}

// Some line of the stretch is at least as high as each of its faces; none is higher than all of them together.
CGFloat TextHeightBounds::highestLine(const Stretch& stretch, const Extent& own, const TextSizeRange& range,
                                      Side side) const {
  CGFloat highest = heightOf(own);
  Extent all = own;
  for (std::uint32_t i = stretch.firstMetrics; i < stretch.endMetrics; ++i) {
    const Extent extent = extentOf(metrics_[i], range, side);
    all = joined(all, extent);
    if (side == Side::least) highest = std::max(highest, heightOf(joined(own, extent)));
  }
  return side == Side::least ? highest : heightOf(all);
}

// No number that the layout adds for a line is greater.
CGFloat TextHeightBounds::magnitude(const TextSizeRange& range) const {
  Extent all = extentOf(ownMetrics_, range, Side::greatest);
  for (const FontMetrics& metrics : metrics_) all = joined(all, extentOf(metrics, range, Side::greatest));
  return 2 * (all.ascent + all.descent) + heightOf(all) + range.greatestLineSpacing + paragraphSpacing_;
}

CGFloat TextHeightBounds::atLeast(const TextSizeRange& range, CGFloat enough) const {
  const CGFloat doubt = share(static_cast<CGFloat>(places_.size()));
  const CGFloat doubtfulPoints = doubt * magnitude(range);
  const auto certain = [&](CGFloat height) { return height * (1 - doubt) - doubtfulPoints; };
  const Extent own = extentOf(ownMetrics_, range, Side::least);
  const CGFloat furtherLine = heightOf(own) + range.leastLineSpacing;
  CGFloat height = 0;
  for (const Stretch& stretch : stretches_) {
    if (&stretch != stretches_.data()) {
      height += range.leastLineSpacing;
      if (stretch.isParagraphStart) height += paragraphSpacing_;
    }
    height += highestLine(stretch, own, range, Side::least);
    if (certain(height) > enough) break;
    // Lines beyond these change no verdict.
    const CGFloat most = furtherLine > 0 ? 3 + 2 * (enough - certain(height)) / furtherLine : 1;
    height += (leastLines(stretch, range, most) - 1) * furtherLine;
    if (certain(height) > enough) break;
  }
  return std::isfinite(height) && std::isfinite(doubtfulPoints) ? certain(height) : -kInfinity;
}

CGFloat TextHeightBounds::atMost(const TextSizeRange& range, CGFloat paragraphs) const {
  const Extent own = extentOf(ownMetrics_, range, Side::greatest);
  CGFloat highest = 0;
  CGFloat mostLines = 0;
  for (const Stretch& stretch : stretches_) {
    const CGFloat count = greatestLines(stretch, range);
    mostLines = std::max(mostLines, count);
    highest = std::max(
        highest, count * highestLine(stretch, own, range, Side::greatest) + (count - 1) * range.greatestLineSpacing);
  }
  const CGFloat height = paragraphs * highest + (paragraphs - 1) * (range.greatestLineSpacing + paragraphSpacing_);
  const CGFloat doubt = share(paragraphs * mostLines);
  const CGFloat most = height * (1 + doubt) + doubt * magnitude(range);
  // Beyond some number of lines, what is rounded adds up to more than the share.
  if (doubt > 0.01 || std::isnan(most)) return kInfinity;
  return most;
}

// Smaller advances never make more lines, and larger ones never fewer: each line begins no earlier, or no later, than
// the layout's. This holds where no advance is negative.
CGFloat TextHeightBounds::leastLines(const Stretch& stretch, const TextSizeRange& range, CGFloat most) const {
  if (!std::isfinite(width_) || !advancesGrow(range.leastPointSize, range.leastKern)) return 1;
  return lines(stretch, range.leastPointSize, range.leastKern, width_ + doubtOfWidth(range), most);
}

CGFloat TextHeightBounds::greatestLines(const Stretch& stretch, const TextSizeRange& range) const {
  if (!std::isfinite(width_) || stretch.first == stretch.endVisible) return 1;
  const auto clusters = static_cast<CGFloat>(stretch.endVisible - stretch.first);
  const CGFloat doubt = doubtOfWidth(range);
  if (!(leastAdvance_ >= 0) || !std::isfinite(doubt)) return clusters;
  const CGFloat advance = places_[stretch.endVisible].advance - places_[stretch.first].advance;
  if (advance * range.greatestPointSize + clusters * std::max(0.0, range.greatestKern) < width_ - doubt) return 1;
  if (!advancesGrow(range.greatestPointSize, range.greatestKern)) return clusters;
  return lines(stretch, range.greatestPointSize, range.greatestKern, width_ - doubt, kInfinity);
}

// Fills lines as the layout does.
CGFloat TextHeightBounds::lines(const Stretch& stretch, CGFloat pointSize, CGFloat kern, CGFloat room,
                                CGFloat most) const {
  const auto reach = [&](std::uint32_t place) { return places_[place].advance * pointSize + place * kern; };
  CGFloat count = 1;
  std::uint32_t first = stretch.first;
  while (count < most) {
    const CGFloat limit = reach(first) + room;
    std::uint32_t fits = first;  // clusters up to here do, those from `end` on do not
    std::uint32_t end = stretch.endVisible;
    while (end - fits > 1) {
      const std::uint32_t middle = fits + (end - fits) / 2;
      (reach(middle + 1) > limit ? end : fits) = middle;
    }
    if (end >= stretch.endVisible) break;
    end = places_[end].nextVisible;
    first = places_[end].lastBreak > first ? places_[end].lastBreak : end;
    ++count;
  }
  return count;
}

bool TextHeightBounds::advancesGrow(CGFloat pointSize, CGFloat kern) const {
  return leastAdvance_ >= 0 && leastAdvance_ * pointSize + kern >= 0;
}

CGFloat TextHeightBounds::doubtOfWidth(const TextSizeRange& range) const {
  const auto clusters = static_cast<CGFloat>(places_.size());
  const CGFloat kern = std::max(std::abs(range.leastKern), std::abs(range.greatestKern));
  return share(clusters) * (places_.back().advance * range.greatestPointSize + clusters * kern + width_);
}

}  // namespace Brisel::Platform
