"""Attachments in a real Thunderbird: exact names, exact bytes, large files, and what cannot be attached."""

import os
import unittest

import dbus

from mail_case import MailCase, wait_until

MEGABYTE = 1024 * 1024

NAMES = [
    "2026-03-01_09-30-00.m4a",
    'say "hello", it\'s 100% \\ fun; a=b.m4a',
    "Jürgen Müßig, Grüße.m4a",
    "🎤 voice 🇩🇪.m4a",
    "abc\u200f\u05d0\u05d1 right to left.m4a",
    "-rf --leading hyphen.m4a",
    "two words.m4a",
    "no extension",
    ".hidden",
    "x" * 251 + ".m4a",
    "ü" * 125 + "x.m4a",
    "percent %41%00 ${HOME} `id`.txt",
]


class Attachments(MailCase):

    maxDiff = None

    def message(self, subject):
        path = self.bus.make(subject, "Listen")
        self.bus.call("AddRecipient", "to", "", "ben@example.test", path=path)
        return path

    def sent_parts(self):
        [mail] = self.mail.wait_sent()
        return [(part.get_filename(), part.get_content_type(), part.get_payload(decode=True))
                for part in mail.iter_attachments()]

    def test_odd_names_arrive_as_they_are(self):
        path = self.message("Names")
        for number, name in enumerate(NAMES):
            self.bus.attach(path, name, f"{number}".encode())
        self.bus.call("Send", path=path)
        self.assertEqual([(name, data.decode()) for name, _type, data in self.sent_parts()],
                         [(name, f"{number}") for number, name in enumerate(NAMES)])

    def test_a_recording_is_announced_as_audio_mp4(self):
        path = self.message("Types")
        self.bus.attach(path, "a.m4a", b"1")
        self.bus.attach(path, "B.M4A", b"2")
        self.bus.call("Send", path=path)
        self.assertEqual([kind for _name, kind, _data in self.sent_parts()], ["audio/mp4", "audio/mp4"])

    def test_every_size_around_the_pieces_arrives_whole(self):
        path = self.message("Sizes")
        sizes = (0, 1, 749999, 750000, 750001, 1500000)
        for size in sizes:
            self.bus.attach(path, f"{size}.bin", os.urandom(size) if size else b"")
        self.bus.call("Send", path=path)
        self.assertEqual([len(data) for _name, _type, data in self.sent_parts()], list(sizes))

    def test_thirty_megabytes_go_through_and_show_their_progress(self):
        data = os.urandom(MEGABYTE) * 30
        self.bus.take_signals()
        path = self.bus.new_message("Thirty", "Long", attachments=[("long.m4a", data)])
        progress = [signal for signal in self.bus.take_signals() if signal[0] == "HandOverProgressed"]
        self.assertEqual(progress[-1][1:], (len(data), len(data)))
        self.assertGreater(len(progress), 20)
        self.assertEqual(sorted(progress), progress)
        self.assertLess(self.host_peak_megabytes(), 64)
        self.bus.call("AddRecipient", "to", "", "ben@example.test", path=path)
        self.bus.call("Send", path=path, seconds=110)
        [(name, _type, arrived)] = self.sent_parts()
        self.assertEqual((name, arrived == data), ("long.m4a", True))

    def host_peak_megabytes(self):
        with open(f"/proc/{self.thunderbird.host_pid()}/status") as status:
            return next(int(line.split()[1]) for line in status if line.startswith("VmHWM")) // 1024

    def test_a_long_text_goes_through(self):
        text = "A long line with ümläuts.\n" * 60000
        path = self.bus.make("Long text", text)
        self.assertEqual(self.bus.get(path, "Content"), text)

    def test_a_file_is_read_from_its_start_whatever_was_read_before(self):
        path = self.message("Offset")
        with open(os.environ["KEST_SOURCE_DIR"] + "/LICENSE", "rb") as file:
            whole = file.read()
            self.bus.call("InsertAttachment", "LICENSE", dbus.types.UnixFd(file.fileno()), dbus.UInt64(0), path=path,
                          signature="sht")
        self.bus.call("Send", path=path)
        self.assertEqual(self.sent_parts()[0][2], whole)

    def test_what_is_no_file_cannot_be_attached(self):
        path = self.message("Refused")
        reading, writing = os.pipe()
        self.assertFails("InvalidArgument", self.bus.call, "InsertAttachment", "pipe.m4a", dbus.types.UnixFd(reading),
                         dbus.UInt64(0), path=path, signature="sht")
        folder = os.open("/", os.O_RDONLY)
        self.assertFails("InvalidArgument", self.bus.call, "InsertAttachment", "folder", dbus.types.UnixFd(folder),
                         dbus.UInt64(0), path=path, signature="sht")
        for descriptor in (reading, writing, folder):
            os.close(descriptor)

    def test_what_is_no_name_cannot_be_attached(self):
        path = self.message("Refused names")
        for name in ("", "..", "a/b.m4a", "x" * 256):
            self.assertFails("InvalidArgument", self.bus.attach, path, name, b"1")
        self.assertFails("InvalidArgument", self.bus.new_message, "No window", attachments=[("a/b", b"1")])
        self.assertEqual(self.thunderbird.windows("Write:"), [])


if __name__ == "__main__":
    unittest.main()
