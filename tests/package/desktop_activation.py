"""The desktop entry as a desktop uses it: its launcher asks the session bus, and the bus starts Kest."""

import os
import re
import subprocess
import sys
import unittest
from pathlib import Path

SOURCE = Path(os.environ["KEST_SOURCE_DIR"])
BUILD = Path(os.environ["KEST_BUILD_DIR"])
sys.path.insert(0, str(SOURCE / "tests" / "support"))

from services.base import Sandbox, ServiceError, wait_until  # noqa: E402
from services.bus import SessionBus  # noqa: E402
from services.display import Display  # noqa: E402

ENTRY = SOURCE / "packaging/desktop/org.kest.Kest.desktop"
SERVICE = BUILD / "packaging/org.kest.Kest.service"
# What a launcher does with an entry; GLib follows the Desktop Entry Specification's "D-Bus Activation".
LAUNCH = """
import sys
from gi.repository import Gio
entry = Gio.DesktopAppInfo.new_from_filename(sys.argv[1])
assert entry.launch([], None)
Gio.bus_get_sync(Gio.BusType.SESSION).flush_sync()
"""


class DesktopActivation(unittest.TestCase):

    def setUp(self):
        self.sandbox = Sandbox()
        self.addCleanup(self.sandbox.close)
        Display(self.sandbox)  # before the bus, whose environment is that of what it starts
        self.bus = SessionBus(self.sandbox)
        self.install()
        self.addCleanup(self.end_kest)

    def install(self):
        """As `cmake --install` does, but the program is the one in the build folder."""
        service = re.sub(r"^Exec=.*/kest$", f"Exec={BUILD}/bin/kest", SERVICE.read_text(), flags=re.MULTILINE)
        (self.bus.services / SERVICE.name).write_text(service)
        self.sandbox.run(["dbus-send", "--session", "--print-reply", "--dest=org.freedesktop.DBus",
                          "/org/freedesktop/DBus", "org.freedesktop.DBus.ReloadConfig"])
        self.entry = Path(self.sandbox.env["XDG_DATA_HOME"]) / "applications" / ENTRY.name
        self.entry.parent.mkdir(parents=True)
        # It is the bus that must start the program.
        self.entry.write_text(ENTRY.read_text().replace("Exec=kest", "Exec=/bin/false"))

    def launch(self):
        self.sandbox.run(["/usr/bin/python3", "-c", LAUNCH, self.entry])

    def ask_bus(self, member):
        return self.sandbox.run(
            ["dbus-send", "--session", "--print-reply=literal", "--dest=org.freedesktop.DBus", "/org/freedesktop/DBus",
             f"org.freedesktop.DBus.{member}", "string:org.kest.Kest"]).split()

    def kest_pid(self):
        try:
            return int(self.ask_bus("GetConnectionUnixProcessID")[-1])
        except ServiceError:  # nobody has the name
            return None

    def windows(self, title="^Kest$"):
        return subprocess.run(["xdotool", "search", "--onlyvisible", "--name", title], env=self.sandbox.env,
                              capture_output=True, text=True, timeout=60).stdout.split()

    def turn_to_another_application(self):
        self.sandbox.start("elsewhere", ["xmessage", "-title", "Elsewhere", "elsewhere"])
        window = wait_until(lambda: self.windows("^Elsewhere$"), "another application's window", 20)[-1]
        self.sandbox.run(["xdotool", "windowactivate", window])

    def end_kest(self):
        if pid := self.kest_pid():
            os.kill(pid, 15)
            wait_until(lambda: not self.kest_pid(), "Kest to end")

    def test_launching_the_entry_has_the_bus_start_the_program(self):
        self.assertIsNone(self.kest_pid())
        self.launch()
        wait_until(self.windows, "Kest's window", 30)
        pid = wait_until(self.kest_pid, "Kest's name", 30)
        self.assertEqual(Path(f"/proc/{pid}/exe").resolve(), (BUILD / "bin/kest").resolve())

    def test_launching_it_again_brings_back_the_window_of_the_running_one(self):
        self.launch()
        window = wait_until(self.windows, "Kest's window", 30)
        pid = wait_until(self.kest_pid, "Kest's name", 30)
        self.turn_to_another_application()
        wait_until(lambda: not self.windows(), "Kest to hide", 30)
        self.launch()
        wait_until(self.windows, "the window to come back", 30)
        self.assertEqual((self.kest_pid(), self.windows()), (pid, window))

    def test_the_windows_class_is_the_entrys_so_that_docks_know_it(self):
        self.launch()
        window = wait_until(self.windows, "Kest's window", 30)[0]
        expected = re.search(r"^StartupWMClass=(.*)$", ENTRY.read_text(), re.MULTILINE).group(1)
        self.assertIn(f'"{expected}"', self.sandbox.run(["xprop", "-id", window, "WM_CLASS"]).split(", ")[-1])

    def test_nothing_but_the_window_can_start_a_recording(self):
        self.assertNotIn("Actions", ENTRY.read_text())


if __name__ == "__main__":
    unittest.main()
