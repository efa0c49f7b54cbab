#include "brisel/platform/views/view_controller.h"

#include <utility>

#include "brisel/platform/fatal_error.h"
#include "brisel/platform/views/view.h"

namespace Brisel::Platform {

std::shared_ptr<UIViewController> UIViewController::init() {
  return std::shared_ptr<UIViewController>(new UIViewController);
}

UIViewController::UIViewController() : traitCollection_(UITraitCollection::init()) {}

UIViewController::~UIViewController() {
  if (view_ && view_.use_count() > 1) view_->surroundingsDidChange();
  // One after the other: as members of each other, long chains of children would be destroyed within each other.
  std::vector<std::shared_ptr<UIViewController>> orphans = std::move(children_);
  while (!orphans.empty()) {
    const auto child = std::move(orphans.back());
    orphans.pop_back();
    child->parent_.reset();
    child->override_ = nullptr;
    if (child.use_count() > 1) {
      child->surroundingsDidChange();
    } else {
      orphans.insert(orphans.end(), child->children_.begin(), child->children_.end());
      child->children_.clear();
    }
  }
}

const std::shared_ptr<UIView>& UIViewController::view() {
  if (!view_) {
    auto view = loadView();
    if (!view) fatalError("UIViewController: loadView has made no view");
    view_ = std::move(view);
    view_->viewController_ = self();
    view_->surroundingsDidChange();
    viewDidLoad();
  }
  return view_;
}

std::shared_ptr<UIView> UIViewController::loadView() { return UIView::initWithFrame(); }

void UIViewController::viewDidLoad() {}

void UIViewController::addChildViewController(const std::shared_ptr<UIViewController>& child) {
  if (!child || isBelow(*child)) fatalError("A view controller can be added neither to itself nor below itself");
  if (child->parentViewController().get() == this) return;
  children_.push_back(child);  // first: what was handed in may stand in the list of the parent that it leaves
  UIViewController& added = *children_.back();
  added.leaveParent();
  added.parent_ = self();
  added.surroundingsDidChange();
}

void UIViewController::removeFromParentViewController() {
  const auto kept = self();  // The parent may have been the only owner.
  leaveParent();
  surroundingsDidChange();
}

void UIViewController::setOverrideTraitCollection(const std::shared_ptr<const UITraitCollection>& traits,
                                                  const std::shared_ptr<UIViewController>& child) {
  if (!child || child->parentViewController().get() != this) return;
  child->override_ = traits;
  child->surroundingsDidChange();
}

std::shared_ptr<const UITraitCollection> UIViewController::overrideTraitCollectionForChildViewController(
    const UIViewController& child) const {
  return child.parentViewController().get() == this ? child.override_ : nullptr;
}

void UIViewController::traitCollectionDidChange(const std::shared_ptr<const UITraitCollection>&) {}

std::shared_ptr<UIViewController> UIViewController::self() {
  return std::static_pointer_cast<UIViewController>(shared_from_this());
}

// Whether this is the controller or one below it.
bool UIViewController::isBelow(const UIViewController& controller) const noexcept {
  if (this == &controller) return true;
  for (auto above = parentViewController(); above; above = above->parentViewController())
    if (above.get() == &controller) return true;
  return false;
}

// Tells nobody yet.
void UIViewController::leaveParent() {
  if (const auto parent = parentViewController()) std::erase(parent->children_, self());
  parent_.reset();
  override_ = nullptr;
}

}  // namespace Brisel::Platform
