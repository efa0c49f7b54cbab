#include "brisel/platform/fatal_error.h"

#include <cstdio>
#include <cstdlib>

namespace Brisel::Platform {

void fatalError(std::string_view message) noexcept {
  std::fprintf(stderr, "Fatal error: %.*s\n", static_cast<int>(message.size()), message.data());
  std::fflush(stderr);
  std::abort();
}

}  // namespace Brisel::Platform
