"""A settings portal on the session bus: it answers for the text scaling factor, and tells of its changes.

Usage: portal.py <factor>

Prints a line once it is on the bus. From then on each line of its input is a new factor.
"""

import sys

from gi.repository import Gio, GLib

SETTING = ("org.gnome.desktop.interface", "text-scaling-factor")
PATH = "/org/freedesktop/portal/desktop"
INTERFACE = "org.freedesktop.portal.Settings"
METHODS = f"""<node><interface name="{INTERFACE}"><method name="ReadOne">
  <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="out"/>
</method></interface></node>"""

factor = float(sys.argv[1])
bus = Gio.bus_get_sync(Gio.BusType.SESSION)
loop = GLib.MainLoop()


def value():
    return GLib.Variant("d", factor)


def answer(_bus, _sender, _path, _interface, _method, parameters, invocation):
    if parameters.unpack() == SETTING:
        invocation.return_value(GLib.Variant("(v)", (value(),)))
    else:
        invocation.return_dbus_error("org.freedesktop.portal.Error.NotFound", "Requested setting not found")


def take(channel, _condition):
    global factor
    line = channel.readline()
    if not line:
        loop.quit()
        return False
    factor = float(line)
    bus.emit_signal(None, PATH, INTERFACE, "SettingChanged", GLib.Variant("(ssv)", (*SETTING, value())))
    return True


bus.register_object(PATH, Gio.DBusNodeInfo.new_for_xml(METHODS).interfaces[0], answer, None, None)
Gio.bus_own_name_on_connection(bus, "org.freedesktop.portal.Desktop", Gio.BusNameOwnerFlags.NONE,
                               lambda *_: print("ready", flush=True), None)
GLib.io_add_watch(sys.stdin, GLib.PRIORITY_DEFAULT, GLib.IO_IN | GLib.IO_HUP, take)
loop.run()
