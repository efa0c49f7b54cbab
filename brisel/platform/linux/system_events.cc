#include "brisel/platform/linux/system_events.h"

#include <utility>
#include <vector>

#include <glib.h>
#include <poll.h>

#include "brisel/platform/log.h"

namespace Brisel::Platform::Linux {
namespace {

gboolean callBack(GSource*, GSourceFunc callback, gpointer data) { return callback(data); }

// Ready at its ready time and when one of its descriptors is; not while it is being dispatched, which keeps the main
// queue serial in nested loops too.
GSource* attachSource(GSourceFunc callback, gpointer data) {
  static GSourceFuncs functions{nullptr, nullptr, callBack, nullptr, nullptr, nullptr};
  GSource* const source = g_source_new(&functions, sizeof(GSource));
  g_source_set_priority(source, G_PRIORITY_DEFAULT);
  g_source_set_callback(source, callback, data, nullptr);
  g_source_attach(source, nullptr);
  return source;
}

void destroySource(GSource* source) {
  g_source_destroy(source);
  g_source_unref(source);
}

}  // namespace

// One watching: the channels and the source that polls them. Deliveries hold the handler weakly, so that ending the
// watching drops those that have not begun.
struct SystemEvents::Watch {
  struct Polled {
    MemoryPressureChannel channel;
    gpointer tag;
  };

  Watch(MemoryPressureChannels opened, PressureHandler onPressure, GSource* attached)
      : handler(std::make_shared<const PressureHandler>(std::move(onPressure))), source(attached) {
    for (MemoryPressureChannel& channel : opened.channels) {
      gpointer tag = g_source_add_unix_fd(source, channel.fd.get(), static_cast<GIOCondition>(channel.events));
      polled.push_back({std::move(channel), tag});
    }
  }
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;
  ~Watch() { destroySource(source); }

  std::shared_ptr<const PressureHandler> handler;
  GSource* source;
  std::vector<Polled> polled;
};

SystemEvents::SystemEvents(std::optional<MemoryPressurePlaces> places)
    : places_(std::move(places)), queueSource_(attachSource(dispatchQueue, this)) {}

SystemEvents::~SystemEvents() { destroySource(queueSource_); }

void SystemEvents::onPost(Work work) {
  queue_.push(std::move(work));
  g_source_set_ready_time(queueSource_, 0);
}

std::size_t SystemEvents::onRunPending() {
  {
    const std::lock_guard lock(mutex_);
    if (watch_) {
      std::vector<pollfd> fds;
      for (const auto& [channel, tag] : watch_->polled) fds.push_back({channel.fd.get(), channel.events, 0});
      if (::poll(fds.data(), fds.size(), 0) > 0)
        for (std::size_t i = fds.size(); i-- > 0;) take(*watch_, i, fds[i].revents);
    }
  }
  return runQueue();
}

std::size_t SystemEvents::runQueue() {
  const std::size_t count = queue_.run();
  // What was posted meanwhile is due next; whoever has run nothing leaves that to whoever is running.
  if (count > 0 && !queue_.isEmpty()) g_source_set_ready_time(queueSource_, 0);
  return count;
}

int SystemEvents::dispatchQueue(void* self) {
  auto& events = *static_cast<SystemEvents*>(self);
  g_source_set_ready_time(events.queueSource_, -1);
  events.runQueue();
  return G_SOURCE_CONTINUE;
}

// The outcome of a poll is passed on and not asked for again: a poll of a pressure file consumes its event.
int SystemEvents::dispatchPressure(void* self) {
  auto& events = *static_cast<SystemEvents*>(self);
  const std::lock_guard lock(events.mutex_);
  if (!events.watch_) return G_SOURCE_REMOVE;
  Watch& watch = *events.watch_;
  if (g_main_current_source() != watch.source) return G_SOURCE_REMOVE;
  for (std::size_t i = watch.polled.size(); i-- > 0;)
    events.take(watch, i, static_cast<short>(g_source_query_unix_fd(watch.source, watch.polled[i].tag)));
  return G_SOURCE_CONTINUE;
}

void SystemEvents::take(Watch& watch, std::size_t channel, short revents) {
  const auto& polled = watch.polled[channel];
  switch (newsOf(polled.channel, revents)) {
    case MemoryPressureNews::none:
      return;
    case MemoryPressureNews::event:
      onPost([weak = std::weak_ptr(watch.handler), level = polled.channel.level] {
        if (const auto handler = weak.lock()) (*handler)(level);
      });
      return;
    case MemoryPressureNews::gone:
      g_source_remove_unix_fd(watch.source, polled.tag);
      watch.polled.erase(watch.polled.begin() + static_cast<std::ptrdiff_t>(channel));
      return;
  }
}

void SystemEvents::onWatchMemoryPressure(PressureHandler handler) {
  auto opened = MemoryPressureChannels::open(places_ ? *places_ : MemoryPressurePlaces::ofThisProcess());
  const bool isRefused = opened.channels.empty() && !opened.isTurnedOff;
  bool complains = false;
  std::unique_ptr<Watch> ended;
  {
    const std::lock_guard lock(mutex_);
    ended.swap(watch_);
    if (!opened.channels.empty())  // attached under the lock, as an event may be there at once
      watch_ = std::make_unique<Watch>(std::move(opened), std::move(handler), attachSource(dispatchPressure, this));
    complains = isRefused && !std::exchange(hasComplained_, true);
  }
  if (complains) log("memory pressure: neither the service manager, the cgroup nor the system can be watched");
}

void SystemEvents::onStopWatchingMemoryPressure() {
  std::unique_ptr<Watch> ended;  // closed without the lock
  const std::lock_guard lock(mutex_);
  ended.swap(watch_);
}

}  // namespace Brisel::Platform::Linux
