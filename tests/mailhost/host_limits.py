"""kest-mail-host against whatever arrives: it stays under 64 MB, and serves or ends in words."""

import contextlib
import itertools
import os
import struct
import sys
import threading
import time
import unittest

import dbus

from host_case import HostCase, wait_until

LONGEST = 4 * 1024 * 1024
MEBIBYTES = 64
ROOT = "/org/kest/Mail1"
APPLICATION = "org.kest.Mail1.Application"


def framed(data):
    return struct.pack("=I", len(data)) + data


def filled(start, part, end, size=LONGEST):
    """JSON of nearly that size: `start`, then `part` as often as it fits, then `end`."""
    return framed(start + part * ((size - len(start) - len(end)) // len(part)) + end)


MESSAGES = {
    "nothing": framed(b"") * 100_000,
    "zeroes": bytes(1_000_000),
    "no UTF-8": framed(b'{"a":"' + b"\xff" * (LONGEST - 20) + b'"}'),
    "half a character at the end": framed(b'{"a":"\xe2\x82'),
    "a lone surrogate": framed(rb'{"hello":{"name":"\ud800"}}'),
    "a text": filled(b'{"a":"', b"x", b'"}'),
    "a text of escapes": filled(b'{"a":"', rb"\u20ac", b'"}'),
    "a text in a list, as an answer": filled(b'{"answer":999,"result":["', "€".encode(), b'"]}'),
    "empty lists": filled(b'{"a":[[]', b",[]", b"]}"),
    "empty objects": filled(b'{"a":[{}', b",{}", b"]}"),
    "keys": framed(b'{"a":0' + b"".join(b',"%x":0' % number for number in range(300_000)) + b"}"),
    "numbers": filled(b'{"a":[0', b",0", b"]}"),
    "just not too many parts": framed(b'{"a":[[]' + b",[]" * 65_000 + b"]}"),
    "nested": filled(b'{"a":', b"[", b""),
    "nested objects": filled(b"", b'{"a":', b""),
    "nested as deep as JSON goes": framed(b'{"a":' * 1000 + b"0" + b"}" * 1000),
    "a name of four megabytes, a hundred times": filled(b'{"hello":{"protocol":1,"name":"', b"x", b'"}}') * 100,
    "pieces of files that nobody sent": framed(b'{"taken":-1}') * 50_000 + framed(b'{"taken":99999999999}'),
    "answers that nobody waits for": framed(b'{"answer":1e300,"result":0}') * 20_000,
}


class HostLimits(HostCase):

    def start_watched(self):
        """Starts a host and notes its memory for as long as it lives, so that one that ends is measured too."""
        self.start()
        self.peak = 0

        def note(host):
            with contextlib.suppress(OSError, StopIteration):
                while host is self.host:
                    self.peak = max(self.peak, self.peak_mebibytes(host))
                    time.sleep(0.002)
        threading.Thread(target=note, args=(self.host,), daemon=True).start()

    def assertServes(self):
        """The host is alive, has been modest, and still carries a call."""
        self.answer(lambda call: {"result": [[call["member"], "", ""]]})
        self.assertEqual(wait_until(self.accounts, "the bus to take a call for the host", 60), [("Accounts", "", "")])
        self.assertModest()

    def accounts(self):
        """Nothing as long as the bus itself refuses, because others have sent the host so much."""
        try:
            return self.bus.accounts()
        except dbus.DBusException as error:
            if error.get_dbus_name() != "org.freedesktop.DBus.Error.LimitsExceeded":
                raise
            return None

    def assertModest(self):
        peak = self.peak_mebibytes()
        print(f"[{peak} MiB] ", end="", file=sys.stderr, flush=True)
        self.assertLess(peak, MEBIBYTES)

    def stranger(self):
        address = self.sandbox.env["DBUS_SESSION_BUS_ADDRESS"]
        return dbus.bus.BusConnection(address, mainloop=dbus.mainloop.NULL_MAIN_LOOP)

    def send_to_host(self, connection, *arguments, member="MakeOutgoingMessage", signature="ss"):
        message = dbus.lowlevel.MethodCallMessage(self.bus.name, ROOT, APPLICATION, member)
        message.append(*arguments, signature=signature)
        message.set_no_reply(True)
        connection.send_message(message)

    def read_all(self):
        """An add-on that takes everything and answers nothing."""
        with contextlib.suppress(struct.error, ValueError):
            while True:
                self.receive()

    # From the add-on's side

    def test_no_message_costs_more_than_a_host_may_have(self):
        for name, data in MESSAGES.items():
            with self.subTest(name):
                self.start_watched()
                self.write(data)
                self.assertServes()
                self.close_pipe()
                self.end()

    def test_messages_by_the_dozen_cost_no_more_than_one(self):
        self.start_watched()
        for _round in range(10):
            self.write(MESSAGES["just not too many parts"] + MESSAGES["a text of escapes"])
        self.assertServes()

    def test_a_length_above_the_limit_ends_the_host_whatever_follows(self):
        for length in (LONGEST + 1, 16 * 1024 * 1024, 0x7fffffff, 0x80000000, 0xffffffff):
            with self.subTest(length=length):
                self.start_watched()
                with contextlib.suppress(BrokenPipeError):
                    self.write(struct.pack("=I", length) + bytes(30_000_000))
                self.assertEqual(self.end(), 0)
                self.assertLess(self.peak, MEBIBYTES)
                self.assertIn(f"announced a message of {length} bytes", self.sandbox.log("host"))

    def test_the_end_at_every_place_of_a_message_ends_the_host(self):
        whole = framed(b'{"focused":true}')
        for kept in range(1, len(whole)):
            with self.subTest(kept=kept):
                self.start()
                self.write(whole[:kept])
                self.close_pipe()
                self.assertEqual(self.end(), 0)
                self.assertIn("in the middle of a message", self.sandbox.log("host"))
                self.sandbox.logs.joinpath("host.log").unlink()

    def test_a_byte_a_second_is_waited_for(self):
        self.start_watched()
        for byte in framed(b"{}"):
            self.write(bytes([byte]))
            time.sleep(1)
        self.assertServes()

    def test_an_answer_as_long_as_may_be_reaches_the_caller_within_the_memory(self):
        self.start_watched()
        rows = ["x" * 1000] * 4000
        self.answer(lambda _call: {"result": [[row, "", ""] for row in rows]})
        self.assertEqual(len(self.bus.accounts()), len(rows))
        self.assertModest()

    # From the bus

    def test_a_text_as_long_as_may_be_goes_through_within_the_memory(self):
        self.start_watched()
        text = "ü" * (LONGEST - 1000)
        pieces = []

        def play():
            while "piece" in (call := self.receive()):
                pieces.append(call["piece"])
                if call["last"]:
                    break
            self.send({"answer": 1, "result": "/org/kest/Mail1/outgoing/1"})
        threading.Thread(target=play, daemon=True).start()
        self.assertEqual(self.bus.make("Long", text), "/org/kest/Mail1/outgoing/1")
        self.assertGreater(len(pieces), 8)
        self.assertModest()

    def test_longer_texts_are_refused_in_words(self):
        self.start_watched()
        self.assertIn("too long", self.fails("InvalidArgument", self.bus.make, "x" * (LONGEST + 100_000), ""))
        self.assertServes()

    def test_monstrous_messages_on_the_bus_cost_the_host_its_connection_and_no_memory(self):
        self.start_watched()
        stranger = self.stranger()
        self.send_to_host(stranger, "x" * 30_000_000, "")
        stranger.flush()
        self.end()
        self.assertLess(self.peak, MEBIBYTES)

    def test_long_messages_of_strangers_cost_no_memory_however_many(self):
        self.start_watched()
        strangers = [self.stranger() for _ in range(3)]
        for connection in itertools.islice(itertools.cycle(strangers), 30):
            self.send_to_host(connection, "x" * 4_000_000, "x" * 4_000_000)
        for connection in strangers:
            connection.flush()
        self.assertServes()

    def test_an_addon_that_answers_nothing_gathers_no_requests(self):
        self.start_watched()
        self.bus.stand_in()
        for _call in range(2000):
            self.send_to_host(self.bus.connection, "x" * 50_000, "")
        self.bus.connection.flush()
        words = self.fails("Failed", self.bus.make, "One more", "")
        self.assertIn("busy", words)
        self.assertModest()

    def test_long_texts_that_wait_for_answers_are_one_at_a_time(self):
        self.start_watched()
        self.bus.stand_in()
        threading.Thread(target=self.read_all, daemon=True).start()
        for _call in range(20):
            self.send_to_host(self.bus.connection, "x" * 3_000_000, "")
        self.bus.connection.flush()
        self.assertIn("busy", self.fails("Failed", self.bus.make, "One more", "x" * 3_000_000))
        self.assertModest()

    def test_a_hundred_files_travel_in_one_call_and_more_are_refused_in_words(self):
        self.start_watched()

        def play():
            while "chunk" in (message := self.receive()):
                self.send({"taken": message["chunk"]})
            self.send({"answer": message["call"], "result": "/org/kest/Mail1/outgoing/1"})
        threading.Thread(target=play, daemon=True).start()
        hundred = [(f"{number}.m4a", b"sound") for number in range(100)]
        self.assertEqual(self.bus.new_message(attachments=hundred), "/org/kest/Mail1/outgoing/1")
        words = self.fails("InvalidArgument", lambda: self.bus.new_message(attachments=[*hundred, ("a", b"1")]))
        self.assertIn("at most 100 files", words)
        self.assertModest()


if __name__ == "__main__":
    unittest.main()
