#include "brisel/platform/layout_direction.h"

#include <atomic>

namespace Brisel::Platform {
namespace {

constinit std::atomic<UIUserInterfaceLayoutDirection> layoutDirection{UIUserInterfaceLayoutDirection::leftToRight};

}  // namespace

UIUserInterfaceLayoutDirection userInterfaceLayoutDirection() noexcept {
  return layoutDirection.load(std::memory_order_relaxed);
}

void setUserInterfaceLayoutDirection(UIUserInterfaceLayoutDirection direction) noexcept {
  layoutDirection.store(direction, std::memory_order_relaxed);
}

}  // namespace Brisel::Platform
