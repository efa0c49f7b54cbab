// The icons, by name: what style guides, exports and tests walk through.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "brisel/icons/icon.h"

namespace Brisel::Catalogue {

/// An icon and all that it is called. `get` is its accessor, so that walking the names builds nothing.
struct IconEntry {
  std::string_view name;          ///< of the accessor as published, such as "delete"
  std::string_view accessor;      ///< the same in C++, such as "delete_"
  std::string_view objectName;    ///< of the constant, such as "VLMBriselIconDelete"
  std::uint64_t number;           ///< the value of the constant, from 1
  const Icon& (*get)() noexcept;  ///< the accessor
};

/// In published order; constant, and lives until the process ends.
std::span<const IconEntry> icons() noexcept;

}  // namespace Brisel::Catalogue
