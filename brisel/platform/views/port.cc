#include "brisel/platform/port.h"

#include <atomic>
#include <mutex>
#include <new>
#include <utility>

#include "brisel/platform/fatal_error.h"

namespace Brisel::Platform {
namespace {

// One service of the port: set by the host or made on first use, then kept for ever, so that whatever runs late in the
// process (an atexit handler, a detached thread) still finds it.
template <class Service>
class Holder {
 public:
  template <class Make>
  Service& get(Make make) {
    if (Service* service = current_.load(std::memory_order_acquire)) [[likely]]
      return *service;
    const std::lock_guard lock(mutex_);
    if (Service* service = current_.load(std::memory_order_relaxed)) return *service;
    return install(make());
  }

  void set(std::shared_ptr<Service> service, const char* complaint) {
    const std::lock_guard lock(mutex_);
    if (!service || current_.load(std::memory_order_relaxed)) fatalError(complaint);
    install(std::move(service));
  }

 private:
  Service& install(std::shared_ptr<Service> service) {
    Service& installed = *service;
    new (keeper_) std::shared_ptr<Service>(std::move(service));  // Never released.
    current_.store(&installed, std::memory_order_release);
    return installed;
  }

  std::mutex mutex_;
  alignas(std::shared_ptr<Service>) unsigned char keeper_[sizeof(std::shared_ptr<Service>)]{};
  std::atomic<Service*> current_{nullptr};
};

constinit Holder<Engine> engineHolder;
constinit Holder<SystemEvents> eventsHolder;

}  // namespace

Engine& engine() { return engineHolder.get(makeDefaultEngine); }
SystemEvents& systemEvents() { return eventsHolder.get(makeDefaultSystemEvents); }

void setEngine(std::shared_ptr<Engine> engine) {
  engineHolder.set(std::move(engine), "setEngine needs an engine, before the first use of the default one");
}

void setSystemEvents(std::shared_ptr<SystemEvents> events) {
  eventsHolder.set(std::move(events), "setSystemEvents needs events, before the first use of the default ones");
}

}  // namespace Brisel::Platform
