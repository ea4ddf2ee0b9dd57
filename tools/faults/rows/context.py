"""What all rows share: the build, a sandbox with services, workers side by side."""

import concurrent.futures
import random
import tempfile
from pathlib import Path

from services.base import Sandbox
from services.sound import SoundServer

from .row import Seen

BABBLE = 20  # seconds of noise, spoken again and again


class Context:
    """Used as a context manager; each row gets one of its own."""

    def __init__(self, build, workers, seed, keep=False):
        self.build = Path(build)
        self.workers = workers
        self.seed = seed
        self.keep = keep

    def __enter__(self):
        self.sandbox = Sandbox(keep=self.keep)
        self.sound = None
        self.bus = None
        return self

    def __exit__(self, *_exc):
        if self.sound:
            self.sound.close()
        self.sandbox.close()

    def another(self):
        """A context like this one, with a sandbox of its own."""
        return Context(self.build, 1, self.seed, self.keep)

    def folder(self, name):
        """A fresh folder that nobody else uses."""
        place = self.sandbox.root / "runs"
        place.mkdir(exist_ok=True)
        return Path(tempfile.mkdtemp(prefix=f"{name}-", dir=place))

    def start_sound(self, kind):
        """A sound server whose microphone hears noise, so that there is something to encode."""
        if kind == "pipewire":
            self.start_bus()
        self.sound = SoundServer(self.sandbox, kind)
        self.sound.microphone.hum(random.Random(1).randbytes(2 * 44100 * BABBLE))
        return self.sound

    def start_bus(self):
        """A session bus, if there is none yet."""
        from services.bus import SessionBus
        self.bus = self.bus or SessionBus(self.sandbox)

    def stop_sound(self):
        """Another server may be started afterwards."""
        self.sound.close()
        self.sound = None

    def start_desktop(self):
        """A display, the accessibility bus and a person who works the windows."""
        from services.bus import AccessibilityBus
        from services.display import Display
        from services.operator import Operator
        self.start_bus()
        Display(self.sandbox)
        AccessibilityBus(self.sandbox)
        self.person = Operator(self.sandbox)

    def start_kest(self):
        """The program, not started yet; `start_desktop` comes first."""
        from kest_program import KestProgram
        return KestProgram(self.sandbox, self.person, self.build)

    def gather(self, one, runs):
        """Does one(context, number) `runs` times, some side by side. All that was seen, and the list of the figures."""
        whole, figures = Seen(), []

        def safely(number):
            try:
                return one(self, number)
            except Exception as problem:  # a run that comes to nothing is a run that missed the bar
                return Seen(runs=1, failures=[f"run {number}: {type(problem).__name__}: {problem}"]), 0.0
        with concurrent.futures.ThreadPoolExecutor(self.workers) as pool:
            for seen, figure in pool.map(safely, range(runs)):
                whole.add(seen)
                figures.append(figure)
        return whole, figures
