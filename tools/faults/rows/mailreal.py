"""The row `mail` on a real Thunderbird: whatever dies between Kest's window and it, at each call."""

import collections
import concurrent.futures
import contextlib
import itertools
import json
import signal
from pathlib import Path

from services.base import wait_until
from services.bus import SessionBus

from .driven import PATIENCE
from .kestwindow import BACK_ENDS, COMMANDS, KestWindow
from .mail import WHOLE_REPLY, judge
from .row import Row, Seen

HERE = Path(__file__).resolve().parents[1]
LIMIT = 10  # Seconds for one call: Thunderbird takes up to three on a busy machine.
AGAIN = 2.5  # Seconds for the call after one that was not answered in time.
START = 5  # Seconds for a mail application to come up; none does, see `forget_other_mail`.
MORE = LIMIT + 5.0  # A reply whose subject was not told in time goes without, and Thunderbird asks whether it may.
MOST_WORKERS = 2  # Each has a Thunderbird.
MOST_WINDOWS = 6  # Compose windows that are left open before Thunderbird is started anew.
SENDER = "Ben Ford <ben@example.test>"
VISIBLE = "OutgoingMessage.Visible"

# In mail_relay.py's words. What stops for good, or answers too late, costs the limit.
FAULTS = {
    "Thunderbird killed before it did it": "thunderbird-before",
    "Thunderbird killed once it had done it": "thunderbird-after",
    "host killed before it passed it on": "host-before",
    "host killed once it was done": "host-after",
    "bus killed before it was done": "bus-before",
    "bus killed once it was done": "bus-after",
    "Thunderbird stopped past the limit": "stop",
    "the answer lost": "no-answer",
}

# The reply is sent, and Kest is not told.
FEW = [("script", "Reply, sent", 3, WHOLE_REPLY, "host killed once it was done")]


class RealPost:
    """A bus, a mail server, a Thunderbird whose host speaks through the relay, and Kest's window."""

    def __init__(self, context):
        from services.display import Display
        from services.mailserver import MailServer
        from services.thunderbird import Thunderbird
        self.sandbox = context.sandbox
        self.bus = SessionBus(self.sandbox)
        Display(self.sandbox)
        self.mail = MailServer(self.sandbox)
        self.journal, self.armed = self.sandbox.root / "journal", self.sandbox.root / "armed"
        self.journal.touch()
        self.originals = 0
        self.deliver_original()
        self.forget_other_mail()
        self.thunderbird = Thunderbird(self.sandbox, self.mail)
        self.put_relay_between(context.build / "bin/kest-mail-host")
        self.start_thunderbird()
        self.window = KestWindow(context, LIMIT, START, AGAIN)

    def put_relay_between(self, host):
        relay = self.sandbox.root / "relay"
        relay.write_text(f'#!/bin/sh\nexec /usr/bin/python3 {HERE}/mail_relay.py {self.sandbox.root} {host} "$@"\n')
        relay.chmod(0o755)
        manifest = self.sandbox.home / ".mozilla/native-messaging-hosts/org.kest.mailhost.json"
        manifest.write_text(json.dumps({**json.loads(manifest.read_text()), "path": str(relay)}))

    def forget_other_mail(self):
        """Kest starts the desktop's mail application when there is none: not one of another profile here."""
        config, applications = (Path(self.sandbox.env[name]) for name in ("XDG_CONFIG_HOME", "XDG_DATA_HOME"))
        (applications / "applications").mkdir(exist_ok=True)
        (applications / "applications/nothing.desktop").write_text(
            "[Desktop Entry]\nType=Application\nName=Thunderbird\nExec=/bin/true\n")
        (config / "mimeapps.list").write_text("[Default Applications]\nx-scheme-handler/mailto=nothing.desktop\n")

    def start_thunderbird(self):
        from services.mailbus import MailBus
        if not self.thunderbird.process or self.thunderbird.process.poll() is not None:
            if self.thunderbird.process:
                self.sandbox.stop(self.thunderbird.process)
            self.thunderbird.start(True)
        wait_until(self.thunderbird.on_bus, "the host back on the bus", PATIENCE)
        self.client = MailBus(self.sandbox.env["DBUS_SESSION_BUS_ADDRESS"], stranger=True)

    # The mailbox

    def deliver_original(self):
        from services.mailserver import message
        self.originals += 1
        self.subject = f"Question {self.originals}"
        self.original = message(SENDER, "anna@example.test", self.subject, "How are you?")
        self.mail.put("anna", self.original)

    def is_selected(self):
        # Another look at the list may be needed until the newest mail stands on top of it.
        with contextlib.suppress(Exception):
            return str(self.client.get(self.thunderbird.select_first(self.client), "Subject")) == self.subject

    def original_lies_in_inbox(self):
        identifier = self.original["Message-ID"].encode()
        for path in self.mail.files("anna"):
            with contextlib.suppress(FileNotFoundError):  # Its name has just changed: it is there, and found next time.
                if "T" not in path.name.partition(":2,")[2] and identifier in path.read_bytes():
                    return True
        return False

    # One press

    def prepare(self, command):
        """All well, nothing armed or written down, and for a reply a mail of its own selected."""
        if len(self.thunderbird.windows("Write: ")) >= MOST_WINDOWS:
            self.thunderbird.kill()
            self.start_thunderbird()
        self.armed.unlink(missing_ok=True)
        if command != "New Message":
            self.deliver_original()
            wait_until(self.is_selected, f"“{self.subject}” to be selected", 2 * PATIENCE)
        self.journal.write_text("")

    def arm(self, number, fault):
        beside = self.armed.with_suffix(".new")
        beside.write_text(json.dumps({"countdown": number, "fault": FAULTS[fault], "thunderbird": self.thunderbird.process.pid,
                                      "bus": self.bus.process.pid}))
        beside.rename(self.armed)

    def noted(self, *words):
        """The names of the calls in the relay's journal with one of these words, in order."""
        lines = [line.split(" ", 1) for line in self.journal.read_text().splitlines()]
        return [name for word, name in lines if word in words]

    def recover(self, fault, call):
        """What a person's machine does by itself, and whoever starts Thunderbird again."""
        with contextlib.suppress(ProcessLookupError):
            self.thunderbird.process.send_signal(signal.SIGCONT)
        if FAULTS[fault] == "stop":
            wait_until(lambda: call in self.noted("answered", "refused"), f"Thunderbird to do “{call}” at last", PATIENCE)
        if FAULTS[fault].startswith("bus"):
            self.bus.process.wait(PATIENCE)
            self.bus.stop()
            self.bus.start()
        # Thunderbird ends itself when its bus does.
        if FAULTS[fault].startswith(("thunderbird", "bus")):
            wait_until(lambda: self.thunderbird.process.poll() is not None, "Thunderbird's end", PATIENCE)
        self.start_thunderbird()

    def count_calls(self, back_end, command):
        self.prepare(command)
        self.window.take(command)
        told = self.window.press(back_end, command)
        if told["alerts"]:
            raise RuntimeError(f"{command}, {back_end}, with nothing in its way: {told['alert']}")
        return self.noted("called")


def judge_mailbox(post, command, sent):
    """Sentences about the mailbox after a press; `sent` are the mails that arrived by it."""
    failures = []
    if len(sent) > 1:
        failures.append(f"{len(sent)} mails arrived")
    for mail in sent:
        attached = [len(part.get_payload(decode=True)) for part in mail.iter_attachments()]
        if len(attached) != 1 or not attached[0]:
            failures.append(f"a mail arrived with the attachments {attached}")
    if command == "New Message" or post.original_lies_in_inbox():
        return failures
    shown = {VISIBLE, WHOLE_REPLY} & set(post.noted("answered", "kept")) or post.thunderbird.windows(f"Write: Re: {post.subject}")
    if not sent and (command == "Reply, sent" or not shown):
        failures.append("the original is gone, and no reply was")
    return failures


def one(post, back_end, command, number, call, fault):
    """(sentences, seconds of the press) for a fault at the call with that number."""
    post.prepare(command)
    post.mail.forget_sent()
    post.window.take(command)
    post.arm(number, fault)
    told = post.window.press(back_end, command)
    called = post.noted("called")
    if called[number - 1:number] != [call]:
        return [f"call {number} is not this one: {called}"], told["seconds"]
    post.recover(fault, call)
    failures = judge(told, post.noted("answered", "kept"), call, LIMIT + MORE)
    failures += judge_mailbox(post, command, post.mail.sent())
    before = len(post.mail.sent())
    post.prepare(command)
    if not told["recordingExists"]:
        post.window.take_again()
    again = post.window.press(back_end, command)
    if again["alerts"] or again["exception"] or again["recordingExists"]:
        failures.append(f"the next press fails: {again['alert'] or again['exception']}")
    failures += [f"at the next press: {text}" for text in judge(again, post.noted("answered"), None, LIMIT + MORE)]
    failures += [f"at the next press: {text}" for text in judge_mailbox(post, command, post.mail.sent()[before:])]
    return failures, told["seconds"]


def several(context, cases, seen):
    """Does the cases in one sandbox until one of them fails; gives the longest press."""
    worst = 0.0
    with context.another() as own:
        post = RealPost(own)
        while cases:
            back_end, command, number, call, fault = cases.popleft()
            try:
                failures, seconds = one(post, back_end, command, number, call, fault)
            except Exception as problem:
                failures, seconds = [f"{type(problem).__name__}: {problem}"], 0.0
            seen.runs += 1
            worst = max(worst, seconds)
            seen.failures += [f"{command}, {back_end}, call {number} ({call}), {fault}: {text}" for text in failures]
            if failures:
                break  # what it left is nobody's ground to go on from
        post.window.close()
    return worst


def all_calls(context):
    """Each call of each command on each back end: (back end, command, number, its name)."""
    with context.another() as own:
        post = RealPost(own)
        return [(back_end, command, number, call) for back_end, command in itertools.product(BACK_ENDS, COMMANDS)
                for number, call in enumerate(post.count_calls(back_end, command), 1)]


def work_off(context, cases):
    seen, worst = Seen(), 0.0
    while cases:
        worst = max(worst, several(context, cases, seen))
    return seen, worst


def run(context, runs):
    """`runs` times each call and fault; 0: what matters most."""
    calls = all_calls(context) if runs else []
    cases = collections.deque([(*call, fault) for call in calls for fault in FAULTS] * runs or FEW)
    whole, worst = Seen(), 0.0
    workers = min(context.workers, MOST_WORKERS) if runs else 1
    with concurrent.futures.ThreadPoolExecutor(workers) as pool:
        for seen, seconds in pool.map(lambda _number: work_off(context, cases), range(workers)):
            whole.runs += seen.runs
            whole.failures += seen.failures
            worst = max(worst, seconds)
    whole.worst = f"{len(calls) or len(FEW)} calls, {worst:.2f} s at most"
    return whole


ROWS = [Row("mail-real", "on a real Thunderbird: it or the host or the bus killed before a call is done or once it was, Thunderbird "
            "stopped past the limit, the answer lost; at each call of New Message and Reply (sent at once or shown, original "
            "deleted) on both back ends", "no press longer than twice the limit and 5 s, no take lost, nothing sent twice, no original "
            "deleted without the word that the reply was sent, or stands there; the next press works", 0, 1, run)]
