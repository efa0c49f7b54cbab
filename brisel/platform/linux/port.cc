#include "brisel/platform/port.h"

#include "brisel/platform/linux/engine.h"
#include "brisel/platform/linux/system_events.h"

namespace Brisel::Platform {

std::shared_ptr<Engine> makeDefaultEngine() { return std::make_shared<Linux::LinuxEngine>(); }
std::shared_ptr<SystemEvents> makeDefaultSystemEvents() { return std::make_shared<Linux::SystemEvents>(); }

}  // namespace Brisel::Platform
