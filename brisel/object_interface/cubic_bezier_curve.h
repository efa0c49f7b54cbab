// Timing curves, which ease animations.
#pragma once

#include <memory>

#include "brisel/platform/geometry.h"
#include "brisel/platform/object.h"

namespace VLMBrisel {

/// A point of a curve with its two tangent handles.
struct BezierPointDefinition {
  /// The point on the curve.
  Brisel::Platform::CGPoint position;
  /// The handle on the side of the curve's start.
  Brisel::Platform::CGPoint previousHandle;
  /// The handle on the side of the curve's end.
  Brisel::Platform::CGPoint nextHandle;
};

}  // namespace VLMBrisel

/// What turns the progress of an animation into its eased value.
class VLMBriselCurve {
 public:
  VLMBriselCurve(const VLMBriselCurve&) = delete;
  VLMBriselCurve& operator=(const VLMBriselCurve&) = delete;
  virtual ~VLMBriselCurve();

  /// `yForGivenX:`: the eased value of a progress x, 0 … 1.
  virtual double yForGivenX(double x) const = 0;

 protected:
  VLMBriselCurve() = default;
};

/// The cubic Bézier curve from (0, 0) to (1, 1) that two handles shape. Its operations call one another as virtual
/// functions, so that a subclass that overrides one changes the others. Several threads may read a curve that nobody
/// changes.
///
/// Any numbers may be given: every operation ends, with a result that may be infinite or not a number.
class VLMBriselCubicBezierCurve : public Brisel::Platform::NSObject, public VLMBriselCurve {
 public:
  /// `initWithStartHandle:endHandle:`: the curve of two handles, with its coefficients.
  static std::shared_ptr<VLMBriselCubicBezierCurve> initWithStartHandle(Brisel::Platform::CGPoint startHandle,
                                                                        Brisel::Platform::CGPoint endHandle);

  /// A coefficient of x(t) = ((ax t + bx) t + cx) t.
  double ax() const noexcept { return ax_; }
  /// A coefficient of x(t).
  double bx() const noexcept { return bx_; }
  /// A coefficient of x(t).
  double cx() const noexcept { return cx_; }
  /// A coefficient of y(t) = ((ay t + by) t + cy) t.
  double ay() const noexcept { return ay_; }
  /// A coefficient of y(t).
  double by() const noexcept { return by_; }
  /// A coefficient of y(t).
  double cy() const noexcept { return cy_; }

  /// Stores a coefficient of x(t).
  void setAx(double ax) noexcept { ax_ = ax; }
  /// Stores a coefficient of x(t).
  void setBx(double bx) noexcept { bx_ = bx; }
  /// Stores a coefficient of x(t).
  void setCx(double cx) noexcept { cx_ = cx; }
  /// Stores a coefficient of y(t).
  void setAy(double ay) noexcept { ay_ = ay; }
  /// Stores a coefficient of y(t).
  void setBy(double by) noexcept { by_ = by; }
  /// Stores a coefficient of y(t).
  void setCy(double cy) noexcept { cy_ = cy; }

  /// The control point next to the curve's start.
  Brisel::Platform::CGPoint startHandle() const noexcept { return startHandle_; }
  /// The control point next to the curve's end.
  Brisel::Platform::CGPoint endHandle() const noexcept { return endHandle_; }
  /// Stores the handle and, deliberately, does no more: samples stay as they are until
  /// `calculatePolynomialCoefficients` is called.
  void setStartHandle(Brisel::Platform::CGPoint handle) noexcept { startHandle_ = handle; }
  /// Stores the handle and, deliberately, does no more, like `setStartHandle`.
  void setEndHandle(Brisel::Platform::CGPoint handle) noexcept { endHandle_ = handle; }

  /// Sets the six coefficients from the handles.
  virtual void calculatePolynomialCoefficients();

  /// How near x(t) comes to an x that is solved for: nearer than 0.005.
  virtual double epsilon() const;

  /// `sampleCurveX:`: x at a parameter t, 0 … 1 along the curve.
  virtual double sampleCurveX(double t) const;
  /// `sampleCurveY:`: y at a parameter t.
  virtual double sampleCurveY(double t) const;
  /// `sampleCurveDerivativeX:`: dx/dt at a parameter t.
  virtual double sampleCurveDerivativeX(double t) const;

  /// `solveCurveX:epsilon:`: a t at which x(t) is nearer to x than epsilon, by Newton's method, else by bisection.
  /// Newton's method may find a t outside 0 … 1 for an x outside. Where neither finds one, t is 0 for an x below 0, 1
  /// for an x above 1, and where the bisection ends for the others.
  virtual double solveCurveX(double x, double epsilon) const;
  /// `solveCurveX:`: the same within `epsilon()`.
  virtual double solveCurveX(double x) const;

  /// `yForGivenX:`: y at the t that is solved for x within `epsilon()`.
  double yForGivenX(double x) const override;

  /// `lerpFrom:to:progress:`: from + (to - from) × progress.
  virtual Brisel::Platform::CGPoint lerpFrom(Brisel::Platform::CGPoint from, Brisel::Platform::CGPoint to,
                                             double progress) const;

  /// `positionAndHandleAt:`: the point at t with its handles, by the handles that are set now.
  virtual VLMBrisel::BezierPointDefinition positionAndHandleAt(double t) const;

  /// `translate:by:`: the position moved by an offset. Both handles of the result are that position too, deliberately:
  /// those of the argument are not used.
  virtual VLMBrisel::BezierPointDefinition translate(const VLMBrisel::BezierPointDefinition& point,
                                                     Brisel::Platform::CGPoint offset) const;
  /// `scale:by:`: the position multiplied by a factor, component by component. Both handles of the result are that
  /// position too, deliberately, like those of `translate`.
  virtual VLMBrisel::BezierPointDefinition scale(const VLMBrisel::BezierPointDefinition& point,
                                                 Brisel::Platform::CGPoint factor) const;

  /// `subCurveFromStartT:endT:`: a new curve between two parameters, scaled to run from (0, 0) to (1, 1). As
  /// translating and scaling drop the handles, it is a straight line whose handles are at its ends, but for rounding.
  /// Where both points have the same x or the same y, those components of its handles are not numbers.
  virtual std::shared_ptr<VLMBriselCubicBezierCurve> subCurveFromStartT(double startT, double endT) const;

 protected:
  VLMBriselCubicBezierCurve() = default;

  /// What every factory does with the bare object, a subclass's too: its overrides hold from the first calculation on.
  template <class Curve>
  static std::shared_ptr<Curve> made(std::shared_ptr<Curve> curve, Brisel::Platform::CGPoint startHandle,
                                     Brisel::Platform::CGPoint endHandle) {
    curve->setStartHandle(startHandle);
    curve->setEndHandle(endHandle);
    curve->calculatePolynomialCoefficients();
    return curve;
  }

 private:
  double ax_ = 0, bx_ = 0, cx_ = 0;
  double ay_ = 0, by_ = 0, cy_ = 0;
  Brisel::Platform::CGPoint startHandle_, endHandle_;
};
