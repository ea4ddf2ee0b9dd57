#!/usr/bin/python3
"""Checks that a start of the program loads none of the libraries that are kept behind its plug-ins.

    check_linked.py PROGRAM            prints every one that it loads all the same; status 1 when there is one
    check_linked.py --prove PLUGIN...  proves that each plug-in would be caught
"""

import re
import subprocess
import sys

# The script engine, what it brings for networks, the codecs, and libpulse with what it brings for sound files.
BEHIND_PLUGINS = re.compile(
    r"\b(libQt6Qml|libQt6Network|libproxy|libgssapi_krb5|libavcodec|libavformat|libpulse|libsndfile)\.so")


def caught(file):
    loaded = subprocess.run(["ldd", file], check=True, capture_output=True, text=True).stdout
    return sorted(set(BEHIND_PLUGINS.findall(loaded)))


def main():
    if sys.argv[1] == "--prove":
        missed = [file for file in sys.argv[2:] if not caught(file)]
        print("\n".join(f"{file}: not caught" for file in missed))
        return 1 if missed else 0
    found = caught(sys.argv[1])
    print("\n".join(f"a start loads {library}" for library in found))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
