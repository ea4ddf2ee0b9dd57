"""Looks into mails that arrived."""

import email
import email.policy
from pathlib import Path


class ArrivedMail:
    """One .eml file, taken apart."""

    def __init__(self, path):
        self.path = Path(path)
        self.message = email.message_from_bytes(self.path.read_bytes(), policy=email.policy.default)

    @property
    def subject(self):
        return str(self.message["Subject"])

    @property
    def text(self):
        body = self.message.get_body(preferencelist=("plain", "html"))
        return body.get_content() if body else ""

    @property
    def attachments(self):
        """(file name, content type, bytes) of each attachment."""
        return [(part.get_filename(), part.get_content_type(), part.get_payload(decode=True))
                for part in self.message.iter_attachments()]
