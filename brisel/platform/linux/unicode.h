// What ICU knows about a text: directions, boundaries, capitals. All offsets count UTF-16 code units.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "brisel/platform/engine.h"

namespace Brisel::Platform::Linux {

/// What of a text does not depend on fonts, one entry a code unit. Kept by each thread and filled anew for each text,
/// so that analysis allocates nothing once warm.
struct TextAnalysis {
  enum class Boundary : std::uint8_t {
    none,      // inside a user-perceived character
    grapheme,  // between two of them
    allowed,   // a line may break before
    required,  // a line or paragraph ends before
  };

  std::vector<Boundary> boundaries;
  std::vector<std::uint8_t> levels;           // bidirectional embedding levels
  std::vector<std::uint8_t> paragraphLevels;  // of the paragraph that the unit is in

  void analyse(std::u16string_view text, WritingDirection direction, bool naturalFallbackIsRightToLeft);

 private:
  void findLevels(std::u16string_view text, WritingDirection direction, bool naturalFallbackIsRightToLeft);
  void findBoundaries(std::u16string_view text);
};

/// Whether the character may vanish where a line ends: white space, but for the kinds that do not break.
bool isBreakingSpace(char32_t character);

/// Whether the character is a line or paragraph separator, or another control that shows nothing.
bool isControl(char32_t character);

/// Whether a face need not have the character for a text to be complete: joiners, variation selectors, marks of
/// direction.
bool isIgnorable(char32_t character);

std::string upperCased(const std::string& wellFormedText);

}  // namespace Brisel::Platform::Linux
