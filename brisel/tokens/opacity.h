#pragma once

#include "brisel/platform/geometry.h"

namespace Brisel {

/// One of the design system's permitted opacities, such as `Brisel::Opacity::x30()`. There are no others, and they are
/// deliberately not comparable: compare their values.
class Opacity {
 public:
  /// How opaque, 0…1.
  constexpr Platform::CGFloat value() const noexcept { return value_; }

#define BRISEL_OPACITY(name, number, objectName) \
  static constexpr Opacity name() noexcept { return Opacity(number); }
#include "brisel/tokens/opacities.def"

 private:
  constexpr explicit Opacity(Platform::CGFloat value) noexcept : value_(value) {}

  Platform::CGFloat value_;
};

}  // namespace Brisel
