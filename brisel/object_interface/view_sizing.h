// The object interface of view sizing and of limits to the text size (see brisel/infrastructure/view_sizing.h), with
// the older names: all forward to it.
#pragma once

#include <memory>

#include "brisel/infrastructure/view_sizing.h"
#include "brisel/platform/content_size_category.h"
#include "brisel/platform/geometry.h"
#include "brisel/platform/views/view.h"
#include "brisel/platform/views/view_controller.h"

/// `briselSwift_systemLayoutSizeFittingSize:`: see `Brisel::brisel_systemLayoutSizeFitting`.
Brisel::Platform::CGSize briselSwift_systemLayoutSizeFittingSize(Brisel::Platform::UIView& view,
                                                                 Brisel::Platform::CGSize size);
/// `briselSwift_systemLayoutSizeFittingSize:withHorizontalFittingPriority:verticalFittingPriority:`: the same with
/// given priorities.
Brisel::Platform::CGSize briselSwift_systemLayoutSizeFittingSize(
    Brisel::Platform::UIView& view, Brisel::Platform::CGSize size,
    Brisel::Platform::UILayoutPriority horizontalFittingPriority,
    Brisel::Platform::UILayoutPriority verticalFittingPriority);

/// `brisel_systemLayoutSizeFittingSize:`: the same under its older name.
Brisel::Platform::CGSize brisel_systemLayoutSizeFittingSize(Brisel::Platform::UIView& view,
                                                            Brisel::Platform::CGSize size);
/// `brisel_systemLayoutSizeFittingSize:withHorizontalFittingPriority:verticalFittingPriority:`: the same with given
/// priorities.
Brisel::Platform::CGSize brisel_systemLayoutSizeFittingSize(
    Brisel::Platform::UIView& view, Brisel::Platform::CGSize size,
    Brisel::Platform::UILayoutPriority horizontalFittingPriority,
    Brisel::Platform::UILayoutPriority verticalFittingPriority);

/// `briselSwift_setMaxPreferredContentSizeCategory:`: one name, and one function, on both interfaces.
using Brisel::briselSwift_setMaxPreferredContentSizeCategory;
/// `brisel_setMaxPreferredContentSizeCategory:`: the same under its older name.
void brisel_setMaxPreferredContentSizeCategory(
    const std::shared_ptr<Brisel::Platform::UIViewController>& viewController,
    const Brisel::Platform::UIContentSizeCategory& maxPreferredContentSizeCategory);
