// Timing curves as the style guide shows them.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "brisel/object_interface/cubic_bezier_curve.h"
#include "brisel/platform/canvas.h"
#include "brisel/platform/color.h"
#include "brisel/platform/geometry.h"

namespace Brisel::Gallery {

struct NamedCurve {
  std::string_view id;
  std::string_view title;
  Platform::CGPoint startHandle;
  Platform::CGPoint endHandle;

  std::shared_ptr<const VLMBriselCubicBezierCurve> make() const;
  std::string code() const;   ///< "VLMBriselCubicBezierCurve::initWithStartHandle({0.25, 0.1}, {0.25, 1})"
  std::string value() const;  ///< "0.25, 0.1, 0.25, 1"
};

/// From the plainest to the liveliest.
std::span<const NamedCurve> namedCurves();

/// Where a graph shows points of a curve: progress to the right, eased values upwards. Room is left for handles above.
class CurveGraph {
 public:
  explicit CurveGraph(double highest = 1) : highest_(highest) {}

  // The page's style sheet places its moving dots by these, in points.
  static constexpr double kSide = 160, kLeft = 16, kBottom = 16, kRail = 32;

  /// With and without the rail on the right on which values move.
  Platform::CGSize size() const;
  Platform::CGSize sizeWithRail() const;

  void paintGround(Platform::Canvas& canvas) const;
  /// In grey.
  void paintCurve(Platform::Canvas& canvas, const VLMBriselCubicBezierCurve& curve) const;
  /// With its handles, and with dots at twentieths of the progress.
  void paintSampledCurve(Platform::Canvas& canvas, const VLMBriselCubicBezierCurve& curve) const;
  /// The heights of the dots alone.
  void paintRail(Platform::Canvas& canvas, const VLMBriselCubicBezierCurve& curve) const;
  /// The point at t, joined to its two handles.
  void paintTangent(Platform::Canvas& canvas, const VLMBriselCubicBezierCurve& curve, double t) const;
  void paintPart(Platform::Canvas& canvas, const VLMBriselCubicBezierCurve& curve, double startT, double endT) const;

 private:
  void strokeCurve(Platform::Canvas& canvas, const VLMBriselCubicBezierCurve& curve,
                   const Platform::UIColor& color) const;
  Platform::CGPoint at(Platform::CGPoint point) const;
  double highest_;
};

}  // namespace Brisel::Gallery
