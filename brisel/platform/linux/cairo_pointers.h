#pragma once

#include <memory>

#include <cairo.h>

namespace Brisel::Platform::Linux {

struct CairoDelete {
  void operator()(cairo_surface_t* surface) const noexcept { cairo_surface_destroy(surface); }
  void operator()(cairo_t* context) const noexcept { cairo_destroy(context); }
  void operator()(cairo_pattern_t* pattern) const noexcept { cairo_pattern_destroy(pattern); }
};
template <class T>
using CairoPtr = std::unique_ptr<T, CairoDelete>;

}  // namespace Brisel::Platform::Linux
