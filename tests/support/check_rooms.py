#!/usr/bin/python3
"""Checks who includes whom: lower rooms never know higher ones.

    check_rooms.py [SOURCE_ROOT]      prints every include that breaks a rule; status 1 when there is one
    check_rooms.py --prove            proves on made-up trees that each rule catches what it forbids
"""

import re
import sys
import tempfile
from pathlib import Path

INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"')
MODEL = "app (model half)"
PLATFORM_PARTS = ("platform/linux/sound", "platform/linux/mail", "platform/linux/desktop")

# Room by room: what it may include beside itself.
ALLOWED = {
    "platform": (),
    **{part: ("platform",) for part in PLATFORM_PARTS},
    "platform/linux": ("platform", *PLATFORM_PARTS),
    "audio": ("platform",),
    "mail": ("platform",),
    MODEL: ("platform",),
    "ui": ("platform", "audio", "mail", MODEL),
    "app": ("platform", "audio", "mail", MODEL, "ui"),
    "main": ("platform", "audio", "mail", MODEL, "ui", "app", "platform/linux", *PLATFORM_PARTS),
    "mailhost": (),
}


def model_half(source):
    """The files of the three libraries that are the model half of app, by their build file."""
    text = (source / "src/app/CMakeLists.txt").read_text()
    listed = re.findall(r"kest_library\(kest_(?:settings|keep|translations)\s+SOURCES(.*?)LINK", text, re.S)
    return {f"app/{name}" for part in listed for name in part.split()}


def room_of(path, model):
    """The room of a file named as includes name it ("ui/Alert.h"); None when it is none of ours."""
    if path == "app/main.cpp":
        return "main"
    if path in model:
        return MODEL
    for room in sorted(ALLOWED, key=len, reverse=True):
        if path.startswith(room + "/"):
            return room
    return None


def violations(source):
    model = model_half(source)
    files = [(file, file.relative_to(source / "src").as_posix()) for file in (source / "src").rglob("*")]
    files += [(file, file.relative_to(source).as_posix()) for file in (source / "mailhost").rglob("*")]
    for file, name in sorted(files):
        if file.suffix not in (".h", ".cpp"):
            continue
        room = room_of(name, model)
        for number, line in enumerate(file.read_text().splitlines(), 1):
            included = INCLUDE.match(line)
            other = room_of(included.group(1), model) if included else None
            if room is None or (other and other != room and other not in ALLOWED[room]):
                yield f"{name}:{number}: {room or 'a file in no room'} must not include {included.group(1)} ({other})"
                if room is None:
                    break


def prove():
    wrong = {
        "src/platform/A.h": "ui/B.h", "src/audio/A.h": "mail/B.h", "src/mail/A.cpp": "app/Settings.h",
        "src/app/Settings.cpp": "ui/B.h", "src/ui/A.cpp": "app/AppDelegate.h", "src/ui/B.cpp": "platform/linux/P.h",
        "src/app/AppDelegate.cpp": "platform/linux/desktop/C.h", "src/platform/linux/sound/A.cpp": "platform/linux/mail/B.h",
        "src/platform/linux/P.cpp": "mail/B.h", "mailhost/main.cpp": "mail/B.h",
    }
    right = {
        "src/app/main.cpp": "platform/linux/P.h", "src/ui/C.cpp": "app/Settings.h", "src/app/Application.cpp": "ui/B.h",
        "src/platform/linux/Q.cpp": "platform/linux/mail/B.h", "src/audio/B.cpp": "platform/A.h", "src/ui/D.cpp": "ui_D.h",
    }
    with tempfile.TemporaryDirectory() as folder:
        root = Path(folder)
        for name, include in {**wrong, **right}.items():
            (root / name).parent.mkdir(parents=True, exist_ok=True)
            (root / name).write_text(f'#pragma once\n#include "{include}"\n')
        (root / "src/app/CMakeLists.txt").write_text("kest_library(kest_settings\n SOURCES Settings.cpp Settings.h\n LINK x)")
        found = {line.split(":")[0] for line in violations(root)}
    expected = {name.removeprefix("src/") for name in wrong}
    for name in sorted(expected ^ found):
        print(f"{name}: {'not caught' if name in expected else 'caught, but allowed'}")
    return 1 if expected ^ found else 0


def main():
    if "--prove" in sys.argv:
        return prove()
    source = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).resolve().parents[2]
    found = list(violations(source))
    print("\n".join(found))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
