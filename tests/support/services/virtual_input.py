"""A keyboard and a pointer that are plugged into a Wayland compositor, as a person has them all the time.

Speaks the wire format itself (the Wayland book, "Wire protocol basics") and two protocols of wlroots' compositors,
virtual-keyboard-unstable-v1 and wlr-virtual-pointer-unstable-v1.
"""

import array
import os
import socket
import struct
import time

from .base import ServiceError

DISPLAY, REGISTRY = 1, 2
NEEDED = {"wl_seat": 1, "zwp_virtual_keyboard_manager_v1": 1, "zwlr_virtual_pointer_manager_v1": 1}
XKB_TEXT = 1
LEFT_BUTTON = 0x110

KEYMAP = b"""xkb_keymap {
  xkb_keycodes { include "evdev+aliases(qwerty)" };
  xkb_types { include "complete" };
  xkb_compat { include "complete" };
  xkb_symbols { include "pc+us+inet(evdev)" };
};\0"""

# linux/input-event-codes.h
KEYS = {character: code for first, row in ((2, "1234567890"), (16, "qwertyuiop"), (30, "asdfghjkl"), (44, "zxcvbnm"))
        for code, character in enumerate(row, first)}
KEYS[" "] = 57


class VirtualInput:
    """`size` is that of the whole screen in the pixels that pointer positions are given in."""

    def __init__(self, socket_path, size):
        self.size = size
        self.connection = socket.socket(socket.AF_UNIX)
        self.connection.settimeout(20)
        self.connection.connect(str(socket_path))
        self.last_id = REGISTRY
        self.offered = {}
        self.received = b""
        self._send(DISPLAY, 1, struct.pack("=I", REGISTRY))
        self._finish()
        bound = {name: self._bind(name, version) for name, version in NEEDED.items()}
        self.keyboard = self._create(bound["zwp_virtual_keyboard_manager_v1"], bound["wl_seat"])
        self.pointer = self._create(bound["zwlr_virtual_pointer_manager_v1"], bound["wl_seat"])
        self._give_keymap()
        self._finish()

    def close(self):
        self.connection.close()

    # What a person does

    def type(self, text, delay=0.02):
        """Lower-case letters, digits and spaces."""
        for character in text:
            for state in (1, 0):
                self._send(self.keyboard, 1, struct.pack("=III", _now(), KEYS[character], state))
            self._finish()
            time.sleep(delay)

    def click(self, x, y):
        self._send(self.pointer, 1, struct.pack("=IIIII", _now(), round(x), round(y), *self.size))
        self._send(self.pointer, 4)
        for state in (1, 0):
            self._send(self.pointer, 2, struct.pack("=III", _now(), LEFT_BUTTON, state))
            self._send(self.pointer, 4)
        self._finish()

    # The wire

    def _send(self, target, opcode, body=b"", descriptors=()):
        message = struct.pack("=IHH", target, opcode, 8 + len(body)) + body
        rights = [(socket.SOL_SOCKET, socket.SCM_RIGHTS, array.array("i", descriptors))] if descriptors else []
        self.connection.sendmsg([message], rights)

    def _new_id(self):
        self.last_id += 1
        return self.last_id

    def _finish(self):
        """Until the compositor has dealt with everything sent so far."""
        callback = self._new_id()
        self._send(DISPLAY, 0, struct.pack("=I", callback))
        while not self._read(callback):
            pass

    def _read(self, callback):
        """Takes one event; whether it is the one of that callback."""
        target, opcode, body = self._event()
        if target == DISPLAY and opcode == 0:
            raise ServiceError(f"the compositor refused a request: {body!r}")
        if target == REGISTRY and opcode == 0:
            name, length = struct.unpack_from("=II", body)
            self.offered[body[8:8 + length - 1].decode()] = name
        return target == callback

    def _event(self):
        target, opcode, size = struct.unpack("=IHH", self._take(8))
        return target, opcode, self._take(size - 8)

    def _take(self, count):
        while len(self.received) < count:
            more = self.connection.recv(4096)
            if not more:
                raise ServiceError("the compositor has gone")
            self.received += more
        taken, self.received = self.received[:count], self.received[count:]
        return taken

    def _bind(self, interface, version):
        if interface not in self.offered:
            raise ServiceError(f"the compositor does not offer {interface}")
        made = self._new_id()
        name = interface.encode() + b"\0"
        padded = name + bytes(-len(name) % 4)
        self._send(REGISTRY, 0, struct.pack("=II", self.offered[interface], len(name)) + padded
                   + struct.pack("=II", version, made))
        return made

    def _create(self, manager, seat):
        made = self._new_id()
        self._send(manager, 0, struct.pack("=II", seat, made))
        return made

    def _give_keymap(self):
        file = os.memfd_create("keymap")
        os.write(file, KEYMAP)
        self._send(self.keyboard, 0, struct.pack("=II", XKB_TEXT, len(KEYMAP)), [file])
        os.close(file)


def _now():
    return time.monotonic_ns() // 1_000_000 & 0xFFFFFFFF
