#pragma once

#include <cstdint>
#include <stdexcept>

namespace Brisel::Error {

/// Why an icon cannot be had.
class Icon : public std::runtime_error {
 public:
  enum class Code : std::uint8_t { invalidName };
  /// No icon bears the name.
  static constexpr Code invalidName = Code::invalidName;

  explicit Icon(Code code) : std::runtime_error("No icon bears this name"), code_(code) {}

  Code code() const noexcept { return code_; }

 private:
  Code code_;
};

}  // namespace Brisel::Error
