"""The microphone or the sound server goes away in mid-recording: said in time, the take kept, never another microphone."""

import array
import cmath
import concurrent.futures
import math
import random
import time

from services.microphone import Microphone
from services.sound import MICROPHONE, MICROPHONE_DESCRIPTION

from .driven import RATE, TROUBLES, Recorder
from .row import Row, Seen
from .sounding import is_ordinary, played

TOLD_WITHIN = 2.0  # seconds
OWN, OTHER = 441, 2940  # Hz; both fill a block of a hundredth of a second evenly
WINDOW = 4410  # samples
FAINT = 0.05  # Of full scale: what an encoder may add of its own at that frequency.
KINDS = ("pulseaudio", "pipewire")


def tone(hertz, peak):
    """A second of it."""
    return array.array("h", (round(32767 * peak * math.sin(2 * math.pi * hertz * n / RATE)) for n in range(RATE))).tobytes()


def loudest(samples, hertz):
    """The greatest amplitude that a tone of this frequency has in any window, of full scale."""
    turn = [cmath.exp(-2j * math.pi * hertz * n / RATE) for n in range(WINDOW)]
    starts = range(0, len(samples) - WINDOW, WINDOW)
    return max((abs(sum(map(lambda s, t: s * t, samples[at:at + WINDOW], turn))) * 2 / WINDOW / 32768 for at in starts),
               default=0.0)


class Scene:
    """A sound server of its own, two microphones with a tone each, and a recorder."""

    def __init__(self, context, kind):
        self.context = context
        self.sound = context.start_sound(kind)
        self.sound.microphone.hum(tone(OWN, 0.3))
        self.root = context.folder(kind)
        (self.root / "Recordings").mkdir()
        self.recorder = Recorder(context.sandbox, context.build, self.root)
        self.other = None

    def add_other(self):
        source = self.sound.add_source("kest_other", "USB Mic")
        self.other = Microphone(source.fifo)
        self.other.hum(tone(OTHER, 0.9))

    def remove_other(self):
        if self.other:
            if "kest_other" in self.sound.sources:
                self.sound.remove_source("kest_other")
            self.other.close()
            self.other = None

    def record(self, number, seconds):
        self.file = self.root / "Recordings" / f"{number}.m4a"
        self.recorder.tell(f"record {self.file}")
        while (news := self.recorder.news()) and news[1] != "started":
            if news[1].startswith("trouble"):
                raise RuntimeError(f"the recording does not begin: {news[1]}")
        self.recorder.wait_for_samples(int(seconds * RATE))

    # The faults. Each returns the trouble that is to be told, or none.

    def removed(self, chance):
        if chance.random() < 0.5:
            self.add_other()
        self.began = time.monotonic_ns()
        self.sound.remove_source(MICROPHONE)
        return "MicrophoneLost"

    def default_changed(self, _chance):
        self.add_other()
        self.sound.set_default("kest_other")
        self.recorder.wait_for_samples(self.recorder.samples() + RATE)
        self.recorder.tell("stop")
        return None

    def killed(self, chance):
        self.began = time.monotonic_ns()
        self.sound.kill()
        if chance.random() < 0.5:
            self.sound.start()
            self.add_other()
            self.sound.set_default("kest_other")
        return "SoundServerLost"

    def suspended(self, chance):
        if chance.random() < 0.5:
            self.add_other()
        self.began = time.monotonic_ns()
        self.sound.stall()
        return "NoSound"

    # Afterwards

    def mend(self, fault):
        """Things are as they were, and a new recording works."""
        if fault == "killed" and not self.other:
            self.sound.restart_with_microphone()
        elif fault == "suspended":
            self.sound.resume()
        elif fault != "default_changed":
            self.sound.add_source(MICROPHONE, MICROPHONE_DESCRIPTION)
        self.sound.set_default(MICROPHONE)
        self.remove_other()
        self.record("again", 0.2)
        self.recorder.tell("stop")
        if self.recorder.wait("finished")[1].split(" ")[1] != "1":
            raise RuntimeError("no recording could be made afterwards")
        (self.root / "Recordings/again.m4a").unlink()

    def close(self):
        self.recorder.end()
        if self.other:
            self.other.close()


def news_until_finished(recorder):
    """What was told, as [(nanoseconds, words)], with the finished file's line last."""
    told = [recorder.news()]
    while told[-1][1].split(" ")[0] != "finished":
        told.append(recorder.news())
    return told


def judge(scene, expected, told):
    """(sentences, seconds until it was said)."""
    troubles = [(stamp, TROUBLES[int(words.split(" ")[1])]) for stamp, words in told if words.startswith("trouble")]
    failures, seconds = [], 0.0
    if [name for _stamp, name in troubles] != ([expected] if expected else []):
        failures.append(f"told {[name for _stamp, name in troubles]}")
    elif expected:
        seconds = (troubles[0][0] - scene.began) / 1e9
        if seconds > TOLD_WITHIN:
            failures.append(f"told after {seconds:.2f} s")
    if told[-1][1].split(" ")[1] != "1" or not is_ordinary(scene.file):
        return [*failures, "the take was not kept"], seconds
    samples = played(scene.file) or []
    if not 0 <= len(samples) - scene.recorder.samples() <= 2048:
        failures.append(f"{scene.recorder.samples()} samples captured, {len(samples)} kept")
    if (found := loudest(samples, OTHER)) > FAINT:
        failures.append(f"the other microphone is heard ({found:.2f})")
    if loudest(samples, OWN) < 0.2:
        failures.append("the microphone is not heard")
    return failures, seconds


def one(scene, fault, number, seed):
    chance = random.Random(seed)
    scene.record(number, chance.uniform(0.2, 1.0))
    expected = getattr(scene, fault)(chance)
    failures, seconds = judge(scene, expected, news_until_finished(scene.recorder))
    scene.mend(fault)
    return failures, seconds


def several(context, kind, fault, numbers):
    """One after the other on one server; begins with a new one after a run that went wrong."""
    seen, told = Seen(), [0.0]
    numbers = list(numbers)
    while numbers:
        with context.another() as own:
            scene = Scene(own, kind)
            while numbers:
                number = numbers.pop(0)
                seen.runs += 1
                try:
                    failures, seconds = one(scene, fault, number, context.seed + number)
                except Exception as problem:
                    failures, seconds = [f"{type(problem).__name__}: {problem}"], 0.0
                seen.failures += [f"{kind}, seed {context.seed + number}: {text}" for text in failures]
                told.append(seconds)
                if failures:
                    break
            else:
                seen.leftovers += len([path for path in scene.file.parent.iterdir() if path.suffix != ".m4a"])
                scene.close()
    return seen, max(told)


def row_for(fault, words, bar):
    def run(context, runs):
        whole, worst = Seen(), 0.0
        shares = [(kind, range(at, runs, 4)) for at, kind in enumerate(KINDS * 2) if at < runs]
        with concurrent.futures.ThreadPoolExecutor(context.workers) as pool:
            for seen, told in pool.map(lambda share: several(context, share[0], fault, share[1]), shares):
                whole.runs += seen.runs
                whole.failures += seen.failures
                whole.leftovers += seen.leftovers
                worst = max(worst, told)
        whole.worst = f"said after {worst:.2f} s" if worst else "goes on with its own"
        return whole
    return Row(f"source-{fault}".replace("_", "-"), words, bar, 2, 100, run)


SAID = "said within 2 s, take kept, no other microphone, works again afterwards"
ROWS = [row_for("removed", "the microphone is unplugged, in half of the runs with another one there", SAID),
        row_for("default_changed", "another microphone becomes the default one", "goes on with its own, nothing of the other"),
        row_for("killed", "sound server killed, then started again, in half of the runs at once and with another microphone", SAID),
        row_for("suspended", "sound server suspended, in half of the runs with another microphone there", SAID)]
