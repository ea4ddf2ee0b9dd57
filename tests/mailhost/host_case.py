"""A kest-mail-host as a process: the test is the add-on on its pipes, and a caller on its bus."""

import array
import contextlib
import fcntl
import json
import os
import struct
import subprocess
import sys
import termios
import threading
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(os.environ["KEST_SOURCE_DIR"]) / "tests" / "support"))

from services.base import Sandbox, wait_until  # noqa: E402
from services.bus import SessionBus  # noqa: E402
from services.mailbus import MailBus, error_of  # noqa: E402

import dbus  # noqa: E402

HOST = Path(os.environ["KEST_BUILD_DIR"]) / "bin" / "kest-mail-host"
ADDON = "kest@kest.invalid"
NAME = "org.kest.Mail1.Thunderbird"
VERSION = subprocess.run([HOST, "--version"], capture_output=True, text=True, check=True).stdout.split()[1]


def unread(pipe):
    """How many bytes lie in a pipe that nobody has read yet."""
    count = array.array("i", [0])
    fcntl.ioctl(pipe, termios.FIONREAD, count)
    return count[0]


def state_of(pid):
    """One letter, see proc_pid_stat(5); "S" sleeps."""
    return Path(f"/proc/{pid}/stat").read_text().rpartition(")")[2].split()[0]


class HostCase(unittest.TestCase):

    def setUp(self):
        self.sandbox = Sandbox()
        self.addCleanup(self.sandbox.close)
        self.bus_service = SessionBus(self.sandbox)

    def start(self, version=VERSION, protocol=1):
        self.host = self.sandbox.start("host", [HOST, "manifest.json", ADDON], stdin=subprocess.PIPE,
                                       stdout=subprocess.PIPE)
        self.addCleanup(self.host.stdout.close)
        self.addCleanup(self.close_pipe, self.host)
        self.assertEqual(self.receive()["hello"], {"protocol": 1, "version": VERSION})
        self.send({"hello": {"protocol": protocol, "version": version, "name": "Thunderbird",
                             "applicationVersion": "153.7.0"}})
        self.bus = MailBus(self.sandbox.env["DBUS_SESSION_BUS_ADDRESS"])
        wait_until(lambda: self.bus.connection.name_has_owner(NAME), "the host's name on the bus")

    def peak_mebibytes(self, host=None):
        """The most memory that the host has had resident so far."""
        status = Path(f"/proc/{(host or self.host).pid}/status").read_text()
        return next(int(line.split()[1]) for line in status.splitlines() if line.startswith("VmHWM")) // 1024

    def close_pipe(self, host=None):
        with contextlib.suppress(BrokenPipeError):  # what it was still to read, and it is gone
            (host or self.host).stdin.close()

    def write(self, data):
        self.host.stdin.write(data)
        self.host.stdin.flush()

    def send(self, message):
        text = json.dumps(message).encode()
        self.write(struct.pack("=I", len(text)) + text)

    def receive(self):
        length = struct.unpack("=I", self.host.stdout.read(4))[0]
        return json.loads(self.host.stdout.read(length))

    def wait_until_read(self):
        """Until the host has taken everything out of its pipe."""
        wait_until(lambda: unread(self.host.stdin) == 0, "the host to read its pipe")

    def wait_until_asleep(self):
        """Until the host has done all it can do without another word from here."""
        wait_until(lambda: state_of(self.host.pid) == "S", "the host to wait for the add-on")

    def answer(self, work):
        """Plays the add-on for one call in the background: `work(call)` gives what is sent back."""
        def play():
            call = self.receive()
            self.send({"answer": call["call"], **work(call)})
        thread = threading.Thread(target=play, daemon=True)
        thread.start()
        return thread

    def end(self, seconds=60):
        return self.host.wait(seconds)

    def fails(self, name, work, *arguments):
        with self.assertRaises(dbus.DBusException) as caught:
            work(*arguments)
        found, words = error_of(caught.exception)
        self.assertEqual(found, name)
        return words
