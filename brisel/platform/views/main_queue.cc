#include "brisel/platform/main_queue.h"

#include <utility>

#include "brisel/platform/port.h"

namespace Brisel::Platform {

void MainQueue::async(std::function<void()> work) const { systemEvents().post(std::move(work)); }
std::size_t MainQueue::runPending() const { return systemEvents().runPending(); }

MainQueue mainQueue() noexcept { return {}; }

}  // namespace Brisel::Platform
