"""kest-mail-host as a process, between the test as the add-on and the test as a caller."""

import base64
import json
import os
import struct
import subprocess
import threading
import unittest

from host_case import ADDON, HOST, NAME, VERSION, HostCase, wait_until


class HostProcess(HostCase):

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
        host = subprocess.run([HOST, "manifest.json", ADDON], env=self.sandbox.env, stdin=subprocess.DEVNULL, capture_output=True, text=True,
                              timeout=60)
        self.assertEqual(host.returncode, 1)

    def test_two_hosts_queue_for_the_name(self):
        self.start()
        first = self.host
        self.start()
        self.answer(lambda _call: {"result": [["second", "", ""]]})
        first.stdin.close()
        first.wait(60)
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
        self.assertLess(self.peak_mebibytes(), 64)

    def test_what_is_printed_by_accident_does_not_reach_the_protocol(self):
        self.start()
        self.assertEqual(os.readlink(f"/proc/{self.host.pid}/fd/0"), "/dev/null")
        self.assertEqual(os.readlink(f"/proc/{self.host.pid}/fd/1"), os.readlink(f"/proc/{self.host.pid}/fd/2"))


if __name__ == "__main__":
    unittest.main()
