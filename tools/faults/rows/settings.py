"""The disk of the settings is full: the running program says so on its sheet, and saves them once there is room."""

import time
from pathlib import Path

from services.base import wait_until

from .driven import PATIENCE
from .fulldisk import TOLD_WITHIN, SmallDisk
from .row import Row, Seen

NOTICE = "could not be saved"


class Sheet:
    """The running program with its preferences open, its settings on a small disk."""

    def __init__(self, context):
        self.kest = context.start_kest()
        folder = Path(context.sandbox.env["XDG_CONFIG_HOME"]) / "kest"
        folder.mkdir(parents=True, exist_ok=True)
        self.file = folder / "settings.ini"
        self.disk = SmallDisk(folder, 64)
        self.kest.start()
        self.kest.click("Preferences")
        self.kest.click("Subject")
        self.window = context.person.window("^Preferences$")
        self.person = context.person

    def type(self, letter):
        self.person.key(letter, self.window)

    def complaints(self):
        return self.kest.sandbox.log("kest").count(NOTICE)

    def notice(self):
        found = self.person.find(self.kest.root, "Preferences Notice", seconds=PATIENCE)
        return self.person.value_text(found)

    def saved(self):
        return self.file.read_text() if self.file.exists() else ""


def one(sheet, number):
    """Seconds until it was said."""
    before = sheet.complaints()
    sheet.disk.fill()
    letter = "abcdefghij"[number % 10]
    began = time.monotonic()
    sheet.type(letter)
    wait_until(lambda: sheet.complaints() > before and NOTICE in sheet.notice(), "the word that nothing was saved", PATIENCE)
    told = time.monotonic() - began
    sheet.disk.make_room()
    sheet.type("z")
    wait_until(lambda: f"{letter}z" in sheet.saved(), "both letters in the settings", PATIENCE)
    return told


def run(context, runs):
    context.start_desktop()
    sheet = Sheet(context)
    seen, told = Seen(), []
    for number in range(runs):
        seen.runs += 1
        try:
            told.append(one(sheet, number))
        except Exception as problem:
            seen.failures.append(f"run {number}: {type(problem).__name__}: {problem}")
            break
        if told[-1] > TOLD_WITHIN:
            seen.failures.append(f"run {number}: told after {told[-1]:.2f} s")
    seen.leftovers = sum(1 for path in sheet.file.parent.iterdir() if path != sheet.file and not path.name.endswith(".lock"))
    seen.worst = f"said after {max(told, default=0):.2f} s"
    context.sandbox.stop(sheet.kest.process)
    sheet.disk.close()
    return seen


ROWS = [Row("full-settings", "disk full in saving settings (the whole program)", "said within 2 s, saved once there is room",
            3, 100, run, needs_mounts=True)]
