#include "brisel/platform/views/window.h"

namespace Brisel::Platform {

std::shared_ptr<UIWindow> UIWindow::initWithFrame(const CGRect& frame) {
  return made(std::shared_ptr<UIWindow>(new UIWindow), frame);
}

void UIWindow::layoutSubviews() { UIView::layoutSubviews(); }

}  // namespace Brisel::Platform
