// Grounds with round corners, on which other things stand.
#pragma once

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

/// A button on a ground of its own.
class PillButton final : public Platform::UIButton {
 public:
  static std::shared_ptr<PillButton> init();
  /// Null: none.
  void setColors(Platform::ColorPtr ground, Platform::ColorPtr outline);

 protected:
  void drawContent(Platform::Canvas& canvas, Platform::CGPoint at) const override;

 private:
  PillButton() = default;

  Platform::ColorPtr ground_, outline_;
};

}  // namespace Brisel::Gallery
