"""A real Thunderbird on a throw-away profile that asks nothing and talks to nobody but the loopback mail server."""

import contextlib
import os
import re
import signal
import subprocess
import threading
import time
from pathlib import Path

from .base import ServiceError, repeat_until, wait_until
from .mailserver import MailServer
from .thunderbird_profile import PROGRAM, ThunderbirdProfile

BUS_NAME = "org.kest.Mail1.Thunderbird"


class Thunderbird:
    """Needs a sandbox with a bus, a display and a MailServer (`mail`; made when not given).

    The first account ("Anna's mail") has two identities, anna@example.test and work@example.test, the latter with a
    signature. With `second_account` there is also "Club" with club@example.test. `compose_html` says in what format
    they write. `prefs` are added to the profile's own. With `system_addon` the add-on and the host are those that a
    package has put into Thunderbird's own folders, and the profile says nothing about add-ons, as a person's does not.
    """

    PLATFORM = {"MOZ_ENABLE_WAYLAND": "0"}

    def __init__(self, sandbox, mail=None, second_account=False, compose_html=False, prefs=None, addon=True,
                 system_addon=False):
        self.sandbox = sandbox
        self.mail = mail or MailServer(sandbox)
        self.profile = ThunderbirdProfile(sandbox, self.mail, second_account, compose_html, prefs or {},
                                          system_addon).path
        self.build = Path(os.environ["KEST_BUILD_DIR"])
        self.process = None
        self.clicks = 0
        if addon and not system_addon:
            self.install_addon()

    # The add-on

    def install_addon(self):
        """Installs the built add-on and host for this home, with the command that people use for it."""
        command = Path(os.environ["KEST_SOURCE_DIR"]) / "packaging" / "thunderbird-addon"
        return self.sandbox.run([command, "install", "--build", self.build, "--profile", self.profile])

    # Running

    def start(self, wait=True, *arguments):
        self.process = self.sandbox.start(
            "thunderbird", [PROGRAM / "thunderbird", "--profile", self.profile, *arguments],
            env={"MOZ_CRASHREPORTER_DISABLE": "1", "MOZ_DISABLE_CONTENT_SANDBOX": "1", **self.PLATFORM})
        if wait:
            self.wait_ready()
        return self

    def on_bus(self):
        return self.sandbox.run(
            ["dbus-send", "--session", "--print-reply=literal", "--dest=org.freedesktop.DBus", "/org/freedesktop/DBus",
             "org.freedesktop.DBus.NameHasOwner", f"string:{BUS_NAME}"]).strip().endswith("true")

    def wait_ready(self, seconds=120):
        """Until its main window is there and the host answers on the bus."""
        with self._telling_what_there_is():
            wait_until(self.on_bus, f"{BUS_NAME} on the bus", seconds, every=0.05)
            wait_until(lambda: self.windows("Mozilla Thunderbird"), "Thunderbird's main window", seconds, every=0.05)

    def wait_off_bus(self, seconds=60):
        wait_until(lambda: not self.on_bus(), f"{BUS_NAME} to leave the bus", seconds, every=0.02)

    @contextlib.contextmanager
    def stopped(self):
        """It does not get on meanwhile."""
        self.process.send_signal(signal.SIGSTOP)
        try:
            yield
        finally:
            self.process.send_signal(signal.SIGCONT)

    def stop(self):
        """Asks it to quit, as a session's end does."""
        if self.process:
            self.sandbox.stop(self.process, 10)
            self.process = None

    def kill(self):
        """Kills it at once, as a crash does."""
        if self.process:
            with contextlib.suppress(ProcessLookupError):
                self.process.send_signal(signal.SIGKILL)
            self.process.wait(5)
            self.sandbox.stop(self.process)
            self.process = None

    def host_pid(self):
        """The process id of the host that this Thunderbird runs, or None."""
        return next((pid for pid in self._descendants() if _command(pid).startswith("kest-mail-host")), None)

    def _descendants(self):
        parents = {}
        for entry in Path("/proc").glob("[0-9]*/stat"):
            with contextlib.suppress(OSError):
                fields = entry.read_text().rsplit(")", 1)[1].split()
                parents.setdefault(int(fields[1]), []).append(int(entry.parent.name))
        found, queue = [], [self.process.pid]
        while queue:
            children = parents.get(queue.pop(), [])
            found += children
            queue += children
        return found

    # Its windows, as a person uses them

    def windows(self, title=""):
        """Ids of its visible windows whose title holds the text, newest last."""
        done = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", re.escape(title) or "."],
                              env=self.sandbox.env, capture_output=True, text=True, timeout=60)
        return [word for word in done.stdout.split() if self._is_mine(word)]

    def _is_mine(self, window):
        done = subprocess.run(["xprop", "-id", window, "WM_CLASS"], env=self.sandbox.env, capture_output=True,
                              text=True, timeout=60)
        return "thunderbird" in done.stdout

    def wait_window(self, title, seconds=60):
        with self._telling_what_there_is():
            return wait_until(lambda: self.windows(title), f"a Thunderbird window “{title}”", seconds, every=0.05)[-1]

    @contextlib.contextmanager
    def _telling_what_there_is(self):
        try:
            yield
        except ServiceError as error:
            raise ServiceError(f"{error}; {self._state()}, its windows are {self._titles()}") from error

    def _state(self):
        if not self.process:
            return "Thunderbird was not started here"
        status = self.process.poll()
        return f"Thunderbird runs with host {self.host_pid()}" if status is None else f"Thunderbird has ended with {status}"

    def _titles(self):
        return [self.title_of(window) for window in self.windows()]

    def title_of(self, window):
        return self.sandbox.run(["xdotool", "getwindowname", window]).strip()

    def raise_window(self, title):
        window = self.wait_window(title)
        self.sandbox.run(["xdotool", "windowactivate", "--sync", window])
        return window

    def press(self, title, *keys):
        """Presses keys ("ctrl+Return") in the window with that title, raised first."""
        self.raise_window(title)
        self._key(*keys)

    def _key(self, *keys):
        self.sandbox.run(["xdotool", "key", "--clearmodifiers", "--delay", "40", *keys])

    def open_inbox(self, bus, messages=1):
        """Waits for the inbox, which opens by itself, and clicks its first message; needs one there.

        `bus` (a MailBus) says what is selected; `messages` is how many must have arrived.
        """
        self.wait_window("Inbox - ", 120)
        wait_until(lambda: self._click_first() and len(bus.selection()) == 1,
                   "the inbox's first message to be selected", 120, every=0.1)
        wait_until(lambda: self.select_all(bus) >= messages, f"{messages} messages in the inbox", 120, every=0.1)
        self.select_first(bus)

    def _click_first(self):
        """Puts the keyboard into the list of messages, wherever Thunderbird left it when another window closed.

        No click falls where the one before it did: two would open the message.
        """
        window = self.raise_window("Inbox - ")
        self.clicks += 1
        column = 400 + 20 * (self.clicks % 4)
        self.sandbox.run(["xdotool", "mousemove", "--window", window, str(column), "150", "click", "1"])
        time.sleep(0.1)
        return True

    def select_all(self, bus):
        """Selects every message of the inbox; returns how many the bus then names."""
        self._click_first()
        self.press("Inbox - ", "Home", "shift+End")
        time.sleep(0.1)
        return len(bus.selection())

    def select_first(self, bus):
        """Selects the first message alone, and returns its path."""
        def select():
            self._click_first()
            self.press("Inbox - ", "Home")
        return repeat_until(select, lambda: len(bus.selection()) == 1 and bus.selection(), "one selected message")[0]

    def open_first(self, bus, title):
        """Opens the inbox's first message with the keyboard, in a tab or a window, which then has that title."""
        def open_it():
            if self.windows("Inbox - "):
                self.select_first(bus)
                self.press("Inbox - ", "Return")
        repeat_until(open_it, lambda: self.windows(title), f"a message's window “{title}”")

    def close_opened(self, title):
        """Closes the tabs and windows that `open_first` opened; seldom, since one too many closes the main window."""
        self.press_until_gone(title, "ctrl+w", every=30)
        self.wait_window("Inbox - ")

    def press_until_gone(self, title, *keys, every=10):
        """Presses keys in the newest window with that title until there is none; one that has just come may lose them."""
        def press():
            for window in self.windows(title)[-1:]:
                with contextlib.suppress(ServiceError):  # it may go by itself
                    self.sandbox.run(["xdotool", "windowactivate", "--sync", window])
                    self._key(*keys)
        repeat_until(press, lambda: not self.windows(title), f"the window “{title}” to go", every=every)

    def send_from_window(self, title):
        """Sends the message of a compose window as a person does, and waits for the window to go."""
        self.wait_window(title)
        self.press_until_gone(title, "ctrl+Return")

    def answer_prompt(self, title, *keys):
        """Presses keys in a prompt with that title when it comes, while the caller goes on."""
        def answer():
            self.wait_window(title)
            self.press_until_gone(title, *keys)
        thread = threading.Thread(target=answer, daemon=True)
        thread.start()
        return thread

    def receive(self, message, user="anna"):
        """Puts a mail into the inbox on the server; Thunderbird is told by IMAP's IDLE."""
        self.mail.put(user, message)


def _command(pid):
    try:
        return Path(Path(f"/proc/{pid}/cmdline").read_bytes().split(b"\0")[0].decode()).name
    except (OSError, UnicodeDecodeError):
        return ""
