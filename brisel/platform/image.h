#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "brisel/platform/bitmap.h"
#include "brisel/platform/geometry.h"
#include "brisel/platform/object.h"

namespace Brisel::Platform {

/// Whether and where a bitmap's pixels carry alpha, by the published numbers.
enum class CGImageAlphaInfo : std::uint32_t {
  none = 0,                ///< no alpha, three components
  premultipliedLast = 1,   ///< behind the colours, which are multiplied by it
  premultipliedFirst = 2,  ///< before the colours, which are multiplied by it
  last = 3,                ///< behind the colours
  first = 4,               ///< before the colours
  noneSkipLast = 5,        ///< no alpha, but a component behind the colours
  noneSkipFirst = 6,       ///< no alpha, but a component before the colours
  only = 7,                ///< alpha without colours
};

/// Whether views may draw an image in their tint. The library draws each in its own colours.
enum class UIImageRenderingMode : std::uint8_t {
  automatic,       ///< as the view decides
  alwaysOriginal,  ///< never
  alwaysTemplate,  ///< always
};

/// An immutable picture of 8-bit RGBA pixels, or an empty one. It may be shared between threads; images that differ
/// only in rendering mode share their pixels.
class UIImage final : public NSObject {
 public:
  /// `init`: a new image without a bitmap, of no size, at scale 1.
  static std::shared_ptr<const UIImage> init();

  /// An image of pixels that lie `scale` a point. `alphaInfo` is kept as what the bitmap was before it became
  /// premultiplied RGBA; kinds without alpha make its pixels opaque. An image without a bitmap where the bitmap is not
  /// valid; scale 1 where `scale` is not finite and above 0.
  static std::shared_ptr<const UIImage> imageWithBitmap(
      Bitmap bitmap, CGFloat scale, CGImageAlphaInfo alphaInfo = CGImageAlphaInfo::premultipliedLast);

  /// `imageWithData:scale:`: the picture of a PNG file's bytes, its pixels premultiplied. Null where there is none, as
  /// in an empty file, and where it is larger than `Bitmap::kMostPixelsASide` or `Bitmap::kMostPixels` allow;
  /// `problem`, where given, then says why in a few words. Needs a port, and so is part of `Brisel::Core`.
  static std::shared_ptr<const UIImage> imageWithData(std::span<const std::uint8_t> data, CGFloat scale = 1,
                                                      std::string* problem = nullptr);

  /// The pixels; null for an empty image.
  const std::shared_ptr<const Bitmap>& bitmap() const noexcept { return bitmap_; }
  /// What the bitmap was, as the image was made with it.
  CGImageAlphaInfo alphaInfo() const noexcept { return alphaInfo_; }
  /// Pixels a point, above 0.
  CGFloat scale() const noexcept { return scale_; }
  /// How large it is, in points: the pixels divided by the scale.
  CGSize size() const noexcept;

  /// Whether views may draw it in their tint; `automatic` at first.
  UIImageRenderingMode renderingMode() const noexcept { return renderingMode_; }
  /// `imageWithRenderingMode:`: the same picture in another mode.
  std::shared_ptr<const UIImage> imageWithRenderingMode(UIImageRenderingMode renderingMode) const;

 private:
  friend class UIGraphicsImageRenderer;

  // As `imageWithBitmap`, of pixels that are already as `alphaInfo` says.
  static std::shared_ptr<const UIImage> imageWithFittingBitmap(Bitmap bitmap, CGFloat scale,
                                                               CGImageAlphaInfo alphaInfo);

  UIImage(std::shared_ptr<const Bitmap> bitmap, CGFloat scale, CGImageAlphaInfo alphaInfo, UIImageRenderingMode mode)
      : bitmap_(std::move(bitmap)), scale_(scale), alphaInfo_(alphaInfo), renderingMode_(mode) {}

  std::shared_ptr<const Bitmap> bitmap_;
  CGFloat scale_;
  CGImageAlphaInfo alphaInfo_;
  UIImageRenderingMode renderingMode_;
};

/// How images are passed on.
using ImagePtr = std::shared_ptr<const UIImage>;

/// The image as a PNG file's bytes; empty where the image is, and where there is no memory for them. Needs a port, and
/// so is part of `Brisel::Core`.
std::vector<std::uint8_t> UIImagePNGRepresentation(const UIImage& image);

}  // namespace Brisel::Platform
