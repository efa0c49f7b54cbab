#pragma once

#include <memory>

#include "brisel/platform/bundle.h"

namespace Brisel::internal {

/// The resource bundle of a given program and library.
std::shared_ptr<const Platform::NSBundle> resourceBundle(const std::shared_ptr<const Platform::NSBundle>& mainBundle,
                                                         const std::shared_ptr<const Platform::NSBundle>& codeBundle);

}  // namespace Brisel::internal
