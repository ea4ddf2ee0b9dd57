"""A private sound server, PulseAudio or PipeWire, with a virtual microphone as its default source.

The microphone is a FIFO (`module-pipe-source`, or PipeWire's pipe tunnel): what is written into it is what the microphone
hears. A reader stays attached to every source, or stale audio would pile up in the FIFO and reach the next recording late.
"""

import json
import re
import shutil
import signal
import socket
import subprocess
from pathlib import Path

from .base import ServiceError, wait_until
from .microphone import Microphone
from .soundcontrol import SoundControl

MICROPHONE = "kest_microphone"
MICROPHONE_DESCRIPTION = "Built-in Microphone"
PIPEWIRE_FORMATS = {"s16le": "S16LE", "float32le": "F32LE"}


class Source:
    """One virtual microphone: its FIFO, what makes it of it (a module or a process) and the reader that keeps it running."""

    def __init__(self, name, description, channels, rate, fifo):
        self.name = name
        self.description = description
        self.channels = channels
        self.rate = rate
        self.fifo = fifo
        self.module = None
        self.process = None
        self.reader = None


class SoundServer:
    """A sound server of the given kind ("pulseaudio" or "pipewire"; the latter needs a session bus in the sandbox).

    Adds to the sandbox's environment PULSE_SERVER, KEST_TEST_SOUND (the kind), KEST_TEST_MICROPHONE_FIFO and
    KEST_TEST_SOUND_CONTROL (a Unix socket that takes the operations below as lines of JSON; see soundcontrol.py).

    `microphone` feeds the default source in real time: silence, or what `play` is given.
    """

    def __init__(self, sandbox, kind, microphone=True):
        if kind not in ("pulseaudio", "pipewire"):
            raise ValueError(kind)
        self.sandbox = sandbox
        self.kind = kind
        self.folder = sandbox.root / "sound"
        self.folder.mkdir(exist_ok=True)
        self.address = sandbox.runtime / "pulse" / "native"
        self.console = self.folder / "console"
        self.sources = {}
        self.processes = []
        sandbox.env.update(PULSE_SERVER=f"unix:{self.address}", KEST_TEST_SOUND=kind,
                           PULSE_COOKIE=str(self.folder / "cookie"), PULSE_RUNTIME_PATH=str(sandbox.runtime / "pulse"),
                           PULSE_STATE_PATH=str(self.folder))
        self.start()
        self.microphone = None
        if microphone:
            source = self.add_source(MICROPHONE, MICROPHONE_DESCRIPTION)
            self.set_default(source.name)
            sandbox.env["KEST_TEST_MICROPHONE_FIFO"] = str(source.fifo)
            self.microphone = Microphone(source.fifo, source.channels, source.rate)
        self.control = SoundControl(self, self.folder / "control")
        sandbox.env["KEST_TEST_SOUND_CONTROL"] = str(self.control.path)

    # The server's life

    def start(self):
        """Starts the server, with no microphone yet; after `kill` it comes back without the old ones."""
        self.address.parent.mkdir(parents=True, exist_ok=True)
        self.address.unlink(missing_ok=True)
        if self.kind == "pulseaudio":
            self._start_pulseaudio()
        else:
            self._start_pipewire()
        wait_until(self._answers, f"{self.kind} to answer")
        if self.kind == "pipewire":
            # Before its session manager is there, PipeWire names a default source that does not exist.
            wait_until(lambda: self.default_source() not in ("", "@DEFAULT_SOURCE@"), "the session manager")

    def restart_with_microphone(self):
        """After `kill`: the server and its default microphone are back."""
        self.start()
        source = self.add_source(MICROPHONE, MICROPHONE_DESCRIPTION)
        self.set_default(source.name)

    def kill(self):
        """The server dies at once, as in a crash."""
        for process in self.processes:
            self._end(process)
        self.processes = []
        for source in self.sources.values():
            if source.process:
                self._end(source.process)
            if source.reader:
                self.sandbox.stop(source.reader)
        self.sources = {}

    def stall(self):
        """The server stops to answer but stays connected."""
        for process in self.processes:
            process.send_signal(signal.SIGSTOP)

    def resume(self):
        """Ends a stall."""
        for process in self.processes:
            process.send_signal(signal.SIGCONT)

    # Sources

    def add_source(self, name, description, channels=1, rate=44100, sample_format="s16le"):
        """A new microphone that hears what is written into its FIFO (signed 16 bit or 32-bit float, interleaved)."""
        fifo = self.folder / f"{name}.fifo"
        fifo.unlink(missing_ok=True)
        source = Source(name, description, channels, rate, fifo)
        if self.kind == "pipewire":
            source.process = self._pipewire_microphone(source, sample_format)
        else:
            source.module = self._pactl(
                "load-module", "module-pipe-source", f"source_name={name}", f"file={fifo}", f"format={sample_format}",
                f"rate={rate}", f"channels={channels}",
                f"source_properties=\"device.description='{description}'\"").strip()
        wait_until(lambda: name in self.source_names() and fifo.exists(), f"the source {name}")
        source.reader = self.sandbox.start(
            "reader", ["parec", "--raw", f"--device={name}", "--latency-msec=20", f"--rate={rate}",
                       f"--format={sample_format}", f"--channels={channels}"], stdout=subprocess.DEVNULL)
        self.sources[name] = source
        return source

    def add_tunnel(self, name, delay):
        """A microphone on another computer, heard `delay` milliseconds late; the default one from now on. Gives its FIFO."""
        address, fifo = self.folder / f"{name}.socket", self.folder / f"{name}.fifo"
        modules = [f"module-native-protocol-unix auth-anonymous=1 socket={address}",
                   f"module-pipe-source source_name={name} file={fifo} format=s16le rate=44100 channels=1"]
        self.processes.append(self._pulseaudio(name, modules))
        wait_until(lambda: address.exists() and fifo.exists(), "the other computer")
        self._pactl("load-module", "module-tunnel-source", f"server=unix:{address}", f"source={name}",
                    f"source_name={name}", f"latency_msec={delay}", "rate=44100", "channels=1")
        wait_until(lambda: name in self.source_names(), f"the source {name}")
        self.set_default(name)
        return fifo

    def remove_source(self, name):
        """The microphone is unplugged."""
        source = self.sources.pop(name)
        if source.process:
            self._end(source.process)
            source.fifo.unlink(missing_ok=True)
            wait_until(lambda: name not in self.source_names(), f"the source {name} to go")
        else:
            self._pactl("unload-module", source.module)
        self.sandbox.stop(source.reader)

    def add_output(self, name):
        """A loudspeaker that nobody hears; it becomes the default one."""
        self._pactl("load-module", "module-null-sink", f"sink_name={name}", "rate=44100", "channels=1",
                    "format=float32le")
        wait_until(lambda: self._run("set-default-sink", name).returncode == 0, f"the output {name}")

    def set_default(self, name):
        """The person chooses another microphone."""
        self._pactl("set-default-source", name)
        wait_until(lambda: self.default_source() == name, f"{name} to be the default source")

    def mute(self, name, muted=True):
        """The person mutes a microphone in the desktop's sound settings."""
        self._pactl("set-source-mute", name, "1" if muted else "0")

    def suspend(self, name, suspended=True):
        self._pactl("suspend-source", name, "1" if suspended else "0")

    def rename(self, name, description):
        """Gives a source another description (PulseAudio only: PipeWire's protocol has no such request)."""
        if self.kind != "pulseaudio":
            raise ServiceError("only PulseAudio can rename a source")
        with socket.socket(socket.AF_UNIX) as console:
            console.connect(str(self.console))
            console.sendall(f"update-source-proplist {name} device.description=\"{description}\"\n".encode())
            console.shutdown(socket.SHUT_WR)
            while console.recv(4096):
                pass
        self.sources[name].description = description

    def move_recorders(self, name):
        """The person moves whoever records to another microphone, as the desktop's sound settings do."""
        readers = {source.reader.pid for source in self.sources.values()}
        for block in self._pactl("list", "source-outputs").split("Source Output #")[1:]:
            owner = re.search(r'application.process.id = "(\d+)"', block)
            if not owner or int(owner.group(1)) not in readers:
                self._pactl("move-source-output", block.split()[0], name)

    def force_rate(self, rate):
        """Has PipeWire's graph run at a rate, so that a source of that rate passes through unchanged."""
        if self.kind == "pipewire":
            self.sandbox.run(["pw-metadata", "-n", "settings", "0", "clock.force-rate", str(rate)])

    def source_names(self):
        return [line.split("\t")[1] for line in self._pactl("list", "short", "sources").splitlines()]

    def default_source(self):
        found = re.search(r"^Default Source: *(.*)$", self._pactl("info"), re.MULTILINE)
        return found.group(1).strip() if found else ""

    def recorders(self):
        """How many streams record, the attached readers left out."""
        listed = self._pactl("list", "short", "source-outputs").splitlines()
        readers = sum(1 for source in self.sources.values() if source.reader and source.reader.poll() is None)
        return len(listed) - readers

    def play(self, path):
        """Speaks a sound file into the default microphone and returns when its last sample went in."""
        self.microphone.play(path)

    def close(self):
        if self.microphone:
            self.microphone.close()
        self.control.close()
        self.kill()

    # Internals

    def _start_pulseaudio(self):
        self.console.unlink(missing_ok=True)
        modules = [f"module-native-protocol-unix auth-anonymous=1 socket={self.address}",
                   f"module-cli-protocol-unix socket={self.console}",
                   "module-rescue-streams"]
        self.processes = [self._pulseaudio("pulseaudio", modules)]

    def _pulseaudio(self, name, modules):
        command = ["pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1",
                   "--realtime=no", "--high-priority=no", "--log-target=stderr"]
        return self.sandbox.start(name, command + [f"--load={module}" for module in modules])

    def _start_pipewire(self):
        core = self.sandbox.runtime / "pipewire-0"
        core.unlink(missing_ok=True)
        # It remembers who was muted, and would mute the next test's microphones.
        shutil.rmtree(Path(self.sandbox.env["XDG_STATE_HOME"]) / "wireplumber", ignore_errors=True)
        environment = {"PIPEWIRE_RUNTIME_DIR": str(self.sandbox.runtime), "DISABLE_RTKIT": "1"}
        self.sandbox.env.update(environment)
        self.processes = [self.sandbox.start("pipewire", ["pipewire"])]
        wait_until(core.exists, "PipeWire's socket")
        self.processes += [self.sandbox.start("wireplumber", ["wireplumber"]),
                           self.sandbox.start("pipewire-pulse", ["pipewire-pulse"])]

    def _pipewire_microphone(self, source, sample_format):
        """A process that is the microphone, and is killed to unplug it.

        Not a module of pipewire-pulse: one that is unloaded while its thread for the samples is at work takes the server
        with it, now and then (seen with PipeWire 0.3.65).
        """
        position = ["MONO"] if source.channels == 1 else ["FL", "FR"]
        tunnel = {"tunnel.mode": "source", "pipe.filename": str(source.fifo), "audio.format": PIPEWIRE_FORMATS[sample_format],
                  "audio.rate": source.rate, "audio.channels": source.channels, "audio.position": position,
                  "stream.props": {"node.name": source.name, "node.description": source.description,
                                   "media.class": "Audio/Source", "device.icon-name": "audio-input-microphone"}}
        modules = [{"name": "libpipewire-module-rt", "args": {"nice.level": -11}, "flags": ["ifexists", "nofail"]},
                   *({"name": f"libpipewire-module-{name}"} for name in ("protocol-native", "client-node", "adapter")),
                   {"name": "libpipewire-module-pipe-tunnel", "args": tunnel}]
        libraries = {"audio.convert.*": "audioconvert/libspa-audioconvert", "support.*": "support/libspa-support"}
        configuration = source.fifo.with_suffix(".conf")
        # On lines of their own: PipeWire's reader ends a value by overwriting what follows it.
        configuration.write_text(json.dumps({"context.spa-libs": libraries, "context.modules": modules}, indent=1))
        return self.sandbox.start(f"microphone-{source.name}", ["pipewire", "-c", configuration])

    def _end(self, process):
        """At once, as in a crash."""
        if process.poll() is None:
            process.kill()
            process.wait()
        if process in self.sandbox.processes:
            self.sandbox.processes.remove(process)

    def _answers(self):
        dead = [process for process in self.processes if process.poll() is not None]
        if dead:
            name = dead[0].service_name
            raise ServiceError(f"{name} ended at once:\n{self.sandbox.log(name)}")
        if not self.address.exists():
            return False
        return self._run("info").returncode == 0

    def _run(self, *words):
        return subprocess.run(["pactl", *words], env={**self.sandbox.env, "LC_ALL": "C"}, capture_output=True,
                              text=True, timeout=60)

    def _pactl(self, *words):
        done = self._run(*words)
        if done.returncode:
            raise ServiceError(f"pactl {' '.join(words)}: {done.stderr.strip()}")
        return done.stdout
