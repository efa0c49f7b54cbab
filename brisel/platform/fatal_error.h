#pragma once

#include <string_view>

namespace Brisel::Platform {

/// Ends the process after a programming error: writes `message` to the standard error, then aborts. It throws nothing,
/// so that no caller can go on with a broken invariant.
[[noreturn]] void fatalError(std::string_view message) noexcept;

}  // namespace Brisel::Platform
