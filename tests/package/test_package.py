#!/usr/bin/python3
"""The Debian package on a fresh Debian; packaging/test-package calls it: test_package.py --package FILE.deb."""

import argparse
import os
import shutil
import subprocess
import sys
import traceback
from pathlib import Path

here = Path(__file__).resolve().parent
source = here.parent.parent
sys.path.insert(0, str(here.parent / "support"))

from fresh_root import PERSON, FreshRoot, run  # noqa: E402
from older_package import LEFT_OUT_SINCE, VERSION, make_older  # noqa: E402
from progress import Progress  # noqa: E402

# They check the tree, not the installed program.
NOT_INSIDE = {"nodejs", "npm", "appstream", "desktop-file-utils", "man-db"}


class PackageTest:
    """One run; the steps stand in `run`."""

    def __init__(self, package, work):
        self.package = package
        self.work = work
        self.output = work / "output"
        self.root = FreshRoot(work / "cache", work / "bare")
        self.version = run(["dpkg-deb", "--field", package, "Version"]).strip()

    def run(self):
        step = Progress(10)
        step("lintian has nothing to say", self.check_lintian)
        step("Programs and plug-ins are hardened", self.check_hardening)
        step("A fresh Debian", self.make_root)
        step("The package installs with its dependencies alone, and they are complete", self.install_alone)
        step("The smoke test, with what it declares", self.smoke)
        step("A desktop with what it recommends, and what the main job is done with", self.make_desktop)
        step("The main job, by a person without privileges", self.main_job)
        step("Purge leaves nothing behind", self.purge)
        step(f"An upgrade from {VERSION} under a Kest that is recording", self.upgrade)
        step("Purge leaves nothing behind of that either", self.purge)

    def check_lintian(self):
        changes = next(self.package.parent.glob(f"kest_{self.version}_*.changes"))
        self.note("lintian.txt", run(["lintian", "--allow-root", "--profile", "debian", "--fail-on", "error,warning",
                                      "--display-info", changes]))

    def check_hardening(self):
        folder = self.work / "unpacked"
        shutil.rmtree(folder, ignore_errors=True)
        run(["dpkg-deb", "--extract", self.package, folder])
        commands = next(self.package.parent.glob("kest/obj-*/compile_commands.json"))
        self.note("hardening.txt", run([sys.executable, here / "check_hardening.py", folder, commands]))

    def make_root(self):
        self.root.make()
        self._share_folders()

    def _share_folders(self):
        self.root.share(source, "/mnt/kest", read_only=True)
        uid = int(self.root.run(["id", "-u", PERSON]))
        for folder in (self.work / "packages", self.output / "inside"):
            folder.mkdir(parents=True, exist_ok=True)
            os.chown(folder, uid, uid)
        self.root.share(self.output / "inside", "/mnt/output")
        self.root.share(self.work / "packages", "/mnt/packages")
        shutil.copy(self.package, self.work / "packages" / "kest.deb")
        shutil.copy(make_older(self.package, self.work), self.work / "packages" / "older.deb")

    def install_alone(self):
        self.note("install.txt", self.root.install("/mnt/packages/kest.deb"))
        installed = self.root.run(["dpkg", "--listfiles", "kest"]).split("\n")
        self.note("files.txt", "\n".join(installed))
        programs = [path for path in installed if self._is_elf(path)]
        libraries = self.root.run(["ldd", *programs])
        missing = [line for line in libraries.splitlines() if "not found" in line]
        if len(programs) != 6 or missing:
            raise RuntimeError(f"{programs} miss {missing}")

    def _is_elf(self, path):
        file = self.root.path / path.lstrip("/")
        return file.is_file() and not file.is_symlink() and file.open("rb").read(4) == b"\x7fELF"

    def smoke(self):
        declared = next(line for line in (source / "packaging/debian/tests/control").read_text().splitlines()
                        if line.startswith("Depends:"))
        self.root.install(*[name.strip() for name in declared.removeprefix("Depends:").split(",") if name.strip() != "@"])
        self.note("smoke.txt", self.root.run(["/mnt/kest/packaging/debian/tests/smoke"], person=True, timeout=120))

    def make_desktop(self):
        lines = (source / "packaging/packages/test").read_text().splitlines()
        tools = [line for line in lines if line and not line.startswith("#") and line not in NOT_INSIDE]
        self.root = FreshRoot(self.work / "cache", self.work / "desktop", tools + self._recommended())
        self.root.make()
        self._share_folders()
        self.root.install("/mnt/packages/kest.deb")
        self.root.run(["dpkg", "--purge", "kest"])  # what it depends on stays
        self.before = self.root.files()
        if any("kest" in path.lower() for path in self.before):
            raise RuntimeError("a first purge left something behind")
        self.root.install("/mnt/packages/kest.deb")

    def _recommended(self):
        """The first choice of each."""
        wishes = run(["dpkg-deb", "--field", self.package, "Recommends"]).split(",")
        return [wish.split("|")[0].split("(")[0].strip() for wish in wishes]

    def main_job(self):
        self.note("main-job.txt", self.root.run(
            ["/usr/bin/python3", "/mnt/kest/tests/endtoend/main_job.py", "--installed", "--output", "/mnt/output/main-job"],
            person=True, timeout=400))

    def purge(self):
        self.root.run(["dpkg", "--purge", "kest"])
        changed = sorted(self.root.files() ^ self.before)
        if changed:
            raise RuntimeError(f"left behind or taken along: {changed}")

    def upgrade(self):
        self.root.install("/mnt/packages/older.deb")
        person = subprocess.Popen(
            self.root.command(["/usr/bin/python3", "/mnt/kest/tests/package/upgrade_inside.py", VERSION, self.version],
                              person=True),
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=open(self.output / "upgrade.txt", "w"), text=True)
        try:
            self._expect(person, "upgrade now")
            self.root.install("/mnt/packages/kest.deb")
            if (self.root.path / LEFT_OUT_SINCE).exists():
                raise RuntimeError(f"{LEFT_OUT_SINCE} is still there")
            person.stdin.write("go on\n")
            person.stdin.flush()
            self._expect(person, "used")
        finally:
            person.kill()
            person.wait()

    def _expect(self, person, word):
        said = person.stdout.readline().strip()
        if said != word:
            raise RuntimeError(f"expected “{word}”, got “{said}”:\n{(self.output / 'upgrade.txt').read_text()[-3000:]}")

    def note(self, name, words):
        (self.output / name).write_text(words)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--package", type=Path, required=True)
    options = parser.parse_args()
    work = source / "build" / "package-test"
    shutil.rmtree(work / "output", ignore_errors=True)
    (work / "output").mkdir(parents=True)
    try:
        PackageTest(options.package.resolve(), work).run()
    except Exception:
        traceback.print_exc()
        print(f"\nIt did not work. Logs and pictures so far: {work / 'output'}", file=sys.stderr)
        return 1
    print(f"\nThe package is good. Logs and pictures: {work / 'output'}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
