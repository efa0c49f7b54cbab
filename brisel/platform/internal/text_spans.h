// Spans of a text, each of which ends before a code unit.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace Brisel::Platform::internal {

/// The index of the span that holds a code unit, not before `from`; the last one's for units behind them all. Walks
/// along as the text advances.
template <class Span>
std::size_t spanAt(std::span<const Span> spans, std::size_t from, std::uint32_t unit) noexcept {
  while (from + 1 < spans.size() && spans[from].end <= unit) ++from;
  return from;
}

}  // namespace Brisel::Platform::internal
