#include "brisel/platform/log.h"

#include <atomic>

namespace Brisel::Platform {
namespace {

constinit std::atomic<LogHandler> logHandler{nullptr};

}  // namespace

void setLogHandler(LogHandler handler) noexcept { logHandler.store(handler, std::memory_order_release); }

void log(std::string_view message) noexcept {
  if (LogHandler handler = logHandler.load(std::memory_order_acquire)) handler(message);
}

}  // namespace Brisel::Platform
