#include "brisel/platform/port.h"

#include "brisel/platform/recording/engine.h"
#include "brisel/platform/recording/system_events.h"

namespace Brisel::Platform {

std::shared_ptr<Engine> makeDefaultEngine() { return std::make_shared<RecordingEngine>(); }
std::shared_ptr<SystemEvents> makeDefaultSystemEvents() { return std::make_shared<RecordingSystemEvents>(); }

}  // namespace Brisel::Platform
