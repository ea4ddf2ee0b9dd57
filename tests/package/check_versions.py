#!/usr/bin/python3
"""The version and its day are the same wherever they must be written down: check_versions.py SOURCE BUILD."""

import json
import re
import sys
import zipfile
from email.utils import parsedate_to_datetime
from pathlib import Path
from xml.etree import ElementTree


def first(pattern, path):
    found = re.search(pattern, path.read_text(encoding="utf-8"), re.MULTILINE)
    return found.group(1) if found else f"nothing like {pattern}"


def versions(source, build):
    """Where it stands, and what stands there; the first is the truth."""
    yield "CMakeLists.txt", first(r"^project\(kest VERSION (\S+)", source / "CMakeLists.txt")
    yield "CHANGELOG.md", first(r"^## .*?(\d+\.\d+\.\d+)", source / "CHANGELOG.md")
    yield "packaging/debian/changelog", first(r"^kest \((\S+?)\)", source / "packaging/debian/changelog")
    with zipfile.ZipFile(build / "kest-thunderbird.xpi") as addon:
        yield "the add-on's manifest", json.loads(addon.read("manifest.json"))["version"]
    yield "the metainfo", newest_release(build).get("version")
    yield "the manual page", first(r'"Kest (\S+)"', build / "packaging/kest.1")


def dates(source, build):
    stamp = parsedate_to_datetime(first(r"^ -- .*>  (.*)$", source / "packaging/debian/changelog"))
    yield "packaging/debian/changelog", stamp.date().isoformat()
    yield "the metainfo", newest_release(build).get("date")
    yield "the manual page", first(r'^\.TH KEST 1 "(\S+)"', build / "packaging/kest.1")


def newest_release(build):
    return ElementTree.parse(build / "packaging/org.kest.Kest.metainfo.xml").find("releases/release")


def differing(pairs):
    pairs = list(pairs)
    (truth_place, truth), *others = pairs
    return [f"{place} says {text}, {truth_place} {truth}" for place, text in others if text != truth]


def main():
    source, build = map(Path, sys.argv[1:])
    problems = differing(versions(source, build)) + differing(dates(source, build))
    print("\n".join(problems) or "The same everywhere.")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
