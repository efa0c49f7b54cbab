// A cache, memory pressure of the system's or of one's own, and how a host tests its own code with the recording port.
#include <cstdio>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "brisel/icons/icon.h"
#include "brisel/icons/icon_image.h"
#include "brisel/infrastructure/cache.h"
#include "brisel/infrastructure/memory_pressure_observable.h"
#include "brisel/platform/main_queue.h"
#include "brisel/platform/port.h"
#include "brisel/platform/recording/engine.h"
#include "brisel/platform/recording/system_events.h"

using namespace Brisel::Platform;
using Brisel::Icon;

//! [observable]
// Tells its cache to let go when the program is sent to the background.
class BackgroundMonitor final : public Brisel::MemoryPressureObservable {
 public:
  void setOnEvent(std::function<void()> onEvent) override { onEvent_ = std::move(onEvent); }
  void enterBackground() const { onEvent_(); }

 private:
  std::function<void()> onEvent_;
};
//! [observable]

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

  //! [own pressure]
  auto monitor = std::make_unique<BackgroundMonitor>();
  const auto& background = *monitor;  // the cache owns it
  Brisel::Cache<std::string, std::string> titles(100, 1'000, std::move(monitor));
  titles.setValue("Lullaby", "first", 7);
  background.enterBackground();
  std::printf("%d titles\n", static_cast<int>(titles.count()));
  //! [own pressure]

  //! [record]
  Brisel::image(Icon::heart(), {24, 24}, std::nullopt, UIColor::initWithWhite(1, 1), UIColor::clearColor());
  const auto record = engine->record();
  std::printf("%zu glyph drawn, at %g points\n", record.drawings.front().glyphs.size(),
              record.drawings.front().pointSize);
  //! [record]
}
