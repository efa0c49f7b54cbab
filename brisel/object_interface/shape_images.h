// The object interface of the shape images (see brisel/infrastructure/shape_images.h): all forward to it.
#pragma once

#include <cstdint>

#include "brisel/platform/color.h"
#include "brisel/platform/geometry.h"
#include "brisel/platform/image.h"

/// `briselSwift_withCircleOfDiameter:lineWidth:lineColor:fillColor:cutOutShape:`: see `Brisel::withCircle`.
Brisel::Platform::ImagePtr briselSwift_withCircleOfDiameter(
    const Brisel::Platform::UIImage& image, Brisel::Platform::CGFloat diameter, Brisel::Platform::CGFloat lineWidth,
    const Brisel::Platform::ColorPtr& lineColor, const Brisel::Platform::ColorPtr& fillColor, bool cutOutShape);

/// `briselSwift_withStarOfDiameter:innerDiameter:points:fillColor:cutOutShape:`: see `Brisel::withStar`.
Brisel::Platform::ImagePtr briselSwift_withStarOfDiameter(const Brisel::Platform::UIImage& image,
                                                          Brisel::Platform::CGFloat diameter,
                                                          Brisel::Platform::CGFloat innerDiameter, std::int64_t points,
                                                          const Brisel::Platform::ColorPtr& fillColor,
                                                          bool cutOutShape);

/// `briselSwift_withDotOfDiameter:cutOutDiameter:position:fillColor:`: see `Brisel::withDot`.
Brisel::Platform::ImagePtr briselSwift_withDotOfDiameter(const Brisel::Platform::UIImage& image,
                                                         Brisel::Platform::CGFloat diameter,
                                                         Brisel::Platform::CGFloat cutOutDiameter,
                                                         Brisel::Platform::CGPoint position,
                                                         const Brisel::Platform::ColorPtr& fillColor);

/// `briselSwift_verifiedIndicatorForSize:fillColor:`: see `Brisel::verifiedIndicator`.
Brisel::Platform::ImagePtr briselSwift_verifiedIndicatorForSize(Brisel::Platform::CGSize size,
                                                                const Brisel::Platform::ColorPtr& fillColor);

/// `brisel_withCircleOfDiameter:lineColor:lineWidth:fillColor:cutOutShape:`. Here, deliberately, the line's colour
/// comes before its width.
Brisel::Platform::ImagePtr brisel_withCircleOfDiameter(const Brisel::Platform::UIImage& image,
                                                       Brisel::Platform::CGFloat diameter,
                                                       const Brisel::Platform::ColorPtr& lineColor,
                                                       Brisel::Platform::CGFloat lineWidth,
                                                       const Brisel::Platform::ColorPtr& fillColor, bool cutOutShape);
/// `brisel_withCircleOfDiameter:lineColor:lineWidth:fillColor:`: draws the image.
Brisel::Platform::ImagePtr brisel_withCircleOfDiameter(const Brisel::Platform::UIImage& image,
                                                       Brisel::Platform::CGFloat diameter,
                                                       const Brisel::Platform::ColorPtr& lineColor,
                                                       Brisel::Platform::CGFloat lineWidth,
                                                       const Brisel::Platform::ColorPtr& fillColor);

/// `brisel_withStarOfDiameter:innerDiameter:points:fillColor:cutOutShape:`: see `Brisel::withStar`.
Brisel::Platform::ImagePtr brisel_withStarOfDiameter(const Brisel::Platform::UIImage& image,
                                                     Brisel::Platform::CGFloat diameter,
                                                     Brisel::Platform::CGFloat innerDiameter, std::int64_t points,
                                                     const Brisel::Platform::ColorPtr& fillColor, bool cutOutShape);
/// `brisel_withStarOfDiameter:innerDiameter:points:fillColor:`: draws the image.
Brisel::Platform::ImagePtr brisel_withStarOfDiameter(const Brisel::Platform::UIImage& image,
                                                     Brisel::Platform::CGFloat diameter,
                                                     Brisel::Platform::CGFloat innerDiameter, std::int64_t points,
                                                     const Brisel::Platform::ColorPtr& fillColor);

/// `brisel_withDotOfDiameter:cutOutDiameter:position:fillColor:`: see `Brisel::withDot`.
Brisel::Platform::ImagePtr brisel_withDotOfDiameter(const Brisel::Platform::UIImage& image,
                                                    Brisel::Platform::CGFloat diameter,
                                                    Brisel::Platform::CGFloat cutOutDiameter,
                                                    Brisel::Platform::CGPoint position,
                                                    const Brisel::Platform::ColorPtr& fillColor);

/// `brisel_verifiedIndicatorForSize:fillColor:`: see `Brisel::verifiedIndicator`.
Brisel::Platform::ImagePtr brisel_verifiedIndicatorForSize(Brisel::Platform::CGSize size,
                                                           const Brisel::Platform::ColorPtr& fillColor);
