#include "gallery/interruption.h"

#include <atomic>
#include <csignal>

namespace Brisel::Gallery {
namespace {
constinit std::atomic<bool> interrupted = false;
static_assert(std::atomic<bool>::is_always_lock_free);  // a signal handler may touch nothing else
}  // namespace

void noteInterruptions() {
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    std::signal(number, [](int) { interrupted = true; });
  }
}

bool wasInterrupted() { return interrupted; }

}  // namespace Brisel::Gallery
