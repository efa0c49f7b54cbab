// What the fuzz targets share: the claim that must hold, and numbers read from the input.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <type_traits>

namespace Brisel::Fuzz {

/// Ends the process, which libFuzzer reports, unless the claim holds.
inline void require(bool holds) {
  if (!holds) std::abort();
}

/// Takes numbers from the front of the input, which it does not own; bytes beyond its end are zeros.
class Source {
 public:
  Source(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

  template <class T>
  T take() {
    static_assert(std::is_trivially_copyable_v<T>);
    T value{};
    const std::size_t length = std::min(size_, sizeof value);
    if (length > 0) std::memcpy(&value, data_, length);
    data_ += length;
    size_ -= length;
    return value;
  }
  int below(int end) { return take<std::uint8_t>() % end; }

  bool isEmpty() const { return size_ == 0; }
  std::string_view rest() const { return {reinterpret_cast<const char*>(data_), size_}; }

 private:
  const std::uint8_t* data_;
  std::size_t size_;
};

}  // namespace Brisel::Fuzz
