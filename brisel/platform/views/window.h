#pragma once

#include <memory>

#include "brisel/platform/views/view.h"

namespace Brisel::Platform {

/// The top of a tree of views: what a host shows on the screen, and the door through which its surroundings come in.
class UIWindow final : public UIView {
 public:
  /// `initWithFrame:`: a window of which nothing is specified, and whose tree is empty.
  static std::shared_ptr<UIWindow> initWithFrame(const CGRect& frame = {});

  /// Told by the host of the user's settings; nothing is specified until then. All views below are told. Null: nothing
  /// specified.
  void setTraitCollection(const std::shared_ptr<const UITraitCollection>& traits);

  /// The controller whose view fills the window, from the next layout on; null: none. The view of the one before is
  /// taken out.
  const std::shared_ptr<UIViewController>& rootViewController() const noexcept { return rootViewController_; }
  void setRootViewController(const std::shared_ptr<UIViewController>& controller);

  void layoutSubviews() override;

 protected:
  void didInitWithFrame() override;

 private:
  friend class internal::Surroundings;
  UIWindow() = default;

  std::shared_ptr<const UITraitCollection> hostTraits_;
  std::shared_ptr<UIViewController> rootViewController_;
};

}  // namespace Brisel::Platform
