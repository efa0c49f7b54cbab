#include "brisel/platform/font_manager.h"

#include "brisel/platform/port.h"

namespace Brisel::Platform {

bool CTFontManagerRegisterFontsForURL(const std::filesystem::path& url, CTFontManagerScope, CTFontManagerError* error) {
  const Engine::Registration result = engine().registerFontFile(url);
  if (result == Engine::Registration::registered) return true;
  if (error) *error = static_cast<CTFontManagerError>(result);
  return false;
}

void setSubstituteFontFamily(std::string_view family) { engine().setSubstituteFamily(family); }

}  // namespace Brisel::Platform
