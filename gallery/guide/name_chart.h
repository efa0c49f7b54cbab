#pragma once

#include "brisel/platform/canvas.h"
#include "brisel/platform/geometry.h"

namespace Brisel::Gallery {

/// The picture of the Reference page: the types that are on both interfaces, a line each, value beside object.
class NameChart {
 public:
  explicit NameChart(Platform::CGFloat width) : width_(width) {}

  Platform::CGSize size() const;
  void paint(Platform::Canvas& canvas) const;

 private:
  Platform::CGFloat width_;
};

}  // namespace Brisel::Gallery
