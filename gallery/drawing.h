// What the pages' own drawings are made of besides the canvas's rectangles and paths.
#pragma once

#include <string_view>

#include "brisel/icons/icon.h"
#include "brisel/platform/bezier_path.h"
#include "brisel/platform/canvas.h"
#include "brisel/platform/color.h"
#include "brisel/platform/geometry.h"
#include "brisel/typography/type_style.h"

namespace Brisel::Gallery {

/// A closed path round the rectangle with quarters of circles for corners. The radius, in points, is at most half of
/// the shorter side.
Platform::UIBezierPath roundedRect(const Platform::CGRect& rect, Platform::CGFloat radius);

enum class Alignment { left, middle };

/// Draws one line of text in a style, at the default text size: from the box's left edge or in its middle, and with
/// the height of its capitals in the middle of the box's height.
void drawLine(Platform::Canvas& canvas, std::string_view text, const TypeStyle& style, const Platform::ColorPtr& color,
              const Platform::CGRect& box, Alignment alignment = Alignment::left);

/// Draws an icon that fills a square of `side` points, at the canvas's own scale: images of icons are kept at the scale
/// that they were first asked for at.
void drawIcon(Platform::Canvas& canvas, const Icon& icon, const Platform::ColorPtr& color, Platform::CGPoint at,
              Platform::CGFloat side);

}  // namespace Brisel::Gallery
