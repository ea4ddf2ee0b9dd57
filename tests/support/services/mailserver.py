"""A loopback mail provider: Dovecot as the IMAP server, aiosmtpd as the SMTP server that keeps what it is sent."""

import contextlib
import email
import email.policy
import os
import pwd
import shutil
import socket
import tempfile
import time
from email.message import EmailMessage
from pathlib import Path

from aiosmtpd.controller import Controller

from .base import free_port, wait_until

NOBODY = pwd.getpwnam("nobody")

DOVECOT = """
base_dir = {root}/run
state_dir = {root}/state
log_path = {root}/dovecot.log
protocols = imap
listen = 127.0.0.1
ssl = no
disable_plaintext_auth = no
auth_mechanisms = plain login
default_internal_user = {user}
default_internal_group = {group}
default_login_user = {user}
first_valid_uid = 1
mail_location = maildir:{root}/mail/%u
mailbox_list_index = no
maildir_stat_dirs = yes
passdb {{
  driver = static
  args = password={password}
}}
userdb {{
  driver = static
  args = uid={uid} gid={gid} home={root}/home/%u
}}
namespace inbox {{
  inbox = yes
  separator = /
  mailbox Trash {{
    auto = subscribe
    special_use = \\Trash
  }}
  mailbox Sent {{
    auto = subscribe
    special_use = \\Sent
  }}
}}
service imap-login {{
  chroot =
  inet_listener imap {{
    address = 127.0.0.1
    port = {port}
  }}
  inet_listener imaps {{
    port = 0
  }}
}}
service anvil {{
  chroot =
}}
service stats {{
  chroot =
}}
"""


class MailServer:
    """IMAP on `imap_port` for any user with `PASSWORD`; SMTP on `smtp_port`, which stores every message as a file.

    `sent()` lists what SMTP took, oldest first, as parsed messages; the files lie in `outbox` (NNN.eml). Setting
    `refuse` to a reply such as "554 no thanks" makes SMTP refuse; `delay` holds its answer back, in seconds;
    `before_answer` is called, in a thread of its own, with a mail there and the answer still to come.
    """

    PASSWORD = "secret"

    def __init__(self, sandbox):
        self.sandbox = sandbox
        self.outbox = sandbox.root / "sent"
        self.outbox.mkdir()
        self.refuse = None
        self.delay = 0
        self.before_answer = lambda: None
        self.taken = 0
        self.imap_port = free_port()
        # Beside the sandbox's own folder: that one is closed to the unprivileged user that Dovecot runs as.
        self.folder = Path(tempfile.mkdtemp(prefix="kest-mail-", dir="/tmp"))
        self.smtp_port = free_port()
        self._start_imap()
        self.start_smtp()
        sandbox.env["KEST_SENT_MAIL"] = str(self.outbox)
        sandbox.at_close.append(self.close)

    def _start_imap(self):
        root = os.geteuid() == 0
        account = NOBODY if root else pwd.getpwuid(os.geteuid())
        group = "nogroup" if root else _group_name(account.pw_gid)
        config = self.folder / "dovecot.conf"
        config.write_text(DOVECOT.format(
            root=self.folder, user=account.pw_name, group=group, uid=account.pw_uid, gid=account.pw_gid,
            port=self.imap_port, password=self.PASSWORD))
        for name in ("run", "state", "mail", "home"):
            (self.folder / name).mkdir()
        command = ["/usr/sbin/dovecot", "-F", "-c", str(config)]
        if root:
            for path in (self.folder, *self.folder.iterdir()):
                os.chown(path, account.pw_uid, account.pw_gid)
            command = ["setpriv", f"--reuid={account.pw_uid}", f"--regid={account.pw_gid}", "--clear-groups",
                       "--pdeathsig", "KILL", *command]
        self._owner = (account.pw_uid, account.pw_gid) if root else None
        self.imap = self.sandbox.start("dovecot", command, cwd=str(self.folder))
        wait_until(self._imap_answers, "the IMAP server")

    def _imap_answers(self):
        try:
            with socket.create_connection(("127.0.0.1", self.imap_port), 1) as probe:
                return probe.recv(64).startswith(b"* OK")
        except OSError:
            return False

    def start_smtp(self):
        """Also after `stop_smtp`, on the same port."""
        self.smtp = Controller(_Sink(self), hostname="127.0.0.1", port=self.smtp_port, data_size_limit=96 * 1024 * 1024)
        self.smtp.start()

    def stop_smtp(self):
        """From now on nobody listens there."""
        if self.smtp:
            self.smtp.stop()
            self.smtp = None

    def put(self, user, message, folder=""):
        """Delivers a message (EmailMessage or bytes) into a mailbox; Thunderbird sees it at its next look."""
        box = self.folder / "mail" / user / (f".{folder}" if folder else "")
        data = message if isinstance(message, bytes) else message.as_bytes(policy=email.policy.SMTP)
        new = box / "new"
        for part in ("cur", "new", "tmp"):
            (box / part).mkdir(parents=True, exist_ok=True)
        temporary = box / "tmp" / f"{time.time_ns()}.kest"
        temporary.write_bytes(data)
        self._give_away(self.folder / "mail" / user)
        temporary.rename(new / temporary.name)

    def _give_away(self, folder):
        if self._owner:
            for path in (folder, *folder.rglob("*")):
                with contextlib.suppress(FileNotFoundError):  # One of the server's own that was there for a moment.
                    os.chown(path, *self._owner)

    def files(self, user, folder=""):
        """The message files of a mailbox, new and seen."""
        box = self.folder / "mail" / user / (f".{folder}" if folder else "")
        return [path for part in ("new", "cur") for path in sorted((box / part).glob("*"))]

    def sent(self):
        return [email.message_from_bytes(path.read_bytes(), policy=email.policy.default)
                for path in sorted(self.outbox.glob("*.eml"))]

    def wait_sent(self, count=1, seconds=60):
        """The messages that SMTP took, as soon as there are `count`."""
        wait_until(lambda: len(list(self.outbox.glob("*.eml"))) >= count, f"{count} mails at the SMTP server", seconds)
        return self.sent()

    def forget_sent(self):
        for path in self.outbox.glob("*.eml"):
            path.unlink()

    def close(self):
        """Called at the sandbox's end."""
        self.stop_smtp()
        self.sandbox.stop(self.imap)
        shutil.rmtree(self.folder, ignore_errors=True)


def _group_name(gid):
    import grp
    return grp.getgrgid(gid).gr_name


class _Sink:
    """What aiosmtpd calls for each message."""

    def __init__(self, server):
        self.server = server

    async def handle_DATA(self, _server, _session, envelope):
        import asyncio
        if self.server.delay:
            await asyncio.sleep(self.server.delay)
        self.server.before_answer()
        if self.server.refuse:
            return self.server.refuse
        self.server.taken += 1
        path = self.server.outbox / f"{self.server.taken:03}.eml"
        temporary = path.with_suffix(".part")
        temporary.write_bytes(envelope.original_content)
        temporary.rename(path)
        return "250 taken"


def text_of(mail):
    """The text that a mail says, without line ends at its end."""
    return mail.get_body(("plain", "html")).get_content().replace("\r\n", "\n").rstrip("\n")


def message(sender, to, subject, text, **headers):
    """A plain mail for `put`; further headers by keyword, underscores standing for hyphens."""
    mail = EmailMessage()
    mail["From"], mail["To"], mail["Subject"] = sender, to, subject
    mail["Message-ID"] = f"<{time.time_ns()}@example.test>"
    mail["Date"] = email.utils.localtime()
    for name, value in headers.items():
        mail[name.replace("_", "-")] = value
    mail.set_content(text)
    return mail
