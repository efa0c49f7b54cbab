#pragma once

#include <memory>
#include <optional>

#include "gallery/arguments.h"
#include "gallery/code_names.h"
#include "gallery/window/sample_screen.h"

namespace Brisel::Gallery {

/// What the command wants to see. Throws UsageError for names that nothing bears.
struct WindowLook {
  explicit WindowLook(const WindowCommand& command);

  NamedColorSet colors;
  Platform::UIUserInterfaceLayoutDirection direction;
  std::optional<ContentSizeCategory> textSize;  // that of the desktop where there is none
};

/// A screen as the command wants it, in a text size that is announced to the whole program.
std::unique_ptr<SampleScreen> makeScreen(const WindowCommand& command, const WindowLook& look);

/// Draws what the window would show into the command's file, without a window, and without asking the desktop.
/// Throws UsageError, and std::runtime_error where the file cannot be written.
void drawWindow(const WindowCommand& command);

}  // namespace Brisel::Gallery
