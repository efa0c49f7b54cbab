#include "gallery/window/window_controls.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "gallery/catalogue_names.h"
#include "gallery/desktop/text_size.h"

namespace Brisel::Gallery {

using Platform::CGFloat, Platform::CGPoint, Platform::UIUserInterfaceLayoutDirection;

namespace {
constexpr CGFloat kLine = 48;  // points that an arrow key or a notch of the wheel moves the content
}

WindowControls::WindowControls(SampleScreen& screen, std::string_view colors) : screen_(screen) {
  while (set_ + 1 < sets_.size() && sets_[set_].name != colors) ++set_;
}

void WindowControls::press(Key key) {
  constexpr CGFloat kAll = std::numeric_limits<CGFloat>::max() / 4;  // points
  const bool isMirrored = screen_.direction() == UIUserInterfaceLayoutDirection::rightToLeft;
  const int step = screen_.slider()->step();
  switch (key) {
    // Where the knob goes, on a screen that begins at the right too.
    case Key::left:
      return choose(isMirrored ? step + 1 : step - 1);
    case Key::right:
      return choose(isMirrored ? step - 1 : step + 1);
    case Key::usualSize:
      return announceTextSize(ContentSizeCategory::large);
    case Key::nextColors:
      return showColors((set_ + 1) % sets_.size());
    case Key::previousColors:
      return showColors((set_ + sets_.size() - 1) % sets_.size());
    case Key::direction:
      return screen_.setDirection(isMirrored ? UIUserInterfaceLayoutDirection::leftToRight
                                             : UIUserInterfaceLayoutDirection::rightToLeft);
    case Key::up:
      return screen_.scrollBy(-kLine);
    case Key::down:
      return screen_.scrollBy(kLine);
    case Key::pageUp:
      return screen_.scrollBy(kLine - screen_.visibleHeight());
    case Key::pageDown:
      return screen_.scrollBy(screen_.visibleHeight() - kLine);
    case Key::home:
      return screen_.scrollBy(-kAll);
    case Key::end:
      return screen_.scrollBy(kAll);
  }
}

void WindowControls::pointerDown(CGPoint at) {
  // Nobody may have told of the last time that the pointer was let go.
  if (const auto leftOver = std::exchange(pressed_, nullptr); leftOver && leftOver->isHighlighted()) {
    leftOver->setHighlighted(false);
    screen_.setNeedsDisplay();
  }
  const auto& slider = *screen_.slider();
  const CGPoint own = screen_.window().convertPointToView(at, slider);
  const auto [width, height] = slider.bounds().size;
  constexpr CGFloat kAround = 12;  // points beside the slider that count as on it
  isDragging_ = own.x >= -kAround && own.x <= width + kAround && own.y >= -kAround && own.y <= height + kAround;
  const auto button = isDragging_ ? nullptr : buttonAt(at);
  pressed_ = button && button->isEnabled() && !button->isHighlighted() ? button : nullptr;
  pointerMoved(at);
}

void WindowControls::pointerMoved(CGPoint at) {
  if (pressed_ && pressed_->isHighlighted() != (buttonAt(at) == pressed_)) {
    pressed_->setHighlighted(!pressed_->isHighlighted());
    screen_.setNeedsDisplay();
  }
  if (!isDragging_) return;
  const auto& slider = *screen_.slider();
  choose(slider.stepAt(screen_.window().convertPointToView(at, slider)));
}

void WindowControls::pointerUp(CGPoint at) {
  isDragging_ = false;
  pointerMoved(at);  // or what was under it has moved away
  const auto button = std::exchange(pressed_, nullptr);
  if (!button || !button->isHighlighted()) return;
  button->setHighlighted(false);
  button->setSelected(!button->isSelected());
  screen_.setNeedsDisplay();
}

// Only what is in sight can be meant.
std::shared_ptr<PillButton> WindowControls::buttonAt(CGPoint at) {
  const auto isOn = [&window = screen_.window(), at](const Platform::UIView& view) {
    const CGPoint own = window.convertPointToView(at, view);
    const auto [width, height] = view.bounds().size;
    return own.x >= 0 && own.x < width && own.y >= 0 && own.y < height;
  };
  if (!isOn(*screen_.scroll())) return nullptr;
  for (const auto& button : screen_.views().buttons())
    if (isOn(*button)) return button;
  return nullptr;
}

void WindowControls::turnWheel(double notches) { screen_.scrollBy(notches * kLine); }

void WindowControls::choose(int step) {
  const auto all = categories();
  step = std::clamp(step, 0, static_cast<int>(all.size()) - 1);
  const ContentSizeCategory category = all[static_cast<std::size_t>(step)].category;
  if (category != screen_.textSize()) announceTextSize(category);
}

void WindowControls::showColors(std::size_t index) {
  set_ = index;
  screen_.setColors(sets_[set_]);
}

}  // namespace Brisel::Gallery
