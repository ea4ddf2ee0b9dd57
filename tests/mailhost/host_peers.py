"""Who may do what with kest-mail-host: our add-on alone starts it, Kest alone has it do something."""

import contextlib
import os
import struct
import subprocess
import unittest

import dbus

from host_case import ADDON, HOST, HostCase
from services.mailbus import KEST_NAME, MailBus, error_of

OUTGOING = "/org/kest/Mail1/outgoing/1"
MESSAGE = "/org/kest/Mail1/message/1"
MARKER = "Zaubernuss"

ACTS = {
    "make": lambda bus: bus.make("s", "c"),
    "new message": lambda bus: bus.new_message("s", "c", attachments=[("a.m4a", b"1")]),
    "reply and send": lambda bus: bus.reply(MESSAGE, "c", send=True),
    "activate": lambda bus: bus.call("Activate"),
    "delete a mail": lambda bus: bus.call("Delete", path=MESSAGE),
    "reply": lambda bus: bus.call("Reply", False, False, path=MESSAGE, signature="bb"),
    "send": lambda bus: bus.call("Send", path=OUTGOING),
    "discard": lambda bus: bus.call("Delete", path=OUTGOING),
    "address": lambda bus: bus.call("AddRecipient", "to", "", "x@example.test", path=OUTGOING),
    "attach": lambda bus: bus.attach(OUTGOING, "passwd", "/etc/passwd"),
    "write": lambda bus: bus.set(OUTGOING, "Content", "c"),
    "show": lambda bus: bus.set(OUTGOING, "Visible", True),
}


@contextlib.contextmanager
def opened(path):
    file = os.open(path, os.O_RDONLY)
    try:
        yield file
    finally:
        os.close(file)


class HostPeers(HostCase):

    def stranger(self):
        return MailBus(self.sandbox.env["DBUS_SESSION_BUS_ADDRESS"], stranger=True)

    def assertNothingReachedTheAddon(self):
        """The next thing that the add-on hears is this question."""
        self.answer(lambda call: {"result": [[call["member"], "", ""]]})
        self.assertEqual(self.bus.accounts(), [("Accounts", "", "")])

    def assertRefuses(self, bus):
        for name, act in ACTS.items():
            with self.subTest(name), self.assertRaises(dbus.DBusException) as caught:
                act(bus)
            self.assertEqual(error_of(caught.exception)[0], "AccessDenied")

    # Who starts it

    def test_it_ends_at_once_unless_our_addon_starts_it(self):
        for arguments in ([], ["manifest.json"], ["manifest.json", "evil@example.test"], [ADDON, "manifest.json"],
                          ["manifest.json", ADDON, "more"], ["manifest.json", ADDON + "x"]):
            with self.subTest(arguments=arguments):
                done = subprocess.run([HOST, *arguments], env=self.sandbox.env, input=b"", capture_output=True, timeout=20)
                self.assertEqual((done.returncode, done.stdout), (2, b""))

    # Who has it do something

    def test_a_stranger_on_the_bus_has_nothing_done(self):
        self.start()
        self.bus.stand_in()
        self.assertRefuses(self.stranger())
        self.assertNothingReachedTheAddon()

    def test_without_kest_nobody_has_anything_done(self):
        self.start()
        self.assertRefuses(self.stranger())

    def test_a_kest_that_runs_cannot_be_replaced(self):
        self.start()
        address = self.sandbox.env["DBUS_SESSION_BUS_ADDRESS"]
        kest = dbus.bus.BusConnection(address, mainloop=dbus.mainloop.NULL_MAIN_LOOP)
        self.assertEqual(kest.request_name(KEST_NAME, 0), dbus.bus.REQUEST_NAME_REPLY_PRIMARY_OWNER)
        self.assertRefuses(self.bus)

    def test_who_was_kest_is_a_stranger_afterwards(self):
        self.start()
        self.answer(lambda _call: {"result": OUTGOING})
        self.assertEqual(self.bus.make("s", "c"), OUTGOING)
        self.bus.connection.release_name(KEST_NAME)
        self.bus.stranger = True
        self.assertRefuses(self.bus)

    def test_a_stranger_may_ask(self):
        self.start()
        self.answer(lambda _call: {"result": [["a", "b", "c"]]})
        self.assertEqual(self.stranger().accounts(), [("a", "b", "c")])

    # What it reads and tells

    def test_no_path_on_the_bus_is_opened(self):
        self.start()
        self.bus.stand_in()
        for path in ("/etc/passwd", "/proc/self/environ"):
            self.fails("InvalidArgument", lambda: self.bus.call("InsertAttachment", "a", path, dbus.UInt64(0),
                                                                path=OUTGOING, signature="sst"))
        self.assertNothingReachedTheAddon()

    def test_only_regular_files_are_read(self):
        self.start()
        for path in ("/dev/zero", "/proc/self"):
            with self.subTest(path), opened(path) as file:
                words = self.fails("InvalidArgument", lambda: self.bus.call(
                    "InsertAttachment", "a", dbus.types.UnixFd(file), dbus.UInt64(0), path=OUTGOING, signature="sht"))
                self.assertIn("not a regular file", words)
                self.assertIn("drop", self.receive())

    def test_answers_that_the_bus_cannot_carry_are_errors_at_once(self):
        self.start()
        self.answer(lambda _call: {"error": {"name": "no word!", "message": "Something."}})
        self.assertEqual(self.fails("Failed", self.bus.accounts), "Something.")
        self.answer(lambda _call: {"result": ["/good", "no path"]})
        self.fails("Failed", self.bus.selection)

    def test_what_people_wrote_is_not_in_the_log(self):
        self.start()
        self.send({"nonsense": MARKER})
        text = f'{{"broken": "{MARKER}"'.encode()
        self.write(struct.pack("=I", len(text)) + text)
        self.answer(lambda _call: {"error": {"name": "Failed", "message": f"“{MARKER}” is no name"}})
        self.fails("Failed", lambda: self.bus.make(f"{MARKER} subject", f"{MARKER} content"))
        self.send({"answer": 77, "result": MARKER})
        self.fails("InvalidArgument", lambda: self.bus.call("MakeOutgoingMessage", MARKER, signature="s"))
        self.answer(lambda _call: {"error": {"name": MARKER, "message": MARKER}})
        self.fails(MARKER, lambda: self.bus.call("AddRecipient", "to", MARKER, f"{MARKER}@example.test", path=OUTGOING))
        self.close_pipe()
        self.assertEqual(self.end(), 0)
        log = self.sandbox.log("host")
        self.assertIn("passed over a message", log)
        self.assertNotIn(MARKER, log)


if __name__ == "__main__":
    unittest.main()
