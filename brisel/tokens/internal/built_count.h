// What has been built so far, for tests of laziness.
#pragma once

#include <cstddef>

namespace Brisel::internal {

std::size_t builtPaletteColors() noexcept;
std::size_t builtLegacyColors() noexcept;

}  // namespace Brisel::internal
