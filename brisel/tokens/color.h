#pragma once

#include <utility>

#include "brisel/platform/color.h"

namespace Brisel {

namespace internal {
template <class Token>
struct ColorSlot;
}

/// A colour of the palette, such as `Brisel::Color::gray7()`. There are no others, and they compare through their
/// platform colours (see color_parsing.h for comparison within a tolerance).
class Color {
 public:
  /// The platform colour: one instance a name for the whole process, the same one that `VLMBriselColors` returns.
  const Platform::ColorPtr& value() const noexcept { return value_; }

  // One accessor a name. Each colour is built on its first use, alone, from any thread, and can be read until the
  // process ends, in exit handlers too.
#define BRISEL_GREY(name, white, alpha) static const Color& name() noexcept;
#define BRISEL_RGB(name, red, green, blue, hex) static const Color& name() noexcept;
#include "brisel/tokens/palette.def"

 private:
  friend struct internal::ColorSlot<Color>;
  explicit Color(Platform::ColorPtr value) noexcept : value_(std::move(value)) {}

  Platform::ColorPtr value_;
};

}  // namespace Brisel
