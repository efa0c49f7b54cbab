// How large a view would be, and how large text may be below a view controller.
#pragma once

#include <memory>

#include "brisel/platform/content_size_category.h"
#include "brisel/platform/geometry.h"
#include "brisel/platform/views/view.h"
#include "brisel/platform/views/view_controller.h"

namespace Brisel {

/// `brisel_systemLayoutSizeFitting(_:)`: the size of a view that is asked for this one, more strongly than halfway
/// between hugging its content and resisting compression (501 for a plain view, on either axis), and is laid out so.
Platform::CGSize brisel_systemLayoutSizeFitting(Platform::UIView& view, Platform::CGSize size);

/// `brisel_systemLayoutSizeFitting(_:withHorizontalFittingPriority:verticalFittingPriority:)`: the same with given
/// priorities; those above 1000 count as 1000. The view keeps the frame of the measurement until it is laid out again.
Platform::CGSize brisel_systemLayoutSizeFitting(Platform::UIView& view, Platform::CGSize size,
                                                Platform::UILayoutPriority horizontalFittingPriority,
                                                Platform::UILayoutPriority verticalFittingPriority);

/// `briselSwift_setMaxPreferredContentSizeCategory(_:)`: from now on, the controller's traits have the user's preferred
/// category but no larger one than this (unknown names count as `large`), by way of its parent; without a parent
/// nothing is changed until it has one and the category changes. The subscription keeps the controller alive until it
/// is unsubscribed from `DynamicTypeMonitor::shared()`; this is deliberate.
void briselSwift_setMaxPreferredContentSizeCategory(
    const std::shared_ptr<Platform::UIViewController>& viewController,
    const Platform::UIContentSizeCategory& maxPreferredContentSizeCategory);

}  // namespace Brisel
