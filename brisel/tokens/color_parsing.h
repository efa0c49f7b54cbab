// Colours from hexadecimal text, and comparison within a tolerance.
#pragma once

#include <optional>
#include <string_view>

#include "brisel/platform/color.h"

namespace Brisel {

// Reading is lenient, and deliberately so in these ways: whatever is no hexadecimal digit ("#", blanks, letters of any
// script) is trimmed from both ends; what is left must have the form's number of UTF-16 code units; it is scanned as
// one number after an optional "0x", and the scan stops at the first character that is no digit, so that "12G456" is
// 0x12. The colour is in RGB form, each component a byte divided by 255. Text of another length gives nothing. No
// input throws or allocates.

/// Six digits, red, green and blue, as in "#1ED760"; alpha is 1.
std::optional<Platform::UIColor> colorFromRGBHexString(std::string_view text) noexcept;

/// Eight digits, red, green, blue and alpha.
std::optional<Platform::UIColor> colorFromRGBAHexString(std::string_view text) noexcept;

/// Eight digits, alpha, red, green and blue.
std::optional<Platform::UIColor> colorFromARGBHexString(std::string_view text) noexcept;

/// Whether no RGB component, nor alpha, differs by more than `precision`. A difference of exactly the precision is
/// equal; so is one that cannot be told (NaN). A colour equals itself whatever the precision, even a negative one.
bool colorsAreEqual(const Platform::UIColor& color, const Platform::UIColor& other,
                    Platform::CGFloat precision) noexcept;

}  // namespace Brisel
