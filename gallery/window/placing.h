// Constraints in the words of a screen: this below that, as wide as its place.
#pragma once

#include <memory>
#include <vector>

#include "brisel/platform/views/layout_constraint.h"
#include "brisel/platform/views/view.h"

namespace Brisel::Gallery {

using Constraints = std::vector<std::shared_ptr<Platform::NSLayoutConstraint>>;

/// Adds a view that constraints place.
void addPlaced(Platform::UIView& parent, const std::shared_ptr<Platform::UIView>& view);

/// Adds a view that fills its parent but for insets, in points.
void addFilling(Platform::UIView& parent, const std::shared_ptr<Platform::UIView>& view,
                const Platform::NSDirectionalEdgeInsets& insets = {});

/// Adds views below one another to a parent, each as wide as it, the last one ending where the parent does.
class Column {
 public:
  explicit Column(Platform::UIView& parent) : parent_(parent) {}
  /// `gap` points below the one before, or below the parent's top.
  void add(const std::shared_ptr<Platform::UIView>& view, Platform::CGFloat gap = 0);
  void end() const;

 private:
  Platform::UIView& parent_;
  std::shared_ptr<Platform::UIView> last_;
};

}  // namespace Brisel::Gallery
