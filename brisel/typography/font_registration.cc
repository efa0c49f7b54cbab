#include "brisel/typography/internal/font_registration.h"

#include "brisel/platform/fatal_error.h"
#include "brisel/platform/font_manager.h"
#include "brisel/typography/font.h"

namespace Brisel::internal {

std::size_t registerFontFiles(const Platform::NSBundle& bundle) {
  const auto files = bundle.URLsForResourcesWithExtension("otf");
  if (!files) Platform::fatalError("The font files of the resource bundle cannot be listed");
  for (const auto& file : *files)
    Platform::CTFontManagerRegisterFontsForURL(file, Platform::kCTFontManagerScopeProcess);
  Platform::setSubstituteFontFamily(Font::tondal.description());
  return files->size();
}

}  // namespace Brisel::internal
