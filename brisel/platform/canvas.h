// The drawing context: what is painted on, through a port.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "brisel/platform/bezier_path.h"
#include "brisel/platform/bitmap.h"
#include "brisel/platform/color.h"
#include "brisel/platform/geometry.h"
#include "brisel/platform/port_object.h"

namespace Brisel::Platform {

/// How what is drawn meets what is there.
enum class CGBlendMode : std::uint8_t {
  normal,  ///< over it, by its alpha
  clear,   ///< erases it, whatever the colour; on an opaque canvas it leaves black
};

/// How smoothly images are enlarged and reduced, by the published numbers. `none` takes the nearest pixel, the others
/// mix neighbouring ones. On the port that ships these others enlarge alike; in reducing, `low` may pass over pixels
/// that the rest average.
enum class CGInterpolationQuality : std::int32_t {
  default_ = 0,  ///< as the port likes
  none = 1,      ///< the nearest pixel
  low = 2,       ///< quickly
  high = 3,      ///< as well as can be
  medium = 4,    ///< between the two
};

/// A glyph where it is drawn: its origin, in points from the canvas's upper left corner, y downwards.
struct PositionedGlyph {
  std::uint32_t id = 0;  ///< its number in the face
  CGPoint origin;        ///< of the glyph, on its baseline
};

/// A bitmap being painted. For one thread at a time. Coordinates are points from the upper left corner, y downwards.
/// Colours, shapes and images are drawn antialiased, under the current clip, in the current blend mode. A drawing with
/// a distance that is not finite does nothing.
class Canvas {
 public:
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;
  virtual ~Canvas();

  /// Pixels a point.
  CGFloat scale() const noexcept { return scale_; }

  /// Remembers clip, blend mode and interpolation quality, for `restore`.
  void save();
  /// Takes back what has changed since the last `save` that has not been restored; nothing where there is none.
  void restore();

  /// How drawings meet what is there, from now on; `normal` at first.
  void setBlendMode(CGBlendMode mode) { onSetBlendMode(mode); }
  /// How bitmaps are stretched, from now on; `default_` at first.
  void setInterpolationQuality(CGInterpolationQuality quality) { onSetInterpolationQuality(quality); }

  /// From now on draws only within the path (by the nonzero rule): nowhere, where it is empty.
  void clipToPath(const UIBezierPath& path);
  /// From now on draws through the mask's alpha, the mask being stretched over the rectangle: nowhere outside of it.
  void clipToMask(const Bitmap& mask, const CGRect& rect);

  /// Nothing happens where the rectangle is empty.
  void fillRect(const CGRect& rect, const UIColor& color);
  /// Fills by the nonzero rule; open subpaths are closed for it.
  void fillPath(const UIBezierPath& path, const UIColor& color);
  /// Strokes with the path's own line width, butt ends and mitred joins.
  void strokePath(const UIBezierPath& path, const UIColor& color);

  /// Draws a bitmap, stretched to the rectangle. Ports need not draw bitmaps with a side above 32,767 pixels.
  void drawBitmap(const Bitmap& bitmap, const CGRect& rect);

  /// Draws glyphs of one face at one size, unhinted and placed to the sub-pixel. Ports need not draw glyphs that reach
  /// further than 65,535 pixels from the canvas's upper left corner, even where they would cover the canvas.
  void drawGlyphs(const Face& face, CGFloat pointSize, std::span<const PositionedGlyph> glyphs, const UIColor& color);

  /// A copy of the pixels as they are now. A canvas that failed, as for want of memory, has no pixels: what it would
  /// show is not what was drawn.
  Bitmap bitmap() const { return onBitmap(); }

  /// The pixels themselves, not copied; none of a canvas that failed. The canvas is of no use afterwards: it draws
  /// nothing and has no pixels.
  Bitmap takeBitmap() { return onTakeBitmap(); }

 protected:
  /// A canvas of an engine, at `scale` pixels a point.
  Canvas(const Engine& maker, CGFloat scale) noexcept : maker_(&maker), scale_(scale) {}
  /// @{
  /// The work of the public call of this name, whose arguments have been checked.
  virtual void onSave() = 0;
  virtual void onRestore() = 0;
  virtual void onSetBlendMode(CGBlendMode mode) = 0;
  virtual void onSetInterpolationQuality(CGInterpolationQuality quality) = 0;
  virtual void onClipToPath(const UIBezierPath& path) = 0;
  virtual void onClipToMask(const Bitmap& mask, const CGRect& rect) = 0;
  virtual void onFillRect(const CGRect& rect, const UIColor& color) = 0;
  virtual void onFillPath(const UIBezierPath& path, const UIColor& color) = 0;
  virtual void onStrokePath(const UIBezierPath& path, const UIColor& color) = 0;
  virtual void onDrawBitmap(const Bitmap& bitmap, const CGRect& rect) = 0;
  virtual void onDrawGlyphs(const Face& face, CGFloat pointSize, std::span<const PositionedGlyph> glyphs,
                            const UIColor& color) = 0;
  virtual Bitmap onBitmap() const = 0;
  virtual Bitmap onTakeBitmap() = 0;
  /// @}

 private:
  const Engine* maker_;
  CGFloat scale_;
  std::size_t saves_ = 0;
};

}  // namespace Brisel::Platform
