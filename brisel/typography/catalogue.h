// The type styles, by name: what style guides, exports and tests walk through.
#pragma once

#include <span>

#include "brisel/tokens/catalogue.h"
#include "brisel/typography/type_style.h"

namespace Brisel::Catalogue {

using TypeStyleEntry = Entry<const TypeStyle&>;  ///< both names are the same

/// In published order; constant, and lives until the process ends.
std::span<const TypeStyleEntry> typeStyles() noexcept;

}  // namespace Brisel::Catalogue
