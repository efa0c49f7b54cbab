#include "gallery/desktop/desktop_text_size.h"

#include <string_view>
#include <utility>

#include <gio/gio.h>

#include "gallery/desktop/text_size.h"

namespace Brisel::Gallery {
namespace {

constexpr char kPortal[] = "org.freedesktop.portal.Desktop";
constexpr char kPath[] = "/org/freedesktop/portal/desktop";
constexpr char kInterface[] = "org.freedesktop.portal.Settings";
constexpr char kGroup[] = "org.gnome.desktop.interface";
constexpr char kKey[] = "text-scaling-factor";

struct Unref {
  void operator()(GVariant* value) const { g_variant_unref(value); }
  void operator()(GError* error) const { g_error_free(error); }
  void operator()(gchar* text) const { g_free(text); }
  template <class Object>
  void operator()(Object* object) const {
    g_object_unref(object);
  }
};
template <class T>
using Held = std::unique_ptr<T, Unref>;

// A setting's value as a category: `large` for values that are of no use.
ContentSizeCategory categoryOf(GVariant* value) {
  Held<GVariant> inner(g_variant_ref(value));
  while (g_variant_is_of_type(inner.get(), G_VARIANT_TYPE_VARIANT))  // Read wraps the value twice, ReadOne once
    inner.reset(g_variant_get_variant(inner.get()));
  if (!g_variant_is_of_type(inner.get(), G_VARIANT_TYPE_DOUBLE)) return ContentSizeCategory::large;
  return categoryForTextScalingFactor(g_variant_get_double(inner.get())).value_or(ContentSizeCategory::large);
}

}  // namespace

// Held weakly by all that GLib may still call, so that nothing happens once it is gone.
class DesktopTextSize::Listener : public std::enable_shared_from_this<Listener> {
 public:
  Listener() = default;
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;
  ~Listener() {
    g_cancellable_cancel(cancellable_.get());
    if (!bus_) return;
    g_dbus_connection_signal_unsubscribe(bus_.get(), subscription_);
    g_bus_unwatch_name(watch_);
  }

  void start() {
    g_bus_get(
        G_BUS_TYPE_SESSION, cancellable_.get(),
        [](GObject*, GAsyncResult* result, gpointer data) {
          Held<GDBusConnection> bus(g_bus_get_finish(result, nullptr));
          if (const auto self = taken(data); self && bus) self->listen(std::move(bus));
        },
        pointer());
  }

 private:
  using Pointer = std::weak_ptr<Listener>;

  // What GLib keeps for one callback, or for all of a subscription.
  Pointer* pointer() { return new Pointer(weak_from_this()); }
  static void drop(gpointer data) { delete static_cast<Pointer*>(data); }
  static std::shared_ptr<Listener> taken(gpointer data) {
    return std::unique_ptr<Pointer>(static_cast<Pointer*>(data))->lock();
  }
  static std::shared_ptr<Listener> kept(gpointer data) { return static_cast<Pointer*>(data)->lock(); }

  void listen(Held<GDBusConnection> bus) {
    bus_ = std::move(bus);
    g_dbus_connection_set_exit_on_close(bus_.get(), FALSE);  // else the program would end with the session's bus
    subscription_ = g_dbus_connection_signal_subscribe(
        bus_.get(), kPortal, kInterface, "SettingChanged", kPath, kGroup, G_DBUS_SIGNAL_FLAGS_NONE,
        [](GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*, GVariant* parameters,
           gpointer data) {
          if (const auto self = kept(data)) self->settingDidChange(parameters);
        },
        pointer(), drop);
    // Starts the portal where it can be started, and tells of each that appears.
    watch_ = g_bus_watch_name_on_connection(
        bus_.get(), kPortal, G_BUS_NAME_WATCHER_FLAGS_AUTO_START,
        [](GDBusConnection*, const gchar*, const gchar*, gpointer data) {
          if (const auto self = kept(data)) {
            self->asksOlderMethod_ = false;
            self->ask();
          }
        },
        nullptr, pointer(), drop);
  }

  void ask() {
    g_dbus_connection_call(
        bus_.get(), kPortal, kPath, kInterface, asksOlderMethod_ ? "Read" : "ReadOne",
        g_variant_new("(ss)", kGroup, kKey), G_VARIANT_TYPE("(v)"), G_DBUS_CALL_FLAGS_NO_AUTO_START, -1,
        cancellable_.get(),
        [](GObject* bus, GAsyncResult* result, gpointer data) {
          GError* problem = nullptr;
          const Held<GVariant> reply(
              g_dbus_connection_call_finish(reinterpret_cast<GDBusConnection*>(bus), result, &problem));
          const Held<GError> error(problem);
          if (const auto self = taken(data)) self->answer(reply.get(), error.get());
        },
        pointer());
  }

  void answer(GVariant* reply, const GError* error) {
    if (reply != nullptr) {
      const Held<GVariant> value(g_variant_get_child_value(reply, 0));
      return take(categoryOf(value.get()));
    }
    // Portals of version 1 know no ReadOne.
    const bool isOlder = g_error_matches(error, G_DBUS_ERROR, G_DBUS_ERROR_UNKNOWN_METHOD) != FALSE;
    if (isOlder && !std::exchange(asksOlderMethod_, true)) return ask();
    // Any other error means that the portal did not answer, which says nothing of the setting.
    const Held<gchar> name(g_dbus_error_get_remote_error(error));
    if (name && std::string_view(name.get()) == "org.freedesktop.portal.Error.NotFound")
      take(ContentSizeCategory::large);
  }

  void settingDidChange(GVariant* parameters) {
    if (!g_variant_is_of_type(parameters, G_VARIANT_TYPE("(ssv)"))) return;
    const gchar* key = nullptr;
    GVariant* value = nullptr;
    g_variant_get(parameters, "(&s&sv)", nullptr, &key, &value);
    const Held<GVariant> held(value);
    if (std::string_view(key) == kKey) take(categoryOf(value));
  }

  void take(ContentSizeCategory category) {
    if (std::exchange(category_, category) != category) announceTextSize(category);
  }

  const Held<GCancellable> cancellable_{g_cancellable_new()};
  Held<GDBusConnection> bus_;
  guint subscription_ = 0;
  guint watch_ = 0;
  bool asksOlderMethod_ = false;
  ContentSizeCategory category_ = ContentSizeCategory::large;
};

DesktopTextSize::DesktopTextSize(std::string_view desktops) {
  if (!hasTextScalingFactor(desktops)) return;
  listener_ = std::make_shared<Listener>();
  listener_->start();
}

DesktopTextSize::~DesktopTextSize() = default;

}  // namespace Brisel::Gallery
