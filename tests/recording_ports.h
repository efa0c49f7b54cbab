#pragma once

#include <memory>
#include <string>
#include <vector>

#include "brisel/platform/port.h"
#include "brisel/platform/recording/engine.h"
#include "brisel/platform/recording/system_events.h"

namespace Brisel {

/// The engine of this test's process; the first call puts it and recorded system events in the place of the default
/// ones.
inline Platform::RecordingEngine& recordingEngine() {
  static const auto installed = [] {
    Platform::setSystemEvents(std::make_shared<Platform::RecordingSystemEvents>());
    auto engine = std::make_shared<Platform::RecordingEngine>();
    Platform::setEngine(engine);
    return engine;
  }();
  return *installed;
}

/// The names of the font files that the engine was asked to register, in order.
inline std::vector<std::string> registeredFontFiles() {
  std::vector<std::string> names;
  for (const auto& file : recordingEngine().record().registeredFiles) names.push_back(file.filename());
  return names;
}

}  // namespace Brisel
