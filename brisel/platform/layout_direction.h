#pragma once

#include <cstdint>

namespace Brisel::Platform {

/// Where text begins, and leading edges are.
enum class UIUserInterfaceLayoutDirection : std::uint8_t {
  leftToRight,  ///< at the left
  rightToLeft,  ///< at the right
};

/// The direction of the user interface, as the host reports it; left to right until then. On any thread.
UIUserInterfaceLayoutDirection userInterfaceLayoutDirection() noexcept;

/// Told by the host when it knows the user's language. What is laid out already is not laid out again.
void setUserInterfaceLayoutDirection(UIUserInterfaceLayoutDirection direction) noexcept;

}  // namespace Brisel::Platform
