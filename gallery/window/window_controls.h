#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "brisel/platform/geometry.h"

#include "gallery/code_names.h"
#include "gallery/window/sample_screen.h"

namespace Brisel::Gallery {

/// What a person does by keys and pointer, put into action on a sample screen. Text sizes that are chosen are announced
/// to the whole program.
class WindowControls {
 public:
  enum class Key : std::uint8_t {
    left,
    right,
    usualSize,
    nextColors,
    previousColors,
    direction,
    up,
    down,
    pageUp,
    pageDown,
    home,
    end,
  };

  /// The screen must show the colour set of this name, and must outlive the controls.
  WindowControls(SampleScreen& screen, std::string_view colors);

  void press(Key key);
  // In points from the window's upper left corner. A button that can be pressed is so while the pointer is on it, and
  // is chosen, or no longer, where the pointer is let go on it.
  void pointerDown(Platform::CGPoint at);
  void pointerMoved(Platform::CGPoint at);
  void pointerUp(Platform::CGPoint at);
  /// Towards the end of the content by so many notches of the wheel.
  void turnWheel(double notches);

 private:
  std::shared_ptr<PillButton> buttonAt(Platform::CGPoint at);
  void choose(int step);
  void showColors(std::size_t index);

  SampleScreen& screen_;
  const std::vector<NamedColorSet> sets_ = allColorSets();
  std::size_t set_ = 0;
  bool isDragging_ = false;              // the knob of the slider
  std::shared_ptr<PillButton> pressed_;  // from the pointer's going down on it until it is let go
};

}  // namespace Brisel::Gallery
