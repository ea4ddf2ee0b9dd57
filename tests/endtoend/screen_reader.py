#!/usr/bin/python3
"""The main job as somebody does it who sees nothing and has no mouse: over the accessibility bus alone.

    screen_reader.py --build BUILD_FOLDER --output FOLDER [--sound pulseaudio|pipewire] [--back-end script|bridge]

Every control, Thunderbird's Send among them, is found by its role and name and pressed by its accessible action; nothing
is clicked or typed. In every state of the window each control must have a role, a name and the right states, and what
changes must be announced. Whom the mail goes to is a setting of the Thunderbird account (a copy to a fixed address): the
field of the address takes no text over this bus.
"""

import sys

import main_job  # first: it finds the services
from kest_program import KestProgram
from main_job import COMPOSE_TITLE, RECIPIENT, MainJob
from services.accessible_events import AccessibleEvents
from services.base import ServiceError, wait_until
from services.operator import Operator
from services.thunderbird import Thunderbird

PATIENCE = 60  # seconds
BUTTONS = {"Record", "Pause", "Resume", "Stop", "New Message", "Reply", "Reply All", "Optional Message", "Show More", "Show Less",
           "Preferences", "Help", "Play", "Discard Recording", "Show in Folder"}
ALWAYS = {"Optional Message", "Show More", "Preferences", "Help"}
SENDING = {"New Message", "Reply", "Reply All"}
READOUTS = {"Recording Time": "label", "Notice": "label", "Input Device": "label", "Input Level": "progress bar"}
NAMELESS = {"filler", "panel", "popup menu", "list", "scroll pane", "viewport", "scroll bar", "separator"}
COPY = {"mail.identity.id1.doCc": True, "mail.identity.id1.doCcList": RECIPIENT}


class ScreenReaderUser(Operator):
    """Presses by the accessible action, and has neither mouse nor keyboard."""

    def click(self, control, seconds=PATIENCE):
        wait_until(lambda: self.is_enabled(control), f"“{control.name}” to be enabled", seconds, every=0.02)
        action = control.queryAction()
        names = [action.getName(number).lower() for number in range(action.nActions)]
        if not action.doAction(next(number for number, name in enumerate(names) if name in ("press", "toggle"))):
            raise ServiceError(f"“{control.name}” could not be pressed")

    def click_at_once(self, control):
        raise NotImplementedError

    type_into = key = click_at_once

    def showing(self, node):
        """All that is shown below a node."""
        for child in self._children(node):
            if self.has_state(child, "STATE_SHOWING"):
                yield child
                yield from self.showing(child)


class ScreenReaderJob(MainJob):

    def steps(self):
        return [
            ("A sound server with a virtual microphone, a session bus, a display", self.start_desktop),
            ("A mail server on loopback", self.start_mail_server),
            ("Thunderbird with one account and our add-on", self.start_thunderbird),
            ("Kest opens, and every control has its role, name and states", self.start_kest),
            ("Record: it is announced, and a sentence is spoken", self.record),
            ("Pause is announced", self.pause),
            ("Resume is announced, and the sentence goes on", self.resume),
            ("Stop is announced", self.stop),
            ("The recording is an ordinary .m4a with what was said", self.check_recording),
            ("What Show More shows has its roles, names and states too", self.show_more),
            ("A check box of the preferences is ticked, and that is told", self.preferences),
            ("New Message: the wait is announced, Thunderbird's window opens", self.compose),
            ("Send is pressed in Thunderbird", self.send),
            ("The mail arrived, with subject, text and the recording", self.check_mail),
            ("Everything that was started has ended", self.end),
        ]

    def start_desktop(self):
        super().start_desktop()
        self.person = ScreenReaderUser(self.sandbox)

    def start_thunderbird(self):
        self.thunderbird = Thunderbird(self.sandbox, self.mail_server, prefs=COPY).start()

    def start_kest(self):
        self.events = AccessibleEvents(self.sandbox)
        wait_until(self.events.listens, "the listener on the accessibility bus", PATIENCE)
        self.kest = KestProgram(self.sandbox, self.person, self.build)
        if self.back_end == "bridge":
            self.kest.write_setting("useASClass", "false")
        self.kest.start(PATIENCE)
        self.person.find(self.kest.root, "Kest", "frame", where=lambda it: self.person.has_state(it, "STATE_ACTIVE"))
        self.check_window({"Record"})

    def record(self):
        super().record()
        self.expect_told("Recording")
        self.expect_event("object:state-changed:enabled", "Stop", 1)
        self.expect_event("object:state-changed:enabled", "Record", 0)
        self.check_window({"Pause", "Stop"} | SENDING)

    def look_at_the_recording(self):
        super().look_at_the_recording()
        level = self.kest.control("Input Level").queryValue()
        wait_until(lambda: 0 < level.currentValue <= level.maximumValue == 100, "the level to be told", PATIENCE)

    def pause(self):
        self.events.forget()
        super().pause()
        self.expect_told("Paused")
        self.expect_event("object:property-change:accessible-name", "Resume")
        self.check_window({"Resume", "Stop"} | SENDING)

    def resume(self):
        self.events.forget()
        super().resume()
        self.expect_told("Recording")
        self.expect_event("object:property-change:accessible-name", "Pause")

    def stop(self):
        self.events.forget()
        super().stop()
        self.expect_told("Recorded, ready to send")
        self.expect_event("object:state-changed:enabled", "Stop", 0)
        self.check_window({"Record"} | SENDING)

    def show_more(self):
        self.kest.click("Show More")
        self.expect_event("object:property-change:accessible-name", "Show Less")
        position = self.kest.control("Position", PATIENCE)
        wait_until(lambda: position.queryValue().maximumValue > 1, "the recording's length to be told", PATIENCE)
        self.check_window({"Record", "Play", "Show in Folder", "Discard Recording", "Show Less"} | SENDING, ALWAYS - {"Show More"})
        self.kest.click("Show Less")
        wait_until(lambda: not self.person.exists(self.kest.root, "Position"), "the lower half to go", PATIENCE)

    def preferences(self):
        self.kest.click("Preferences")
        sheet = self.person.find(self.kest.root, role="dialog", seconds=PATIENCE)
        self.check_names(sheet)
        box = self.person.find(sheet, "Include Sender's Name", "check box")
        before = self.person.has_state(box, "STATE_CHECKED")
        self.person.click(box)
        wait_until(lambda: self.person.has_state(box, "STATE_CHECKED") != before, "the check mark", PATIENCE)
        self.expect_event("object:state-changed:checked", "Include Sender's Name", int(not before))
        self.kest.click("Close")
        wait_until(lambda: not self.person.exists(self.kest.root, role="dialog"), "the sheet to go", PATIENCE)

    def compose(self):
        self.events.forget()
        self.kest.click("New Message")
        self.thunderbird.wait_window(COMPOSE_TITLE, 90)
        self.kest.wait_until_idle(PATIENCE)
        self.expect_told("Waiting for the mail application…")
        self.expect_told("Ready to record")
        self.check_window({"Record"})

    def send(self):
        thunderbird = self.person.application("Thunderbird", PATIENCE)
        self.person.click(self.person.find(thunderbird, "Send", "push button", PATIENCE))
        self.mail_server.wait_sent()

    def addressee(self, mail):
        return str(mail.message["Cc"])

    # What is looked at

    def check_window(self, enabled, always=frozenset(ALWAYS)):
        """These buttons are enabled, those always, and no others; each readout has its role; nothing is nameless."""
        wanted = enabled | always
        wait_until(lambda: self.buttons(True) == wanted, f"{sorted(wanted)} to be enabled", PATIENCE)
        unknown = (self.buttons(True) | self.buttons(False)) - BUTTONS
        if unknown or "Reply All" not in self.buttons(True) | self.buttons(False):
            raise ServiceError(f"the window's buttons are {self.buttons(True)} and {self.buttons(False)}")
        for name, role in READOUTS.items():
            self.person.find(self.kest.root, name, role)
        self.check_names(self.kest.root)

    def buttons(self, enabled):
        return {it.name for it in self.person.showing(self.kest.root)
                if it.getRoleName() == "push button" and self.person.is_enabled(it) == enabled}

    def check_names(self, root):
        for it in self.person.showing(root):
            if not it.name and (it.getRoleName() not in NAMELESS or self.person.has_state(it, "STATE_FOCUSABLE")):
                raise ServiceError(f"a {it.getRoleName()} has no name; it is in “{it.parent.name}”")
            if it.getRoleName() in ("unknown", "invalid"):
                raise ServiceError(f"“{it.name}” has no role")

    def expect_told(self, words):
        wait_until(lambda: words in self.events.announced(), f"“{words}” to be announced", PATIENCE)

    def expect_event(self, kind, name, value=None):
        wait_until(lambda: self.events.has(kind, name, value), f"{kind} of “{name}” to be told", PATIENCE)


if __name__ == "__main__":
    sys.exit(main_job.perform(ScreenReaderJob, __doc__))
