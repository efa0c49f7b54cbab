#include "brisel/typography/resource_bundle.h"

#include <string_view>

#include "brisel/typography/internal/resource_bundle.h"

namespace Brisel {

using Platform::NSBundle;

namespace {

// Marks the library's code: the bundle that holds it is found by its address.
constexpr char kPin = 0;

std::shared_ptr<const NSBundle> openBundle(const NSBundle& in, std::string_view name) {
  const auto path = in.pathForResource(name, "bundle");
  return path ? NSBundle::bundleWithPath(*path) : nullptr;
}

}  // namespace

std::shared_ptr<const NSBundle> internal::resourceBundle(const std::shared_ptr<const NSBundle>& mainBundle,
                                                         const std::shared_ptr<const NSBundle>& codeBundle) {
  constexpr std::string_view kName = "BriselFoundation";
  if (auto bundle = openBundle(*mainBundle, kName)) return bundle;
  if (auto bundle = openBundle(*codeBundle, kName)) return bundle;
  if (const auto shared = openBundle(*codeBundle, "MOSSResources"))
    if (auto bundle = openBundle(*shared, kName)) return bundle;
  return codeBundle;
}

std::shared_ptr<const NSBundle> resourceBundle() {
  return internal::resourceBundle(NSBundle::mainBundle({"../share/BriselFoundation"}),
                                  NSBundle::bundleForAddress(&kPin, {"../share/BriselFoundation"}));
}

}  // namespace Brisel
