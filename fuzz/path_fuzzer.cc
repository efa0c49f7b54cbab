// Any drawing on a small canvas: its pixels stay premultiplied, an opaque one stays opaque, and once all is restored it
// takes paint like a new one.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "brisel/platform/port.h"

#include "fuzz/input.h"

using namespace Brisel::Platform;
using Brisel::Fuzz::require;

namespace {

class DrawingSource final : public Brisel::Fuzz::Source {
 public:
  using Source::Source;

  // Mostly a plain number near the canvas, else any bits at all.
  CGFloat number() { return below(4) > 0 ? take<std::int16_t>() / 1024.0 : take<double>(); }
  CGPoint point() {
    const CGFloat x = number();
    return {x, number()};
  }
  CGRect rect() {
    const CGPoint origin = point();
    const CGFloat width = number();
    return {origin, {width, number()}};
  }
  UIColor color() {
    const CGFloat red = number();
    const CGFloat green = number();
    const CGFloat blue = number();
    return UIColor::rgb(red, green, blue, number());
  }

  UIBezierPath path() {
    UIBezierPath path;
    if (below(4) == 0) path = UIBezierPath::bezierPathWithOvalInRect(rect());
    for (int segments = below(16); segments > 0; --segments) addSegment(path);
    if (below(3) == 0) {
      const CGPoint x = point();
      const CGPoint y = point();
      const CGPoint t = point();
      path.applyTransform({x.x, x.y, y.x, y.y, t.x, t.y});
    }
    path.setLineWidth(number());
    return path;
  }

  Bitmap bitmap() {
    Bitmap bitmap{1 + below(8), 1 + below(8), {}};
    for (int i = 0; i < bitmap.width * bitmap.height; ++i) {
      const auto alpha = take<std::uint8_t>();
      for (int c = 0; c < 3; ++c) bitmap.rgba.push_back(std::min(take<std::uint8_t>(), alpha));
      bitmap.rgba.push_back(alpha);
    }
    return bitmap;
  }

 private:
  void addSegment(UIBezierPath& path) {
    switch (below(4)) {
      case 0:
        return path.moveToPoint(point());
      case 1:
        return path.addLineToPoint(point());
      case 2: {
        const CGPoint end = point();
        const CGPoint control = point();
        return path.addCurveToPoint(end, control, point());
      }
      default:
        return path.closePath();
    }
  }
};

// `saves` counts those that have not been restored.
void drawOnce(Canvas& canvas, DrawingSource& source, int& saves) {
  switch (source.below(11)) {
    case 0:
      ++saves;
      return canvas.save();
    case 1:
      if (saves == 1) return;  // That one is kept for the end.
      --saves;
      return canvas.restore();
    case 2:
      return canvas.setBlendMode(source.below(2) == 0 ? CGBlendMode::normal : CGBlendMode::clear);
    case 3:
      return canvas.setInterpolationQuality(static_cast<CGInterpolationQuality>(source.below(5)));
    case 4:
      return canvas.clipToPath(source.path());
    case 5: {
      const Bitmap mask = source.bitmap();
      return canvas.clipToMask(mask, source.rect());
    }
    case 6: {
      const CGRect rect = source.rect();
      return canvas.fillRect(rect, source.color());
    }
    case 7:
    case 8: {
      const UIBezierPath path = source.path();
      return canvas.fillPath(path, source.color());
    }
    case 9: {
      const UIBezierPath path = source.path();
      return canvas.strokePath(path, source.color());
    }
    default: {
      const Bitmap bitmap = source.bitmap();
      return canvas.drawBitmap(bitmap, source.rect());
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  DrawingSource source(data, size);
  const bool isOpaque = source.below(2) == 1;
  const auto canvas = engine().makeCanvas({12, 10}, 1 + source.below(3) / 2.0, isOpaque);
  constexpr int kMostSteps = 64;
  int saves = 1;
  canvas->save();
  for (int step = 0; step < kMostSteps && !source.isEmpty(); ++step) drawOnce(*canvas, source, saves);

  const Bitmap drawn = canvas->bitmap();
  for (std::size_t i = 0; i < drawn.rgba.size(); i += 4) {
    const std::uint8_t* pixel = &drawn.rgba[i];
    require(std::max({pixel[0], pixel[1], pixel[2]}) <= pixel[3]);
    require(!isOpaque || pixel[3] == 255);
  }

  while (saves-- > 0) canvas->restore();
  canvas->fillRect({{0, 0}, {100, 100}}, UIColor::grey(1, 1));
  const Bitmap white = canvas->takeBitmap();
  require(std::all_of(white.rgba.begin(), white.rgba.end(), [](std::uint8_t byte) { return byte == 255; }));
  return 0;
}
