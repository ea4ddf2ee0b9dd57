#!/usr/bin/python3
"""The window in a Wayland session, beside a real Thunderbird that is Wayland's own: under Xwayland, as Kest chooses it,
and as a Wayland window."""

import os
import sys
import time
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))

from kest_program import KestProgram  # noqa: E402
from services.base import Sandbox, wait_until  # noqa: E402
from services.bus import AccessibilityBus, SessionBus  # noqa: E402
from services.compositor import Compositor, Witness, application_of, is_x11  # noqa: E402
from services.mailbus import MailBus  # noqa: E402
from services.sound import SoundServer  # noqa: E402
from services.wayland import WaylandOperator, WaylandThunderbird  # noqa: E402

BUILD = Path(os.environ["KEST_BUILD_DIR"])
AFTER_THE_GRACE = 0.6  # seconds; another application counts after a quarter of one
SUBJECT = "Beside the companion"


class Desktop:
    """What all tests share: Thunderbird's main window and one of its compose windows, and a terminal."""

    def __init__(self):
        self.sandbox = Sandbox()
        SessionBus(self.sandbox)
        self.compositor = Compositor(self.sandbox)
        AccessibilityBus(self.sandbox)
        self.sound = SoundServer(self.sandbox, "pulseaudio")
        self.thunderbird = WaylandThunderbird(self.sandbox, self.compositor).start()
        self.bus = MailBus(self.sandbox.env["DBUS_SESSION_BUS_ADDRESS"])
        self.person = WaylandOperator(self.sandbox, self.compositor)
        self.message = self.bus.new_message(SUBJECT)
        self.compose = self.thunderbird.wait_window(f"Write: {SUBJECT}")
        self.inbox = self.thunderbird.wait_window("Mozilla Thunderbird")
        self.sandbox.start("terminal", ["foot"])
        self.terminal = self.compositor.wait_view("foot")
        self.mail_is_in_front = True
        self.turn_to(self.terminal)

    def turn_to(self, window):
        """Until Thunderbird has told so, too; that may take longer than the grace while many tests run."""
        self.compositor.turn_to(window)
        wanted = window["id"] != self.terminal["id"]

        def told():
            for name, *_ in self.bus.take_signals():
                self.mail_is_in_front = {"FocusGained": True, "FocusLost": False}.get(name, self.mail_is_in_front)
            return self.mail_is_in_front == wanted
        wait_until(told, f"Thunderbird to tell whether it is in front ({wanted})", 60)

    def close(self):
        self.thunderbird.stop()
        self.sound.close()
        self.sandbox.close()


def setUpModule():
    global desktop
    desktop = Desktop()
    unittest.addModuleCleanup(desktop.close)


class WaylandCase(unittest.TestCase):
    """`environment` is what the person's session adds, `application` the name of Kest's window there."""

    environment = {}
    application = ""

    def setUp(self):
        self.compositor = desktop.compositor
        desktop.turn_to(desktop.terminal)
        self.witness = Witness(self.compositor)
        self.addCleanup(self.witness.close)
        self.kest = KestProgram(desktop.sandbox, desktop.person, BUILD)
        self.kest.start(env=self.environment)
        self.addCleanup(lambda: desktop.sandbox.stop(self.kest.process))
        self.addCleanup(self.picture_a_failure)
        wait_until(lambda: self.in_front() == self.application, "Kest to be in front")

    def picture_a_failure(self):
        if not self._outcome.success:
            folder = BUILD / "failures"
            folder.mkdir(exist_ok=True)
            self.compositor.screenshot(folder / f"{self.id()}.png")

    def in_front(self):
        return application_of(self.compositor.focused() or {})

    def is_shown(self):
        return bool(self.compositor.views(self.application))

    def hidings(self):
        return self.witness.events("close", self.application)

    def times_in_front(self):
        return self.witness.events("focus", self.application)


class UnderXwayland(WaylandCase):
    """What Kest chooses by itself."""

    application = "Kest"

    def hide_by_turning_away(self):
        self.compositor.turn_to(desktop.terminal)
        wait_until(lambda: not self.is_shown(), "the window to hide")

    def test_it_hides_with_another_application_and_comes_back_without_the_focus(self):
        self.assertTrue(is_x11(self.compositor.focused()))
        for window in (desktop.inbox, desktop.compose):
            self.hide_by_turning_away()
            self.assertEqual(self.in_front(), "foot")
            self.compositor.turn_to(window)
            wait_until(self.is_shown, "the window to come back")
            time.sleep(AFTER_THE_GRACE)
            self.assertTrue(self.is_shown())
            self.assertEqual(self.compositor.focused()["id"], window["id"])
        self.assertEqual(self.hidings(), 2)
        self.assertEqual(self.times_in_front(), 1)

    def test_going_between_two_windows_of_thunderbird_never_hides_it(self):
        desktop.turn_to(desktop.inbox)
        wait_until(self.is_shown, "the window to be shown")
        before = self.hidings()
        for _ in range(8):
            self.compositor.turn_to(desktop.compose)
            self.compositor.turn_to(desktop.inbox)
        for window in (desktop.compose, desktop.inbox):
            self.compositor.turn_to(window)
            time.sleep(AFTER_THE_GRACE)
        self.assertEqual(self.hidings(), before)
        self.assertTrue(self.is_shown())

    def text_has_the_cursor(self):
        """A new window of Thunderbird's takes its first click for nothing."""
        desktop.person.click_into(desktop.compose)
        desktop.compositor.input.type("begun ")
        return "begun" in self.content()

    def content(self):
        return str(desktop.bus.get(desktop.message, "Content"))

    def test_what_is_typed_while_it_comes_back_all_arrives(self):
        wait_until(self.text_has_the_cursor, "the cursor in the text", 30)
        typed = ""
        for number in range(4):
            self.hide_by_turning_away()
            sentence = f"{number} the quick brown fox jumps over the lazy dog "
            desktop.person.type_into(desktop.compose, sentence)
            typed += sentence
            wait_until(self.is_shown, "the window to come back")
            self.assertEqual(self.compositor.focused()["id"], desktop.compose["id"])
        self.assertEqual(self.hidings(), 4)
        self.assertEqual(self.times_in_front(), 1)
        wait_until(lambda: typed.strip() in self.content(), "the text in the message")

    def test_it_can_be_worked_after_it_came_back(self):
        self.hide_by_turning_away()
        self.compositor.turn_to(desktop.inbox)
        wait_until(self.is_shown, "the window to come back")
        wait_until(self.a_click_brings_it_to_the_front, "the window to take the focus from a click", 60, every=2)
        wait_until(lambda: self.kest.time_text() > "00:00", "the time to run")

    def a_click_brings_it_to_the_front(self):
        """Where Record lies is known to others a moment after the window came: a click may go beside it."""
        if self.in_front() != "Kest":
            self.kest.click("Record")
        return self.in_front() == "Kest"

    def test_starting_it_again_brings_it_back_with_the_focus(self):
        self.hide_by_turning_away()
        self.kest.come_back()
        wait_until(lambda: self.in_front() == "Kest", "the window to be in front")


class AsAWaylandWindow(WaylandCase):
    """Where there is no Xwayland, or the person chose so."""

    environment = {"QT_QPA_PLATFORM": "wayland"}
    application = "org.kest.Kest"

    def test_it_stays_whoever_is_in_front_and_takes_no_focus(self):
        for window in (desktop.terminal, desktop.inbox, desktop.compose, desktop.terminal):
            self.compositor.turn_to(window)
            time.sleep(AFTER_THE_GRACE)
            self.assertEqual(self.compositor.focused()["id"], window["id"])
        self.assertEqual(self.hidings(), 0)
        self.assertEqual(self.times_in_front(), 1)

    def test_a_recording_becomes_a_message_in_thunderbird(self):
        self.kest.click("Record")
        wait_until(lambda: self.kest.time_text() >= "00:01", "the time to run")
        self.kest.click("New Message")
        desktop.thunderbird.wait_window("Write: A voice email")
        self.kest.wait_until_idle()
        name = self.kest.only_recording().stem  # Thunderbird breaks the name there
        desktop.person.find(desktop.person.application("Thunderbird"), role="list item",
                            where=lambda item: item.name.startswith(name))

    def test_starting_it_again_brings_it_to_the_workspace_where_the_person_is(self):
        self.compositor.command("workspace 2")
        self.addCleanup(self.compositor.command, "workspace 1")
        self.kest.come_back()
        wait_until(lambda: self.in_front() == self.application, "the window to be in front")
        self.assertEqual(len(self.compositor.views(self.application)), 1)

    def test_starting_it_again_when_it_is_in_front_leaves_it_as_it_is(self):
        self.kest.come_back()
        time.sleep(AFTER_THE_GRACE)
        self.assertEqual(self.in_front(), self.application)
        self.assertEqual(self.hidings(), 0)


if __name__ == "__main__":
    unittest.main()
