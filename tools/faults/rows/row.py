"""What a row of the table is, and what a run of it has seen."""

import dataclasses
import time
from collections.abc import Callable


class NotHere(Exception):
    """This machine refuses what the fault takes, in words."""


@dataclasses.dataclass
class Seen:
    """What the runs of one row showed."""

    runs: int = 0
    worst: str = ""  # The worst figure, in words: "0.14 s lost".
    leftovers: int = 0  # Files that should not be there.
    failures: list = dataclasses.field(default_factory=list)  # One sentence for each run that missed the bar.
    seconds: float = 0.0

    def add(self, other, where=""):
        """What other runs showed, too; `where` says of its failures which ones those were."""
        self.runs += other.runs
        self.leftovers += other.leftovers
        self.failures += [f"{where}: {failure}" if where else failure for failure in other.failures]


@dataclasses.dataclass
class Row:
    """`run(context, runs)` gives a Seen; `short` and `long` are how often each version runs it, null for not at all."""

    name: str
    fault: str
    bar: str
    short: int
    long: int
    run: Callable
    needs_mounts: bool = False  # Wants to mount file systems of its own.

    def measured(self, context, runs):
        began = time.monotonic()
        seen = self.run(context, runs)
        seen.seconds = time.monotonic() - began
        return seen
