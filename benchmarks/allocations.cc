#include "benchmarks/allocations.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

constinit thread_local std::uint64_t count = 0;

}  // namespace

std::uint64_t Brisel::Benchmarks::allocations() noexcept { return count; }

// The array and nothrow forms of the standard library end here, too.
void* operator new(std::size_t size) {
  ++count;
  if (void* memory = std::malloc(size > 0 ? size : 1)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
