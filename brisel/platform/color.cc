#include "brisel/platform/color.h"

#include "brisel/platform/internal/hash.h"

namespace Brisel::Platform {

ColorPtr UIColor::initWithWhite(CGFloat white, CGFloat alpha) {
  return std::make_shared<const UIColor>(grey(white, alpha));
}

ColorPtr UIColor::initWithRed(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
  return std::make_shared<const UIColor>(rgb(red, green, blue, alpha));
}

ColorPtr UIColor::clearColor() noexcept {
  static constexpr UIColor kClear = grey(0, 0);
  return ColorPtr(std::shared_ptr<void>(), &kClear);  // Lives for ever, and so needs no counting.
}

ColorPtr UIColor::colorWithAlphaComponent(CGFloat alpha) const {
  return std::make_shared<const UIColor>(UIColor(form_, red_, green_, blue_, alpha));
}

std::size_t UIColor::objectHash() const noexcept {
  internal::Hasher hasher;
  hasher(form_, red_, green_, blue_, alpha_);
  return hasher.finish();
}

}  // namespace Brisel::Platform
