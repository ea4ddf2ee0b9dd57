"""kest-mail-host as a process: this test is the add-on on its pipes, and a caller on its bus."""

import array
import base64
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


class HostProcess(unittest.TestCase):

    def setUp(self):
        self.sandbox = Sandbox()
        self.addCleanup(self.sandbox.close)
        self.bus_service = SessionBus(self.sandbox)

    def start(self, version=VERSION, protocol=1):
        self.host = self.sandbox.start("host", [HOST, "manifest.json", "kest@kest.invalid"], stdin=subprocess.PIPE,
                                       stdout=subprocess.PIPE)
        self.addCleanup(self.host.stdout.close)
        self.addCleanup(self.close_pipe)
        self.assertEqual(self.receive()["hello"], {"protocol": 1, "version": VERSION})
        self.send({"hello": {"protocol": protocol, "version": version, "name": "Thunderbird",
                             "applicationVersion": "153.7.0"}})
        self.bus = MailBus(self.sandbox.env["DBUS_SESSION_BUS_ADDRESS"])
        wait_until(lambda: self.bus.connection.name_has_owner(NAME), "the host's name on the bus")

    def close_pipe(self):
        if not self.host.stdin.closed:
            self.host.stdin.close()

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

    def end(self, seconds=5):
        return self.host.wait(seconds)

    def fails(self, name, work, *arguments):
        with self.assertRaises(dbus.DBusException) as caught:
            work(*arguments)
        found, words = error_of(caught.exception)
        self.assertEqual(found, name)
        return words

    def test_a_call_goes_through_by_names_and_its_answer_comes_back(self):
        self.start()
        seen = []

        def make(call):
            seen.append(call)
            return {"result": "/org/kest/Mail1/outgoing/1"}
        self.answer(make)
        self.assertEqual(self.bus.make("Subject", "Content"), "/org/kest/Mail1/outgoing/1")
        self.assertEqual((seen[0]["interface"], seen[0]["kind"], seen[0]["member"], seen[0]["arguments"]),
                         ("Application", "call", "MakeOutgoingMessage", {"subject": "Subject", "content": "Content"}))

    def test_an_answer_that_comes_byte_by_byte_is_taken(self):
        self.start()

        def slowly():
            call = self.receive()
            text = json.dumps({"answer": call["call"], "result": [["a", "b", "c"]]}).encode()
            for byte in struct.pack("=I", len(text)) + text:
                self.write(bytes([byte]))
                self.wait_until_read()
        threading.Thread(target=slowly, daemon=True).start()
        self.assertEqual(self.bus.accounts(), [("a", "b", "c")])

    def test_the_addons_errors_become_the_bus_errors(self):
        self.start()
        self.answer(lambda _call: {"error": {"name": "Unsupported", "message": "Not here."}})
        self.assertEqual(self.fails("Unsupported", self.bus.selection), "Not here.")

    def test_a_senseless_answer_is_an_error_in_words(self):
        self.start()
        self.answer(lambda _call: {"result": {"no": "list"}})
        self.assertIn("makes no sense", self.fails("Failed", self.bus.accounts))

    def test_halves_of_different_versions_say_so_for_every_call(self):
        for version, protocol in (("99.1.0", 1), (VERSION, 2)):
            with self.subTest(version=version, protocol=protocol):
                self.start(version, protocol)
                words = self.fails("Mismatch", self.bus.accounts)
                self.assertIn(version, words)
                self.assertIn(VERSION, words)
                self.fails("Mismatch", self.bus.make, "s", "c")
                self.assertEqual(self.bus.get("/org/kest/Mail1", "Version"), VERSION)
                self.close_pipe()
                self.end()

    def test_all_properties_of_the_application_can_be_read_at_once(self):
        self.start()
        told = self.bus.connection.call_blocking(NAME, "/org/kest/Mail1", "org.freedesktop.DBus.Properties", "GetAll",
                                                 "s", ("org.kest.Mail1.Application",))
        self.assertEqual((told["ProtocolVersion"], told["Version"], told["Name"], told["ApplicationVersion"]),
                         (1, VERSION, "Thunderbird", "153.7.0"))

    def test_calls_against_the_contract_never_reach_the_addon(self):
        self.start()
        self.fails("InvalidArgument", lambda: self.bus.call("MakeOutgoingMessage", "one", signature="s"))
        self.fails("InvalidArgument", self.bus.set, "/org/kest/Mail1", "Version", "2")
        self.fails("InvalidArgument", self.bus.get, "/org/kest/Mail1", "Nothing")
        self.fails("UnknownMethod", lambda: self.bus.call("Explode", signature=""))
        self.fails("UnknownObject", lambda: self.bus.call("Accounts", signature="", path="/org/kest/Mail1/nowhere"))
        self.answer(lambda call: {"result": [[call["member"], "", ""]]})
        self.assertEqual(self.bus.accounts(), [("Accounts", "", "")])

    def test_the_end_of_the_pipe_answers_open_calls_and_ends_the_host(self):
        self.start()

        def leave_while_a_call_is_open():
            self.receive()
            self.close_pipe()
        threading.Thread(target=leave_while_a_call_is_open, daemon=True).start()
        self.assertIn("Thunderbird", self.fails("NotConnected", self.bus.accounts))
        self.assertEqual(self.end(), 0)
        self.assertFalse(self.bus.connection.name_has_owner(NAME))

    def test_the_end_inside_a_message_ends_the_host_in_words(self):
        self.start()
        self.write(struct.pack("=I", 100) + b"{\"half\"")
        self.wait_until_read()
        self.close_pipe()
        self.assertEqual(self.end(), 0)

    def test_an_impossible_length_ends_the_host_and_costs_no_memory(self):
        self.start()
        self.write(struct.pack("=I", 0xffffffff))
        self.end()

    def test_the_end_of_the_bus_ends_the_host(self):
        self.start()
        self.bus_service.stop()
        self.end()

    def test_without_a_bus_it_says_so_and_ends(self):
        self.bus_service.stop()
        host = subprocess.run([HOST], env=self.sandbox.env, stdin=subprocess.DEVNULL, capture_output=True, text=True,
                              timeout=10)
        self.assertEqual(host.returncode, 1)

    def test_two_hosts_queue_for_the_name(self):
        self.start()
        first = self.host
        self.start()
        self.answer(lambda _call: {"result": [["second", "", ""]]})
        first.stdin.close()
        first.wait(5)
        wait_until(lambda: self.bus.connection.name_has_owner(NAME), "the second host's turn")
        self.assertEqual(self.bus.accounts(), [("second", "", "")])

    def test_a_slow_addon_costs_no_memory_however_large_the_file(self):
        self.start()
        size = 40_000_000
        path = self.sandbox.root / "large.m4a"
        with open(path, "wb") as file:
            file.truncate(size)
        taken = []

        def play():
            while "chunk" in (message := self.receive()):
                taken.append(len(base64.b64decode(message["data"])))
                self.wait_until_asleep()
                self.send({"taken": message["chunk"]})
            self.send({"answer": message["call"], "result": None})
        threading.Thread(target=play, daemon=True).start()
        self.bus.attach("/org/kest/Mail1/outgoing/1", "large.m4a", path)
        self.assertEqual(sum(taken), size)
        status = Path(f"/proc/{self.host.pid}/status").read_text()
        peak = next(int(line.split()[1]) for line in status.splitlines() if line.startswith("VmHWM")) // 1024
        self.assertLess(peak, 64)

    def test_what_is_printed_by_accident_does_not_reach_the_protocol(self):
        self.start()
        self.assertEqual(os.readlink(f"/proc/{self.host.pid}/fd/0"), "/dev/null")
        self.assertEqual(os.readlink(f"/proc/{self.host.pid}/fd/1"), os.readlink(f"/proc/{self.host.pid}/fd/2"))


if __name__ == "__main__":
    unittest.main()
