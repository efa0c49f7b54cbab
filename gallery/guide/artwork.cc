#include "gallery/guide/artwork.h"

#include <string_view>

#include "brisel/icons/icon_image.h"
#include "brisel/platform/bezier_path.h"
#include "brisel/platform/views/image_renderer.h"
#include "brisel/platform/views/text_drawing.h"
#include "brisel/tokens/color.h"
#include "brisel/typography/content_size_category.h"
#include "brisel/typography/styled_string.h"
#include "brisel/typography/type_style.h"

namespace Brisel::Gallery {
namespace {

using Platform::Canvas, Platform::CGFloat, Platform::CGPoint, Platform::UIBezierPath;

// Paints in a square of 100 units, whatever the canvas's size.
class Brush {
 public:
  Brush(Canvas& canvas, CGFloat side) : canvas_(canvas), unit_(side / 100) {}

  void fill(UIBezierPath path, const Color& color) {
    path.applyTransform({unit_, 0, 0, unit_, 0, 0});
    canvas_.fillPath(path, *color.value());
  }
  void fillOval(CGPoint middle, CGFloat radiusX, CGFloat radiusY, const Color& color) {
    fill(UIBezierPath::bezierPathWithOvalInRect({{middle.x - radiusX, middle.y - radiusY}, {2 * radiusX, 2 * radiusY}}),
         color);
  }
  void fillRect(const Platform::CGRect& rect, const Color& color) {
    canvas_.fillRect({at(rect.origin), {rect.size.width * unit_, rect.size.height * unit_}}, *color.value());
  }
  void stroke(UIBezierPath path, CGFloat width, const Color& color) {
    path.applyTransform({unit_, 0, 0, unit_, 0, 0});
    path.setLineWidth(width * unit_);
    canvas_.strokePath(path, *color.value());
  }
  CGPoint at(CGPoint point) const { return {point.x * unit_, point.y * unit_}; }

 private:
  Canvas& canvas_;
  CGFloat unit_;
};

UIBezierPath from(CGPoint start) {
  UIBezierPath path;
  path.moveToPoint(start);
  return path;
}

// Land below a line of two curves, down to the lower edge.
UIBezierPath hills(CGFloat left, CGFloat middle, CGFloat right) {
  UIBezierPath path = from({0, left});
  path.addCurveToPoint({50, middle}, {18, left - 8}, {32, middle + 9});
  path.addCurveToPoint({100, right}, {68, middle - 9}, {82, right + 8});
  path.addLineToPoint({100, 100});
  path.addLineToPoint({0, 100});
  path.closePath();
  return path;
}

void paintLandscape(Canvas& canvas, CGFloat side) {
  Brush brush(canvas, side);
  brush.fillRect({{0, 0}, {100, 100}}, Color::violetPinkDesat67());
  brush.fillOval({50, 43}, 38, 38, Color::violetPink100());
  brush.fillOval({50, 43}, 29, 29, Color::redOrange135());
  // A low sun behind the haze.
  for (const auto& [top, height] : {CGPoint{40, 1.5}, {46, 2.25}, {52, 3}, {58.5, 4}}) {
    brush.fillRect({{20, top}, {60, height}}, Color::violetPink100());
  }
  brush.fill(hills(56, 61, 53), Color::pink75());
  brush.fill(hills(66, 60, 65), Color::aubergine46());
  brush.fill(hills(84, 88, 85), Color::blueVioletDesat25());
}

// Centred between the sides, its top at `top`.
void drawText(Canvas& canvas, CGFloat side, std::string_view text, const TypeStyle& style, CGFloat top) {
  const auto attributed = attributedString(text, style, ContentSizeCategory::large.platformCategory(),
                                           {{Platform::NSForegroundColorAttributeName, Color::white().value()}});
  const Platform::TextDrawing drawing(*attributed);
  drawing.draw(canvas, {(side - drawing.size().width) / 2, top});
}

}  // namespace

Platform::ImagePtr landscape(CGFloat side) {
  Platform::UIGraphicsImageRendererFormat format;
  format.opaque = true;
  return Platform::UIGraphicsImageRenderer({side, side}, format).image([side](Canvas& canvas) {
    paintLandscape(canvas, side);
  });
}

Platform::ImagePtr albumCover(CGFloat side) {
  Platform::UIGraphicsImageRendererFormat format;
  format.opaque = true;
  return Platform::UIGraphicsImageRenderer({side, side}, format).image([side](Canvas& canvas) {
    paintLandscape(canvas, side);
    const CGFloat mark = side / 9;
    drawAtPoint(
        *image(Icon::soundwave(), {mark, mark}, std::nullopt, Color::white().value(), Platform::UIColor::clearColor()),
        canvas, {side * 0.06, side * 0.06});
    drawText(canvas, side, "Night Ferry", TypeStyle::celloCanon(), side * 0.66);
    drawText(canvas, side, "The Quiet Hours", TypeStyle::minuet(), side * 0.66 + 22);
  });
}

Platform::ImagePtr portrait(CGFloat side) {
  return Platform::UIGraphicsImageRenderer({side, side}).image([side](Canvas& canvas) {
    Brush brush(canvas, side);
    brush.fillOval({50, 46}, 27, 30, Color::aubergine46());  // hair behind the face

    UIBezierPath shoulders = from({6, 100});
    shoulders.addCurveToPoint({42, 74}, {9, 81}, {26, 78});
    shoulders.addLineToPoint({58, 74});
    shoulders.addCurveToPoint({94, 100}, {74, 78}, {91, 81});
    shoulders.closePath();
    brush.fill(shoulders, Color::sunflower172());

    UIBezierPath neck = from({42, 58});
    neck.addLineToPoint({58, 58});
    neck.addLineToPoint({58, 74});
    neck.addCurveToPoint({42, 74}, {55, 82}, {45, 82});
    neck.closePath();
    brush.fill(neck, Color::brown123());
    brush.fillOval({50, 46}, 17.5, 21, Color::brown155());

    UIBezierPath fringe = from({31, 46});
    fringe.addCurveToPoint({50, 20}, {29, 29}, {38, 20});
    fringe.addCurveToPoint({69, 46}, {62, 20}, {71, 29});
    fringe.addCurveToPoint({56, 31}, {66, 40}, {62, 35});
    fringe.addCurveToPoint({31, 46}, {50, 37}, {38, 38});
    fringe.closePath();
    brush.fill(fringe, Color::aubergine46());

    UIBezierPath band = from({27, 48});
    band.addCurveToPoint({73, 48}, {24, 3}, {76, 3});
    brush.stroke(band, 4.5, Color::gray95());
    brush.fillOval({27, 50}, 6, 9.5, Color::gray95());
    brush.fillOval({73, 50}, 6, 9.5, Color::gray95());
    brush.fillOval({27, 50}, 3, 6, Color::halvornGreen157());
    brush.fillOval({73, 50}, 3, 6, Color::halvornGreen157());
  });
}

}  // namespace Brisel::Gallery
