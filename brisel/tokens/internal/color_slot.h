// How a catalogue keeps a platform colour: in its own slot, with a pointer that does not count.
#pragma once

#include <memory>
#include <utility>

#include "brisel/platform/color.h"

namespace Brisel::internal {

/// A pointer to a colour that lives until the process ends. It has no control block, so copying it costs no counting.
inline Platform::ColorPtr uncounted(const Platform::UIColor& color) noexcept {
  return Platform::ColorPtr(std::shared_ptr<void>(), &color);
}

/// One slot of a colour catalogue. `Token` is what the accessor returns, made from a pointer to the slot's own colour;
/// it comes first, so that its address is the slot's.
template <class Token>
struct ColorSlot {
  explicit ColorSlot(const Platform::UIColor& row) noexcept : token(uncounted(color)), color(row) {}
  ColorSlot(const ColorSlot&) = delete;
  ColorSlot& operator=(const ColorSlot&) = delete;

  Token token;
  Platform::UIColor color;
};

}  // namespace Brisel::internal
