"""What all services share: a private home, child processes that are ended by id, waiting on conditions."""

import contextlib
import ctypes
import os
import shutil
import signal
import socket
import subprocess
import tempfile
import time
from pathlib import Path

PR_SET_PDEATHSIG = 1


def _die_with_parent():
    ctypes.CDLL(None).prctl(PR_SET_PDEATHSIG, signal.SIGKILL)


class ServiceError(RuntimeError):
    """A service did not start or did not do what it must."""


def wait_until(condition, what, seconds=60.0, every=0.01):
    """Returns the first true value of condition(); raises ServiceError naming `what` when the time is up."""
    deadline = time.monotonic() + seconds
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > deadline:
            raise ServiceError(f"gave up after {seconds:g} s waiting for {what}")
        time.sleep(every)


def repeat_until(action, condition, what, seconds=100.0, every=10.0):
    """Does something until condition() is true, again and again; returns its first true value.

    For what a window may lose that has just come, such as a key, and that does no harm when it is done twice.
    """
    deadline = time.monotonic() + seconds
    while True:
        action()
        with contextlib.suppress(ServiceError):
            return wait_until(condition, what, every, every=0.05)
        if time.monotonic() > deadline:
            raise ServiceError(f"gave up after {seconds:g} s waiting for {what}")


def free_port():
    """A TCP port on loopback that nobody listens on right now."""
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


class Sandbox:
    """A throw-away home with XDG folders and a runtime folder, and the processes started in it.

    `welcomed` is what Kest leaves at its first start; take it away to be welcomed.
    `env` is the environment for everything that runs in it; services add to it. Used as a context manager: at its end
    every process started here is ended by its id, last one first, and the folder is removed (kept when `keep`).
    """

    INHERITED = ("PATH", "KEST_BUILD_DIR", "KEST_SOURCE_DIR", "ASAN_OPTIONS", "UBSAN_OPTIONS", "TSAN_OPTIONS",
                 "LSAN_OPTIONS", "CI", "TERM")

    def __init__(self, root=None, keep=False):
        self.keep = keep
        # Short, because a Unix socket's path holds 107 bytes at most.
        self.root = Path(root) if root else Path(tempfile.mkdtemp(prefix="kest-", dir="/tmp"))
        self.home = self.root / "home"
        self.runtime = self.root / "run"
        self.logs = self.root / "logs"
        for folder in (self.home, self.runtime, self.logs):
            folder.mkdir(parents=True, exist_ok=True)
        self.runtime.chmod(0o700)
        self.env = {name: os.environ[name] for name in self.INHERITED if name in os.environ}
        self.env.update(
            LANG="C.UTF-8",  # Kest speaks the language of its environment; the tests look for its English names.
            HOME=str(self.home), XDG_RUNTIME_DIR=str(self.runtime),
            XDG_CONFIG_HOME=str(self.home / ".config"), XDG_DATA_HOME=str(self.home / ".local/share"),
            XDG_STATE_HOME=str(self.home / ".local/state"), XDG_CACHE_HOME=str(self.home / ".cache"),
            XDG_CONFIG_DIRS="/etc/xdg", XDG_DATA_DIRS="/usr/local/share:/usr/share",
            TMPDIR=str(self.root / "tmp"), NO_AT_BRIDGE="1", GIO_USE_VFS="local", GSETTINGS_BACKEND="memory",
            QT_QPA_PLATFORM="offscreen", DBUS_SESSION_BUS_ADDRESS="disabled:",
            DBUS_SYSTEM_BUS_ADDRESS="disabled:")
        for name in ("XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME", "TMPDIR"):
            Path(self.env[name]).mkdir(parents=True, exist_ok=True)
        # Most that runs here is for somebody who has used Kest before.
        self.welcomed = Path(self.env["XDG_STATE_HOME"]) / "kest" / "welcomed"
        self.welcomed.parent.mkdir(mode=0o700, exist_ok=True)
        self.welcomed.touch()
        self.processes = []
        self.at_close = []  # Called, last one first, before the processes are ended.

    def __enter__(self):
        return self

    def __exit__(self, *_exc):
        self.close()

    def start(self, name, argv, env=None, **options):
        """Starts a process that dies with this one; its output goes to logs/NAME.log unless told otherwise."""
        log = open(self.logs / f"{name}.log", "ab")
        options.setdefault("stdin", subprocess.DEVNULL)
        options.setdefault("stdout", log)
        options.setdefault("stderr", log)
        process = subprocess.Popen([str(word) for word in argv], env={**self.env, **(env or {})},
                                   preexec_fn=_die_with_parent, **options)
        log.close()
        process.service_name = name
        self.processes.append(process)
        return process

    def run(self, argv, seconds=60, env=None, **options):
        """Runs a command to its end and returns its standard output; raises with its words when it failed."""
        done = subprocess.run([str(word) for word in argv], env={**self.env, **(env or {})}, timeout=seconds,
                              capture_output=True, text=True, **options)
        if done.returncode:
            raise ServiceError(f"{argv[0]} ended with {done.returncode}: {done.stderr.strip() or done.stdout.strip()}")
        return done.stdout

    def stop(self, process, seconds=5):
        """Ends one process: asks first, then insists."""
        if process in self.processes:
            self.processes.remove(process)
        if process.poll() is None:
            with contextlib.suppress(ProcessLookupError):
                process.send_signal(signal.SIGCONT)
                process.terminate()
            try:
                process.wait(seconds)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait(5)

    def log(self, name):
        path = self.logs / f"{name}.log"
        return path.read_text(errors="replace") if path.exists() else ""

    def close(self):
        while self.at_close:
            self.at_close.pop()()
        for process in reversed(list(self.processes)):
            self.stop(process)
        if not self.keep:
            shutil.rmtree(self.root, ignore_errors=True)
