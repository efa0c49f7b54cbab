#pragma once

#include <utility>

#include "brisel/platform/color.h"
#include "brisel/platform/fatal_error.h"
#include "brisel/platform/internal/hash.h"

namespace Brisel::internal {

/// A colour inside a value: a handle that is never null and whose `==` asks the colours, so that the values that hold
/// it may have theirs defaulted.
class Swatch {
 public:
  /// A null colour is a programming error.
  explicit Swatch(Platform::ColorPtr color) : color_(std::move(color)) {
    if (!color_) Platform::fatalError("A null colour was given where a value needs one");
  }

  const Platform::ColorPtr& color() const noexcept { return color_; }

  friend bool operator==(const Swatch& a, const Swatch& b) noexcept {
    return a.color_ == b.color_ || a.color_->isEqual(*b.color_);
  }
  friend void hashInto(Platform::internal::Hasher& hasher, const Swatch& swatch) {
    hasher(swatch.color_->objectHash());
  }

 private:
  Platform::ColorPtr color_;
};

}  // namespace Brisel::internal
