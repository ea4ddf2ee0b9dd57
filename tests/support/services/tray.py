#!/usr/bin/python3
"""A desktop's place for status items, and the person who works their menus.

As a program: the watcher of the Status Notifier Item specification, on the session bus, with a host that shows items.
"""

import sys
from pathlib import Path

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

WATCHER = "org.kde.StatusNotifierWatcher"
ITEM = "org.kde.StatusNotifierItem"
MENU = "com.canonical.dbusmenu"
PROPERTIES = "org.freedesktop.DBus.Properties"


class Watcher(dbus.service.Object):
    """Remembers who registered; items that went away are left out."""

    def __init__(self, bus):
        super().__init__(bus, "/StatusNotifierWatcher")
        self.bus = bus
        self.items = []
        self.name = dbus.service.BusName(WATCHER, bus)

    @dbus.service.method(WATCHER, in_signature="s", sender_keyword="sender")
    def RegisterStatusNotifierItem(self, service, sender=None):
        self.items.append(sender)

    @dbus.service.method(dbus.INTROSPECTABLE_IFACE, out_signature="s", path_keyword="object_path",
                         connection_keyword="connection")
    def Introspect(self, object_path, connection):
        # The library describes no properties, and some clients believe in none that is not described.
        text = super().Introspect(object_path, connection)
        head = f'<interface name="{WATCHER}">'
        return text.replace(head, head + '<property name="IsStatusNotifierHostRegistered" type="b" access="read"/>')

    @dbus.service.method(PROPERTIES, in_signature="ss", out_signature="v")
    def Get(self, _interface, name):
        return self.GetAll(_interface)[name]

    @dbus.service.method(PROPERTIES, in_signature="s", out_signature="a{sv}")
    def GetAll(self, _interface):
        standing = [item for item in self.items if self.bus.name_has_owner(item)]
        return {"IsStatusNotifierHostRegistered": True, "ProtocolVersion": dbus.Int32(0),
                "RegisteredStatusNotifierItems": dbus.Array(standing, signature="s")}


class Tray:
    """The same from a test's side: starts the watcher in the sandbox, and looks at the items."""

    def __init__(self, sandbox):
        self.process = sandbox.start("tray", ["/usr/bin/python3", "-P", Path(__file__).resolve()])  # not to import our operator.py
        self.bus = dbus.bus.BusConnection(sandbox.env["DBUS_SESSION_BUS_ADDRESS"])

    def is_up(self):
        return self.bus.name_has_owner(WATCHER)

    def items(self):
        watcher = self.bus.get_object(WATCHER, "/StatusNotifierWatcher", introspect=False)
        return [str(name) for name in watcher.Get(WATCHER, "RegisteredStatusNotifierItems", dbus_interface=PROPERTIES)]

    def tool_tip(self, item):
        found = self.bus.get_object(item, "/StatusNotifierItem", introspect=False)
        return str(found.Get(ITEM, "ToolTip", dbus_interface=PROPERTIES)[2])

    def activate(self, item):
        """A click on the item itself."""
        self.bus.get_object(item, "/StatusNotifierItem", introspect=False).Activate(0, 0, dbus_interface=ITEM)

    def menu(self, item):
        """The labels of the menu's visible entries with their numbers, in order."""
        menu = self.bus.get_object(item, "/MenuBar", introspect=False)
        menu.AboutToShow(dbus.Int32(0), dbus_interface=MENU)
        _, layout = menu.GetLayout(dbus.Int32(0), dbus.Int32(-1), dbus.Array([], signature="s"), dbus_interface=MENU)
        entries = [(str(entry[1].get("label", "")).replace("_", ""), int(entry[0])) for entry in layout[2]
                   if entry[1].get("visible", True)]
        return {label: number for label, number in entries if label}

    def choose(self, item, label):
        menu = self.bus.get_object(item, "/MenuBar", introspect=False)
        menu.Event(dbus.Int32(self.menu(item)[label]), "clicked", dbus.String("", variant_level=1), dbus.UInt32(0),
                   dbus_interface=MENU)


def main():
    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    watcher = Watcher(dbus.SessionBus())  # kept while the loop runs
    GLib.MainLoop().run()
    return watcher


if __name__ == "__main__":
    sys.exit(0 if main() else 1)
