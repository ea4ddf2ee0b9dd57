#!/usr/bin/python3
"""What programs tell over the accessibility bus as it happens: what a screen reader has to speak from.

As a program: prints each event of Kest as a line of JSON.
"""

import json
import sys
from dataclasses import dataclass
from pathlib import Path

KINDS = ("object:announcement", "object:state-changed", "object:property-change")


@dataclass(frozen=True)
class Event:
    """`kind` as in "object:state-changed:enabled"; `value` is its number, `text` its words where it has some."""

    kind: str
    name: str
    value: int
    text: str


class AccessibleEvents:
    """From a test's side: starts the listener, and looks at what it heard since `forget` was called last."""

    def __init__(self, sandbox):
        self.sandbox = sandbox
        self.forgotten = 0
        # -P: not to import our operator.py in place of Python's own.
        sandbox.start("accessible-events", ["/usr/bin/python3", "-P", Path(__file__).resolve()])

    def listens(self):
        return bool(self._lines())

    def forget(self):
        self.forgotten = len(self._lines())

    def heard(self):
        return [Event(**json.loads(line)) for line in self._lines()[max(1, self.forgotten):]]

    def announced(self):
        """The announcements' words, in order."""
        return [event.text for event in self.heard() if event.kind == "object:announcement"]

    def has(self, kind, name, value=None):
        return any(event.kind == kind and event.name == name and value in (None, event.value) for event in self.heard())

    def _lines(self):
        lines = self.sandbox.log("accessible-events").split("\n")
        return [line for line in lines[:-1] if line.startswith("{")]  # the last is not written to its end


def tell(event):
    try:
        program, name = event.host_application.name or "", event.source.name or ""
    except Exception:  # it may be gone by now
        return
    if program.lower() == "kest":
        text = event.any_data if isinstance(event.any_data, str) else ""
        print(json.dumps({"kind": str(event.type), "name": name, "value": event.detail1, "text": text}), flush=True)


def main():
    import pyatspi
    pyatspi.Registry.registerEventListener(tell, *KINDS)
    print(json.dumps({"kind": "listening", "name": "", "value": 0, "text": ""}), flush=True)
    pyatspi.Registry.start()


if __name__ == "__main__":
    sys.exit(main())
