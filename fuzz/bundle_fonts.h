// The bundle's faces, and no others, so that an input means the same everywhere.
#pragma once

#include "brisel/platform/bundle.h"
#include "brisel/platform/port.h"

#include "fuzz/input.h"

namespace Brisel::Fuzz {

inline void registerBundleFonts() {
  Platform::engine().setUsesHostFonts(false);
  const auto bundle = Platform::NSBundle::bundleWithPath(BRISEL_TEST_BUNDLE);
  require(bundle != nullptr);
  const auto files = bundle->URLsForResourcesWithExtension("otf");
  require(files && !files->empty());
  for (const auto& file : *files) Platform::engine().registerFontFile(file);
}

}  // namespace Brisel::Fuzz
