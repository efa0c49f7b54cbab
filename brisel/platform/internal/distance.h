// Numbers that callers give as distances, made fit to be computed with.
#pragma once

#include <cmath>

#include "brisel/platform/geometry.h"

namespace Brisel::Platform::internal {

/// 0 for what is not finite.
inline CGFloat finite(CGFloat value) noexcept { return std::isfinite(value) ? value : 0; }

/// 0 for what is not finite and above it.
inline CGFloat distance(CGFloat value) noexcept { return std::isfinite(value) && value > 0 ? value : 0; }

}  // namespace Brisel::Platform::internal
