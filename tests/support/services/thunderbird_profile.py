"""A throw-away Thunderbird profile that asks nothing and talks to nobody but the loopback mail server."""

import json
import subprocess
from pathlib import Path

from .base import ServiceError
from .mailserver import MailServer

PROGRAM = Path("/usr/lib/thunderbird")
INSTALLATION = "FDC34C9F024745EB"  # how Thunderbird names an installation in PROGRAM, so that it takes our profile

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


class ThunderbirdProfile:
    """Lies in the sandbox's home, at `path`; what the parameters mean stands at Thunderbird."""

    def __init__(self, sandbox, mail, second_account, compose_html, prefs, system_addon):
        self.sandbox = sandbox
        self.mail = mail
        self.second_account = second_account
        self.compose_html = compose_html
        self.path = sandbox.home / ".thunderbird" / "kest.test"
        quiet = {name: value for name, value in QUIET.items() if not (system_addon and name.endswith("Scopes"))}
        self._make({**quiet, **self._account_prefs(), **prefs})

    def _make(self, prefs):
        self.path.mkdir(parents=True)
        (self.path.parent / "profiles.ini").write_text(
            "[General]\nStartWithLastProfile=1\nVersion=2\n\n"
            "[Profile0]\nName=kest\nIsRelative=1\nPath=kest.test\nDefault=1\n\n"
            f"[Install{INSTALLATION}]\nDefault=kest.test\nLocked=1\n")
        (self.path / "user.js").write_text(
            "".join(f"user_pref({json.dumps(name)}, {json.dumps(value)});\n" for name, value in prefs.items()))
        self._store_passwords()

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
        users = ["anna", "club"] if self.second_account else ["anna"]
        done = subprocess.run(["/usr/bin/python3", "-c", _ENCRYPT, str(PROGRAM), str(self.path), *users,
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
        (self.path / "logins.json").write_text(json.dumps(
            {"nextId": len(logins) + 1, "logins": logins, "version": 3, "potentiallyVulnerablePasswords": [],
             "dismissedBreachAlertsByLoginGUID": {}}))


def _branch(prefix, **values):
    return {f"{prefix}.{name}": value for name, value in values.items()}
