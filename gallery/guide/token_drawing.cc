#include "gallery/guide/token_drawing.h"

#include "brisel/platform/bezier_path.h"
#include "brisel/platform/color.h"
#include "brisel/platform/views/image_renderer.h"
#include "brisel/themes/theme.h"

#include "gallery/guide/artwork.h"
#include "gallery/guide/specimens.h"
#include "gallery/guide/swatches.h"

namespace Brisel::Gallery {

using Platform::CGFloat, Platform::CGRect;

void paintSpacer(Platform::Canvas& canvas, Spacer spacer) {
  constexpr CGFloat kElement = kSpacerPicture.height, kMiddle = kElement / 2;
  constexpr CGFloat kLine = 2, kEnd = 16;
  const CGFloat gap = spacer.value();
  const Platform::UIColor& element = *Theme::dark().base().essential().subdued();
  const Platform::UIColor& measure = *Theme::dark().base().essential().brightAccent();
  canvas.fillRect({{}, kSpacerPicture}, specimenGround());
  canvas.fillRect({{0, 0}, {kElement, kElement}}, element);
  canvas.fillRect({{kElement + gap, 0}, {kElement, kElement}}, element);
  canvas.fillRect({{kElement, kMiddle - kLine / 2}, {gap, kLine}}, measure);
  canvas.fillRect({{kElement, kMiddle - kEnd / 2}, {kLine, kEnd}}, measure);
  canvas.fillRect({{kElement + gap - kLine, kMiddle - kEnd / 2}, {kLine, kEnd}}, measure);
}

void paintOpacity(Platform::Canvas& canvas, Opacity opacity) {
  constexpr CGFloat kInset = Spacer::x16().value();
  fillSwatch(canvas, {{}, kOpacityPicture}, Platform::UIColor::grey(1, 0));
  drawAtPoint(*landscape(kOpacityPicture.height), canvas, {0, 0});
  paintLayer(canvas, {{kInset, kInset}, {kOpacityPicture.width - 2 * kInset, kOpacityPicture.height - 2 * kInset}},
             opacity);
}

void paintLayer(Platform::Canvas& canvas, const CGRect& rect, Opacity opacity) {
  canvas.fillRect(rect, Platform::UIColor::grey(1, opacity.value()));
  constexpr CGFloat kLine = 1;
  auto outline = Platform::UIBezierPath::bezierPathWithRect(
      {{rect.origin.x + kLine / 2, rect.origin.y + kLine / 2}, {rect.size.width - kLine, rect.size.height - kLine}});
  outline.setLineWidth(kLine);
  canvas.strokePath(outline, Platform::UIColor::grey(1, 1));
}

}  // namespace Brisel::Gallery
