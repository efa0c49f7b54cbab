#pragma once

#include <string_view>

namespace Brisel::Platform {

/// Receives what a port has to say about the machine (a pressure file that cannot be opened, a font that is damaged).
/// Called on whatever thread the news comes from.
using LogHandler = void (*)(std::string_view message);

/// Sends the ports' log to `handler`; null, as at first, silences it.
void setLogHandler(LogHandler handler) noexcept;

/// One line for the ports' log, without a line ending.
void log(std::string_view message) noexcept;

}  // namespace Brisel::Platform
