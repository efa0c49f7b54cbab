#include "brisel/platform/port.h"

namespace Brisel::Platform {

std::shared_ptr<Engine> makeDefaultEngine() { return nullptr; }
std::shared_ptr<SystemEvents> makeDefaultSystemEvents() { return nullptr; }

}  // namespace Brisel::Platform
