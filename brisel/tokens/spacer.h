#pragma once

#include "brisel/platform/geometry.h"

namespace Brisel {

/// One of the design system's spacing steps, such as `Brisel::Spacer::x16()`. There are no others.
class Spacer {
 public:
  /// The distance, in points.
  constexpr Platform::CGFloat value() const noexcept { return value_; }

  friend constexpr bool operator==(Spacer, Spacer) noexcept = default;

#define BRISEL_SPACER(name, number, objectName) \
  static constexpr Spacer name() noexcept { return Spacer(number); }
#include "brisel/tokens/spacers.def"

 private:
  constexpr explicit Spacer(Platform::CGFloat value) noexcept : value_(value) {}

  Platform::CGFloat value_;
};

}  // namespace Brisel
