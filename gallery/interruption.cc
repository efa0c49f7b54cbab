#include "gallery/interruption.h"

#include <atomic>
#include <csignal>

#include <signal.h>  // NOLINT(modernize-deprecated-headers): sigaction is of POSIX, not of C

namespace Brisel::Gallery {
namespace {
constinit std::atomic<bool> interrupted = false;
static_assert(std::atomic<bool>::is_always_lock_free);  // a signal handler may touch nothing else
}  // namespace

void noteInterruptions() {
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction before = {};
    const bool isIgnored = ::sigaction(number, nullptr, &before) == 0 && before.sa_handler == SIG_IGN;
    if (!isIgnored) std::signal(number, [](int) { interrupted = true; });
  }
}

bool wasInterrupted() { return interrupted; }

}  // namespace Brisel::Gallery
