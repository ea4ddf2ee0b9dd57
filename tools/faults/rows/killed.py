"""Killed at a random moment: what is left must play, and the next start must make an ordinary file of it."""

import random
import shutil
import time

from .driven import RATE, RENAME, Recorder
from .row import Row, Seen
from .sounding import decoded_samples, is_ordinary, seconds_lost

MOST_LOST = 0.25  # seconds
STATES = ("recording", "paused", "stopping", "finishing", "renaming", "recovering")


class Victim:
    """One recorder in a folder of its own, and the moment at which it is killed."""

    def __init__(self, context, state, chance):
        self.context, self.state, self.chance = context, state, chance
        self.root = context.folder(state)
        self.recordings = self.root / "Recordings"
        self.recordings.mkdir()
        self.take = self.recordings / "take.m4a"
        self.captured = 0
        self.kept = None  # Samples that play before anything is recovered; None: no file, or one that does not play.

    def start(self):
        return Recorder(self.context.sandbox, self.context.build, self.root)

    def kill(self):
        self.recorder = self.start()
        getattr(self, self.state)()
        self.captured = self.recorder.samples()

    def die_at_a_call(self, calls, command, kinds=63):
        """Tells the command and is gone before or after one of the next calls on files; at the latest soon after."""
        self.recorder.arm(self.chance.randint(1, calls), self.chance.random() < 0.5, kinds)
        self.recorder.tell(command)

    def record(self, seconds):
        self.recorder.tell(f"record {self.take}")
        self.recorder.wait_for_samples(int(seconds * RATE))

    def gone_by(self, seconds):
        """Gives the chosen call so long to come, then kills whatever it does."""
        try:
            self.recorder.wait_until_gone(seconds)
        except Exception:
            self.recorder.kill()

    # The moments

    def recording(self):
        if self.chance.random() < 0.5:
            self.die_at_a_call(30, f"record {self.take}")
            self.gone_by(3)
        else:
            self.recorder.tell(f"record {self.take}")
            time.sleep(self.chance.uniform(0, 1.6))
            self.recorder.kill()

    def paused(self):
        self.record(self.chance.uniform(0.05, 0.9))
        self.recorder.tell("pause")
        time.sleep(self.chance.uniform(0, 0.5))
        self.recorder.kill()

    def stopping(self):
        self.record(self.chance.uniform(0.05, 0.9))
        self.recorder.tell("stop")
        time.sleep(self.chance.uniform(0, 0.06))
        self.recorder.kill()

    def finishing(self):
        self.record(self.chance.uniform(0.05, 0.9))
        self.die_at_a_call(12, "stop")
        self.gone_by(3)

    def renaming(self):
        self.record(self.chance.uniform(0.05, 0.9))
        if self.chance.random() < 0.5:
            self.die_at_a_call(1, "stop", RENAME)
        else:
            self.recorder.tell("stop")
            self.recorder.wait("finished")
            self.die_at_a_call(1, f"rename {self.take}\t{self.recordings}/take_Ben Ford.m4a", RENAME)
        self.gone_by(10)

    def recovering(self):
        self.record(self.chance.uniform(0.05, 0.9))
        self.recorder.kill()
        samples = self.recorder.samples()
        self.recorder = self.start()
        if self.chance.random() < 0.7:
            self.die_at_a_call(10, f"recover {self.recordings}")
            self.gone_by(3)
        else:
            self.recorder.tell(f"recover {self.recordings}")
            time.sleep(self.chance.uniform(0, 0.05))
            self.recorder.kill()
        self.recorder.samples = lambda: samples

    # What is left

    def files(self):
        return [path for path in self.recordings.iterdir() if path.suffix == ".m4a"]

    def look(self):
        """Before any recovery: does it play, and how much of it."""
        found = self.files()
        if found:
            self.kept = decoded_samples(found[0])

    def recover(self):
        recorder = self.start()
        recorder.tell(f"recover {self.recordings}")
        recorder.wait("recovered")
        recorder.end()

    def leftovers(self):
        beside = [path for path in self.recordings.iterdir() if path not in self.files() or not path.stat().st_size]
        remembered = self.root / "state/kest/unfinished-recordings"
        return beside + (list(remembered.iterdir()) if remembered.exists() else [])

    def judge(self, seen):
        worth_keeping = self.captured > MOST_LOST * RATE
        lost = seconds_lost(self.captured, self.kept or 0)
        left = [path.name for path in self.leftovers()]
        files = self.files()
        after = decoded_samples(files[0]) if len(files) == 1 and not left else None
        said = f"{self.state}, seed {self.seed}, {self.captured} samples captured: "
        if worth_keeping and self.kept is None:
            seen.failures.append(said + "not playable before the next start")
        elif left:
            seen.failures.append(said + f"left over: {left}")
        elif len(files) > 1 or (worth_keeping and not files):
            seen.failures.append(said + f"files afterwards: {[path.name for path in files]}")
        elif files and (after is None or not is_ordinary(files[0])):
            seen.failures.append(said + "not an ordinary file after the next start")
        elif files:
            lost = max(lost, seconds_lost(self.captured, after))
        if worth_keeping and lost > MOST_LOST:
            seen.failures.append(said + f"{lost:.3f} s lost")
        seen.leftovers += len(left)
        return lost


def one(context, number):
    seed = context.seed + number
    victim = Victim(context, STATES[number % len(STATES)], random.Random(seed))
    victim.seed = seed
    victim.kill()
    victim.look()
    victim.recover()
    seen = Seen(runs=1)
    lost = victim.judge(seen)
    if not seen.failures:
        shutil.rmtree(victim.root)
    return seen, lost


def run(context, runs):
    context.start_sound("pulseaudio")
    seen, losses = context.gather(one, runs)
    seen.worst = f"{max(losses):.3f} s lost"
    return seen


ROWS = [Row("killed", "kill -9 at a random moment: " + ", ".join(STATES), "all playable, at most 0.25 s lost, no file lost, "
            "nothing left over", 18, 1002, run)]
