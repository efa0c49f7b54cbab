// Trees of the library's own views, as the style guide's specimens are made of.
#pragma once

#include <memory>

#include "brisel/platform/color.h"
#include "brisel/platform/geometry.h"
#include "brisel/platform/views/view.h"
#include "brisel/tokens/spacer.h"

namespace Brisel::Gallery {

using ViewPtr = std::shared_ptr<Platform::UIView>;

/// Fills a view from its top downwards: each subview from side to side of it, and as high as its own constraints and
/// content make it.
class ViewColumn {
 public:
  /// `ground` is as wide as its frame says; `margin` points are left free at its top and bottom.
  explicit ViewColumn(ViewPtr ground, Platform::CGFloat margin = 0);

  /// Adds a view `gap` points below the one before; for the first one, the margin is the gap.
  void add(const ViewPtr& view, Platform::CGFloat gap = 0);

  /// Lays out, and gives the ground the height of what stands on it, in whole points.
  ViewPtr laidOut() const;

 private:
  ViewPtr ground_, last_;
  Platform::CGFloat margin_;
};

/// A box in a colour round a view.
ViewPtr boxed(const ViewPtr& view, Spacer horizontal, Spacer vertical, const Platform::ColorPtr& color);

}  // namespace Brisel::Gallery
