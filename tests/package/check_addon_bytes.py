#!/usr/bin/python3
"""The add-on's archive is the same, byte for byte, for the same sources: check_addon_bytes.py SOURCE BUILT.xpi VERSION."""

import shutil
import subprocess
import sys
import tempfile
from pathlib import Path


def main():
    source, built, version = Path(sys.argv[1]), Path(sys.argv[2]), sys.argv[3]
    with tempfile.TemporaryDirectory() as folder:
        # Another place, other times, other rights.
        shutil.copytree(source / "addon", Path(folder) / "addon", copy_function=shutil.copyfile,
                        ignore=shutil.ignore_patterns("node_modules"))
        for path in Path(folder).rglob("*.js"):
            path.chmod(0o700)
        again = Path(folder) / "again.xpi"
        subprocess.run([sys.executable, source / "packaging/pack_addon.py", "--version", version, "--icon",
                        source / "resources/icons/org.kest.Kest.svg", Path(folder) / "addon", again], check=True)
        same = again.read_bytes() == built.read_bytes()
    print("The same bytes." if same else f"{built} differs from what its sources give now.")
    return 0 if same else 1


if __name__ == "__main__":
    sys.exit(main())
