// Counts what operator new is asked for, in this program and in the libraries that it links.
#pragma once

#include <cstdint>

namespace Brisel::Benchmarks {

/// How often this thread has allocated so far.
std::uint64_t allocations() noexcept;

}  // namespace Brisel::Benchmarks
