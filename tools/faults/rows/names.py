"""Generated file names, from the disk through bus, host and add-on, and some of them through a real Thunderbird."""

import json
import os
import random
import re
import subprocess
from pathlib import Path
from urllib.parse import quote_from_bytes

from services.base import wait_until
from services.bus import SessionBus

from .driven import PATIENCE
from .row import Row, Seen

HERE = Path(__file__).resolve().parents[1]
HOST_NAME = "org.kest.Mail1.Thunderbird"
MOST_BYTES = 255  # What a file name may have.
ODD = ["\ufeff", "\u200f", "\u202e", "\u2028", "\u0301", "\u200d", "\ufffd", "\ufffe", "\U0010ffff", "\U0001f3a4", "\ue000", "\u00a0",
       "\u3000", "\x01", "\t", "\n", "\r", "\x1b", "\x7f", '"', "'", "\\", "%00", "%2F", "..", "; ", "<", ">", "=?utf-8?Q?a?=", "*", "''"]
RANGES = [(0x20, 0x7e)] * 3 + [(0xa1, 0x24f), (0x370, 0x3ff), (0x5d0, 0x5ea), (0x620, 0x64a), (0xe01, 0xe3a), (0x4e00, 0x9fff),
                               (0xac00, 0xd7a3), (0x1f300, 0x1f64f), (0x20000, 0x2a6df)]
MAILABLE = [piece for piece in ODD if piece.isprintable() or piece in "\u00a0\u3000\u200d\u200f\u202e\u0301"]


def text(chance, odd):
    pieces = []
    for _ in range(chance.choice([1, 3, 10, 40, 120])):
        if chance.random() < 0.15:
            pieces.append(chance.choice(odd))
        else:
            first, last = chance.choice(RANGES)
            pieces.append(chr(chance.randint(first, last)))
    return "".join(pieces).replace("/", "_").replace("\0", "_")


def file_name(chance, odd=ODD):
    """The bytes of a name, whole characters, at most 255."""
    ending = chance.choice([".m4a"] * 6 + [".M4A", ".txt", ".tar.gz", "", ".", " .m4a"])
    stem = text(chance, odd)
    while len((stem + ending).encode()) > MOST_BYTES:
        stem = stem[:-1]
    # QtDBus takes this mark away from the beginning of every text: known, and not for us to mend.
    name = (stem + ending).lstrip("\ufeff")
    return name.encode() if name not in ("", ".", "..") else b"plain.m4a"


def is_utf8(name):
    try:
        name.decode()
    except UnicodeDecodeError:
        return False
    return True


def comparable(name):
    """How many bytes of what is no UTF-8 become one U+FFFD differs from decoder to decoder."""
    return re.sub("\ufffd+", "\ufffd", name)


def is_name(arrived, name):
    """Whether it is the file's, with U+FFFD for what is no UTF-8; where it got too long by that, cut at its end, or in
    front of its extension."""
    whole = name.decode(errors="replace")
    if is_utf8(name) or comparable(arrived) == comparable(whole):
        return arrived == whole or not is_utf8(name)
    stem, dot, extension = arrived.rpartition(".")
    cuts = [(arrived, ""), (stem, dot + extension)]
    return MOST_BYTES - 4 < len(arrived.encode()) <= MOST_BYTES and any(
        comparable(whole).startswith(comparable(begin)) and comparable(whole).endswith(comparable(end)) for begin, end in cuts)


def broken_name(chance):
    """One that is no UTF-8."""
    name = bytearray(file_name(chance))
    for _ in range(chance.choice([1, 2, 80])):
        name[chance.randrange(len(name))] = chance.choice([0x80, 0xbf, 0xc0, 0xe2, 0xf5, 0xff])
    return bytes(name).replace(b"/", b"_")


class Line:
    """Kest's transport, a bus, the real host and the add-on's own code under Node."""

    def __init__(self, context):
        self.context = context
        SessionBus(context.sandbox)
        host = context.build / "bin/kest-mail-host"
        version = subprocess.run([host, "--version"], capture_output=True, text=True, check=True).stdout.split()[1]
        self.addon = context.sandbox.start("addon", [HERE.parents[1] / "addon/tests/node.sh", HERE / "addon.mjs", host, version],
                                           stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        wait_until(self.on_bus, "the host on the bus", PATIENCE)
        self.sender = context.sandbox.start("sender", [context.build / "bin/kest-driven-sender"], stdin=subprocess.PIPE,
                                            stdout=subprocess.PIPE)

    def on_bus(self):
        return self.context.sandbox.run(
            ["dbus-send", "--session", "--print-reply=literal", "--dest=org.freedesktop.DBus", "/org/freedesktop/DBus",
             "org.freedesktop.DBus.NameHasOwner", f"string:{HOST_NAME}"]).strip().endswith("true")

    def send(self, path):
        """(what the add-on attached, None) or (None, the error's words)."""
        self.sender.stdin.write(quote_from_bytes(path, safe="/").encode() + b"\n")
        self.sender.stdin.flush()
        said = self.sender.stdout.readline().decode().strip()
        return (json.loads(self.addon.stdout.readline()), None) if said == "sent" else (None, said)


def run_line(context, runs):
    seen = Seen()
    chance = random.Random(context.seed)
    line = Line(context)
    folder = os.fsencode(context.folder("names"))
    broken = 0
    for number in range(runs):
        is_broken = chance.random() < 0.1
        name = broken_name(chance) if is_broken else file_name(chance)
        path = folder + b"/" + name
        with open(path, "wb") as file:
            file.write(str(number).encode())
        seen.runs += 1
        arrived, words = line.send(path)
        os.unlink(path)
        broken += not is_utf8(name)
        if words or arrived["text"] != str(number) or not is_name(arrived["name"], name):
            seen.failures.append(f"{name!r}: {words or arrived}")
    seen.worst = f"all arrive, {broken} were no UTF-8" if not seen.failures else f"{len(seen.failures)} names"
    return seen


def name_of(part):
    """As it stands in the mail: get_filename() would take the spaces off its ends."""
    return part["Content-Disposition"].params["filename"]


def run_thunderbird(context, runs):
    from services.display import Display
    from services.mailbus import MailBus
    from services.mailserver import MailServer
    from services.thunderbird import Thunderbird
    SessionBus(context.sandbox)
    Display(context.sandbox)
    mail = MailServer(context.sandbox)
    Thunderbird(context.sandbox, mail).start(True)
    bus = MailBus(context.sandbox.env["DBUS_SESSION_BUS_ADDRESS"])
    seen, chance = Seen(), random.Random(context.seed)
    for at in range(0, runs, 10):  # ten to a mail
        names = [file_name(chance, MAILABLE).decode() for _ in range(min(10, runs - at))]
        path = bus.make(f"Names {at}", "Listen")
        bus.call("AddRecipient", "to", "", "ben@example.test", path=path)
        for number, name in enumerate(names):
            bus.attach(path, name, f"{at + number}".encode())
        mail.forget_sent()
        bus.call("Send", path=path)
        [arrived] = mail.wait_sent()
        parts = [(name_of(part), part.get_payload(decode=True).decode()) for part in arrived.iter_attachments()]
        for number, name in enumerate(names):
            seen.runs += 1
            if parts[number:number + 1] != [(name, f"{at + number}")]:
                seen.failures.append(f"{name!r} arrived as {parts[number:number + 1]!r}")
    seen.worst = f"{len(seen.failures)} names" if seen.failures else "all arrive"
    return seen


ROWS = [Row("names", "generated file names, a tenth no UTF-8, through bus, host and add-on (under Node)", "name and bytes intact",
            150, 5000, run_line),
        Row("names-sent", "generated file names through a real Thunderbird to the mail server", "name and bytes intact", None, 50,
            run_thunderbird)]
