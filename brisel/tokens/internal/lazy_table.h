// A catalogue's constants: each built from its row on first use, alone, exactly once, and never destroyed.
#pragma once

#include <atomic>
#include <cstddef>
#include <mutex>
#include <new>

namespace Brisel::internal {

/// `N` slots of `T`, constant-initialised, so that a table costs nothing at start-up and outlives every destructor.
/// `build` constructs the value of a slot in place; it may read other slots and other tables, but not its own slot.
template <class T, std::size_t N, void (*build)(void* place, std::size_t index) noexcept>
class LazyTable {
 public:
  constexpr LazyTable() noexcept = default;
  LazyTable(const LazyTable&) = delete;
  LazyTable& operator=(const LazyTable&) = delete;

  const T& operator[](std::size_t index) noexcept {
    if (!slots_[index].ready.load(std::memory_order_acquire)) [[unlikely]]
      return make(index);
    return slots_[index].value();
  }

  std::size_t builtCount() const noexcept {
    std::size_t count = 0;
    for (const Slot& slot : slots_) count += slot.ready.load(std::memory_order_acquire) ? 1 : 0;
    return count;
  }

 private:
  // Raw bytes and not a union: a union with a destructor would have every table destroyed at exit.
  struct Slot {
    alignas(T) unsigned char storage[sizeof(T)]{};
    std::once_flag once{};
    std::atomic<bool> ready{false};

    const T& value() const noexcept { return *std::launder(reinterpret_cast<const T*>(storage)); }
  };

  [[gnu::noinline]] const T& make(std::size_t index) noexcept {
    Slot& slot = slots_[index];
    std::call_once(slot.once, [&slot, index] {
      build(slot.storage, index);
      slot.ready.store(true, std::memory_order_release);
    });
    return slot.value();
  }

  Slot slots_[N]{};
};

}  // namespace Brisel::internal
