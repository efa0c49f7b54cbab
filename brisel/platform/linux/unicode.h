// What ICU knows about a text: directions, boundaries, capitals. All offsets count UTF-16 code units.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <unicode/ubidi.h>
#include <unicode/ubrk.h>

#include "brisel/platform/engine.h"

namespace Brisel::Platform::Linux {

template <class T, void (*close)(T*)>
struct IcuClose {
  void operator()(T* object) const noexcept { close(object); }
};

/// What of a text does not depend on fonts, one entry a code unit. For one thread at a time; filled anew for each text,
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
  using BreakIterator = std::unique_ptr<UBreakIterator, IcuClose<UBreakIterator, ubrk_close>>;

  void findLevels(std::u16string_view text, WritingDirection direction, bool naturalFallbackIsRightToLeft);
  void findBoundaries(std::u16string_view text);

  BreakIterator characters_;  // ICU's objects, opened on first use
  BreakIterator lines_;
  std::unique_ptr<UBiDi, IcuClose<UBiDi, ubidi_close>> bidi_;
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
