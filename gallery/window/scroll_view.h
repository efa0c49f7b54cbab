#pragma once

#include <memory>

#include "brisel/platform/views/view.h"

namespace Brisel::Gallery {

/// Shows a part of a view as wide as itself that may be higher.
class ScrollView final : public Platform::UIView {
 public:
  static std::shared_ptr<ScrollView> initWithContent(const std::shared_ptr<Platform::UIView>& content);

  /// How many points of the content are hidden above; from 0 to what keeps its end in sight.
  Platform::CGFloat offset() const noexcept { return offset_; }
  void setOffset(Platform::CGFloat offset);
  /// As of the last layout.
  Platform::CGFloat largestOffset() const noexcept;

  void layoutSubviews() override;

 private:
  ScrollView() = default;

  std::shared_ptr<Platform::UIView> content_;
  std::shared_ptr<Platform::NSLayoutConstraint> top_;
  Platform::CGFloat offset_ = 0;
};

}  // namespace Brisel::Gallery
