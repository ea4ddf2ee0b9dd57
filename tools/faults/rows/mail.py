"""The other side of New Message and Reply fails at each call: nothing hangs, nothing is lost, nothing goes twice."""

import concurrent.futures
import itertools
import json

import dbus
import dbus.bus

from services.base import wait_until
from services.bus import SessionBus

from .driven import PATIENCE
from .kestwindow import BACK_ENDS, COMMANDS, KestWindow
from .row import Row, Seen

LIMIT = 0.4  # Seconds for one call.
START = 1  # Seconds for a mail application to come up.
MORE = 2.0  # Seconds that a press may take beyond it: a start of a mail application, and a busy machine.
NAME = "org.kest.Mail1.Fake"
SEND = "OutgoingMessage.Send"
DELETE = "Message.Delete"
WHOLE_REPLY = "Application.Reply"

# What happens at the call: (the fake's action, its detail).
FAULTS = {
    "mail application gone, by its host's word": ("fail", "NotConnected Thunderbird has gone."),
    "host killed before it did it": ("vanish", ""),
    "host killed once it had done it": ("vanish-unanswered", ""),
    "answer past the limit": ("delay", "900"),
    "no answer": ("hang", ""),
    "bus killed and started again": ("kill", None),
}


class Post:
    """A bus, the scriptable mail application on it, and Kest's window."""

    def __init__(self, context):
        self.context = context
        self.sandbox = context.sandbox
        self.bus = SessionBus(self.sandbox)
        self.journal = self.sandbox.root / "journal"
        self.fake = None
        self.start_fake()
        self.window = KestWindow(context, LIMIT, START, LIMIT)

    def start_fake(self):
        if self.fake:
            self.sandbox.stop(self.fake)
        self.connection = dbus.bus.BusConnection(self.sandbox.env["DBUS_SESSION_BUS_ADDRESS"])
        self.fake = self.sandbox.start("fake", [self.context.build / "bin/fake-mail-application"],
                                       env={"KEST_FAKE_MAIL_JOURNAL": str(self.journal)})
        wait_until(lambda: self.connection.name_has_owner(NAME), "the fake mail application", PATIENCE)

    def restart_bus(self):
        self.bus.stop()
        self.bus.start()
        self.start_fake()

    def tell_fake(self, member, *arguments, signature=""):
        return self.connection.call_blocking(NAME, "/org/kest/Test", "org.kest.Test.Script", member, signature, arguments,
                                             timeout=PATIENCE)

    def prepare(self):
        """The mailbox as at the beginning, and nothing written down."""
        self.tell_fake("Configure", "{}", signature="s")
        self.journal.write_text("")

    def done(self):
        """What the mail application has done, in order."""
        return self.journal.read_text().split()

    def count_calls(self, back_end, command):
        self.prepare()
        self.window.take(command)
        self.window.press(back_end, command)
        return json.loads(self.tell_fake("Log"))


def is_alive(process):
    return process.poll() is None


def judge(told, done, call, longest=LIMIT + MORE):
    """Sentences about one press of at most `longest` seconds during which `call` met a fault."""
    failures = []
    if told["seconds"] > longest:
        failures.append(f"took {told['seconds']:.2f} s")
    if told["busy"] or not told["enabled"]:
        failures.append("the window stays busy")
    if not told["fileIntact"]:
        failures.append("the recording is not what it was")
    sent = done.count(SEND) + done.count(WHOLE_REPLY)
    if sent > 1:
        failures.append(f"sent {sent} times")
    # In one call the mail application itself deletes, once it has sent; step by step it is Kest's to wait for the word.
    confirmed = {SEND, "OutgoingMessage.Visible"} & set(done) - {call}
    if DELETE in done and not confirmed:
        failures.append("the original was deleted without the word that the reply was sent, or shown")
    handed_over = {"Application.NewMessage", WHOLE_REPLY, SEND, "OutgoingMessage.Visible"} & set(done)
    # That a new message could not be shown goes untold by design when the mail application then comes forward.
    if not told["alerts"] and not told["exception"] and not handed_over and call != "OutgoingMessage.Visible":
        failures.append("nothing was said and nothing handed over")
    return failures


def one(post, back_end, command, number, call, fault):
    """(sentences, seconds of the press) for a fault at the call with that number."""
    action, detail = FAULTS[fault]
    post.prepare()
    post.window.take(command)
    post.tell_fake("At", dbus.UInt32(number), action, str(post.bus.process.pid) if detail is None else detail, signature="uss")
    told = post.window.press(back_end, command)
    failures = judge(told, post.done(), call)
    if action == "kill":
        post.restart_bus()
    elif not is_alive(post.fake) or action.startswith("vanish"):
        post.fake.wait(PATIENCE)
        post.start_fake()
    post.prepare()
    # What was handed over counts as used, also when the mail application then failed; its file stays.
    if not told["recordingExists"]:
        post.window.take_again()
    again = post.window.press(back_end, command)
    if again["alerts"] or again["exception"] or again["recordingExists"]:
        failures.append(f"the next press fails: {again['alert'] or again['exception']}")
    failures += [f"at the next press: {text}" for text in judge(again, post.done(), None)]
    return failures, told["seconds"]


def several(context, cases):
    seen, worst = Seen(), 0.0
    cases = list(cases)
    while cases:
        with context.another() as own:
            post = Post(own)
            while cases:
                back_end, command, number, call, fault = cases.pop(0)
                seen.runs += 1
                try:
                    failures, seconds = one(post, back_end, command, number, call, fault)
                except Exception as problem:
                    failures, seconds = [f"{type(problem).__name__}: {problem}"], 0.0
                worst = max(worst, seconds)
                seen.failures += [f"{command}, {back_end}, call {number} ({call}), {fault}: {text}" for text in failures]
                if failures:
                    break  # what it left is nobody's ground to go on from
            post.window.close()
    return seen, worst


def all_calls(context):
    """Each call of each command on each back end: (back end, command, number, its name)."""
    with context.another() as own:
        post = Post(own)
        found = [(back_end, command, number, call) for back_end, command in itertools.product(BACK_ENDS, COMMANDS)
                 for number, call in enumerate(post.count_calls(back_end, command), 1)]
        post.window.close()
    return found


def run(context, runs):
    """`runs` times each call and fault; 0: a few of them, by turns."""
    calls = all_calls(context)
    cases = [(*call, fault) for call in calls for fault in FAULTS]
    cases = cases[context.seed % 11::11] if not runs else cases * runs
    whole, worst = Seen(), 0.0
    with concurrent.futures.ThreadPoolExecutor(context.workers) as pool:
        for seen, seconds in pool.map(lambda at: several(context, cases[at::context.workers]), range(context.workers)):
            whole.runs += seen.runs
            whole.failures += seen.failures
            worst = max(worst, seconds)
    whole.worst = f"{len(calls)} calls, {worst:.2f} s at most"
    return whole


ROWS = [Row("mail", "mail application gone, host killed, bus killed and started again, answers late or missing, at each call of New "
            "Message and Reply (sent at once or shown, original deleted) on both back ends", "no press longer than the limit and 2 s, no "
            "take lost, nothing sent twice, no original deleted without the word that the reply was sent, or stands there; the next "
            "press works", 0, 20, run)]
