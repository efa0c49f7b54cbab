#include "brisel/platform/views/window.h"

#include <utility>

#include "brisel/platform/views/view_controller.h"

namespace Brisel::Platform {

std::shared_ptr<UIWindow> UIWindow::initWithFrame(const CGRect& frame) {
  return made(std::shared_ptr<UIWindow>(new UIWindow), frame);
}

void UIWindow::didInitWithFrame() {
  UIView::didInitWithFrame();
  surroundingsDidChange();  // A window is in itself.
}

void UIWindow::setTraitCollection(const std::shared_ptr<const UITraitCollection>& traits) {
  hostTraits_ = traits;
  surroundingsDidChange();
}

void UIWindow::setRootViewController(const std::shared_ptr<UIViewController>& controller) {
  if (controller == rootViewController_) return;
  const auto self = shared_from_this();  // What is called below may let go of the window.
  const auto before = std::exchange(rootViewController_, controller);
  const auto root = rootViewController_;  // What is called below may set another, and change what was handed in.
  if (before && before->isViewLoaded() && before->view()->superview().get() == this)
    before->view()->removeFromSuperview();
  if (!root) return;
  const auto view = root->view();
  if (rootViewController_ != root) return;
  view->setFrame(bounds());
  addSubview(view);
}

void UIWindow::layoutSubviews() {
  UIView::layoutSubviews();
  if (!rootViewController_ || !rootViewController_->isViewLoaded()) return;
  const auto view = rootViewController_->view();
  if (view->superview().get() == this) view->setFrame(bounds());
}

}  // namespace Brisel::Platform
