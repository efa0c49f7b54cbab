#pragma once

#include "brisel/platform/geometry.h"

namespace Brisel::Platform {

/// The display. Its scale is what the host reports; until then it is 1.
class UIScreen {
 public:
  /// The one screen that there is.
  static UIScreen& mainScreen() noexcept;

  /// Device pixels per point, above 0.
  CGFloat scale() const noexcept;

  /// Told by the host when it knows its display, or moves to another. Values that are not finite and above 0 are
  /// ignored.
  void setScale(CGFloat scale) noexcept;

  UIScreen(const UIScreen&) = delete;
  UIScreen& operator=(const UIScreen&) = delete;

 private:
  constexpr UIScreen() noexcept = default;
};

}  // namespace Brisel::Platform
