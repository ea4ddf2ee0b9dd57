"""The package as an earlier release would have left it on a computer, made out of today's."""

import os
import re
import shutil
import zipfile

from fresh_root import run

VERSION = "0.0.9"
LEFT_OUT_SINCE = "usr/share/kest/given-up"  # an upgrade must take it away
ADDON = "usr/lib/thunderbird/extensions/kest@kest.invalid.xpi"
HOST = "usr/libexec/kest/kest-mail-host"


def make_older(package, work):
    """An unpacked and repacked package: an older version of package, add-on and host, and a file more."""
    folder = work / "older"
    shutil.rmtree(folder, ignore_errors=True)
    run(["dpkg-deb", "--raw-extract", package, folder])
    control = folder / "DEBIAN/control"
    today = re.search(r"^Version: (.*)$", control.read_text(), re.MULTILINE).group(1)
    control.write_text(control.read_text().replace(f"Version: {today}\n", f"Version: {VERSION}\n"))
    extra = folder / LEFT_OUT_SINCE
    extra.parent.mkdir(parents=True, exist_ok=True)
    extra.write_text("Nobody needs this any more.\n")
    _make_addon_older(folder / ADDON)
    _make_host_older(folder / HOST, today)
    older = work / f"kest_{VERSION}.deb"
    run(["dpkg-deb", "--root-owner-group", "--build", folder, older])
    return older


def _make_addon_older(addon):
    temporary = addon.with_suffix(".new")
    with zipfile.ZipFile(addon) as today, zipfile.ZipFile(temporary, "w", zipfile.ZIP_DEFLATED) as then:
        for name in today.namelist():
            data = today.read(name)
            if name == "manifest.json":
                data = re.sub(rb'"version": "[^"]*"', f'"version": "{VERSION}"'.encode(), data)
            then.writestr(name, data)
    os.replace(temporary, addon)



def _make_host_older(host, today):
    """It has its version as a text, and will not work with an add-on of another one."""
    if len(today) != len(VERSION):
        raise RuntimeError(f"{VERSION} must be as long as {today}, which it replaces in the program")
    data = host.read_bytes()
    for encoding in ("ascii", "utf-16-le"):
        data = data.replace(today.encode(encoding), VERSION.encode(encoding))
    host.write_bytes(data)
