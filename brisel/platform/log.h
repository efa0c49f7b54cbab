#pragma once

#include <string_view>

namespace Brisel::Platform {

/// Receives what a port has to say about the machine (a pressure file that cannot be opened, a font that is damaged),
/// and the library about its callers (a deprecated name). Called on whatever thread the news comes from, with no lock
/// held that a colour, a cache or the main queue needs. It may use those; but it makes no font, as the news may come
/// while the fonts are being registered, and it lets no exception out. What it does may cause more news, of which it is
/// told within its call.
using LogHandler = void (*)(std::string_view message);

/// Sends the log to `handler`; null, as at first, silences it.
void setLogHandler(LogHandler handler) noexcept;

/// One line for the log, without a line ending.
void log(std::string_view message) noexcept;

}  // namespace Brisel::Platform
