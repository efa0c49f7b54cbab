// Between UTF-8, which callers speak, and UTF-16, in which ranges count. Ill-formed bytes are read as U+FFFD, one for
// each maximal ill-formed part, as Unicode recommends.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Brisel::Platform::internal {

/// The next character of `text` at byte `index`, which moves behind it. `index` must be below the size.
char32_t nextCharacter(std::string_view text, std::size_t& index) noexcept;

/// The same of UTF-16. A lone surrogate is returned as it is.
char32_t nextCharacter(std::u16string_view text, std::size_t& index) noexcept;

/// Whether every surrogate stands in a pair.
bool isWellFormed(std::u16string_view text) noexcept;

std::u16string toUtf16(std::string_view text);
/// One character, which must be a Unicode scalar.
std::u16string toUtf16(char32_t character);
std::string toUtf8(std::u16string_view text);

/// The text with its ill-formed parts replaced.
std::string wellFormed(std::string_view text);

/// How many UTF-16 code units the text has.
std::size_t utf16Length(std::string_view text) noexcept;

}  // namespace Brisel::Platform::internal
