"""Thunderbird's profiles: which one it opens, whether it runs, and the preferences that Kest needs in it."""

import configparser
import json
import os
import re
from pathlib import Path

BEGIN = "// Kest: lets Thunderbird load the add-on that lies in this profile."
END = "// End of Kest's lines."
# Bits of Thunderbird's AddonManager: 1 is the profile. Looked for there at start; not switched off when found there.
PREFS = {"extensions.startupScanScopes": 1, "extensions.autoDisableScopes": 14}


class ProfileError(Exception):
    """Something about the profile, in words."""


def roots():
    """The folders in which Thunderbirds of different packagings keep their profiles, the usual one first."""
    home = Path.home()
    config = Path(os.environ.get("XDG_CONFIG_HOME") or home / ".config")
    return [home / ".thunderbird", config / "thunderbird", config / ".thunderbird",
            home / "snap/thunderbird/common/.thunderbird", home / ".var/app/org.mozilla.Thunderbird/.thunderbird"]


def _read(path):
    parser = configparser.RawConfigParser(strict=False)
    parser.optionxform = str
    parser.read(path, encoding="utf-8")
    return parser


def _default_path(root):
    """What installs.ini or profiles.ini in that root call the default profile; None when there is none."""
    for name in ("installs.ini", "profiles.ini"):
        ini = _read(root / name)
        for section in ini.sections():
            if name == "installs.ini" or section.startswith("Install"):
                if ini.has_option(section, "Default"):
                    return root / ini.get(section, "Default")
    profiles = [section for section in ini.sections()
                if section.startswith("Profile") and ini.has_option(section, "Path")]
    chosen = next((section for section in profiles if ini.get(section, "Default", fallback="0") == "1"),
                  profiles[0] if len(profiles) == 1 else None)
    return root / ini.get(chosen, "Path") if chosen else None


def default_profile():
    """The profile that Thunderbird opens when it is simply started."""
    for root in roots():
        if root.is_dir():
            path = _default_path(root)
            if path and path.is_dir():
                return Profile(path)
    raise ProfileError("no Thunderbird profile was found; start Thunderbird once, or name the profile with --profile")


class ProfileInUse(ProfileError):
    """Thunderbird has it open."""


class Profile:
    """One profile's folder."""

    def __init__(self, path):
        if not path.is_dir():
            raise ProfileError(f"there is no folder {path}")
        self.path = path

    def is_running(self):
        """Whether a Thunderbird has it open: its lock names a process that lives."""
        try:
            owner = os.readlink(self.path / "lock")
        except OSError:
            return False
        pid = re.search(r"\+?(\d+)$", owner)
        if not pid:
            return True
        try:
            os.kill(int(pid.group(1)), 0)
        except ProcessLookupError:
            return False
        except PermissionError:
            pass
        return "thunderbird" in _command_of(int(pid.group(1)))

    def must_rest(self):
        if self.is_running():
            raise ProfileInUse("Thunderbird is running with this profile; quit it first, then try again")

    def must_be_reachable(self):
        if any(part in self.path.parts for part in ("snap", ".var")):
            raise ProfileError("a Thunderbird from Flatpak or Snap cannot start Kest's helper; "
                               "it needs one from Debian's packages")

    # user.js

    def _user_js(self):
        path = self.path / "user.js"
        return path, _text_of(path) if path.exists() else ""

    def has_prefs(self):
        return BEGIN in self._user_js()[1]

    def add_prefs(self):
        path, text = self._user_js()
        if BEGIN in text:
            return
        lines = "".join(f'user_pref("{name}", {value});\n' for name, value in PREFS.items())
        _write(path, text + ("\n" if text and not text.endswith("\n") else "") + f"{BEGIN}\n{lines}{END}\n")

    def drop_prefs(self):
        """Takes Kest's lines out of user.js, and what Thunderbird has copied of them out of prefs.js."""
        path, text = self._user_js()
        if BEGIN not in text:
            return
        rest = re.sub(re.escape(BEGIN) + r".*?" + re.escape(END) + r"\n?", "", text, flags=re.S)
        _write(path, rest) if rest.strip() or path.is_symlink() else path.unlink()
        prefs = self.path / "prefs.js"
        if prefs.exists():
            kept = [line for line in _text_of(prefs).splitlines(keepends=True)
                    if not any(line.startswith(f'user_pref("{name}", {value})') for name, value in PREFS.items())]
            _write(prefs, "".join(kept))

    # What Thunderbird keeps about its add-ons

    def forget_addon(self, identifier):
        """Takes an add-on that is gone out of Thunderbird's own lists; its caches are made anew at the next start."""
        _drop_from_list(self.path / "extensions.json", "addons", identifier)
        _drop_from_map(self.path / "extension-preferences.json", identifier)
        prefs = self.path / "prefs.js"
        if prefs.exists():
            _write(prefs, "".join(_without_uuid(line, identifier)
                                  for line in _text_of(prefs).splitlines(keepends=True)))
        for cache in ("addonStartup.json.lz4", "startupCache/webext.sc.lz4"):
            (self.path / cache).unlink(missing_ok=True)


def _without_uuid(line, identifier):
    head = 'user_pref("extensions.webextensions.uuids", '
    if not line.startswith(head) or identifier not in line:
        return line
    known = json.loads(json.loads(line[len(head):line.rindex(")")]))
    known.pop(identifier, None)
    return f"{head}{json.dumps(json.dumps(known, separators=(',', ':')))});\n"


def _drop_from_list(path, key, identifier):
    known = json.loads(path.read_text(encoding="utf-8")) if path.exists() else {}
    kept = [entry for entry in known.get(key, []) if entry.get("id") != identifier]
    if len(kept) != len(known.get(key, [])):
        _write(path, json.dumps({**known, key: kept}))


def _drop_from_map(path, identifier):
    known = json.loads(path.read_text(encoding="utf-8")) if path.exists() else {}
    if known.pop(identifier, None) is not None:
        _write(path, json.dumps(known))


def _command_of(pid):
    try:
        return Path(f"/proc/{pid}/cmdline").read_bytes().split(b"\0")[0].decode(errors="replace")
    except OSError:
        return "thunderbird"


def _text_of(path):
    """The text with every byte and line end as it is, whatever the encoding."""
    with open(path, encoding="utf-8", errors="surrogateescape", newline="") as file:
        return file.read()


def _write(path, text):
    path = path.resolve()  # a link stays a link
    temporary = path.with_name(path.name + ".kest-new")
    with open(temporary, "w", encoding="utf-8", errors="surrogateescape", newline="") as file:
        file.write(text)
    if path.exists():
        os.chmod(temporary, path.stat().st_mode & 0o777)
    os.replace(temporary, path)
