#pragma once

#include <cstddef>
#include <memory>
#include <new>

#include "brisel/tokens/internal/lazy_table.h"

namespace VLMBrisel::internal {

template <class Object, std::shared_ptr<Object> (*make)(std::size_t index)>
void buildSharedInstance(void* place, std::size_t index) noexcept {
  ::new (place) std::shared_ptr<Object>(make(index));
}

/// The shared instances of a class: each is made on first use, exactly once, and never destroyed.
template <class Object, std::size_t N, std::shared_ptr<Object> (*make)(std::size_t index)>
using SharedInstances = Brisel::internal::LazyTable<std::shared_ptr<Object>, N, buildSharedInstance<Object, make>>;

}  // namespace VLMBrisel::internal
