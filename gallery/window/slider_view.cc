#include "gallery/window/slider_view.h"

#include <algorithm>
#include <cmath>

#include "gallery/drawing.h"

namespace Brisel::Gallery {

using Platform::CGFloat, Platform::CGPoint;

namespace {

constexpr CGFloat kKnob = 10, kDot = 4, kLine = 4;  // points: two radii and a thickness

void fillCircle(Platform::Canvas& canvas, CGPoint centre, CGFloat radius, const Platform::UIColor& color) {
  canvas.fillPath(Platform::UIBezierPath::bezierPathWithOvalInRect(
                      {{centre.x - radius, centre.y - radius}, {2 * radius, 2 * radius}}),
                  color);
}

}  // namespace

std::shared_ptr<SliderView> SliderView::initWithSteps(int steps) {
  return made(std::shared_ptr<SliderView>(new SliderView(std::max(steps, 2))), {});
}

void SliderView::setStep(int step) noexcept { step_ = std::clamp(step, 0, steps_ - 1); }

void SliderView::setColors(const Theme::ColorSet& colors) {
  line_ = colors.essential().subdued();
  chosen_ = colors.essential().brightAccent();
  knob_ = colors.essential().base();
}

CGFloat SliderView::placeOf(int step) const noexcept {
  const CGFloat length = std::max<CGFloat>(bounds().size.width - 2 * kKnob, 0);
  const CGFloat way = length * step / (steps_ - 1);
  const bool isMirrored =
      effectiveUserInterfaceLayoutDirection() == Platform::UIUserInterfaceLayoutDirection::rightToLeft;
  return kKnob + (isMirrored ? length - way : way);
}

int SliderView::stepAt(CGPoint point) const noexcept {
  int nearest = 0;
  for (int step = 1; step < steps_; ++step) {
    if (std::abs(placeOf(step) - point.x) < std::abs(placeOf(nearest) - point.x)) nearest = step;
  }
  return nearest;
}

Platform::CGSize SliderView::intrinsicContentSize() const { return {Platform::UIViewNoIntrinsicMetric, 2 * kKnob}; }

void SliderView::drawContent(Platform::Canvas& canvas, CGPoint at) const {
  if (!line_) return;
  const CGFloat middle = at.y + bounds().size.height / 2;
  const auto stretch = [&](int from, int to, const Platform::UIColor& color) {
    const auto [left, right] = std::minmax({at.x + placeOf(from), at.x + placeOf(to)});
    canvas.fillRect({{left, middle - kLine / 2}, {right - left, kLine}}, color);
  };
  stretch(0, steps_ - 1, *line_);
  stretch(0, step_, *chosen_);
  for (int step = 0; step < steps_; ++step) {
    fillCircle(canvas, {at.x + placeOf(step), middle}, kDot, step <= step_ ? *chosen_ : *line_);
  }
  fillCircle(canvas, {at.x + placeOf(step_), middle}, kKnob, *knob_);
}

}  // namespace Brisel::Gallery
