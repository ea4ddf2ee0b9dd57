"""A plain client of org.kest.Mail1, for tests and the demonstration."""

import os

import dbus
import dbus.mainloop.glib
from gi.repository import GLib

from .base import wait_until
from .thunderbird import BUS_NAME

ROOT = "/org/kest/Mail1"
PREFIX = "org.kest.Mail1."
PROPERTIES = "org.freedesktop.DBus.Properties"

END = 2 ** 64 - 1

# Kest's own name: requests that do something are taken only from the one that owns it.
KEST_NAME = "org.kest.Kest.Mail"


class MailBus:
    """Calls by object path; a path that comes back is a plain string. Failures are dbus.DBusException.

    Stands in Kest's place for as long as no Kest runs; one that starts takes the place over. A `stranger` never does.
    """

    def __init__(self, address, name=BUS_NAME, stranger=False):
        self.name = name
        self.stranger = stranger
        self.connection = dbus.bus.BusConnection(address, mainloop=dbus.mainloop.glib.DBusGMainLoop())
        self.signals = []
        self.connection.add_signal_receiver(
            self._signalled, dbus_interface=PREFIX + "Application", member_keyword="member")

    def stand_in(self):
        if not self.stranger:
            self.connection.request_name(KEST_NAME, dbus.bus.NAME_FLAG_ALLOW_REPLACEMENT
                                         | dbus.bus.NAME_FLAG_REPLACE_EXISTING | dbus.bus.NAME_FLAG_DO_NOT_QUEUE)

    def _signalled(self, *arguments, member):
        self.signals.append((member, *[int(argument) for argument in arguments]))

    def take_signals(self):
        """All signals that have come since the last time, as (name, arguments...)."""
        while GLib.MainContext.default().iteration(False):
            pass
        taken, self.signals = self.signals, []
        return taken

    def wait_signal(self, name, seconds=60):
        """Until a signal of that name has come; returns all that came up to now."""
        taken = []

        def seen():
            taken.extend(self.take_signals())
            return name in [signal[0] for signal in taken]
        wait_until(seen, f"the signal {name}", seconds)
        return taken

    def interface_of(self, path):
        if path.startswith(ROOT + "/message/"):
            return PREFIX + "Message"
        return PREFIX + ("OutgoingMessage" if path.startswith(ROOT + "/outgoing/") else "Application")

    def call(self, member, *arguments, path=ROOT, signature=None, seconds=60):
        self.stand_in()
        return self.connection.call_blocking(self.name, path, self.interface_of(path), member, signature, arguments,
                                             timeout=seconds)

    def get(self, path, name):
        return self.connection.call_blocking(self.name, path, PROPERTIES, "Get", "ss", (self.interface_of(path), name))

    def set(self, path, name, value):
        self.stand_in()
        self.connection.call_blocking(self.name, path, PROPERTIES, "Set", "ssv", (self.interface_of(path), name, value))

    # Shorthands

    def accounts(self):
        return [tuple(str(text) for text in account) for account in self.call("Accounts")]

    def selection(self):
        return [str(path) for path in self.call("Selection")]

    def make(self, subject="", content=""):
        return str(self.call("MakeOutgoingMessage", subject, content, signature="ss"))

    def attach(self, message, name, data, index=END):
        """Inserts an attachment whose bytes are `data`, or the file at that path."""
        with open_file(data) as file:
            self.call("InsertAttachment", name, dbus.types.UnixFd(file.fileno()), dbus.UInt64(index), path=message,
                      signature="sht", seconds=120)

    def new_message(self, subject="", content="", account="", index=END, attachments=()):
        """`attachments`: pairs of name and bytes."""
        opened = [(name, open_file(data)) for name, data in attachments]
        files = dbus.Array([(name, dbus.types.UnixFd(file.fileno())) for name, file in opened], signature="(sh)")
        try:
            return str(self.call("NewMessage", subject, content, account, dbus.UInt64(index), files,
                                 signature="sssta(sh)", seconds=120))
        finally:
            for _name, file in opened:
                file.close()

    def reply(self, original, content="", account="", all=False, send=False, delete=False, index=END, attachments=()):
        opened = [(name, open_file(data)) for name, data in attachments]
        files = dbus.Array([(name, dbus.types.UnixFd(file.fileno())) for name, file in opened], signature="(sh)")
        try:
            return str(self.call("Reply", dbus.ObjectPath(original), content, account, all, send, delete,
                                 dbus.UInt64(index), files, signature="ossbbbta(sh)", seconds=120))
        finally:
            for _name, file in opened:
                file.close()


def open_file(data):
    """A file open for reading: the bytes themselves in memory, or the file at a path."""
    if not isinstance(data, bytes):
        return open(data, "rb")
    file = os.fdopen(os.memfd_create("attachment"), "w+b")
    file.write(data)
    file.flush()
    return file


def error_of(problem):
    """(last word of the error's name, its words) of a dbus.DBusException."""
    return problem.get_dbus_name().rsplit(".", 1)[-1], problem.get_dbus_message()
