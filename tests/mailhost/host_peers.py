"""Who may do what with kest-mail-host: our add-on alone starts it, Kest alone has it do something."""

import contextlib
import os
import struct
import subprocess
import tempfile
import threading
import unittest

import dbus

from host_case import ADDON, HOST, HostCase
from services.mailbus import KEST_NAME, PROPERTIES, MailBus, error_of

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

    def properties(self, bus, member, *arguments, signature):
        return bus.connection.call_blocking(bus.name, OUTGOING, PROPERTIES, member, signature, arguments, timeout=20)

    def test_questions_with_more_than_belongs_to_them_are_refused(self):
        self.start()
        stranger = self.stranger()
        subject = ("org.kest.Mail1.OutgoingMessage", "Subject")
        with tempfile.TemporaryFile() as file:
            more = {"h": dbus.types.UnixFd(file.fileno()), "ah": [dbus.types.UnixFd(file.fileno())], "s": "x" * 100_000,
                    "an": dbus.Array([1] * 1_000_000, signature="n"), "v": dbus.types.UnixFd(file.fileno())}
            for signature, value in more.items():
                with self.subTest(signature):
                    self.fails("InvalidArgument", lambda: self.properties(stranger, "Get", *subject, value,
                                                                          signature="ss" + signature))
                    self.fails("InvalidArgument", lambda: self.properties(stranger, "GetAll", subject[0], value,
                                                                          signature="s" + signature))
        for member in ("Got", "get", "Reset"):
            with self.subTest(member):
                self.fails("UnknownMethod", lambda: self.properties(stranger, member, *subject, signature="ss"))
        self.assertNothingReachedTheAddon()

    def test_a_path_of_megabytes_does_not_reach_the_addon(self):
        self.start()
        for path in ("/org/kest/Mail1/message/" + "1" * 5_000_000, "/org/kest/Mail1/message/" + "1" * 16,
                     "/org/kest/Mail1/message/" + "a" * 5_000_000 + "/2"):
            self.fails("NoSuchObject", lambda: self.stranger().get(path, "Subject"))
        self.assertNothingReachedTheAddon()

    def test_a_stranger_who_asks_without_end_leaves_kest_its_room(self):
        self.start()
        stranger = self.stranger()
        for _question in range(100):
            message = dbus.lowlevel.MethodCallMessage(self.bus.name, "/org/kest/Mail1", "org.kest.Mail1.Application", "Accounts")
            stranger.connection.send_message(message)
        stranger.connection.flush()
        self.fails("Failed", stranger.accounts)

        def play():
            while (call := self.receive())["member"] != "MakeOutgoingMessage":
                pass
            self.send({"answer": call["call"], "result": OUTGOING})
        threading.Thread(target=play, daemon=True).start()
        self.assertEqual(self.bus.make("s", "c"), OUTGOING)

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

    def test_files_larger_than_any_mail_are_refused(self):
        self.start()
        with tempfile.TemporaryFile() as file:
            file.truncate(2 ** 40)
            words = self.fails("InvalidArgument", lambda: self.bus.call(
                "InsertAttachment", "a", dbus.types.UnixFd(file.fileno()), dbus.UInt64(0), path=OUTGOING, signature="sht"))
            self.assertIn("2 GiB", words)
            self.assertIn("drop", self.receive())

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
        self.answer(lambda _call: {"error": {"name": "N" * 300, "message": "Long."}})
        self.assertEqual(self.fails("Failed", self.bus.accounts), "Long.")
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
