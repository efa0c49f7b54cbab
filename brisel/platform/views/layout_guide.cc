#include "brisel/platform/views/layout_guide.h"

#include <vector>

#include "brisel/platform/views/internal/view_layout.h"
#include "brisel/platform/views/view.h"

namespace Brisel::Platform {

std::shared_ptr<UILayoutGuide> UILayoutGuide::init() { return std::shared_ptr<UILayoutGuide>(new UILayoutGuide); }

UILayoutGuide::~UILayoutGuide() { internal::ViewLayout::forget(*this); }

std::shared_ptr<UIView> UILayoutGuide::owningView() const noexcept {
  return owner_ ? std::static_pointer_cast<UIView>(owner_->weak_from_this().lock()) : nullptr;
}

std::shared_ptr<const UIView> UILayoutGuide::layoutView() const { return owningView(); }

}  // namespace Brisel::Platform
