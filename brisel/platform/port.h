// Which port a process runs on.
#pragma once

#include <memory>

#include "brisel/platform/engine.h"

namespace Brisel::Platform {

/// Defined by each port: the engine and the events that a process gets when its host has chosen nothing else.
std::shared_ptr<Engine> makeDefaultEngine();
/// Defined by each port: the events that a process gets when its host has chosen no others.
std::shared_ptr<SystemEvents> makeDefaultSystemEvents();

/// The engine of this process, made on first use and never torn down.
Engine& engine();
/// The events of this process, made on first use and never torn down.
SystemEvents& systemEvents();

/// Puts another engine in the place of the default one. To be called before the first use of anything that needs it;
/// later it is a programming error.
void setEngine(std::shared_ptr<Engine> engine);
/// Puts other events in the place of the default ones, under the same rule.
void setSystemEvents(std::shared_ptr<SystemEvents> events);

}  // namespace Brisel::Platform
