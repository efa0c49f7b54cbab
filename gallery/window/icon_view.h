#pragma once

#include <memory>

#include "brisel/icons/icon.h"
#include "brisel/platform/views/view.h"

namespace Brisel::Gallery {

/// An icon in a square. From right to left it shows what the icon asks for: another one, or its mirror image.
class IconView final : public Platform::UIView {
 public:
  /// `side` is in points.
  static std::shared_ptr<IconView> initWithIcon(const Icon& icon, Platform::CGFloat side,
                                                const Platform::ColorPtr& color);

  void setSide(Platform::CGFloat side);
  void setColor(const Platform::ColorPtr& color) { color_ = color; }

  Platform::CGSize intrinsicContentSize() const override { return {side_, side_}; }
  Platform::CGSize sizeThatFits(Platform::CGSize) const override { return {side_, side_}; }

 protected:
  void drawContent(Platform::Canvas& canvas, Platform::CGPoint at) const override;

 private:
  IconView(const Icon& icon, Platform::CGFloat side, const Platform::ColorPtr& color)
      : icon_(icon), color_(color), side_(side) {}

  const Icon icon_;
  Platform::ColorPtr color_;
  Platform::CGFloat side_;
};

}  // namespace Brisel::Gallery
