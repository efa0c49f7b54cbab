#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

namespace Brisel::Platform::Linux {

/// A FreeType library object; for one thread at a time.
class FreeTypeLibrary {
 public:
  FreeTypeLibrary() { FT_Init_FreeType(&library_); }
  ~FreeTypeLibrary() { FT_Done_FreeType(library_); }
  FreeTypeLibrary(const FreeTypeLibrary&) = delete;
  FreeTypeLibrary& operator=(const FreeTypeLibrary&) = delete;

  FT_Library get() const noexcept { return library_; }

 private:
  FT_Library library_ = nullptr;
};

}  // namespace Brisel::Platform::Linux
