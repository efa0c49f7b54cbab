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

// One watching: the channels and the source that polls them, whose ready time is when to arm those that are to be
// armed. Deliveries hold the handler weakly, so that ending the watching drops those that have not begun.
struct LinuxSystemEvents::Watch {
  struct Polled {
    MemoryPressureChannel channel;
    void* tag = nullptr;  // null until it is armed
  };

  Watch(MemoryPressurePlaces watched, MemoryPressureChannels opened, PressureHandler onPressure, GSource* attached)
      : places(std::move(watched)),
        handler(std::make_shared<const PressureHandler>(std::move(onPressure))),
        source(attached) {
    add(std::move(opened));
    const std::chrono::microseconds delay = places.delay;
    for (const Polled& each : polled)
      if (each.tag == nullptr) g_source_set_ready_time(source, g_get_monotonic_time() + delay.count());
  }
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;
  ~Watch() { destroySource(source); }

  void add(MemoryPressureChannels opened) {
    next = opened.next;
    for (MemoryPressureChannel& channel : opened.channels) {
      polled.push_back({std::move(channel)});
      if (polled.back().channel.trigger.empty()) poll(polled.back());
    }
  }

  void poll(Polled& each) const {
    const auto& channel = each.channel;
    each.tag = g_source_add_unix_fd(source, channel.fd.get(), static_cast<GIOCondition>(channel.events));
  }

  const MemoryPressurePlaces places;
  std::shared_ptr<const PressureHandler> handler;
  GSource* source;
  std::vector<Polled> polled;
  std::optional<MemoryPressurePlace> next;
};

LinuxSystemEvents::LinuxSystemEvents(std::optional<MemoryPressurePlaces> places)
    : places_(std::move(places)), queueSource_(attachSource(dispatchQueue, this)) {}

LinuxSystemEvents::~LinuxSystemEvents() { destroySource(queueSource_); }

void LinuxSystemEvents::onPost(Work work) {
  queue_.push(std::move(work));
  g_source_set_ready_time(queueSource_, 0);
}

std::size_t LinuxSystemEvents::onRunPending() {
  {
    const std::lock_guard lock(mutex_);
    if (watch_) {
      armWhenDue(*watch_);
      std::vector<pollfd> fds;
      for (const auto& [channel, tag] : watch_->polled)
        fds.push_back({tag != nullptr ? channel.fd.get() : -1, channel.events, 0});
      if (::poll(fds.data(), fds.size(), 0) > 0)
        for (std::size_t i = fds.size(); i-- > 0;) take(*watch_, i, newsOf(watch_->polled[i].channel, fds[i].revents));
    }
  }
  return runQueue();
}

std::size_t LinuxSystemEvents::runQueue() {
  // Whoever has run work, be it some that threw, sees to what is left. Whoever has run nothing leaves that to whoever
  // is running: a loop nested in a piece of work would spin.
  struct Rearm {
    LinuxSystemEvents& events;
    bool hasRun = true;
    ~Rearm() {
      if (hasRun && !events.queue_.isEmpty()) g_source_set_ready_time(events.queueSource_, 0);
    }
  } rearm{*this};
  const std::size_t count = queue_.run();
  rearm.hasRun = count > 0;
  return count;
}

int LinuxSystemEvents::dispatchQueue(void* self) {
  auto& events = *static_cast<LinuxSystemEvents*>(self);
  g_source_set_ready_time(events.queueSource_, -1);
  events.runQueue();
  return G_SOURCE_CONTINUE;
}

// The outcome of a poll is passed on and not asked for again: a poll of a pressure file consumes its event.
int LinuxSystemEvents::dispatchPressure(void* self) {
  auto& events = *static_cast<LinuxSystemEvents*>(self);
  const std::lock_guard lock(events.mutex_);
  if (!events.watch_) return G_SOURCE_REMOVE;
  Watch& watch = *events.watch_;
  if (g_main_current_source() != watch.source) return G_SOURCE_REMOVE;
  for (std::size_t i = watch.polled.size(); i-- > 0;) {
    const auto& [channel, tag] = watch.polled[i];
    if (tag == nullptr) continue;
    events.take(watch, i, newsOf(channel, static_cast<short>(g_source_query_unix_fd(watch.source, tag))));
  }
  events.armWhenDue(watch);
  return G_SOURCE_CONTINUE;
}

void LinuxSystemEvents::armWhenDue(Watch& watch) {
  const gint64 due = g_source_get_ready_time(watch.source);
  if (due < 0 || g_get_monotonic_time() < due) return;
  g_source_set_ready_time(watch.source, -1);
  armAll(watch);
  // A place that can be opened may refuse all the same. The one after it has been waited for already.
  while (watch.polled.empty() && watch.next) {
    watch.add(MemoryPressureChannels::open(watch.places, *watch.next));
    armAll(watch);
  }
  if (watch.polled.empty()) complainOnce();
}

void LinuxSystemEvents::armAll(Watch& watch) {
  for (std::size_t i = watch.polled.size(); i-- > 0;) {
    auto& polled = watch.polled[i];
    if (polled.tag != nullptr) continue;
    const MemoryPressureNews news = arm(polled.channel);
    if (news != MemoryPressureNews::gone) watch.poll(polled);
    take(watch, i, news);
  }
}

void LinuxSystemEvents::take(Watch& watch, std::size_t channel, MemoryPressureNews news) {
  const auto& polled = watch.polled[channel];
  switch (news) {
    case MemoryPressureNews::none:
      return;
    case MemoryPressureNews::event:
      onPost([weak = std::weak_ptr(watch.handler), level = polled.channel.level] {
        if (const auto handler = weak.lock()) (*handler)(level);
      });
      return;
    case MemoryPressureNews::gone:
      if (polled.tag != nullptr) g_source_remove_unix_fd(watch.source, polled.tag);
      watch.polled.erase(watch.polled.begin() + static_cast<std::ptrdiff_t>(channel));
      return;
  }
}

void LinuxSystemEvents::onWatchMemoryPressure(PressureHandler handler) {
  MemoryPressurePlaces places = places_ ? *places_ : MemoryPressurePlaces::ofThisProcess();
  auto opened = MemoryPressureChannels::open(places);
  std::unique_ptr<Watch> ended;  // closed without the lock
  const std::lock_guard lock(mutex_);
  ended.swap(watch_);
  if (!opened.channels.empty()) {  // attached under the lock, as an event may be there at once
    GSource* const source = attachSource(dispatchPressure, this);
    watch_ = std::make_unique<Watch>(std::move(places), std::move(opened), std::move(handler), source);
  } else if (!opened.isTurnedOff) {
    complainOnce();
  }
}

void LinuxSystemEvents::complainOnce() {
  if (std::exchange(hasComplained_, true)) return;
  // Later, since our caller may hold a lock that the host's log handler needs.
  onPost([] { log("memory pressure: neither the service manager, the cgroup nor the system can be watched"); });
}

void LinuxSystemEvents::onStopWatchingMemoryPressure() {
  std::unique_ptr<Watch> ended;  // closed without the lock
  const std::lock_guard lock(mutex_);
  ended.swap(watch_);
}

}  // namespace Brisel::Platform::Linux
