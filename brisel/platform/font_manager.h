// Registration of font files.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

namespace Brisel::Platform {

/// For whom a font is registered.
enum CTFontManagerScope : std::uint32_t {
  kCTFontManagerScopeProcess = 1,  ///< for this process, until it ends
};

/// Why a font file was refused.
enum CTFontManagerError : std::int32_t {
  kCTFontManagerErrorFileNotFound = 101,        ///< it cannot be opened
  kCTFontManagerErrorUnrecognizedFormat = 103,  ///< it is no font
  kCTFontManagerErrorInvalidFontData = 104,     ///< it is a damaged one
  kCTFontManagerErrorAlreadyRegistered = 105,   ///< a font of its name is known already
};

/// Makes the fonts of a file known to this process, whatever the scope. Returns whether it did; where not, nothing has
/// changed, and `error`, if there is one, says why. May be called on any thread. Needs a port.
bool CTFontManagerRegisterFontsForURL(const std::filesystem::path& url, CTFontManagerScope scope,
                                      CTFontManagerError* error = nullptr);

/// Which family's faces stand in for fonts that nobody has registered (Engine::setSubstituteFamily). Needs a port.
void setSubstituteFontFamily(std::string_view family);

}  // namespace Brisel::Platform
