#include "brisel/object_interface/shape_images.h"

#include "brisel/infrastructure/shape_images.h"

using Brisel::Platform::CGFloat;
using Brisel::Platform::CGPoint;
using Brisel::Platform::CGSize;
using Brisel::Platform::ColorPtr;
using Brisel::Platform::ImagePtr;
using Brisel::Platform::UIImage;

ImagePtr briselSwift_withCircleOfDiameter(const UIImage& image, CGFloat diameter, CGFloat lineWidth,
                                          const ColorPtr& lineColor, const ColorPtr& fillColor, bool cutOutShape) {
  return Brisel::withCircle(image, diameter, lineWidth, lineColor, fillColor, cutOutShape);
}

ImagePtr briselSwift_withStarOfDiameter(const UIImage& image, CGFloat diameter, CGFloat innerDiameter,
                                        std::int64_t points, const ColorPtr& fillColor, bool cutOutShape) {
  return Brisel::withStar(image, diameter, innerDiameter, points, fillColor, cutOutShape);
}

ImagePtr briselSwift_withDotOfDiameter(const UIImage& image, CGFloat diameter, CGFloat cutOutDiameter, CGPoint position,
                                       const ColorPtr& fillColor) {
  return Brisel::withDot(image, diameter, cutOutDiameter, position, fillColor);
}

ImagePtr briselSwift_verifiedIndicatorForSize(CGSize size, const ColorPtr& fillColor) {
  return Brisel::verifiedIndicator(size, fillColor);
}

ImagePtr brisel_withCircleOfDiameter(const UIImage& image, CGFloat diameter, const ColorPtr& lineColor,
                                     CGFloat lineWidth, const ColorPtr& fillColor, bool cutOutShape) {
  return Brisel::withCircle(image, diameter, lineWidth, lineColor, fillColor, cutOutShape);
}

ImagePtr brisel_withCircleOfDiameter(const UIImage& image, CGFloat diameter, const ColorPtr& lineColor,
                                     CGFloat lineWidth, const ColorPtr& fillColor) {
  return brisel_withCircleOfDiameter(image, diameter, lineColor, lineWidth, fillColor, false);
}

ImagePtr brisel_withStarOfDiameter(const UIImage& image, CGFloat diameter, CGFloat innerDiameter, std::int64_t points,
                                   const ColorPtr& fillColor, bool cutOutShape) {
  return Brisel::withStar(image, diameter, innerDiameter, points, fillColor, cutOutShape);
}

ImagePtr brisel_withStarOfDiameter(const UIImage& image, CGFloat diameter, CGFloat innerDiameter, std::int64_t points,
                                   const ColorPtr& fillColor) {
  return brisel_withStarOfDiameter(image, diameter, innerDiameter, points, fillColor, false);
}

ImagePtr brisel_withDotOfDiameter(const UIImage& image, CGFloat diameter, CGFloat cutOutDiameter, CGPoint position,
                                  const ColorPtr& fillColor) {
  return Brisel::withDot(image, diameter, cutOutDiameter, position, fillColor);
}

ImagePtr brisel_verifiedIndicatorForSize(CGSize size, const ColorPtr& fillColor) {
  return Brisel::verifiedIndicator(size, fillColor);
}
