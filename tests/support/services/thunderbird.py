"""A real Thunderbird on a throw-away profile that asks nothing and talks to nobody but the loopback mail server."""

import contextlib
import json
import os
import re
import signal
import subprocess
import threading
import time
from pathlib import Path

from .base import ServiceError, wait_until
from .mailserver import MailServer

PROGRAM = Path("/usr/lib/thunderbird")
INSTALLATION = "FDC34C9F024745EB"  # how Thunderbird names an installation in PROGRAM, so that it takes our profile
BUS_NAME = "org.kest.Mail1.Thunderbird"

QUIET = {
    "app.donation.eoy.version.viewed": 999, "app.update.auto": False, "app.update.enabled": False,
    "browser.safebrowsing.malware.enabled": False, "browser.safebrowsing.phishing.enabled": False,
    "browser.shell.checkDefaultClient": False, "calendar.timezone.useSystemTimezone": True,
    "datareporting.healthreport.uploadEnabled": False, "datareporting.policy.dataSubmissionEnabled": False,
    "datareporting.policy.dataSubmissionPolicyBypassNotification": True,
    "extensions.autoDisableScopes": 0, "extensions.startupScanScopes": 15, "extensions.update.enabled": False,
    "extensions.getAddons.cache.enabled": False, "extensions.systemAddon.update.enabled": False,
    "mail.inappnotifications.enabled": False, "mail.inappnotifications.url": "", "mail.provider.enabled": False,
    "mail.rights.version": 1, "mail.shell.checkDefaultClient": False, "mail.spotlight.firstRunDone": True,
    "mail.winsearch.firstRunDone": True, "mail.spam.version": 1, "mailnews.start_page.enabled": False,
    "mailnews.message_warning_size": 200 * 1024 * 1024, "mailnews.migration.header_addons_url": "",
    "network.captive-portal-service.enabled": False, "network.connectivity-service.enabled": False,
    "network.dns.disablePrefetch": True, "network.prefetch-next": False, "network.manage-offline-status": False,
    "services.settings.server": "http://127.0.0.1:1/", "toolkit.telemetry.enabled": False,
    "toolkit.telemetry.server": "", "messenger.options.getAttentionOnNewMail": False,
    "mail.biff.show_alert": False, "mail.biff.play_sound": False, "mail.compose.autosave": False,
    "mail.warn_on_send_accel_key": False, "mailnews.auto_config.guess.enabled": False,
    "media.hardware-video-decoding.enabled": False, "gfx.webrender.software": True,
    "layers.acceleration.disabled": True,
}

_ENCRYPT = """
import base64, ctypes, sys
nss = ctypes.CDLL(sys.argv[1] + "/libnss3.so")
class Item(ctypes.Structure):
    _fields_ = [("type", ctypes.c_uint), ("data", ctypes.c_void_p), ("len", ctypes.c_uint)]
if nss.NSS_InitReadWrite(("sql:" + sys.argv[2]).encode()):
    sys.exit("the key database cannot be made")
nss.PK11_GetInternalKeySlot.restype = ctypes.c_void_p
slot = ctypes.c_void_p(nss.PK11_GetInternalKeySlot())
if nss.PK11_NeedUserInit(slot):
    nss.PK11_InitPin(slot, None, b"")
for text in sys.argv[3:]:
    data = text.encode()
    plain = Item(0, ctypes.cast(ctypes.c_char_p(data), ctypes.c_void_p), len(data))
    key, out = Item(0, None, 0), Item(0, None, 0)
    if nss.PK11SDR_Encrypt(ctypes.byref(key), ctypes.byref(plain), ctypes.byref(out), None):
        sys.exit("the password cannot be encrypted")
    print(base64.b64encode(ctypes.string_at(out.data, out.len)).decode())
nss.NSS_Shutdown()
"""


class Thunderbird:
    """Needs a sandbox with a bus, a display and a MailServer (`mail`; made when not given).

    The first account ("Anna's mail") has two identities, anna@example.test and work@example.test, the latter with a
    signature. With `second_account` there is also "Club" with club@example.test. `compose_html` says in what format
    they write. `prefs` are added to the profile's own. With `system_addon` the add-on and the host are those that a
    package has put into Thunderbird's own folders, and the profile says nothing about add-ons, as a person's does not.
    """

    def __init__(self, sandbox, mail=None, second_account=False, compose_html=False, prefs=None, addon=True,
                 system_addon=False):
        self.sandbox = sandbox
        self.mail = mail or MailServer(sandbox)
        self.second_account = second_account
        self.compose_html = compose_html
        self.prefs = prefs or {}
        self.quiet = {name: value for name, value in QUIET.items() if not (system_addon and name.endswith("Scopes"))}
        self.profile = sandbox.home / ".thunderbird" / "kest.test"
        self.build = Path(os.environ["KEST_BUILD_DIR"])
        self.process = None
        self.clicks = 0
        self._make_profile()
        if addon and not system_addon:
            self.install_addon()

    # The profile

    def _make_profile(self):
        self.profile.mkdir(parents=True)
        (self.profile.parent / "profiles.ini").write_text(
            "[General]\nStartWithLastProfile=1\nVersion=2\n\n"
            "[Profile0]\nName=kest\nIsRelative=1\nPath=kest.test\nDefault=1\n\n"
            f"[Install{INSTALLATION}]\nDefault=kest.test\nLocked=1\n")
        prefs = {**self.quiet, **self._account_prefs(), **self.prefs}
        (self.profile / "user.js").write_text(
            "".join(f"user_pref({json.dumps(name)}, {json.dumps(value)});\n" for name, value in prefs.items()))
        self._store_passwords()

    def users(self):
        return ["anna", "club"] if self.second_account else ["anna"]

    def _account_prefs(self):
        prefs = {"mail.smtpservers": "smtp1", "mail.smtp.defaultserver": "smtp1",
                 "mail.accountmanager.defaultaccount": "account1", "mail.accountmanager.localfoldersserver": "server2",
                 "mail.account.account2.server": "server2", "mail.account.lastKey": 3}
        prefs |= _branch("mail.smtpserver.smtp1", type="smtp", hostname="127.0.0.1", port=self.mail.smtp_port,
                         authMethod=1, try_ssl=0, description="loopback")
        prefs |= _branch("mail.server.server2", type="none", hostname="Local Folders", userName="nobody",
                         name="Local Folders")
        prefs |= self._account(1, "anna", "Anna's mail", ["id1", "id2"])
        prefs |= self._identity("id1", "Anna Lark", "anna@example.test")
        prefs |= self._identity("id2", "Anna at Work", "work@example.test", htmlSigText="Lark & Sons\nby the sea")
        order = ["account1", "account2"]
        if self.second_account:
            prefs |= self._account(3, "club", "Club", ["id3"])
            prefs |= self._identity("id3", "The Club", "club@example.test")
            order.insert(1, "account3")
        prefs["mail.accountmanager.accounts"] = ",".join(order)
        return prefs

    def _account(self, number, user, name, identities):
        account = _branch(f"mail.account.account{number}", server=f"server{number}", identities=",".join(identities))
        return account | _branch(
            f"mail.server.server{number}", type="imap", hostname="127.0.0.1", port=self.mail.imap_port, userName=user,
            name=name, socketType=0, authMethod=3, login_at_startup=True, check_new_mail=True, use_idle=True,
            check_time=1)

    def _identity(self, key, name, address, **more):
        return _branch(f"mail.identity.{key}", fullName=name, useremail=address, valid=True, smtpServer="smtp1",
                       compose_html=self.compose_html, fcc=False, reply_on_top=1, sig_bottom=False, **more)

    def _store_passwords(self):
        users = self.users()
        done = subprocess.run(["/usr/bin/python3", "-c", _ENCRYPT, str(PROGRAM), str(self.profile), *users,
                               MailServer.PASSWORD], capture_output=True, text=True, timeout=20,
                              env={**self.sandbox.env, "LD_LIBRARY_PATH": str(PROGRAM)})
        if done.returncode:
            raise ServiceError(f"no stored password: {done.stderr}")
        *names, password = done.stdout.split()
        logins = [{"id": number, "hostname": "imap://127.0.0.1", "httpRealm": "imap://127.0.0.1", "formSubmitURL": None,
                   "usernameField": "", "passwordField": "", "encryptedUsername": name, "encryptedPassword": password,
                   "guid": f"{{00000000-0000-4000-8000-{number:012}}}", "encType": 1, "timeCreated": 1,
                   "timeLastUsed": 1, "timePasswordChanged": 1, "timesUsed": 1}
                  for number, name in enumerate(names, 1)]
        (self.profile / "logins.json").write_text(json.dumps(
            {"nextId": len(logins) + 1, "logins": logins, "version": 3, "potentiallyVulnerablePasswords": [],
             "dismissedBreachAlertsByLoginGUID": {}}))

    # The add-on

    def install_addon(self):
        """Installs the built add-on and host for this home, with the command that people use for it."""
        command = Path(os.environ["KEST_SOURCE_DIR"]) / "packaging" / "thunderbird-addon"
        return self.sandbox.run([command, "install", "--build", self.build, "--profile", self.profile])

    # Running

    def start(self, wait=True, *arguments):
        self.process = self.sandbox.start(
            "thunderbird", [PROGRAM / "thunderbird", "--profile", self.profile, *arguments],
            env={"MOZ_CRASHREPORTER_DISABLE": "1", "MOZ_DISABLE_CONTENT_SANDBOX": "1", "MOZ_ENABLE_WAYLAND": "0"})
        if wait:
            self.wait_ready()
        return self

    def on_bus(self):
        return self.sandbox.run(
            ["dbus-send", "--session", "--print-reply=literal", "--dest=org.freedesktop.DBus", "/org/freedesktop/DBus",
             "org.freedesktop.DBus.NameHasOwner", f"string:{BUS_NAME}"]).strip().endswith("true")

    def wait_ready(self, seconds=120):
        """Until its main window is there and the host answers on the bus."""
        wait_until(self.on_bus, f"{BUS_NAME} on the bus", seconds, every=0.05)
        wait_until(lambda: self.windows("Mozilla Thunderbird"), "Thunderbird's main window", seconds, every=0.05)

    def wait_off_bus(self, seconds=10):
        wait_until(lambda: not self.on_bus(), f"{BUS_NAME} to leave the bus", seconds, every=0.02)

    def stop(self):
        """Asks it to quit, as a session's end does."""
        if self.process:
            self.sandbox.stop(self.process, 10)
            self.process = None

    def kill(self):
        """Kills it at once, as a crash does."""
        if self.process:
            with contextlib.suppress(ProcessLookupError):
                self.process.send_signal(signal.SIGKILL)
            self.process.wait(5)
            self.sandbox.stop(self.process)
            self.process = None

    def host_pid(self):
        """The process id of the host that this Thunderbird runs, or None."""
        return next((pid for pid in self._descendants() if _command(pid).startswith("kest-mail-host")), None)

    def _descendants(self):
        parents = {}
        for entry in Path("/proc").glob("[0-9]*/stat"):
            with contextlib.suppress(OSError):
                fields = entry.read_text().rsplit(")", 1)[1].split()
                parents.setdefault(int(fields[1]), []).append(int(entry.parent.name))
        found, queue = [], [self.process.pid]
        while queue:
            children = parents.get(queue.pop(), [])
            found += children
            queue += children
        return found

    # Its windows, as a person uses them

    def windows(self, title=""):
        """Ids of its visible windows whose title holds the text, newest last."""
        done = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", re.escape(title) or "."],
                              env=self.sandbox.env, capture_output=True, text=True, timeout=10)
        return [word for word in done.stdout.split() if self._is_mine(word)]

    def _is_mine(self, window):
        done = subprocess.run(["xprop", "-id", window, "WM_CLASS"], env=self.sandbox.env, capture_output=True,
                              text=True, timeout=10)
        return "thunderbird" in done.stdout

    def wait_window(self, title, seconds=60):
        try:
            return wait_until(lambda: self.windows(title), f"a Thunderbird window “{title}”", seconds, every=0.05)[-1]
        except ServiceError as error:
            raise ServiceError(f"{error}; there are {self._titles()}") from error

    def _titles(self):
        return [self.sandbox.run(["xdotool", "getwindowname", window]).strip() for window in self.windows()]

    def raise_window(self, title):
        window = self.wait_window(title)
        self.sandbox.run(["xdotool", "windowactivate", "--sync", window])
        return window

    def press(self, title, *keys):
        """Presses keys ("ctrl+Return") in the window with that title, raised first."""
        self.raise_window(title)
        self.sandbox.run(["xdotool", "key", "--clearmodifiers", "--delay", "40", *keys])

    def open_inbox(self, bus, messages=1):
        """Waits for the inbox, which opens by itself, and clicks its first message; needs one there.

        `bus` (a MailBus) says what is selected; `messages` is how many must have arrived.
        """
        self.wait_window("Inbox - ", 120)
        wait_until(lambda: self._click_first() and len(bus.selection()) == 1, "the inbox's first message to be selected",
                   120, every=0.1)
        wait_until(lambda: self.select_all(bus) >= messages, f"{messages} messages in the inbox", 120, every=0.1)
        self.select_first(bus)

    def _click_first(self):
        """Puts the keyboard into the list of messages, wherever Thunderbird left it when another window closed.

        No click falls where the one before it did: two would open the message.
        """
        window = self.raise_window("Inbox - ")
        self.clicks += 1
        column = 400 + 20 * (self.clicks % 4)
        self.sandbox.run(["xdotool", "mousemove", "--window", window, str(column), "150", "click", "1"])
        time.sleep(0.1)
        return True

    def select_all(self, bus):
        """Selects every message of the inbox; returns how many the bus then names."""
        self._click_first()
        self.press("Inbox - ", "Home", "shift+End")
        time.sleep(0.1)
        return len(bus.selection())

    def select_first(self, bus):
        """Selects the first message alone, and returns its path."""
        self._click_first()
        self.press("Inbox - ", "Home")
        return wait_until(lambda: len(bus.selection()) == 1 and bus.selection(), "one selected message")[0]

    def send_from_window(self, title):
        """Sends the message of a compose window as a person does, and waits for the window to go."""
        self.press(title, "ctrl+Return")
        wait_until(lambda: not self.windows(title), f"the window “{title}” to close after sending", 60, every=0.05)

    def answer_prompt(self, title, *keys):
        """Presses keys in a prompt with that title when it comes, while the caller goes on."""
        thread = threading.Thread(target=self.press, args=(title, *keys), daemon=True)
        thread.start()
        return thread

    def receive(self, message, user="anna"):
        """Puts a mail into the inbox on the server; Thunderbird is told by IMAP's IDLE."""
        self.mail.put(user, message)


def _branch(prefix, **values):
    return {f"{prefix}.{name}": value for name, value in values.items()}


def _command(pid):
    try:
        return Path(Path(f"/proc/{pid}/cmdline").read_bytes().split(b"\0")[0].decode()).name
    except (OSError, UnicodeDecodeError):
        return ""
