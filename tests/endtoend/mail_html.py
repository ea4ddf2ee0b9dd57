"""The same in a Thunderbird that writes HTML, as it does out of the box."""

import contextlib
import unittest

import dbus

from mail_case import MailCase, message, wait_until

BEN = "Ben Ford <ben@example.test>"


class Html(MailCase):

    maxDiff = None

    options = {"compose_html": True, "prefs": {"mail.default_send_format": 2, "mail.openMessageBehavior": 0}}

    @classmethod
    def prepare_mail(cls):
        cls.mail.put("anna", message(BEN, "work@example.test", "Quoted", "Shall we?\nBen"))

    def html_of(self, mail):
        return mail.get_body(("html",)).get_content().replace("\r\n", "\n")

    def discard_now(self, path):
        if self.thunderbird.windows("Write:"):
            with contextlib.suppress(dbus.DBusException):
                self.bus.call("Delete", path=path)

    def discard(self, path):
        """Discards it after the test, if it is still there."""
        self.addCleanup(self.discard_now, path)
        return path

    def test_markup_spaces_and_lines_of_the_text_are_kept(self):
        path = self.bus.make("Markup", "a <b> & \"c\"\n  two spaces\n\nend")
        self.bus.set(path, "Visible", True)
        self.assertEqual(self.bus.get(path, "Content"), "a <b> & \"c\"\n  two spaces\n\nend")
        long = "A line that is much longer than any window is wide," * 5
        self.bus.set(path, "Content", f"a <b> & \"c\"\nFrom here\n> not quoted\n{long}\nend")
        self.assertEqual(self.bus.get(path, "Content"), f"a <b> & \"c\"\nFrom here\n> not quoted\n{long}\nend")
        self.bus.call("AddRecipient", "to", "", "ben@example.test", path=path)
        self.bus.call("Send", path=path)
        [mail] = self.mail.wait_sent()
        self.assertIn("a &lt;b&gt; &amp; \"c\"<br>", self.html_of(mail))

    def test_the_signature_stays_below_the_text_when_it_is_written_again(self):
        path = self.bus.make("Signed", "First")
        self.bus.set(path, "Sender", "Anna at Work <work@example.test>")
        self.bus.set(path, "Visible", True)
        self.bus.set(path, "Content", "Second")
        self.assertEqual(self.bus.get(path, "Content").rstrip("\n"), "Second")
        self.bus.call("AddRecipient", "to", "", "ben@example.test", path=path)
        self.bus.call("Send", path=path)
        html = self.html_of(self.mail.wait_sent()[0])
        self.assertNotIn("First", html)
        self.assertEqual(html.count("Lark &amp; Sons"), 1)
        self.assertLess(html.index("Second"), html.index("moz-signature"))

    def test_a_reply_keeps_the_formatted_quote_and_the_signature(self):
        self.thunderbird.open_inbox(self.bus, 1)
        [original] = self.bus.selection()
        reply = self.bus.reply(original, "Spoken\n\n", attachments=[("voice.m4a", b"12345")])
        wait_until(lambda: self.thunderbird.windows("Write: Re: Quoted"), "the reply's window")
        self.assertRegex(str(self.bus.get(reply, "Content")), r"^Spoken\n\n+(.*\n)+> Shall we\?")
        self.thunderbird.send_from_window("Write: Re: Quoted")
        html = self.html_of(self.mail.wait_sent()[0])
        self.assertIn("<blockquote type=\"cite\"", html)
        self.assertLess(html.index("Spoken"), html.index("<blockquote"))
        self.assertEqual(html.count("Lark &amp; Sons"), 1)

    def test_a_hidden_reply_that_is_shown_keeps_its_quote_formatted(self):
        self.thunderbird.open_inbox(self.bus, 1)
        [original] = self.bus.selection()
        reply = self.discard(str(self.bus.call("Reply", False, False, path=original, signature="bb")))
        content = str(self.bus.get(reply, "Content"))
        self.assertNotIn("Lark", content)
        self.bus.set(reply, "Content", "In front\n" + content)
        self.bus.set(reply, "Visible", True)
        self.thunderbird.send_from_window("Write: Re: Quoted")
        html = self.html_of(self.mail.wait_sent()[0])
        self.assertIn("<blockquote type=\"cite\"", html)
        self.assertLess(html.index("In front"), html.index("<blockquote"))

    def test_a_message_in_a_window_of_its_own_is_the_selection(self):
        self.thunderbird.open_inbox(self.bus, 1)
        selected = self.bus.selection()
        self.addCleanup(self.thunderbird.close_opened, "Quoted - Mozilla Thunderbird")
        self.thunderbird.open_first(self.bus, "Quoted - Mozilla Thunderbird")
        self.thunderbird.raise_window("Quoted - Mozilla Thunderbird")
        wait_until(lambda: self.bus.selection() == selected, "the message of the window")

    def test_changing_the_sender_changes_the_signature(self):
        path = self.discard(self.bus.new_message("Sender", "Text"))
        self.bus.set(path, "Sender", "Anna at Work <work@example.test>")
        self.assertEqual(self.bus.get(path, "Content").rstrip("\n"), "Text")
        self.bus.set(path, "Sender", "Anna Lark <anna@example.test>")
        self.assertEqual(self.bus.get(path, "Content").rstrip("\n"), "Text")


if __name__ == "__main__":
    unittest.main()
