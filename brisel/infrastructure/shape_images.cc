#include "brisel/infrastructure/shape_images.h"

#include <algorithm>
#include <optional>

#include "brisel/icons/icon.h"
#include "brisel/icons/icon_image.h"
#include "brisel/infrastructure/internal/shape_paths.h"
#include "brisel/platform/fatal_error.h"
#include "brisel/platform/views/image_renderer.h"
#include "brisel/tokens/color.h"

namespace Brisel {

using internal::badgePath;
using internal::circlePath;
using internal::dotPath;
using internal::starPath;
using internal::starVertexCount;
using Platform::Canvas;
using Platform::CGBlendMode;
using Platform::CGFloat;
using Platform::CGPoint;
using Platform::CGSize;
using Platform::ColorPtr;
using Platform::ImagePtr;
using Platform::UIBezierPath;
using Platform::UIColor;
using Platform::UIGraphicsImageRenderer;
using Platform::UIImage;

namespace {

const UIColor& required(const ColorPtr& color) {
  if (!color) Platform::fatalError("A shape image was given a null colour");
  return *color;
}

// What has room for an image and a square shape in its middle.
CGSize canvasSize(CGSize image, CGFloat diameter) {
  return {std::max(image.width, diameter), std::max(image.height, diameter)};
}

// Where something of a size begins that lies in the middle of something larger.
CGPoint centered(CGSize inner, CGSize outer) {
  return {(outer.width - inner.width) * 0.5, (outer.height - inner.height) * 0.5};
}

void clipToAlpha(const UIImage& image, Canvas& canvas, CGSize size) {
  if (image.bitmap()) canvas.clipToMask(*image.bitmap(), {{0, 0}, size});
}

}  // namespace

ImagePtr withCircle(const UIImage& image, CGFloat diameter, CGFloat lineWidth, const ColorPtr& lineColor,
                    const ColorPtr& fillColor, bool isCuttingOutImage) {
  const UIColor& line = required(lineColor);
  const CGSize size = canvasSize(image.size(), diameter);
  return UIGraphicsImageRenderer(size).image([&](Canvas& canvas) {
    const UIBezierPath circle = circlePath(centered({diameter, diameter}, size), diameter, lineWidth);
    if (isCuttingOutImage) clipToAlpha(image, canvas, size);
    if (fillColor) canvas.fillPath(circle, *fillColor);
    canvas.strokePath(circle, line);
    canvas.clipToPath(circle);  // deliberately also where nothing is drawn after it; the star does likewise
    if (!isCuttingOutImage) drawAtPoint(image, canvas, centered(image.size(), size));
  });
}

ImagePtr withStar(const UIImage& image, CGFloat diameter, CGFloat innerDiameter, std::int64_t points,
                  const ColorPtr& fillColor, bool isCuttingOutImage) {
  const UIColor& fill = required(fillColor);
  const CGSize box{diameter, diameter};
  const CGSize size = canvasSize(image.size(), diameter);
  const CGPoint origin = centered(box, size);
  starVertexCount(points);  // Too many points are an error where there can be no canvas too.
  return UIGraphicsImageRenderer(size).image([&](Canvas& canvas) {
    const UIBezierPath star = starPath(origin, diameter, innerDiameter, points);
    if (isCuttingOutImage) clipToAlpha(image, canvas, size);
    canvas.fillPath(star, fill);
    canvas.clipToPath(star);
    const CGPoint inBox = centered(image.size(), box);
    if (!isCuttingOutImage) drawAtPoint(image, canvas, {origin.x + inBox.x, origin.y + inBox.y});
  });
}

ImagePtr withDot(const UIImage& image, CGFloat diameter, CGFloat cutOutDiameter, CGPoint position,
                 const ColorPtr& fillColor) {
  const UIColor& fill = required(fillColor);
  return UIGraphicsImageRenderer(image.size()).image([&](Canvas& canvas) {
    drawAtPoint(image, canvas, {0, 0});
    if (cutOutDiameter > 0) {
      canvas.setBlendMode(CGBlendMode::clear);
      canvas.fillPath(dotPath(position, cutOutDiameter), UIColor::grey(0, 0));
      canvas.setBlendMode(CGBlendMode::normal);
    }
    canvas.fillPath(dotPath(position, diameter), fill);
  });
}

ImagePtr verifiedIndicator(CGSize size, const ColorPtr& fillColor) {
  const UIColor& fill = required(fillColor);
  const CGSize half{size.width * 0.5, size.height * 0.5};
  const ImagePtr check =
      Brisel::image(Icon::check(), half, half, std::nullopt, Color::white().value(), UIColor::clearColor(), {0, 0});
  return UIGraphicsImageRenderer(size).image([&](Canvas& canvas) {
    canvas.fillPath(badgePath(size), fill);
    drawAtPoint(*check, canvas, centered(check->size(), size));
  });
}

}  // namespace Brisel
