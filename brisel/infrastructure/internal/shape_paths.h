// The outlines of the shape images.
#pragma once

#include <cstdint>

#include "brisel/platform/bezier_path.h"
#include "brisel/platform/geometry.h"

namespace Brisel::internal {

/// The oval in the middle of a line `lineWidth` wide whose outer edge touches a square of side `diameter` at `origin`;
/// empty where the line is not narrower than the square. Its own line width is `lineWidth`.
Platform::UIBezierPath circlePath(Platform::CGPoint origin, Platform::CGFloat diameter, Platform::CGFloat lineWidth);

/// The circle of a diameter about a point.
Platform::UIBezierPath dotPath(Platform::CGPoint center, Platform::CGFloat diameter);

/// How many corners a star of so many points has: twice as many. Where that leaves 64 bits, below 0 too, it is a
/// programming error.
std::int64_t starVertexCount(std::int64_t points);

/// A star in the square of side `diameter` at `origin`, one of its `points` on top, the notches on a circle of
/// `innerDiameter`. A point without lines where `points` is not above 0; the same programming error as above. Takes
/// time and memory in proportion to `points`.
Platform::UIBezierPath starPath(Platform::CGPoint origin, Platform::CGFloat diameter, Platform::CGFloat innerDiameter,
                                std::int64_t points);

/// The verified badge's outline for a canvas of a size. Its width scales the height and its height the width.
Platform::UIBezierPath badgePath(Platform::CGSize canvasSize);

}  // namespace Brisel::internal
