// A settings portal on the session bus that answers as a test wants.
#pragma once

#include <string>
#include <utility>

#include <gio/gio.h>
#include <gtest/gtest.h>

namespace Brisel::Gallery {

class MockPortal {
 public:
  enum class Manner {
    answers,
    answersOlderMethodOnly,  // as version 1, with the value wrapped once more
    hasNoSuchSetting,
    neverAnswers,
  };

  /// On the bus at an address, which the portal leaves when it is destroyed. `value` is what the setting holds; it is
  /// taken over, and may be null where nothing is answered.
  MockPortal(const char* address, Manner manner, GVariant* value) : manner_(manner) {
    if (value != nullptr) value_ = g_variant_ref_sink(value);
    const auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                         G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    bus_ = g_dbus_connection_new_for_address_sync(address, flags, nullptr, nullptr, nullptr);
    if (bus_ == nullptr) {
      ADD_FAILURE() << "the bus cannot be reached";
      return;
    }
    const std::string methods = manner == Manner::answersOlderMethodOnly ? method("Read") : method("ReadOne");
    GDBusNodeInfo* const node = g_dbus_node_info_new_for_xml(
        ("<node><interface name='org.freedesktop.portal.Settings'>" + methods + "</interface></node>").c_str(),
        nullptr);
    static const GDBusInterfaceVTable table = {&MockPortal::dispatch, nullptr, nullptr, {}};
    g_dbus_connection_register_object(bus_, "/org/freedesktop/portal/desktop", node->interfaces[0], &table, this,
                                      nullptr, nullptr);
    g_dbus_node_info_unref(node);
    GVariant* const reply =
        g_dbus_connection_call_sync(bus_, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                    "RequestName", g_variant_new("(su)", "org.freedesktop.portal.Desktop", 0U), nullptr,
                                    G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
    EXPECT_NE(reply, nullptr);
    if (reply != nullptr) g_variant_unref(reply);
  }
  MockPortal(const MockPortal&) = delete;
  MockPortal& operator=(const MockPortal&) = delete;
  ~MockPortal() {
    g_dbus_connection_close_sync(bus_, nullptr, nullptr);
    g_object_unref(bus_);
    if (value_ != nullptr) g_variant_unref(value_);
    if (unanswered_ != nullptr) g_object_unref(unanswered_);
  }

  /// How often it was asked for the setting.
  int questions() const noexcept { return questions_; }

  /// Emits SettingChanged.
  void change(const char* group, const char* key, GVariant* value) {
    g_dbus_connection_emit_signal(bus_, nullptr, "/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings",
                                  "SettingChanged", g_variant_new("(ssv)", group, key, value), nullptr);
  }
  void change(GVariant* value) { change("org.gnome.desktop.interface", "text-scaling-factor", value); }

  /// Answers a question that has been waiting.
  void answerLate(GVariant* value) {
    g_dbus_method_invocation_return_value(std::exchange(unanswered_, nullptr), g_variant_new("(v)", value));
    g_dbus_connection_flush_sync(bus_, nullptr, nullptr);
  }

 private:
  static std::string method(const std::string& name) {
    return "<method name='" + name +
           "'><arg type='s' direction='in'/><arg type='s' direction='in'/><arg type='v' direction='out'/></method>";
  }

  static void dispatch(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*, GVariant* parameters,
                       GDBusMethodInvocation* invocation, gpointer data) {
    static_cast<MockPortal*>(data)->answer(parameters, invocation);
  }

  void answer(GVariant* parameters, GDBusMethodInvocation* invocation) {
    ++questions_;
    const char *group = nullptr, *key = nullptr;
    g_variant_get(parameters, "(&s&s)", &group, &key);
    EXPECT_STREQ(group, "org.gnome.desktop.interface");
    EXPECT_STREQ(key, "text-scaling-factor");
    switch (manner_) {
      case Manner::answers:
        return g_dbus_method_invocation_return_value(invocation, g_variant_new("(v)", value_));
      case Manner::answersOlderMethodOnly:
        return g_dbus_method_invocation_return_value(invocation, g_variant_new("(v)", g_variant_new_variant(value_)));
      case Manner::hasNoSuchSetting:
        return g_dbus_method_invocation_return_dbus_error(invocation, "org.freedesktop.portal.Error.NotFound",
                                                          "Requested setting not found");
      case Manner::neverAnswers:
        unanswered_ = invocation;
    }
  }

  const Manner manner_;
  GVariant* value_ = nullptr;
  GDBusConnection* bus_ = nullptr;
  GDBusMethodInvocation* unanswered_ = nullptr;
  int questions_ = 0;
};

}  // namespace Brisel::Gallery
