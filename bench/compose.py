#!/usr/bin/python3
"""From the click to Thunderbird's compose window with the recording attached: Kest's New Message and Reply on both back
ends, beside `thunderbird -compose` with the same file.

    bench/compose.py [--runs N] [--build FOLDER]

Real Thunderbird, one account on loopback mail, everything in turn in one run. A small add-on of the bench's own tells
when Thunderbird says that an attachment is in; the clock starts before the mouse button is let go, which is when a click is
one, or before the program is called.
"""

import argparse
import ctypes
import http.server
import json
import os
import queue
import statistics
import subprocess
import sys
import threading
import time
import zipfile
from pathlib import Path

top = Path(__file__).resolve().parent.parent
sys.path[:0] = [str(top / "tests/support"), str(top / "tests/endtoend")]

SPOKEN_SECONDS = 10
PRESS_SECONDS = 0.1  # a person's
WITNESS = """
browser.compose.onAttachmentAdded.addListener(async (tab, attachment) => {
  await fetch("http://127.0.0.1:%d/" + encodeURIComponent(attachment.name));
  setTimeout(async () => {
    await browser.compose.setComposeDetails(tab.id, { isModified: false });
    await browser.windows.remove(tab.windowId);
  }, 1500);
});
"""


class Witness(http.server.HTTPServer):
    """Notes when an attachment came into a compose window; its add-on closes the window a little later."""

    def __init__(self):
        self.seen = queue.Queue()
        seen = self.seen

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                seen.put(time.monotonic())
                self.send_response(204)
                self.end_headers()

            def log_message(self, *_):
                pass

        super().__init__(("127.0.0.1", 0), Handler)
        threading.Thread(target=self.serve_forever, daemon=True).start()

    def forget(self):
        """An attachment may be told of more than once."""
        while not self.seen.empty():
            self.seen.get()

    def install(self, profile):
        (profile / "extensions").mkdir(exist_ok=True)
        with zipfile.ZipFile(profile / "extensions" / "witness@kest.example.xpi", "w") as xpi:
            xpi.writestr("manifest.json", json.dumps({
                "manifest_version": 2, "name": "Witness", "version": "1",
                "browser_specific_settings": {"gecko": {"id": "witness@kest.example"}},
                "permissions": ["compose", "http://127.0.0.1/*"], "background": {"scripts": ["witness.js"]}}))
            xpi.writestr("witness.js", WITNESS % self.server_port)


class MouseButton:
    """The left one, without a program that must start for it."""

    def __init__(self, display):
        self.x11, self.xtst = ctypes.CDLL("libX11.so.6"), ctypes.CDLL("libXtst.so.6")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(display.encode()))
        if not self.display:
            sys.exit(f"no display {display}")

    def press(self, down=True):
        self.xtst.XTestFakeButtonEvent(self.display, 1, down, ctypes.c_ulong(0))
        self.x11.XFlush(self.display)

    def let_go(self):
        self.press(False)


class Desktop:
    """Kest, Thunderbird with one message selected, and the witness."""

    def __init__(self, sandbox, build):
        from kest_program import KestProgram
        from mail_case import message
        from services.bus import AccessibilityBus, SessionBus
        from services.display import Display
        from services.mailbus import MailBus
        from services.mailserver import MailServer
        from services.operator import Operator
        from services.sound import SoundServer
        from services.thunderbird import Thunderbird
        self.sandbox = sandbox
        self.build = build
        SessionBus(sandbox)
        self.display = Display(sandbox, "1600x1000")
        self.button = MouseButton(sandbox.env["DISPLAY"])
        AccessibilityBus(sandbox)
        self.sound = SoundServer(sandbox, "pulseaudio")
        mail = MailServer(sandbox)
        mail.put("anna", message("Ben Ford <ben@example.test>", "anna@example.test", "A question", "How are you?"))
        self.thunderbird = Thunderbird(sandbox, mail)
        self.witness = Witness()
        self.witness.install(self.thunderbird.profile)
        self.thunderbird.start()
        self.thunderbird.open_inbox(MailBus(sandbox.env["DBUS_SESSION_BUS_ADDRESS"]))
        self.person = Operator(sandbox)
        self.kest = KestProgram(sandbox, self.person, build)

    def close(self):
        self.sandbox.stop(self.kest.process)
        self.thunderbird.stop()
        self.sound.close()

    def start_kest(self, back_end):
        if self.kest.process:
            self.sandbox.stop(self.kest.process)
        self.kest.write_setting("useASClass", "true" if back_end == "script" else "false")
        self.kest.start()
        self.person.move_window(self.person.window("^Kest$"), 1100, 20)

    def record(self):
        """A new recording, finished: a command uses up the one before."""
        from services.base import wait_until
        self.kest.come_back()
        before = set(self.kest.recordings())
        self.kest.click("Record")
        wait_until(lambda: self.kest.time_text() != "--:--", "the recording to begin")
        self.sound.microphone.play_samples(bytes(2 * 44100 * SPOKEN_SECONDS))
        self.kest.click("Stop")
        [self.recording] = set(self.kest.recordings()) - before
        wait_until(lambda: b"moof" not in self.recording.read_bytes(), "the finished recording")

    def attached_after(self, act, aim=lambda: None):
        """Milliseconds from before `act`, which `aim` makes ready, until an attachment was in."""
        self.settle()
        aim()
        self.witness.forget()
        begin = time.monotonic()
        act()
        try:
            return (self.witness.seen.get(timeout=60) - begin) * 1000
        except queue.Empty:
            sys.exit(f"no attachment came; the screen is in {self.display.screenshot(top / 'build' / 'compose.png')}")

    def settle(self):
        """Until no compose window is left and Kest is ready for the next command."""
        from services.base import wait_until
        wait_until(lambda: not self.thunderbird.windows("Write: "), "the compose window to be closed", 30, every=0.1)
        self.kest.wait_until_idle()
        time.sleep(1)

    def click(self, name):
        self.record()
        control = self.kest.control(name)
        box = control.queryComponent().getExtents(self.person.atspi.DESKTOP_COORDS)
        self.sandbox.run(["xdotool", "mousemove", box.x + box.width // 2, box.y + box.height // 2])

        def press():
            self.button.press()
            time.sleep(PRESS_SECONDS)
        return self.attached_after(self.button.let_go, press)

    def compose_by_command(self):
        from services.thunderbird_profile import PROGRAM
        # With nothing between the commas: a name as Kest gives it needs no quoting.
        details = f"subject=Voice mail,body=Hello,attachment={self.recording.as_uri()}"
        return self.attached_after(lambda: subprocess.Popen(
            [PROGRAM / "thunderbird", "--profile", self.thunderbird.profile, "-compose", details],
            env={**self.sandbox.env, "MOZ_ENABLE_WAYLAND": "0"}, stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL).wait())


def build():
    subprocess.run(["cmake", "--preset", "release"], cwd=top, check=True, stdout=subprocess.DEVNULL)
    subprocess.run(["cmake", "--build", "--preset", "release", "--target", "kest", "kest-mail-host", "addon"], cwd=top,
                   check=True, stdout=subprocess.DEVNULL)
    return top / "build/release"


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--runs", type=int, default=15)
    parser.add_argument("--build", type=Path)
    options = parser.parse_args()
    options.build = options.build or build()
    os.environ.update(KEST_BUILD_DIR=str(options.build), KEST_SOURCE_DIR=str(top))
    from services.base import Sandbox
    figures = {}
    with Sandbox() as sandbox:
        desktop = Desktop(sandbox, options.build)
        try:
            for back_end in ("script", "bridge"):
                desktop.start_kest(back_end)
                for run in range(options.runs + 1):
                    ways = {(back_end, "New Message"): lambda: desktop.click("New Message"),
                            (back_end, "Reply"): lambda: desktop.click("Reply"),
                            ("thunderbird", "-compose"): desktop.compose_by_command}
                    for name, way in ways.items():
                        taken = way()
                        if run:  # the first turn warms up what each needs
                            figures.setdefault(name, []).append(taken)
        finally:
            desktop.close()
    report(figures, options.runs)


def report(figures, runs):
    peer = statistics.median(figures["thunderbird", "-compose"])
    print(f"Machine: {os.cpu_count()} cores, {runs} runs each, medians, a recording of {SPOKEN_SECONDS} s\n")
    print("| | until the attachment is in | beside `thunderbird -compose` |")
    print("|---|---|---|")
    for (who, what), values in figures.items():
        middle = statistics.median(values)
        print(f"| {what} ({who}) | {middle:.0f} ms | {middle / peer:.2f} |")


if __name__ == "__main__":
    main()
