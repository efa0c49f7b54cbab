#pragma once

#include <cstdint>
#include <stdexcept>

namespace Brisel::Error {

/// Why an icon cannot be had.
class Icon : public std::runtime_error {
 public:
  /// What can go wrong.
  enum class Code : std::uint8_t {
    invalidName,  ///< no icon bears the name
  };
  /// No icon bears the name.
  static constexpr Code invalidName = Code::invalidName;

  /// An error of this kind.
  explicit Icon(Code code) : std::runtime_error("No icon bears this name"), code_(code) {}

  /// What went wrong.
  Code code() const noexcept { return code_; }

 private:
  Code code_;
};

}  // namespace Brisel::Error
