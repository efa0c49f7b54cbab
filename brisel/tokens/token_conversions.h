// Tokens where the platform takes numbers.
#pragma once

#include "brisel/platform/color.h"
#include "brisel/platform/geometry.h"
#include "brisel/tokens/opacity.h"
#include "brisel/tokens/spacer.h"

namespace Brisel {

/// `CGFloat.space(_:)`: the spacer's value, in points.
constexpr Platform::CGFloat space(Spacer spacer) noexcept { return spacer.value(); }

/// `CGFloat.opacity(_:)`: the opacity's value, 0…1.
constexpr Platform::CGFloat opacity(Opacity opacity) noexcept { return opacity.value(); }

/// `UIEdgeInsets(top:left:bottom:right:)`: insets of the spacers' values.
constexpr Platform::UIEdgeInsets edgeInsets(Spacer top, Spacer left, Spacer bottom, Spacer right) noexcept {
  return {top.value(), left.value(), bottom.value(), right.value()};
}

/// `NSDirectionalEdgeInsets(top:leading:bottom:trailing:)`: insets of the spacers' values that follow the direction.
constexpr Platform::NSDirectionalEdgeInsets directionalEdgeInsets(Spacer top, Spacer leading, Spacer bottom,
                                                                  Spacer trailing) noexcept {
  return {top.value(), leading.value(), bottom.value(), trailing.value()};
}

/// `UIColor.withAlphaComponent(_:)`: a new colour of the same form and components whose alpha is the opacity's value.
inline Platform::ColorPtr withAlphaComponent(const Platform::UIColor& color, Opacity opacity) {
  return color.colorWithAlphaComponent(opacity.value());
}

}  // namespace Brisel
