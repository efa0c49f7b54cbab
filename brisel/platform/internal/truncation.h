// What a text's last line shows where there is not room for all that is left of the text.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>

#include "brisel/platform/paragraph_style.h"
#include "brisel/platform/text_layout.h"

namespace Brisel::Platform::internal {

/// A line whose `firstCluster` is the given one; it stands for all of the text from there on. Its visible clusters are
/// those before the ellipsis; the omission says which stand behind it. Heights are not measured.
struct TruncatedLine {
  TextLine line;
  TextOmission omission;
};

/// Sets the text from the cluster `first` on into one line of at most `room` points, with an ellipsis at its tail, at
/// its head or between the two, as the truncating `mode` says. Neither part goes beyond a line ending, and none ends in
/// spaces at the ellipsis. Where the ellipsis itself is too wide it stands alone.
TruncatedLine truncate(const ShapedText& text, std::span<const TextSizeSpan> sizes, std::uint32_t first, CGFloat room,
                       NSLineBreakMode mode,
                       const std::function<std::shared_ptr<const ShapedText>(std::uint32_t unit)>& shapeEllipsis);

}  // namespace Brisel::Platform::internal
