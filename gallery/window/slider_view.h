#pragma once

#include <memory>

#include "brisel/platform/views/view.h"
#include "brisel/themes/theme.h"

namespace Brisel::Gallery {

/// A line with steps on it, the first at the leading edge, and a knob on one of them.
class SliderView final : public Platform::UIView {
 public:
  /// A slider of at least two steps, the knob on the first.
  static std::shared_ptr<SliderView> initWithSteps(int steps);

  int steps() const noexcept { return steps_; }
  int step() const noexcept { return step_; }
  /// Steps that there are not count as the nearest one.
  void setStep(int step) noexcept;
  /// The step nearest to a point of its own coordinates.
  int stepAt(Platform::CGPoint point) const noexcept;
  void setColors(const Theme::ColorSet& colors);

  Platform::CGSize intrinsicContentSize() const override;

 protected:
  void drawContent(Platform::Canvas& canvas, Platform::CGPoint at) const override;

 private:
  explicit SliderView(int steps) noexcept : steps_(steps) {}
  Platform::CGFloat placeOf(int step) const noexcept;

  const int steps_;
  int step_ = 0;
  Platform::ColorPtr line_, chosen_, knob_;
};

}  // namespace Brisel::Gallery
