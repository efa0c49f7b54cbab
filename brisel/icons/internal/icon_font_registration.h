#pragma once

#include <memory>

#include "brisel/platform/bundle.h"
#include "brisel/platform/font.h"
#include "brisel/platform/geometry.h"

namespace Brisel::internal {

/// Registers the icon font of a bundle for this process. A bundle without it is a programming error; a file that is
/// refused is passed over, since another one may have been registered before.
void registerIconFont(const Platform::NSBundle& bundle);

/// The icon font, if it is registered; a programming error if not.
std::shared_ptr<const Platform::UIFont> registeredIconFont(Platform::CGFloat size);

}  // namespace Brisel::internal
