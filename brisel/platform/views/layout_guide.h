#pragma once

#include <memory>

#include "brisel/platform/geometry.h"
#include "brisel/platform/views/layout_anchor.h"

namespace Brisel::Platform {

/// A rectangle that takes part in layout like a view, and shows nothing. A view owns it, from `UIView::addLayoutGuide`.
class UILayoutGuide final : public LayoutItem {
 public:
  /// A guide that no view owns yet.
  static std::shared_ptr<UILayoutGuide> init();
  ~UILayoutGuide() override;

  /// The view that it belongs to; null until it is added to one.
  std::shared_ptr<UIView> owningView() const noexcept;
  /// In the coordinates of the owning view, as of the last layout.
  const CGRect& layoutFrame() const noexcept { return layoutFrame_; }

  std::shared_ptr<const UIView> layoutView() const override;

 private:
  friend class NSLayoutConstraint;
  friend class UIView;
  friend class internal::ViewLayout;
  UILayoutGuide() = default;

  UIView* owner_ = nullptr;  // which takes itself out before it goes
  CGRect layoutFrame_;
};

}  // namespace Brisel::Platform
