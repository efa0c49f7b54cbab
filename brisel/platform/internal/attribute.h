#pragma once

#include <memory>
#include <string_view>

#include "brisel/platform/value.h"

namespace Brisel::Platform::internal {

/// The object that stands under a name among attributes; null where there is none of the type.
template <class T>
std::shared_ptr<const T> attribute(const Dictionary& attributes, std::string_view name) {
  const Value* value = attributes.find(name);
  return value ? value->as<T>() : nullptr;
}

}  // namespace Brisel::Platform::internal
