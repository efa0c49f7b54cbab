#include "gallery/guide/swatches.h"

#include <algorithm>

#include "brisel/tokens/color.h"
#include "brisel/tokens/spacer.h"

namespace Brisel::Gallery {

void fillSwatch(Platform::Canvas& canvas, const Platform::CGRect& rect, const Platform::UIColor& color) {
  if (color.alpha() < 1) {
    canvas.fillRect(rect, *Color::gray30().value());
    const double side = Spacer::x8().value();
    for (int row = 0; row * side < rect.size.height; ++row) {
      for (int column = row % 2; column * side < rect.size.width; column += 2) {
        const double x = column * side, y = row * side;
        canvas.fillRect({{rect.origin.x + x, rect.origin.y + y},
                         {std::min(side, rect.size.width - x), std::min(side, rect.size.height - y)}},
                        *Color::gray50().value());
      }
    }
  }
  canvas.fillRect(rect, color);
}

}  // namespace Brisel::Gallery
