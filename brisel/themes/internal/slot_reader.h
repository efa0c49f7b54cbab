#pragma once

#include <cstddef>

#include "brisel/platform/color.h"
#include "brisel/tokens/internal/color_slot.h"
#include "brisel/tokens/internal/swatch.h"

namespace Brisel::internal {

/// Hands out the colours of one colour set in slot order. Members are initialised in declaration order, which is slot
/// order, so a value that takes each member from a reader cannot mix them up.
class SlotReader {
 public:
  /// Reads `first[0]`, `first[step]`, `first[2 * step]` …, which must live until the process ends.
  SlotReader(const Platform::UIColor* first, std::size_t step) noexcept : first_(first), step_(step) {}
  SlotReader(const SlotReader&) = delete;
  SlotReader& operator=(const SlotReader&) = delete;

  /// The next colours as a part of a theme, whose constructor from a reader is for readers alone.
  template <class Part>
  Part read() {
    return Part(*this);
  }
  /// The next colour.
  Swatch next() { return Swatch(uncounted(first_[step_ * slot_++])); }

 private:
  const Platform::UIColor* first_;
  std::size_t step_;
  std::size_t slot_ = 0;
};

}  // namespace Brisel::internal
