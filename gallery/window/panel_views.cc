#include "gallery/window/panel_views.h"

#include <algorithm>
#include <utility>

#include "gallery/drawing.h"

namespace Brisel::Gallery {

using Platform::CGFloat, Platform::CGPoint, Platform::CGRect, Platform::ColorPtr;

namespace {

constexpr CGFloat kLine = 1, kCorner = 8;  // points

void drawGround(Platform::Canvas& canvas, const CGRect& rect, CGFloat corner, const ColorPtr& ground,
                const ColorPtr& outline) {
  if (rect.size.width <= 2 * corner || rect.size.height < 2 * corner) return;
  if (ground) canvas.fillPath(roundedRect(rect, corner), *ground);
  if (!outline) return;
  auto line = roundedRect(
      {{rect.origin.x + kLine / 2, rect.origin.y + kLine / 2}, {rect.size.width - kLine, rect.size.height - kLine}},
      corner - kLine / 2);
  line.setLineWidth(kLine);
  canvas.strokePath(line, *outline);
}

}  // namespace

std::shared_ptr<PanelView> PanelView::init() { return made(std::shared_ptr<PanelView>(new PanelView), {}); }

void PanelView::setColors(ColorPtr ground, ColorPtr outline) {
  ground_ = std::move(ground);
  outline_ = std::move(outline);
}

void PanelView::drawContent(Platform::Canvas& canvas, CGPoint at) const {
  drawGround(canvas, {at, bounds().size}, kCorner, ground_, outline_);
}

std::shared_ptr<PillButton> PillButton::init() { return made(std::shared_ptr<PillButton>(new PillButton), {}); }

void PillButton::setColors(ColorPtr ground, ColorPtr outline, Platform::UIControlState state) {
  for (std::size_t i = 0; i < kStates.size(); ++i)
    if (kStates[i] == state) grounds_[i] = {std::move(ground), std::move(outline)};
}

void PillButton::drawContent(Platform::Canvas& canvas, CGPoint at) const {
  const Platform::CGSize size = bounds().size;
  const auto* const shown = std::find_if(kStates.begin(), kStates.end() - 1,
                                         [this](Platform::UIControlState flag) { return (state() & flag) != 0; });
  const auto& [inside, outline] = grounds_[static_cast<std::size_t>(shown - kStates.begin())];
  drawGround(canvas, {at, size}, std::min(size.width, size.height) / 2, inside, outline);
  UIButton::drawContent(canvas, at);
}

}  // namespace Brisel::Gallery
