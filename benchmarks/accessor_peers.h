// What one would write instead of the catalogues' accessors. In a shared library of their own, as ours are.
#pragma once

#include <string_view>

#include "brisel/platform/color.h"
#include "brisel/themes/theme.h"
#include "brisel/typography/type_style.h"

namespace Brisel::Benchmarks {

/// A function-local static, out of line.
const Platform::ColorPtr& staticColor() noexcept;
const TypeStyle& staticStyle() noexcept;
const Theme& staticTheme() noexcept;

/// Entries of a map, behind a mutex.
const Platform::ColorPtr& mappedColor(std::string_view name);
const TypeStyle& mappedStyle(std::string_view name);

}  // namespace Brisel::Benchmarks
