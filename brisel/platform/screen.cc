#include "brisel/platform/screen.h"

#include <atomic>
#include <cmath>

namespace Brisel::Platform {
namespace {

constinit std::atomic<CGFloat> mainScale{1.0};

}  // namespace

UIScreen& UIScreen::mainScreen() noexcept {
  static constinit UIScreen screen;
  return screen;
}

CGFloat UIScreen::scale() const noexcept { return mainScale.load(std::memory_order_relaxed); }

void UIScreen::setScale(CGFloat scale) noexcept {
  if (std::isfinite(scale) && scale > 0) mainScale.store(scale, std::memory_order_relaxed);
}

}  // namespace Brisel::Platform
