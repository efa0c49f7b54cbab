#pragma once

#include <memory>
#include <vector>

#include "brisel/object_interface/fonts.h"
#include "brisel/platform/fatal_error.h"
#include "brisel/typography/font.h"

namespace VLMBrisel::internal {

/// The object behind a pointer that callers must not leave null.
template <class Object>
const Object& unwrap(const std::shared_ptr<Object>& object) {
  if (!object) Brisel::Platform::fatalError("A null pointer was passed where an object is required");
  return *object;
}

inline std::vector<Brisel::Font> unwrapFonts(const std::vector<std::shared_ptr<const VLMBriselSwiftFont>>& fonts) {
  std::vector<Brisel::Font> values;
  values.reserve(fonts.size());
  for (const auto& font : fonts) values.push_back(unwrap(font).font());
  return values;
}

}  // namespace VLMBrisel::internal
