#!/usr/bin/python3
"""Packs the add-on into an .xpi, with the release's version in its manifest.

    pack_addon.py --version VERSION --icon FILE.svg SOURCE_FOLDER TARGET.xpi

The result depends on the sources alone: sorted names, one fixed date, fixed rights.
"""

import argparse
import os
import sys
import zipfile
from pathlib import Path

EPOCH = (1980, 1, 1, 0, 0, 0)
PARTS = (".js", ".json", ".svg", ".html", ".css")
NOT_SHIPPED = {"node_modules", "tests", "package.json", "package-lock.json"}


def sources(folder, icon):
    """Name in the archive, and file."""
    files = {path.relative_to(folder).as_posix(): path for path in folder.rglob("*")
             if path.is_file() and path.suffix in PARTS
             and not NOT_SHIPPED.intersection(path.relative_to(folder).parts)}
    return sorted({**files, "icon.svg": icon}.items())


def pack(folder, icon, version, target):
    temporary = target.with_suffix(".part")
    with zipfile.ZipFile(temporary, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as archive:
        for name, path in sources(folder, icon):
            entry = zipfile.ZipInfo(name, EPOCH)
            entry.external_attr = 0o100644 << 16
            entry.compress_type = zipfile.ZIP_DEFLATED
            data = path.read_bytes()
            if path.name == "manifest.json":
                data = data.replace(b"@VERSION@", version.encode())
            archive.writestr(entry, data)
    os.replace(temporary, target)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--version", required=True)
    parser.add_argument("--icon", type=Path, required=True)
    parser.add_argument("source", type=Path)
    parser.add_argument("target", type=Path)
    options = parser.parse_args()
    pack(options.source, options.icon, options.version, options.target)


if __name__ == "__main__":
    sys.exit(main())
