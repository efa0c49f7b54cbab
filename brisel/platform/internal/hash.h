// Hashing by fields: one quick mixer, and the glue that turns `hashInto` into a `std::hash`.
#pragma once

#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string_view>
#include <type_traits>

namespace Brisel::Platform::internal {

/// Mixes values into 64 bits by a wide multiplication each; these do not wait for one another. Good for tables inside
/// one process; never stored, and never fed by anybody who gains from collisions.
class Hasher {
 public:
  template <class... Fields>
  void operator()(const Fields&... fields) {
    (add(fields), ...);
  }

  std::size_t finish() const noexcept { return static_cast<std::size_t>(spread(state_)); }

 private:
  template <class T>
  void add(const T& value) {
    if constexpr (requires { hashInto(*this, value); }) {
      hashInto(*this, value);
    } else if constexpr (std::floating_point<T>) {
      mix(std::bit_cast<std::uint64_t>(static_cast<double>(value) + 0.0));  // -0.0 equals 0.0, so it hashes alike.
    } else if constexpr (std::integral<T> || std::is_enum_v<T>) {
      mix(static_cast<std::uint64_t>(value));
    } else if constexpr (std::convertible_to<const T&, std::string_view>) {
      mixText(value);
    } else if constexpr (requires { value.begin(), value.end(), value.size(); }) {
      mix(value.size());
      for (const auto& element : value) add(element);
    } else {
      mix(std::hash<T>{}(value));
    }
  }

  // Eight bytes at a time; the last eight may overlap those before.
  void mixText(std::string_view text) noexcept {
    mix(text.size());
    std::size_t at = 0;
    for (; text.size() - at > 8; at += 8) mix(word(text.data() + at, 8));
    if (at > 0) {
      mix(word(text.data() + text.size() - 8, 8));
    } else if (!text.empty()) {
      mix(word(text.data(), text.size()));
    }
  }

  static std::uint64_t word(const char* bytes, std::size_t count) noexcept {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, count);
    return word;
  }

  void mix(std::uint64_t word) noexcept { state_ = std::rotl(state_, 23) + spread(word); }

  static std::uint64_t spread(std::uint64_t word) noexcept {
    __extension__ using Wide = unsigned __int128;
    const Wide product = static_cast<Wide>(word ^ kOffset) * kMultiplier;
    return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
  }

  static constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15;  // 2^64 divided by the golden ratio
  static constexpr std::uint64_t kOffset = 0xD6E8FEB86659FD93;
  std::uint64_t state_ = kOffset;
};

/// A `std::hash` for a type with a friend `hashInto(Hasher&, const T&)`; it must feed the fields that `==` compares.
template <class T>
struct FieldHash {
  std::size_t operator()(const T& value) const {
    Hasher hasher;
    hasher(value);
    return hasher.finish();
  }
};

}  // namespace Brisel::Platform::internal
