#pragma once

#include <cstdint>

namespace Brisel::Platform {

/// The direction of a paragraph: its own (that of its first strong character, else the layout direction), or a given
/// one.
enum class WritingDirection : std::uint8_t {
  natural,      ///< its own
  leftToRight,  ///< given
  rightToLeft,  ///< given
};

}  // namespace Brisel::Platform
