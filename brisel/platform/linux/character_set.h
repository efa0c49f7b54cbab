#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace Brisel::Platform::Linux {

/// A set of UTF-16 code units that only grows, from any thread. A look-up is two loads.
class CharacterSet {
 public:
  CharacterSet() = default;
  ~CharacterSet() {
    for (auto& page : pages_) delete page.load(std::memory_order_relaxed);
  }
  CharacterSet(const CharacterSet&) = delete;
  CharacterSet& operator=(const CharacterSet&) = delete;

  bool contains(char16_t unit) const noexcept {
    const Page* page = pages_[pageOf(unit)].load(std::memory_order_acquire);
    return page && ((*page)[wordOf(unit)].load(std::memory_order_relaxed) & bitOf(unit)) != 0;
  }

  void insert(char16_t unit) {
    std::atomic<Page*>& place = pages_[pageOf(unit)];
    Page* page = place.load(std::memory_order_acquire);
    if (!page) {
      auto fresh = std::make_unique<Page>();
      if (place.compare_exchange_strong(page, fresh.get(), std::memory_order_acq_rel)) page = fresh.release();
    }
    (*page)[wordOf(unit)].fetch_or(bitOf(unit), std::memory_order_relaxed);
  }

 private:
  // 16 pages of 4096 code units: texts in few scripts fill few.
  using Page = std::array<std::atomic<std::uint64_t>, 64>;
  static constexpr std::size_t pageOf(char16_t unit) noexcept { return unit >> 12; }
  static constexpr std::size_t wordOf(char16_t unit) noexcept { return (unit >> 6) & 63; }
  static constexpr std::uint64_t bitOf(char16_t unit) noexcept { return std::uint64_t{1} << (unit & 63); }

  std::array<std::atomic<Page*>, 16> pages_{};
};

}  // namespace Brisel::Platform::Linux
