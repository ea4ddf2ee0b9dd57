#!/usr/bin/python3
"""The main job from end to end, on real parts: a spoken sentence becomes a mail that arrives.

    main_job.py (--build BUILD_FOLDER | --installed) --output FOLDER [--sound pulseaudio|pipewire]
        [--back-end script|bridge]

Starts a private sound server whose default source is a virtual microphone, a virtual display with a window manager, a
mail server on loopback and Thunderbird with a throw-away profile. Then it works Kest's window as a person would, with
the mouse, and sends the mail from Thunderbird's own window. Leaves pictures, the recording and the mail in the output
folder. Ends with 0 only when every step did what it says. With --installed, program and add-on are those of the Debian
package, found as a person's desktop and Thunderbird find them.
"""

import argparse
import contextlib
import os
import shutil
import subprocess
import sys
import time
import traceback
from pathlib import Path

here = Path(__file__).resolve().parent
sys.path.insert(0, str(here.parent / "support"))
sys.path.insert(0, str(here))

from kest_program import KestProgram, speak  # noqa: E402
from listening import Listening  # noqa: E402
from progress import Progress  # noqa: E402
from services.base import Sandbox, ServiceError, wait_until  # noqa: E402
from services.bus import AccessibilityBus, SessionBus  # noqa: E402
from services.display import Display  # noqa: E402
from services.mail_content import ArrivedMail  # noqa: E402
from services.mailserver import MailServer  # noqa: E402
from services.operator import Operator  # noqa: E402
from services.sound import SoundServer  # noqa: E402
from services.thunderbird import Thunderbird  # noqa: E402

FIRST = "Hello, this is a spoken message."
SECOND = "I made a pause, and now I go on."
RECIPIENT = "friend@example.test"
COMPOSE_TITLE = "Write: A voice email"


class MainJob:
    """One run; the steps stand in `beginning` and `end_of_work`."""

    def __init__(self, sandbox, build, output, sound, back_end, installed=False):
        self.sandbox = sandbox
        self.installed = installed
        self.build = build
        self.output = output
        self.sound_kind = sound
        self.back_end = back_end
        self.pictures = 0

    def run(self):
        steps = self.steps()
        step = Progress(len(steps))
        for what, action in steps:
            step(what, action)

    def steps(self):
        """(what is done, the action), in order."""
        return [*self.beginning(), *self.end_of_work()]

    def beginning(self):
        return [
            ("A sound server with a virtual microphone, a session bus, a display", self.start_desktop),
            ("A mail server on loopback", self.start_mail_server),
            ("Thunderbird with one account and our add-on", self.start_thunderbird),
            ("Kest opens", self.start_kest),
            ("Record, and a sentence is spoken", self.record),
            ("Pause: the time stands still", self.pause),
            ("Resume, and the sentence goes on", self.resume),
            ("Stop", self.stop),
            ("The recording is an ordinary .m4a with what was said", self.check_recording),
            ("Play, pause, a click on the waveform: it is heard", self.listen),
            ("Discard moves it to the trash, Undo brings it back", self.discard_and_undo),
            ("New Message: Thunderbird's compose window opens", self.compose),
            ("The mail is sent from Thunderbird's own window", self.send),
            ("The mail arrived, with subject, text and the recording", self.check_mail),
        ]

    def end_of_work(self):
        return [
            ("Kest closes, with nothing left behind", self.quit),
            ("Everything that was started has ended", self.end),
        ]

    # Steps

    def start_desktop(self):
        SessionBus(self.sandbox)
        self.sandbox.start("calls", ["dbus-monitor", "--session", "interface=org.kest.Mail1.Application"])
        self.display = Display(self.sandbox, "1400x860")
        AccessibilityBus(self.sandbox)
        self.sound = SoundServer(self.sandbox, self.sound_kind)
        self.sound.add_output("kest_speaker")
        self.person = Operator(self.sandbox)

    def start_mail_server(self):
        self.mail_server = MailServer(self.sandbox)

    def start_thunderbird(self):
        self.thunderbird = Thunderbird(self.sandbox, self.mail_server, system_addon=self.installed).start()

    def start_kest(self):
        self.kest = KestProgram(self.sandbox, self.person, self.build)
        if self.back_end == "bridge":
            self.kest.write_setting("useASClass", "false")
        self.kest.start()
        self.person.move_window(self.person.window("^Kest$"), 900, 160)  # beside where the mail is written
        self.picture("kest-opens")

    def record(self):
        self.open_seconds = -time.monotonic()
        self.kest.click("Record")
        speak(self.sandbox, self.sound, FIRST, self.output, "first-sentence", during=self.look_at_the_recording)

    def look_at_the_recording(self):
        wait_until(lambda: self.kest.time_text() >= "00:01", "the time to run", 30)
        self.picture("recording")

    def pause(self):
        self.kest.click("Pause")
        self.kest.control("Resume")
        self.open_seconds += time.monotonic()
        shown = self.kest.time_text()
        self.sound.microphone.play_samples(bytes(2 * 44100))
        if self.kest.time_text() != shown:
            raise ServiceError("the time went on during the pause")
        self.picture("paused")

    def resume(self):
        self.open_seconds -= time.monotonic()
        self.kest.click("Resume")
        speak(self.sandbox, self.sound, SECOND, self.output, "second-sentence")

    def stop(self):
        self.kest.click("Stop")
        wait_until(lambda: self.kest.time_text() == "--:--", "the time to say that nothing is recorded")
        self.open_seconds += time.monotonic()
        self.picture("stopped")

    def check_recording(self):
        self.recording = wait_until(self.kest.only_recording, "the recording")
        wait_until(lambda: b"moof" not in self.recording.read_bytes(), "the recording to be finished")
        seconds = float(subprocess.run(
            ["ffprobe", "-v", "error", "-show_entries", "format=duration", "-of", "csv=p=0", self.recording],
            check=True, capture_output=True, text=True).stdout)
        spoken = sum(self.spoken_seconds(name) for name in ("first-sentence", "second-sentence"))
        if not spoken <= seconds <= self.open_seconds:
            raise ServiceError(f"the recording lasts {seconds:.2f} s, but {spoken:.2f} s were spoken, and the microphone "
                               f"was open for {self.open_seconds:.2f} s")
        shutil.copy2(self.recording, self.output / self.recording.name)

    def listen(self):
        self.listening = Listening(self.person, self.kest, self.recording)
        self.listening.open()
        self.listening.play_and_pause()
        self.picture("listening")
        self.listening.seek_and_hear_the_end()

    def discard_and_undo(self):
        self.listening.discard_and_undo()
        self.kest.click("Show Less")

    def compose(self):
        self.kest.click("New Message")
        self.compose_window = self.thunderbird.wait_window(COMPOSE_TITLE, 90)
        self.kest.wait_until_idle()
        self.person.move_window(self.compose_window, 0, 0)
        self.picture("compose")

    def send(self):
        self.write_recipient(self.compose_window)
        self.picture("ready-to-send")
        self.thunderbird.send_from_window(COMPOSE_TITLE)
        self.mail_server.wait_sent()

    def write_recipient(self, window):
        mail_program = self.person.application("Thunderbird")
        self.person.click(self.person.find(mail_program, "To", "entry"))
        self.person.type_into(window, RECIPIENT)
        self.person.key("Tab", window)

    def check_mail(self):
        arrived = self.only_mail()
        in_one_call = "member=NewMessage" in self.sandbox.log("calls")
        if in_one_call != (self.back_end == "script"):
            raise ServiceError("the mail was not made through the back end that was asked for")
        mail = ArrivedMail(shutil.copy2(arrived, self.output / "arrived.eml"))
        if not mail.subject.startswith("A voice email from"):
            raise ServiceError(f"the subject is “{mail.subject}”")
        if "I am trying to save on typing" not in mail.text:
            raise ServiceError(f"the text is “{mail.text}”")
        if RECIPIENT not in self.addressee(mail):
            raise ServiceError(f"it went to “{self.addressee(mail)}”")
        names = [(name, kind) for name, kind, _ in mail.attachments]
        if names != [(self.recording.name, "audio/mp4")]:
            raise ServiceError(f"it carries {names}")
        if mail.attachments[0][2] != self.recording.read_bytes():
            raise ServiceError("the attachment differs from the recording")

    def addressee(self, mail):
        return str(mail.message["To"])

    def only_mail(self):
        arrived = sorted(self.mail_server.outbox.glob("*.eml"))
        if len(arrived) != 1:
            raise ServiceError(f"{len(arrived)} mails arrived")
        return arrived[0]

    def quit(self):
        self.kest.quit()
        self.picture("after")
        leftovers = [path.name for path in self.recording.parent.iterdir() if path != self.recording]
        if leftovers:
            raise ServiceError(f"beside the recording lie {leftovers}")

    def end(self):
        started = [process.pid for process in self.sandbox.processes]
        self.close()
        alive = [pid for pid in started if Path(f"/proc/{pid}").exists()]
        if alive:
            raise ServiceError(f"still running: {alive}")

    def close(self):
        self.sandbox.close()

    def results(self):
        """(what, where it lies), for the person who ran this."""
        return [("Pictures", self.output / "*.png"), ("Recording", self.output / self.recording.name),
                ("The mail", self.output / "arrived.eml")]

    # Helpers

    def spoken_seconds(self, name):
        return float(subprocess.run(["soxi", "-D", self.output / f"{name}.wav"], check=True, capture_output=True,
                                    text=True).stdout)

    def picture(self, name):
        self.pictures += 1
        self.display.screenshot(self.output / f"{self.pictures:02}-{name}.png")


def parse(description):
    parser = argparse.ArgumentParser(description=description, formatter_class=argparse.RawDescriptionHelpFormatter)
    program = parser.add_mutually_exclusive_group(required=True)
    program.add_argument("--build", type=Path)
    program.add_argument("--installed", dest="build", action="store_const", const=Path("/usr"))
    parser.add_argument("--output", type=Path, required=True)
    parser.add_argument("--sound", choices=("pulseaudio", "pipewire"), default="pulseaudio")
    parser.add_argument("--back-end", choices=("script", "bridge"), default="script")
    return parser.parse_args()


def perform(make_job, description):
    """Runs the job in a sandbox of its own; returns the program's exit status."""
    options = parse(description)
    shutil.rmtree(options.output, ignore_errors=True)
    options.output.mkdir(parents=True)
    # The fixtures find what was built, and the installer command, by these.
    os.environ["KEST_BUILD_DIR"] = str(options.build.resolve())
    os.environ["KEST_SOURCE_DIR"] = str(here.parent.parent)
    with Sandbox() as sandbox:
        job = make_job(sandbox, options.build.resolve(), options.output.resolve(), options.sound, options.back_end,
                       installed=options.build == Path("/usr"))
        try:
            job.run()
        except Exception as error:
            print(f"\nIt did not work: {error}\n", file=sys.stderr)
            traceback.print_exc()
            with contextlib.suppress(Exception):  # the display may be what failed
                job.picture("where-it-stopped")
            if sandbox.logs.exists():
                shutil.copytree(sandbox.logs, job.output / "logs", dirs_exist_ok=True)
            print(f"\nPictures and logs so far: {job.output}", file=sys.stderr)
            return 1
        finally:
            job.close()
    print("\nIt works.")
    for what, where in job.results():
        print(f"  {what + ':':<14}{where}")
    return 0


if __name__ == "__main__":
    sys.exit(perform(MainJob, __doc__))
