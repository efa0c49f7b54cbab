#pragma once

#include <string>

#include "brisel/platform/views/layout_constraint.h"

namespace Brisel::Platform::internal {

/// The name of an item's class, without its namespaces.
std::string className(const LayoutItem& item);

/// An active constraint as one reads it: "UILabel.leading = UIView.leading + 8.0".
std::string constraintText(const NSLayoutConstraint& constraint);

}  // namespace Brisel::Platform::internal
