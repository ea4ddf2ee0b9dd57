"""A Debian as it is right after its installation, in a folder, thrown away afterwards.

Needs root and mount and process namespaces of its own (packaging/test-package makes them), so that nothing stays mounted
and nothing goes on running.
"""

import hashlib
import os
import re
import shutil
import subprocess
import time
from pathlib import Path

DEVICES = ("null", "zero", "full", "random", "urandom", "tty")
PERSON = "anna"


def run(argv, **options):
    """Runs a command to its end and returns its output; raises with its last words when it failed."""
    done = subprocess.run([str(word) for word in argv], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          stdin=subprocess.DEVNULL, **options)
    if done.returncode:
        raise RuntimeError(f"{' '.join(map(str, argv[:6]))} … ended with {done.returncode}:\n{done.stdout[-3000:]}")
    return done.stdout


class FreshRoot:
    """`cache` keeps what was fetched and unpacked, for a day; `work` holds this root.

    `packages` are there already, as on a computer that is in use; without them it is the bare system.
    """

    def __init__(self, cache, work, packages=()):
        self.cache = cache
        self.work = work
        self.path = work / "root"
        self.packages = sorted(packages)

    def make(self):
        bare = self._kept("bare", self._bootstrap)
        layers = [bare]
        if self.packages:
            name = "with-" + hashlib.sha256(" ".join(self.packages).encode()).hexdigest()[:12]
            layers.insert(0, self._kept(name, lambda folder: self._unpack_packages(folder, bare), onto=bare))
        shutil.rmtree(self.work, ignore_errors=True)
        self._mount(layers, self.work / "upper")

    def _kept(self, name, fill, onto=None):
        """A folder of the cache, filled anew when it is older than a day, or than what it lies on, or half done."""
        folder, done = self.cache / name, self.cache / f"{name}.done"
        oldest = max(time.time() - 24 * 3600, onto.with_name(f"{onto.name}.done").stat().st_mtime if onto else 0)
        if not done.exists() or done.stat().st_mtime < oldest:
            done.unlink(missing_ok=True)
            shutil.rmtree(folder, ignore_errors=True)
            folder.mkdir(parents=True)
            fill(folder)
            done.touch()
        return folder

    def _bootstrap(self, folder):
        sources = package_sources()
        _, uri, suite, components = sources[0]
        run(["debootstrap", "--variant=minbase", f"--components={components}", suite, folder, uri])
        # It may leave these mounted, which would be in the way of the next rmtree.
        for name in ("proc", "sys"):
            subprocess.run(["umount", "--lazy", folder / name], stderr=subprocess.DEVNULL, check=False)
        configure(folder, sources)
        path, self.path = self.path, folder
        self.run(["apt-get", "update", "-q"])
        self.run(["useradd", "--create-home", "--shell", "/bin/sh", PERSON])
        self.path = path

    def _unpack_packages(self, folder, bare):
        self._mount([bare], folder)
        self.install(*self.packages)
        run(["umount", "--recursive", self.path])

    def _mount(self, layers, upper):
        overlay = upper.with_name(upper.name + ".overlay")
        for part in (self.path, upper, overlay):
            part.mkdir(parents=True, exist_ok=True)
        lower = ":".join(map(str, layers))
        run(["mount", "-t", "overlay", "overlay", "-o", f"lowerdir={lower},upperdir={upper},workdir={overlay}", self.path])
        self._mount_kernel()
        archives = self.cache / "archives"
        archives.mkdir(exist_ok=True)
        self.share(archives, "/var/cache/apt/archives")

    def _mount_kernel(self):
        run(["mount", "-t", "proc", "proc", self.path / "proc"])
        run(["mount", "-t", "tmpfs", "-o", "mode=755", "tmpfs", self.path / "dev"])
        for name in DEVICES:
            (self.path / "dev" / name).touch()
            run(["mount", "--bind", f"/dev/{name}", self.path / "dev" / name])
        for name, options in (("shm", "mode=1777"), ("pts", "newinstance,ptmxmode=0666,mode=620")):
            (self.path / "dev" / name).mkdir()
            run(["mount", "-t", {"shm": "tmpfs", "pts": "devpts"}[name], "-o", options, name, self.path / "dev" / name])
        (self.path / "dev/ptmx").symlink_to("pts/ptmx")
        (self.path / "dev/fd").symlink_to("/proc/self/fd")
        for folder, mode in (("tmp", "1777"), ("run", "755")):
            run(["mount", "-t", "tmpfs", "-o", f"mode={mode}", "tmpfs", self.path / folder])

    def share(self, folder, inside, read_only=False):
        """Makes a folder of this computer seen inside."""
        target = self.path / inside.lstrip("/")
        target.mkdir(parents=True, exist_ok=True)
        run(["mount", "--bind", folder, target])
        if read_only:
            run(["mount", "-o", "remount,bind,ro", target])

    # What runs inside

    def command(self, argv, person=False):
        user = ["--userspec", f"{PERSON}:{PERSON}"] if person else []
        home = f"/home/{PERSON}" if person else "/root"
        return ["chroot", *user, str(self.path), "env", "-i", f"HOME={home}", "LANG=C.UTF-8", "PYTHONDONTWRITEBYTECODE=1",
                "PATH=/usr/local/bin:/usr/bin:/bin:/usr/sbin:/sbin", "DEBIAN_FRONTEND=noninteractive", "TERM=dumb",
                *map(str, argv)]

    def run(self, argv, person=False, **options):
        return run(self.command(argv, person), **options)

    def install(self, *packages, recommends=False):
        """Names, or .deb files that lie in this root."""
        wish = ["-o", "APT::Install-Recommends=true"] if recommends else []
        return self.run(["apt-get", "install", "-y", "-q", *wish, *packages])

    def files(self):
        """Every path but what belongs to the kernel, to people, to apt's own caches and to logs."""
        left_out = ("proc", "dev", "tmp", "run", "home", "sys", "mnt", "root", "var/cache", "var/log", "var/lib/apt",
                    "var/lib/dpkg")
        found = set()
        for folder, names, others in os.walk(self.path):
            place = os.path.relpath(folder, self.path)
            names[:] = [name for name in names if os.path.normpath(os.path.join(place, name)) not in left_out]
            found.update(os.path.normpath(os.path.join(place, name)) for name in (*names, *others))
        return found


def configure(folder, sources):
    """Has a bare system fetch packages as this computer does, and start no services."""
    etc = folder / "etc"
    (etc / "apt/sources.list").write_text("".join(f"{' '.join(source)}\n" for source in sources))
    (etc / "apt/apt.conf.d/90fresh-root").write_text(
        'APT::Sandbox::User "root";\nAPT::Install-Recommends "false";\n' + host_settings())
    (etc / "dpkg/dpkg.cfg.d").mkdir(exist_ok=True)
    (etc / "dpkg/dpkg.cfg.d/90fresh-root").write_text("force-unsafe-io\n")
    policy = folder / "usr/sbin/policy-rc.d"
    policy.write_text("#!/bin/sh\nexit 101\n")
    policy.chmod(0o755)
    for name in ("resolv.conf", "hosts"):
        shutil.copyfile(f"/etc/{name}", etc / name)


def package_sources():
    """This computer's own Debian sources as (deb, URI, suite, components), the release itself first."""
    listed = run(["apt-get", "indextargets", "--format", "$(ORIGIN)|$(REPO_URI)|$(RELEASE)|$(COMPONENT)",
                  "Created-By: Packages"])
    found = []
    for line in listed.splitlines():
        origin, uri, suite, component = line.split("|")
        if origin == "Debian" and component == "main" and ("deb", uri, suite, "main") not in found:
            found.append(("deb", uri, suite, "main"))
    if not found:
        raise RuntimeError("apt knows no Debian sources here; run apt-get update first")
    return sorted(found, key=lambda source: len(source[2]))


def host_settings():
    """What this computer's apt needs to reach its sources."""
    lines = run(["apt-config", "dump"]).splitlines()
    return "".join(f"{line}\n" for line in lines if re.match(r"Acquire::.*(Proxy|Check-Valid-Until|Check-Date)", line))
