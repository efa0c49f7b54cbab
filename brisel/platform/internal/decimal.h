#pragma once

#include <string>

namespace Brisel::Platform::internal {

/// The shortest decimal that reads back as the same double, as the home platform prints it: with a fraction always
/// ("16.0"), and with an exponent for what is below 0.0001 or above 2⁵³ ("1e-05", "1e+22"); else "inf", "-inf", "nan".
/// The same in every locale.
std::string decimal(double number);

}  // namespace Brisel::Platform::internal
