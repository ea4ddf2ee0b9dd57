#!/usr/bin/python3
"""Whether every program and library below a folder was built hardened.

    check_hardening.py FOLDER COMPILE_COMMANDS.json

What the compiler was told stands in the second: _FORTIFY_SOURCE leaves no trace where no buffer's size is known to it, the
stack protector none where no function has a stack.
"""

import json
import re
import subprocess
import sys
from pathlib import Path

CHECKS = {
    "position independent": lambda words: "DYN (" in words,
    "read-only relocations": lambda words: "GNU_RELRO" in words,
    "bound at start": lambda words: re.search(r"BIND_NOW|FLAGS_1\).*NOW", words),
    "no executable stack": lambda words: re.search(r"GNU_STACK\s.*\n?.*\sRW\s", words),
    "stack protector": lambda words: "__stack_chk_fail" in words,
}
WITHOUT_STACK = {"kest-pulse.so"}  # a table of functions
FLAGS = ("-O2", "-D_FORTIFY_SOURCE=2", "-fstack-protector-strong")


def elf_files(folder):
    return sorted(path for path in Path(folder).rglob("*")
                  if path.is_file() and not path.is_symlink() and path.open("rb").read(4) == b"\x7fELF")


def missing(path):
    words = subprocess.run(["readelf", "--wide", "-h", "-l", "-d", "--dyn-syms", path], check=True, capture_output=True,
                           text=True, env={"LC_ALL": "C", "PATH": "/usr/bin:/bin"}).stdout
    return [name for name, holds in CHECKS.items()
            if not holds(words) and (name != "stack protector" or path.name not in WITHOUT_STACK)]


def compiled_without(commands):
    """The source files that were compiled without one of the flags."""
    return [f"{entry['file']}: compiled without {flag}" for entry in json.loads(Path(commands).read_text())
            for flag in FLAGS if flag not in entry["command"].split()]


def main():
    found = elf_files(sys.argv[1])
    without = compiled_without(sys.argv[2])
    print("\n".join(without) or f"all compiled with {' '.join(FLAGS)}")
    for path in found:
        print(f"{path.relative_to(sys.argv[1])}: {', '.join(missing(path)) or 'hardened'}")
    return 0 if found and not without and not any(map(missing, found)) else 1


if __name__ == "__main__":
    sys.exit(main())
