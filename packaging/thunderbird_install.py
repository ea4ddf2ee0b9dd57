"""What belongs to Kest in a home with a Thunderbird: the add-on, the host's manifest, two preferences."""

import json
import os
import shutil
from pathlib import Path

from thunderbird_profile import ProfileError

ADDON_ID = "kest@kest.invalid"
HOST_NAME = "org.kest.mailhost"
HERE = Path(__file__).resolve().parent


def parts_of(build):
    """The add-on and the host in a build folder."""
    return _checked(build / "kest-thunderbird.xpi", build / "bin" / "kest-mail-host")


def parts_nearby():
    """The add-on and the host of the installation or source tree that this command lies in."""
    if (HERE / "kest-thunderbird.xpi").exists():
        return _checked(HERE / "kest-thunderbird.xpi", HERE.parents[2] / "libexec" / "kest" / "kest-mail-host")
    builds = [path.parent for path in HERE.parent.glob("build/*/kest-thunderbird.xpi")]
    if not builds:
        raise ProfileError("neither the add-on nor the mail host is built; build Kest first, "
                           "or name the folder by --build")
    return parts_of(max(builds, key=lambda build: (build / "kest-thunderbird.xpi").stat().st_mtime))


def _checked(addon, host):
    for path in (addon, host):
        if not path.exists():
            raise ProfileError(f"{path} is missing")
    return addon, host


class Installation:
    """Kest's things for one profile."""

    def __init__(self, profile):
        self.profile = profile
        self.addon = profile.path / "extensions" / f"{ADDON_ID}.xpi"
        self.manifest = Path.home() / ".mozilla" / "native-messaging-hosts" / f"{HOST_NAME}.json"

    def install(self, parts):
        addon, host = parts
        self.profile.must_be_reachable()
        self.profile.must_rest()
        _protect_firefox()
        self.profile.add_prefs()
        self.addon.parent.mkdir(exist_ok=True)
        _copy(addon, self.addon)
        self.manifest.parent.mkdir(parents=True, exist_ok=True)
        self.manifest.write_text(_manifest_for(host), encoding="utf-8")
        print(f"The add-on is in {self.addon}.\nThe mail host is announced by {self.manifest}.\n"
              "Thunderbird will load it at its next start.")
        return 0

    def remove(self):
        self.profile.must_rest()
        if not (self.addon.exists() or self.manifest.exists() or self.profile.has_prefs()):
            print("There was nothing of Kest in this profile.")
            return 0
        self.addon.unlink(missing_ok=True)
        self.manifest.unlink(missing_ok=True)
        for folder in (self.addon.parent, self.manifest.parent, self.manifest.parent.parent):
            _remove_empty(folder)
        self.profile.drop_prefs()
        self.profile.forget_addon(ADDON_ID)
        print("The add-on and the announcement of the mail host are gone.")
        return 0

    def status(self, quiet):
        if not quiet:
            print(f"Profile: {self.profile.path}{' (in use)' if self.profile.is_running() else ''}\n"
                  f"Add-on: {'installed' if self.addon.exists() else 'not installed'}\n"
                  f"Preferences: {'set' if self.profile.has_prefs() else 'not set'}\n"
                  f"Mail host: {self._host_status()}")
        return 0 if self.addon.exists() and self.manifest.exists() else 3

    def _host_status(self):
        if not self.manifest.exists():
            return "not announced"
        path = json.loads(self.manifest.read_text(encoding="utf-8")).get("path", "")
        return path if os.access(path, os.X_OK) else f"{path} is announced but missing"


def _protect_firefox():
    """Thunderbird looks for hosts in ~/.mozilla alone; a Firefox that keeps its profiles elsewhere would take that
    folder's mere existence for a sign that they are there."""
    legacy = Path.home() / ".mozilla"
    modern = Path(os.environ.get("XDG_CONFIG_HOME") or Path.home() / ".config") / "mozilla"
    if not legacy.exists() and (modern / "firefox").exists():
        raise ProfileError(f"Firefox keeps its profiles in {modern} and would not find them any more if there were "
                           f"a folder {legacy}; make {legacy} a link to {modern}, then try again")


def _manifest_for(host):
    template = (HERE / f"{HOST_NAME}.json.in").read_text(encoding="utf-8")
    return template.replace('"@HOST_PATH@"', json.dumps(str(host)))


def _copy(source, target):
    temporary = target.with_name(target.name + ".kest-new")
    shutil.copyfile(source, temporary)
    os.replace(temporary, target)


def _remove_empty(folder):
    try:
        folder.rmdir()
    except OSError:
        pass  # Somebody else's things are in it, or it was never there.
