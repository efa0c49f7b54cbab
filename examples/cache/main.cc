// A cache, memory pressure, and how a host tests its own code with the recording port.
#include <cstdio>
#include <memory>
#include <optional>
#include <string>

#include "brisel/icons/icon.h"
#include "brisel/icons/icon_image.h"
#include "brisel/infrastructure/cache.h"
#include "brisel/platform/main_queue.h"
#include "brisel/platform/port.h"
#include "brisel/platform/recording/engine.h"
#include "brisel/platform/recording/system_events.h"

using namespace Brisel::Platform;
using Brisel::Icon;

int main() {
  //! [port]
  // Before anything else is used, as one of the first lines of a test.
  const auto engine = std::make_shared<RecordingEngine>();
  const auto events = std::make_shared<RecordingSystemEvents>();
  setEngine(engine);
  setSystemEvents(events);
  //! [port]

  //! [cache]
  Brisel::Cache<std::string, std::string> lyrics(100, 1'000);  // at most 100 entries that take 1,000 bytes
  lyrics.setValue("la la la", "chorus", 600);
  lyrics.setValue("hm hm hm", "verse", 300);
  lyrics.setValue("da da da", "bridge", 200);  // 1,100 bytes: the oldest entry goes
  std::printf("%d entries, %s\n", static_cast<int>(lyrics.count()),
              lyrics.getValue("chorus") ? "with the chorus" : "without the chorus");
  //! [cache]

  //! [pressure]
  events->deliverMemoryPressure(MemoryPressureLevel::warning);
  mainQueue().runPending();  // a host's main loop does that
  std::printf("%d entries\n", static_cast<int>(lyrics.count()));
  //! [pressure]

  //! [record]
  Brisel::image(Icon::heart(), {24, 24}, std::nullopt, UIColor::initWithWhite(1, 1), UIColor::clearColor());
  const auto record = engine->record();
  std::printf("%zu glyph drawn, at %g points\n", record.drawings.front().glyphs.size(),
              record.drawings.front().pointSize);
  //! [record]
}
