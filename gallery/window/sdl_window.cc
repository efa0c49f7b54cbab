// The one file that knows SDL: it hands on what a person does, and shows what the screen draws.
#include "gallery/window/sdl_window.h"

#include <atomic>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>

#include <SDL.h>
#include <glib.h>

#include "brisel/platform/screen.h"

#include "gallery/desktop/desktop_text_size.h"
#include "gallery/window/window_command.h"
#include "gallery/window/window_controls.h"

namespace Brisel::Gallery {
namespace {

using Key = WindowControls::Key;
using Platform::CGPoint, Platform::CGSize;

[[noreturn]] void fail(const std::string& what, const std::string& why = SDL_GetError()) {
  throw std::runtime_error("cannot " + what + ": " + why);
}

[[noreturn]] void failToOpen(const std::string& why = SDL_GetError()) {
  fail("open a window", why + "; --screenshot FILE needs no display");
}

struct Destroy {
  void operator()(SDL_Window* window) const { SDL_DestroyWindow(window); }
  void operator()(SDL_Renderer* renderer) const { SDL_DestroyRenderer(renderer); }
  void operator()(SDL_Texture* texture) const { SDL_DestroyTexture(texture); }
};
template <class T>
using Held = std::unique_ptr<T, Destroy>;

struct Video {
  Video() {
    // An interrupt ends the program at once: there is nothing to clear away.
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
    // Wayland's library would complain in a line of its own where no place for it is named. X alone is tried
    // then, and no bare console either, unless $SDL_VIDEODRIVER names another driver.
    const char* const wayland = std::getenv("WAYLAND_DISPLAY");
    if (std::getenv("XDG_RUNTIME_DIR") == nullptr && (wayland == nullptr || *wayland != '/'))
      SDL_SetHint(SDL_HINT_VIDEODRIVER, "x11");
    if (SDL_Init(SDL_INIT_VIDEO) != 0) failToOpen();
    // Without a display SDL opens windows that nobody sees, nor closes.
    const std::string_view driver = SDL_GetCurrentVideoDriver();
    if (driver != "offscreen" && driver != "dummy") return;
    SDL_Quit();
    failToOpen("there is no display");
  }
  Video(const Video&) = delete;
  Video& operator=(const Video&) = delete;
  ~Video() { SDL_Quit(); }
};

// The waiting of GLib's loop, which runs the program's main queue and the bus: until one of its descriptors is ready,
// or a person does something. The descriptors are watched on another thread, as SDL does not say what it waits for.
int waitForBoth(GPollFD* descriptors, guint count, int timeout) {
  if (timeout == 0) return g_poll(descriptors, count, 0);
  int ready = 0;
  std::atomic<bool> isReady = false;
  std::thread watch([&] {
    ready = g_poll(descriptors, count, timeout);
    isReady = true;
    SDL_Event wake{};
    wake.type = SDL_USEREVENT;
    SDL_PushEvent(&wake);
  });
  SDL_WaitEvent(nullptr);
  // Where the other thread waits no longer, a call would end the next waiting at once, and that the one after it.
  if (!isReady) g_main_context_wakeup(nullptr);
  watch.join();
  SDL_FlushEvent(SDL_USEREVENT);  // SDL_PollEvent may stop before it, and the next waiting would not begin.
  return ready;
}

std::optional<Key> keyOf(const SDL_Keysym& key) {
  switch (key.sym) {
    case SDLK_LEFT:
      return Key::left;
    case SDLK_RIGHT:
      return Key::right;
    case SDLK_0:
      return Key::usualSize;
    case SDLK_c:
      return (key.mod & KMOD_SHIFT) != 0 ? Key::previousColors : Key::nextColors;
    case SDLK_d:
      return Key::direction;
    case SDLK_UP:
      return Key::up;
    case SDLK_DOWN:
      return Key::down;
    case SDLK_PAGEUP:
      return Key::pageUp;
    case SDLK_PAGEDOWN:
      return Key::pageDown;
    case SDLK_HOME:
      return Key::home;
    case SDLK_END:
      return Key::end;
    default:
      return std::nullopt;
  }
}

class ShownWindow {
 public:
  explicit ShownWindow(const WindowCommand& command)
      : look_(command), screen_(makeScreen(command, look_)), controls_(*screen_, look_.colors.name) {
    const CGSize size = screen_->window().frame().size;
    // Without an own scale of the desktop's, the window's pixels are its points; then it is made larger by ours.
    const double enlargement = command.scale.value_or(1);
    const auto units = [enlargement](double points) { return static_cast<int>(std::lround(points * enlargement)); };
    window_.reset(SDL_CreateWindow("Brisel", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, units(size.width),
                                   units(size.height), SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI));
    if (!window_) failToOpen();
    SDL_SetWindowMinimumSize(window_.get(), units(kLeastWindowWidth), units(kLeastWindowHeight));
    renderer_.reset(SDL_CreateRenderer(window_.get(), -1, 0));
    if (!renderer_) fail("draw in a window");
    ownScale_ = command.scale;
    windowDidResize();
    // Whoever has named a text size has it, whatever the desktop says.
    const char* const desktops = std::getenv("XDG_CURRENT_DESKTOP");
    if (!look_.textSize && desktops != nullptr) desktop_.emplace(desktops);
  }

  void run() {
    g_main_context_set_poll_func(nullptr, waitForBoth);
    while (isOpen_) {
      if (screen_->needsDisplay() || isStale_) show();
      g_main_context_iteration(nullptr, TRUE);
      for (SDL_Event event; SDL_PollEvent(&event) != 0;) take(event);
    }
    g_main_context_set_poll_func(nullptr, nullptr);
  }

 private:
  void take(const SDL_Event& event) {
    switch (event.type) {
      case SDL_QUIT:
        isOpen_ = false;
        return;
      case SDL_KEYDOWN:
        if (event.key.keysym.sym == SDLK_ESCAPE) isOpen_ = false;
        if (const auto key = keyOf(event.key.keysym)) controls_.press(*key);
        return;
      case SDL_MOUSEBUTTONDOWN:
        if (event.button.button == SDL_BUTTON_LEFT) controls_.pointerDown(points(event.button.x, event.button.y));
        return;
      case SDL_MOUSEMOTION:
        return controls_.pointerMoved(points(event.motion.x, event.motion.y));
      case SDL_MOUSEBUTTONUP:
        if (event.button.button == SDL_BUTTON_LEFT) controls_.pointerUp(points(event.button.x, event.button.y));
        return;
      case SDL_MOUSEWHEEL:
        return controls_.turnWheel(-static_cast<double>(event.wheel.preciseY));
      case SDL_WINDOWEVENT:
        if (event.window.event == SDL_WINDOWEVENT_SIZE_CHANGED) windowDidResize();
        if (event.window.event == SDL_WINDOWEVENT_EXPOSED) isStale_ = true;
        return;
      default:
        return;
    }
  }

  void windowDidResize() {
    int width = 0, height = 0, units = 0;
    SDL_GetRendererOutputSize(renderer_.get(), &width, &height);
    SDL_GetWindowSize(window_.get(), &units, nullptr);
    pixelsAUnit_ = units > 0 ? static_cast<double>(width) / units : 1;
    scale_ = ownScale_.value_or(pixelsAUnit_);
    Platform::UIScreen::mainScreen().setScale(scale_);
    screen_->setSize({width / scale_, height / scale_});
    isStale_ = true;
  }

  CGPoint points(int x, int y) const { return {x * pixelsAUnit_ / scale_, y * pixelsAUnit_ / scale_}; }

  void show() {
    const Platform::ImagePtr picture = screen_->draw(scale_);
    isStale_ = false;
    if (!picture->bitmap()) return;  // larger than can be drawn; the next size may do
    const Platform::Bitmap& bitmap = *picture->bitmap();
    const Held<SDL_Texture> texture(SDL_CreateTexture(renderer_.get(), SDL_PIXELFORMAT_RGBA32, SDL_TEXTUREACCESS_STATIC,
                                                      bitmap.width, bitmap.height));
    if (!texture) fail("draw in a window");
    SDL_SetTextureBlendMode(texture.get(), SDL_BLENDMODE_NONE);
    SDL_UpdateTexture(texture.get(), nullptr, bitmap.rgba.data(), static_cast<int>(bitmap.bytesPerRow()));
    const SDL_Rect whole{0, 0, bitmap.width, bitmap.height};
    SDL_RenderClear(renderer_.get());
    SDL_RenderCopy(renderer_.get(), texture.get(), nullptr, &whole);
    SDL_RenderPresent(renderer_.get());
  }

  const WindowLook look_;
  const Video video_;
  const std::unique_ptr<SampleScreen> screen_;
  WindowControls controls_;
  Held<SDL_Window> window_;
  Held<SDL_Renderer> renderer_;
  std::optional<DesktopTextSize> desktop_;
  std::optional<double> ownScale_;  // pixels a point, instead of the desktop's
  double scale_ = 1;                // pixels a point
  double pixelsAUnit_ = 1;          // of those in which SDL speaks of places
  bool isStale_ = true;             // what the window shows is not what was drawn last
  bool isOpen_ = true;
};

}  // namespace

void showWindow(const WindowCommand& command) { ShownWindow(command).run(); }

}  // namespace Brisel::Gallery
