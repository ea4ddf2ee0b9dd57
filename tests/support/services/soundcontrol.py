"""Lets a test in another process work its sound server: one JSON object a line, one answer a line.

    {"do": "remove_source", "name": "kest_microphone"}   ->   {"ok": true}
    {"do": "add_source", "name": "other", "description": "USB Mic", "channels": 2}   ->   {"ok": true, "fifo": "..."}
"""

import json
import socket
import threading


class SoundControl:
    """Serves the operations of one SoundServer on a Unix socket, one after the other.

    On one thread that lasts: a process started by a thread dies with that thread (see base.Sandbox.start).
    """

    def __init__(self, server, path):
        self.server = server
        self.path = path
        path.unlink(missing_ok=True)
        self.listener = socket.socket(socket.AF_UNIX)
        self.listener.bind(str(path))
        self.listener.listen(4)
        threading.Thread(target=self._accept, name="sound control", daemon=True).start()

    def close(self):
        self.listener.close()

    def _accept(self):
        while True:
            try:
                connection, _ = self.listener.accept()
            except OSError:
                return
            self._serve(connection)

    def _serve(self, connection):
        with connection, connection.makefile("rw", encoding="utf-8") as lines:
            for line in lines:
                try:
                    answer = {"ok": True, **(self._do(json.loads(line)) or {})}
                except Exception as error:  # whatever went wrong is the test's to report
                    answer = {"ok": False, "error": f"{type(error).__name__}: {error}"}
                lines.write(json.dumps(answer) + "\n")
                lines.flush()

    def _do(self, request):
        verb = request.pop("do")
        if verb == "add_source":
            source = self.server.add_source(**request)
            return {"fifo": str(source.fifo)}
        if verb == "add_tunnel":
            return {"fifo": str(self.server.add_tunnel(**request))}
        if verb == "recorders":
            return {"count": self.server.recorders()}
        if verb in ("hush", "play"):
            return getattr(self.server.microphone, verb)(**request)
        if verb in ("remove_source", "set_default", "mute", "suspend", "rename", "kill", "stall", "resume", "start",
                    "restart_with_microphone", "move_recorders", "force_rate"):
            return getattr(self.server, verb)(**request)
        raise ValueError(f"no operation {verb}")
