#pragma once

#include "brisel/platform/screen.h"

namespace Brisel {

/// The main screen. A namespace in the shape of a class: it cannot be made.
class Screen {
 public:
  Screen() = delete;

  /// Device pixels per point of the main screen, read afresh each time. For the main thread.
  static Platform::CGFloat scale() noexcept { return Platform::UIScreen::mainScreen().scale(); }
};

}  // namespace Brisel
