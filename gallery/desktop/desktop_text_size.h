#pragma once

#include <memory>
#include <string_view>

namespace Brisel::Gallery {

/// Listens to the desktop's text scaling factor, and announces the user's text size whenever it comes to another
/// category; `large` is where it starts from.
///
/// It asks the settings portal on the session bus, without waiting for an answer: all that arrives is dispatched by
/// GLib's main context of the thread. Where there is no bus, no portal or no such setting, or its value is of no use,
/// the text size is silently `large`; when the portal leaves, it stays as it was, and when the portal is back it is
/// asked again. On desktops whose setting this is not nothing is asked.
class DesktopTextSize {
 public:
  /// `desktops`: what $XDG_CURRENT_DESKTOP says.
  explicit DesktopTextSize(std::string_view desktops);
  DesktopTextSize(const DesktopTextSize&) = delete;
  DesktopTextSize& operator=(const DesktopTextSize&) = delete;
  /// Nothing is announced any more.
  ~DesktopTextSize();

 private:
  class Listener;
  std::shared_ptr<Listener> listener_;  // null where nothing is asked
};

}  // namespace Brisel::Gallery
