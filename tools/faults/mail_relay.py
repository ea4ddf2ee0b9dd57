#!/usr/bin/python3
"""Stands between Thunderbird and Kest's mail host, hands everything on, and lets a fault happen at a chosen call.

    mail_relay.py FOLDER HOST ARGUMENT...     started by Thunderbird in the host's place

FOLDER/armed, when it is there, is a JSON object: `countdown` (which call from now), `fault` (one of BEFORE or AFTER),
`thunderbird` and `bus` (process ids). It is taken away when the call comes. FOLDER/journal gets a line for each call that the
host asks for and for each answer: "called NAME", "answered NAME", "refused NAME", and "kept NAME" for one that the host
never sees.
"""

import contextlib
import json
import os
import signal
import struct
import subprocess
import sys
import threading
from pathlib import Path


class Relay:

    def __init__(self, folder, host):
        self.armed, self.journal = folder / "armed", folder / "journal"
        self.names = {}  # Of the calls without an answer, by their serial numbers.
        self.at_answer = None  # (serial number, what was armed)
        self.host = subprocess.Popen(host, stdin=subprocess.PIPE, stdout=subprocess.PIPE)

    # The messages: a length in 32 bits, then JSON

    @staticmethod
    def frames(pipe):
        while len(header := pipe.read(4)) == 4:
            body = pipe.read(struct.unpack("=I", header)[0])
            yield header + body, json.loads(body)

    @staticmethod
    def write(pipe, frame):
        pipe.write(frame)
        pipe.flush()

    def note(self, word, name):
        with open(self.journal, "a") as file:
            file.write(f"{word} {name}\n")

    # From the host to Thunderbird

    def carry_calls(self):
        for frame, message in self.frames(self.host.stdout):
            if "call" not in message or self.begins(message):
                self.write(sys.stdout.buffer, frame)
        os._exit(0)  # The host has gone; for Thunderbird this is it.

    def begins(self, message):
        """Notes a call; false when it is to go no further."""
        serial, name = message["call"], f"{message['interface']}.{message['member']}"
        self.names[serial] = name
        self.note("called", name)
        armed = self.take_armed()
        fault = armed and armed["fault"]
        if fault in AFTER:
            self.at_answer = serial, armed
        return not armed or fault in AFTER or BEFORE[fault](self, armed)

    def take_armed(self):
        try:
            armed = json.loads(self.armed.read_text())
        except FileNotFoundError:
            return None
        armed["countdown"] -= 1
        if armed["countdown"]:
            self.armed.write_text(json.dumps(armed))
            return None
        self.armed.unlink()
        return armed

    # From Thunderbird to the host

    def carry_answers(self):
        for frame, message in self.frames(sys.stdin.buffer):
            if "answer" not in message or self.ends(message):
                self.write(self.host.stdin, frame)
        self.host.stdin.close()

    def ends(self, message):
        """Notes an answer; false when the host is not to see it."""
        name = self.names.pop(message["answer"], "?")
        done = "refused" if "error" in message else "answered"
        if not self.at_answer or self.at_answer[0] != message["answer"]:
            self.note(done, name)
            return True
        armed, self.at_answer = self.at_answer[1], None
        self.note("kept" if done == "answered" else done, name)
        AFTER[armed["fault"]](self, armed)
        return False

    # Faults

    def kill_host(self, _armed):
        self.host.kill()
        self.host.wait()
        os._exit(0)

    def kill_thunderbird(self, armed):
        os.kill(armed["thunderbird"], signal.SIGKILL)
        return False

    def stop_thunderbird(self, armed):
        os.kill(armed["thunderbird"], signal.SIGSTOP)
        return True

    def kill_bus(self, armed):
        os.kill(armed["bus"], signal.SIGKILL)
        return True

    def keep_answer(self, _armed):
        pass

    def run(self):
        threading.Thread(target=self.carry_calls, daemon=True).start()
        with contextlib.suppress(BrokenPipeError):
            self.carry_answers()
        self.host.wait()


BEFORE = {"host-before": Relay.kill_host, "thunderbird-before": Relay.kill_thunderbird, "stop": Relay.stop_thunderbird,
          "bus-before": Relay.kill_bus}
AFTER = {"host-after": Relay.kill_host, "thunderbird-after": Relay.kill_thunderbird, "bus-after": Relay.kill_bus,
         "no-answer": Relay.keep_answer}


if __name__ == "__main__":
    Relay(Path(sys.argv[1]), sys.argv[2:]).run()
