#pragma once

#include <memory>

#include "brisel/platform/views/view.h"

namespace Brisel::Gallery {

/// Sets its subviews, each as large as it likes to be, in rows from the leading edge, as many in a row as there is room
/// for. One that is wider than the view is cut down to its width.
class FlowView final : public Platform::UIView {
 public:
  /// `gap`: points between subviews and between rows.
  static std::shared_ptr<FlowView> initWithGap(Platform::CGFloat gap);

  /// To be called when what its subviews hold has changed.
  void contentDidChange();

  Platform::CGSize intrinsicContentSize() const override;
  Platform::CGSize sizeThatFits(Platform::CGSize size) const override;
  void layoutSubviews() override;
  /// The direction may be another.
  void traitCollectionDidChange(const std::shared_ptr<const Platform::UITraitCollection>& previous) override;

 protected:
  bool hasHeightForWidth() const override { return true; }

 private:
  explicit FlowView(Platform::CGFloat gap) noexcept : gap_(gap) {}
  // Calls `place` with each subview and its place at a width; returns the height of all.
  template <class Place>
  Platform::CGFloat arrange(Platform::CGFloat width, Place place) const;

  const Platform::CGFloat gap_;
};

}  // namespace Brisel::Gallery
