"""Whatever dies on the way between a caller and Thunderbird: an error in words and soon, and all well afterwards."""

import array
import contextlib
import fcntl
import os
import signal
import termios
import threading
import time
import unittest
from pathlib import Path

import dbus

from mail_case import MailBus, MailCase, error_of, wait_until
from services.base import ServiceError, free_port
from services.marionette import Marionette

ADDON = "kest@kest.invalid"
PORT = free_port()
SOON = 5
NO_MORE = 6  # Seconds; the pauses between the tries that there are are shorter.


def unread_of(pid):
    """How many bytes lie in the pipes of a process that nobody has read yet."""
    most = 0
    for link in Path(f"/proc/{pid}/fd").iterdir():
        with contextlib.suppress(OSError):
            if not os.readlink(link).startswith("pipe:"):
                continue
            # A second descriptor for the same pipe, which takes nothing out of it.
            pipe = os.open(link, os.O_RDONLY | os.O_NONBLOCK)
            try:
                count = array.array("i", [0])
                fcntl.ioctl(pipe, termios.FIONREAD, count)
                most = max(most, count[0])
            finally:
                os.close(pipe)
    return most


class LossCase(MailCase):

    def kill_host(self):
        os.kill(self.thunderbird.host_pid(), signal.SIGKILL)

    def works_again(self):
        wait_until(self.thunderbird.on_bus, "the host back on the bus")
        self.assertEqual(len(self.bus.accounts()), 1)


class Losses(LossCase):

    options = {"prefs": {"marionette.port": PORT}}
    arguments = Marionette.ARGUMENTS

    def setUp(self):
        super().setUp()
        if not self.thunderbird.process:
            self.thunderbird.start(True, *self.arguments)
        wait_until(self.thunderbird.on_bus, "the host on the bus")

    def call_in_background(self):
        """Begins a call that Thunderbird cannot answer, because it is stopped; gives the error when it comes."""
        os.kill(self.thunderbird.process.pid, signal.SIGSTOP)
        failures = []

        def call():
            began = time.monotonic()
            try:
                MailBus(self.sandbox.env["DBUS_SESSION_BUS_ADDRESS"]).call("Accounts", seconds=60)
            except dbus.DBusException as problem:
                failures.append((*error_of(problem), time.monotonic() - began))
        thread = threading.Thread(target=call, daemon=True)
        thread.start()
        wait_until(lambda: unread_of(self.thunderbird.host_pid()) > 0, "the host to pass the call on")
        self.assertEqual(failures, [])
        return thread, failures

    def test_a_killed_host_comes_back_and_no_message_is_lost(self):
        message = self.bus.make("Kept", "text")
        self.kill_host()
        self.thunderbird.wait_off_bus(SOON)
        began = time.monotonic()
        self.works_again()
        self.assertLess(time.monotonic() - began, SOON)
        self.assertEqual(self.bus.get(message, "Subject"), "Kept")

    def test_a_host_killed_in_mid_call_fails_the_call_at_once(self):
        thread, failures = self.call_in_background()
        self.kill_host()
        thread.join(SOON)
        os.kill(self.thunderbird.process.pid, signal.SIGCONT)
        self.assertEqual(len(failures), 1)
        self.works_again()

    def test_thunderbird_killed_in_mid_call_fails_the_call_in_words(self):
        thread, failures = self.call_in_background()
        self.thunderbird.kill()
        thread.join(SOON)
        [(name, words, _seconds)] = failures
        self.assertEqual(name, "NotConnected")
        self.assertIn("Thunderbird", words)
        self.thunderbird.wait_off_bus(SOON)
        self.thunderbird.start(True, *self.arguments)
        self.works_again()

    def test_a_started_thunderbird_is_on_the_bus_and_a_quit_one_is_not(self):
        self.thunderbird.stop()
        self.thunderbird.wait_off_bus(SOON)
        with self.assertRaises(dbus.DBusException):
            self.bus.accounts()
        self.thunderbird.start(True, *self.arguments)
        self.works_again()

    def test_a_disabled_addon_takes_the_name_off_the_bus_and_an_enabled_one_brings_it_back(self):
        self.thunderbird.stop()
        self.thunderbird.start(True, *self.arguments)
        with contextlib.closing(Marionette(PORT)) as remote:
            remote.switch_addon(ADDON, False)
            self.thunderbird.wait_off_bus(SOON)
            with self.assertRaises(dbus.DBusException):
                self.bus.accounts()
            remote.switch_addon(ADDON, True)
            self.works_again()

    def test_the_addon_disabled_in_mid_call_fails_the_call_in_words(self):
        self.thunderbird.stop()
        self.thunderbird.start(True, *self.arguments)
        self.mail.delay = 20
        message = self.bus.make("Slow to send", "text")
        self.bus.call("AddRecipient", "to", "", "ben@example.test", path=message)
        failures = []

        def send():
            try:
                MailBus(self.sandbox.env["DBUS_SESSION_BUS_ADDRESS"]).call("Send", path=message, seconds=60)
            except dbus.DBusException as problem:
                failures.append(error_of(problem))
        thread = threading.Thread(target=send, daemon=True)
        thread.start()
        self.thunderbird.wait_window("Slow to send")
        with contextlib.closing(Marionette(PORT)) as remote:
            remote.switch_addon(ADDON, False)
            thread.join(SOON)
            remote.switch_addon(ADDON, True)
        self.mail.delay = 0
        self.assertEqual([name for name, _words in failures], ["NotConnected"])
        self.works_again()


class HostThatCannotStart(LossCase):
    """Without Marionette, which has Thunderbird keep the focus."""

    def test_a_host_that_cannot_start_is_tried_again_only_when_a_person_turns_to_a_window(self):
        manifest = self.sandbox.home / ".mozilla/native-messaging-hosts/org.kest.mailhost.json"
        starts = self.sandbox.root / "starts"
        dead = self.sandbox.root / "dead-host"
        dead.write_text(f"#!/bin/sh\necho started >> {starts}\nexit 1\n")
        dead.chmod(0o755)
        text = manifest.read_text()
        manifest.write_text(text.replace(str(self.thunderbird.build / "bin/kest-mail-host"), str(dead)))
        self.kill_host()

        def tries():
            return len(starts.read_text().splitlines()) if starts.exists() else 0
        # A host that died young counts as the first of the three.
        wait_until(lambda: tries() >= 2, "the host to be tried again")
        with self.assertRaises(ServiceError):
            wait_until(lambda: tries() > 3, "a fourth try, which must not come", NO_MORE)
        manifest.write_text(text)
        # The next time that a person turns to another window, and not only after a new start.
        stranger = self.sandbox.start("stranger", ["xmessage", "elsewhere"])
        wait_until(self.thunderbird.on_bus, "the host on the bus")
        self.sandbox.stop(stranger)
        self.works_again()


if __name__ == "__main__":
    unittest.main()
