// What has been built so far, for tests of laziness.
#pragma once

#include <cstddef>

namespace Brisel::internal {

std::size_t builtCampaignColorSets() noexcept;

}  // namespace Brisel::internal
