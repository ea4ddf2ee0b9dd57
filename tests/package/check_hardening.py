#!/usr/bin/python3
"""Whether every program and library below a folder was built hardened: check_hardening.py FOLDER."""

import re
import subprocess
import sys
from pathlib import Path

# glibc's checked variants stand for _FORTIFY_SOURCE, __stack_chk_fail for -fstack-protector-strong. A program that calls
# nothing which could be checked shows neither, so ours are known to call some.
CHECKS = {
    "position independent": lambda words: "DYN (" in words,
    "read-only relocations": lambda words: "GNU_RELRO" in words,
    "bound at start": lambda words: re.search(r"BIND_NOW|FLAGS_1\).*NOW", words),
    "no executable stack": lambda words: re.search(r"GNU_STACK\s.*\n?.*\sRW\s", words),
    "stack protector": lambda words: "__stack_chk_fail" in words,
    "fortified": lambda words: re.search(r"__\w+_chk\b(?<!__stack_chk)", words),
}


def elf_files(folder):
    return sorted(path for path in Path(folder).rglob("*")
                  if path.is_file() and not path.is_symlink() and path.open("rb").read(4) == b"\x7fELF")


def missing(path):
    words = subprocess.run(["readelf", "--wide", "-h", "-l", "-d", "--dyn-syms", path], check=True, capture_output=True,
                           text=True, env={"LC_ALL": "C", "PATH": "/usr/bin:/bin"}).stdout
    return [name for name, holds in CHECKS.items() if not holds(words)]


def main():
    found = elf_files(sys.argv[1])
    for path in found:
        print(f"{path.relative_to(sys.argv[1])}: {', '.join(missing(path)) or 'hardened'}")
    return 0 if found and not any(map(missing, found)) else 1


if __name__ == "__main__":
    sys.exit(main())
