#pragma once

#include <memory>

#include "brisel/platform/bundle.h"

namespace Brisel {

/// The directory of the library's assets, its font files among others: looked for afresh at each call, on any thread.
/// Never null.
///
/// The first that can be opened is taken: "BriselFoundation.bundle" of the program, so that an application can put its
/// own assets in front of the library's; that of the library; that in the library's "MOSSResources.bundle". Failing
/// these it is the directory of the library. Both the program and the library (the shared object that holds it, or the
/// program where it is linked statically) are searched in their own directory, then in "../share/BriselFoundation".
std::shared_ptr<const Platform::NSBundle> resourceBundle();

}  // namespace Brisel
