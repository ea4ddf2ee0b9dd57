"""Says what is being done, numbered, with the time that it took."""

import time


class Progress:

    def __init__(self, total):
        self.total = total
        self.number = 0

    def __call__(self, what, action):
        self.number += 1
        print(f"[{self.number:2}/{self.total}] {what} ", end="", flush=True)
        begin = time.monotonic()
        try:
            result = action()
        except Exception:
            print("– FAILED", flush=True)
            raise
        print(f"– {time.monotonic() - begin:.1f} s", flush=True)
        return result
