"""Killed at a random moment: what is left must play, and the next start must make an ordinary file of it."""

import random
import shutil
import time

from .driven import RATE, RENAME, Recorder
from .row import Row, Seen
from .sounding import NEAR, clicks, is_ordinary, misplaced, played, reference, samples_of, seconds_lost

MOST_LOST = 0.25  # seconds
LONGEST = 2.0  # seconds of a take
KINDS = ("pulseaudio", "pipewire")
DELAY = 1024  # samples of the coder's own at the beginning of a recording that was not finished
MORE = 2205  # Samples that a recording may have more than the clock says were spoken: a twentieth of a second.
FINISHING_CALLS, RECOVERING_CALLS = 9, 8  # Calls on files that each makes at least.
MET = 0.8  # The share of the chosen calls that must have come; where one does not, the run is an ordinary kill.
STATES = ("recording", "paused", "stopping", "finishing", "renaming", "recovering")


class Victim:
    """One recorder in a folder of its own, and the moment at which it is killed."""

    def __init__(self, context, state, chance):
        self.context, self.state, self.chance = context, state, chance
        self.root = context.folder(state)
        self.recordings = self.root / "Recordings"
        self.recordings.mkdir()
        self.take = self.recordings / "take.m4a"
        self.spoken = 0  # samples, also those that the program had not captured yet
        self.kept = None  # Samples that play before anything is recovered; None: no file, or one that does not play.
        self.met = None  # Whether the chosen call came; None where none was chosen.

    def start(self):
        return Recorder(self.context.sandbox, self.context.build, self.root)

    def kill(self):
        self.recorder = self.start()
        getattr(self, self.state)()
        self.spoken = self.recorder.spoken()

    def die_at_a_call(self, calls, command, kinds=63):
        """Tells the command and is gone before or after one of the next calls on files; at the latest soon after."""
        self.recorder.arm(self.chance.randint(1, calls), self.chance.random() < 0.5, kinds)
        self.recorder.tell(command)

    def record(self):
        self.recorder.tell(f"record {self.take}")
        self.recorder.wait_for_samples(int(self.chance.uniform(0.05, LONGEST) * RATE))

    def gone_by(self, seconds):
        """Gives the chosen call so long to come, then kills whatever it does."""
        self.met = self.recorder.is_gone_within(seconds)
        if not self.met:
            self.recorder.kill()

    # The moments

    def recording(self):
        if self.chance.random() < 0.5:
            self.die_at_a_call(30, f"record {self.take}")
            self.gone_by(3)
        else:
            self.recorder.tell(f"record {self.take}")
            time.sleep(self.chance.uniform(0, LONGEST))
            self.recorder.kill()

    def paused(self):
        self.record()
        self.recorder.tell("pause")
        time.sleep(self.chance.uniform(0, 0.5))
        self.recorder.kill()

    def stopping(self):
        self.record()
        self.recorder.tell("stop")
        time.sleep(self.chance.uniform(0, 0.06))
        self.recorder.kill()

    def finishing(self):
        self.record()
        self.die_at_a_call(FINISHING_CALLS, "stop")
        self.gone_by(3)

    def renaming(self):
        self.record()
        if self.chance.random() < 0.5:
            self.die_at_a_call(1, "stop", RENAME)
        else:
            self.recorder.tell("stop")
            self.recorder.wait("finished")
            self.die_at_a_call(1, f"rename {self.take}\t{self.recordings}/take_Ben Ford.m4a", RENAME)
        self.gone_by(10)

    def recovering(self):
        self.record()
        self.recorder.kill()
        spoken = self.recorder.spoken()
        self.look()
        self.recorder = self.start()
        if self.chance.random() < 0.7:
            self.die_at_a_call(RECOVERING_CALLS, f"recover {self.recordings}")
            self.gone_by(3)
        else:
            self.recorder.tell(f"recover {self.recordings}")
            time.sleep(self.chance.uniform(0, 0.05))
            self.recorder.kill()
        self.recorder.spoken = lambda: spoken

    # What is left

    def files(self):
        return [path for path in self.recordings.iterdir() if path.suffix == ".m4a"]

    def look(self):
        """Before any recovery, or between two: does it play, and how much of it at least."""
        if found := self.files():
            sound = played(found[0])
            delay = 0 if is_ordinary(found[0]) else DELAY
            self.kept = None if sound is None else max(len(sound) - delay, self.kept or 0)

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
        """Seconds lost: of what was spoken, before the next start or after it."""
        worth_keeping = self.spoken > MOST_LOST * RATE
        left = [path.name for path in self.leftovers()]
        files = self.files()
        after = played(files[0]) if len(files) == 1 and not left else None
        lost = max(seconds_lost(self.spoken, self.kept or 0), seconds_lost(self.spoken, len(after or [])))
        for wrong, words in ((worth_keeping and self.kept is None, "not playable before the next start"),
                             (left, f"left over: {left}"),
                             (len(files) > 1 or (not files and (worth_keeping or self.kept)),
                              f"files: {[path.name for path in files]}"),
                             (files and (after is None or not is_ordinary(files[0])), "not an ordinary file after the next start"),
                             (after is not None and len(after) < (self.kept or 0),
                              f"the next start has shortened it from {self.kept} to {len(after or [])}"),
                             (after is not None and len(after) > self.spoken + MORE, "longer than what was spoken"),
                             (worth_keeping and lost > MOST_LOST, f"{lost:.3f} s lost")):
            if wrong:
                seen.failures.append(f"{self.state}, seed {self.seed}, {self.spoken} samples spoken: {words}")
                break
        seen.leftovers += len(left)
        self.gaps = misplaced(after or [])
        return lost if worth_keeping else 0.0


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
    return seen, (lost, victim.met, [(seed, gap) for gap in victim.gaps])


def run(context, runs):
    seen, losses, chosen = Seen(), [], []
    for kind, share in zip(KINDS, ((runs + 1) // 2, runs // 2)):
        context.start_sound(kind).microphone.hum(clicks())
        heard = context.folder("reference") / "heard.raw"
        other = context.sandbox.start("reference", reference(heard))
        part, figures = context.gather(one, share)
        context.sandbox.stop(other)
        context.stop_sound()
        figures = [figure for figure in figures if figure]  # none of a run that came to nothing
        losses += [lost for lost, _met, _gaps in figures]
        chosen += [met for _lost, met, _gaps in figures if met is not None]
        seen.add(part, kind)
        # What every program misses is the server's.
        known = misplaced(samples_of(heard.read_bytes()))
        seen.failures += [f"{kind}, seed {seed}: clicks {gap} samples apart" for _lost, _met, gaps in figures for seed, gap in gaps
                          if not any(abs(gap - other) <= NEAR for other in known)]
    if sum(chosen) < MET * len(chosen):
        seen.failures.append(f"only {sum(chosen)} of {len(chosen)} chosen calls came")
    seen.worst = f"{max(losses, default=0):.3f} s lost"
    return seen


ROWS = [Row("killed", "kill -9 at a random moment: " + ", ".join(STATES), "all playable, at most 0.25 s lost of what was spoken, no "
            "file lost, nothing left over", 18, 1002, run)]
