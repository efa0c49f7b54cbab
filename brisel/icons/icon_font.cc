#include "brisel/icons/icon_font.h"

#include <cstddef>
#include <new>
#include <string_view>

#include "brisel/icons/internal/icon_font_registration.h"
#include "brisel/platform/engine.h"
#include "brisel/platform/fatal_error.h"
#include "brisel/platform/font_descriptor.h"
#include "brisel/platform/font_manager.h"
#include "brisel/tokens/internal/lazy_table.h"
#include "brisel/typography/resource_bundle.h"

namespace Brisel {

using Platform::UIFont;
using Platform::UIFontDescriptor;

namespace {

constexpr std::string_view kFontName = "halvicon";

struct Registration {
  Registration() { internal::registerIconFont(*resourceBundle()); }
};

void buildRegistration(void* place, std::size_t) noexcept { ::new (place) Registration; }

constinit internal::LazyTable<Registration, 1, buildRegistration> registration;

}  // namespace

void internal::registerIconFont(const Platform::NSBundle& bundle) {
  const auto file = bundle.pathForResource(kFontName, "ttf");
  if (!file) Platform::fatalError("The resource bundle lacks the icon font, halvicon.ttf");
  Platform::CTFontManagerRegisterFontsForURL(*file, Platform::kCTFontManagerScopeProcess);
}

std::shared_ptr<const UIFont> internal::registeredIconFont(Platform::CGFloat size) {
  auto font = UIFont::fontWithDescriptor(UIFontDescriptor::fontDescriptorWithName(kFontName, size), size);
  // A port never fails to give a font, but another face may stand in for the one that was asked for.
  if (font->typeface()->name() != kFontName) Platform::fatalError("The icon font, halvicon, is not registered");
  return font;
}

std::shared_ptr<const UIFont> iconFont(Platform::CGFloat size) {
  registration[0];
  return internal::registeredIconFont(size);
}

}  // namespace Brisel
