// Images made by drawing, and images drawn.
#pragma once

#include <functional>

#include "brisel/platform/canvas.h"
#include "brisel/platform/image.h"

namespace Brisel::Platform {

/// What a renderer makes: pixels a point (the main screen's until told), and whether the image has no alpha.
struct UIGraphicsImageRendererFormat {
  /// The main screen's scale, with alpha.
  UIGraphicsImageRendererFormat();

  CGFloat scale;        ///< pixels a point
  bool opaque = false;  ///< whether the image has no alpha
};

/// Makes images by drawing on a fresh canvas. May be used on any thread.
class UIGraphicsImageRenderer final {
 public:
  /// `initWithSize:format:`: for images of `size` points; a part of a pixel counts as a whole one.
  explicit UIGraphicsImageRenderer(CGSize size, const UIGraphicsImageRendererFormat& format = {})
      : size_(size), format_(format) {}

  /// `imageWithActions:`: what `actions` draws. An empty image, and no call of `actions`, where there can be no such
  /// canvas (see `Engine::makeCanvas`); empty too where the canvas failed. An empty `actions` is a programming error.
  ImagePtr image(const std::function<void(Canvas&)>& actions) const;

 private:
  CGSize size_;
  UIGraphicsImageRendererFormat format_;
};

/// `drawInRect:`: draws the image, stretched to the rectangle. Nothing where the image is empty.
void drawInRect(const UIImage& image, Canvas& canvas, const CGRect& rect);

/// `drawAtPoint:`: draws the image at its own size, its upper left corner at the point.
void drawAtPoint(const UIImage& image, Canvas& canvas, CGPoint point);

}  // namespace Brisel::Platform
