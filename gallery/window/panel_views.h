// Grounds with round corners, on which other things stand.
#pragma once

#include <array>
#include <memory>

#include "brisel/platform/views/button.h"
#include "brisel/platform/views/view.h"

namespace Brisel::Gallery {

/// A ground for other views.
class PanelView final : public Platform::UIView {
 public:
  static std::shared_ptr<PanelView> init();
  /// Null: none.
  void setColors(Platform::ColorPtr ground, Platform::ColorPtr outline);

 protected:
  void drawContent(Platform::Canvas& canvas, Platform::CGPoint at) const override;

 private:
  PanelView() = default;

  Platform::ColorPtr ground_, outline_;
};

/// A button on a ground of its own, which tells its state: pressed, else not to be used, else chosen, else none of
/// these.
class PillButton final : public Platform::UIButton {
 public:
  /// The states that look different.
  static constexpr std::array kStates = {Platform::UIControlStateHighlighted, Platform::UIControlStateDisabled,
                                         Platform::UIControlStateSelected, Platform::UIControlStateNormal};

  static std::shared_ptr<PillButton> init();
  /// For one of the states. Null: none.
  void setColors(Platform::ColorPtr ground, Platform::ColorPtr outline, Platform::UIControlState state);

 protected:
  void drawContent(Platform::Canvas& canvas, Platform::CGPoint at) const override;

 private:
  struct Ground {
    Platform::ColorPtr inside, outline;
  };

  PillButton() = default;

  std::array<Ground, kStates.size()> grounds_;
};

}  // namespace Brisel::Gallery
