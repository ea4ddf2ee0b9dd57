"""Replies from Kest's own window in a Thunderbird that writes HTML, to a formatted message in a window of its own."""

import unittest

from mail_case import wait_until
from reply_case import BEN, SPOKEN, ReplyCase

HTML = "<html><body><p>Shall we <b>meet</b> &amp; talk?</p></body></html>"


class RepliesToFormattedMail(ReplyCase):

    # Messages open in windows of their own.
    options = {"compose_html": True, "prefs": {"mail.default_send_format": 2, "mail.openMessageBehavior": 0}}

    @classmethod
    def prepare_mail(cls):
        cls.put(BEN, "work@example.test", "Formatted", "Shall we meet & talk?", html=HTML)
        cls.put(BEN, "anna@example.test", "Another", "Selected in the list")

    def html_of(self, mail):
        return mail.get_body(("html",)).get_content().replace("\r\n", "\n")

    def check_html(self, mail):
        [attached] = mail.iter_attachments()
        self.assertEqual(attached.get_content(), self.recording)
        html = self.html_of(mail)
        self.assertEqual(html.count("Lark &amp; Sons"), 1)
        self.assertLess(html.index(SPOKEN), html.index("moz-signature"))
        return html

    def test_the_text_stands_above_the_formatted_quote_and_the_signature(self):
        self.start_kest("script")
        self.select("Formatted")
        self.answer()
        mail = self.send_from("Re: Formatted")
        html = self.check_html(mail)
        self.assertLess(html.index(SPOKEN), html.index("<blockquote type=\"cite\""))
        self.assertIn("<b>meet</b> &amp; talk?", html)
        self.assertEqual(mail["in-reply-to"], self.ids["Formatted"])
        self.assertIn(self.ids["Formatted"], mail["references"])
        self.assertEqual(mail["from"], "Anna at Work <work@example.test>")

    def test_the_windows_own_back_end_quotes_the_text(self):
        self.start_kest("bridge")
        self.select("Formatted")
        self.answer()
        mail = self.send_from("Re: Formatted")
        html = self.check_html(mail)
        self.assertLess(html.index(SPOKEN), html.index("&gt; Shall we *meet* &amp; talk?"))
        self.assertEqual(mail["from"], "Anna at Work <work@example.test>")

    def test_a_message_in_a_window_of_its_own_is_answered(self):
        self.start_kest("script")
        self.select("Formatted")
        self.addCleanup(self.thunderbird.close_opened, "Formatted - Mozilla Thunderbird")
        self.thunderbird.open_first(self.bus, "Formatted - Mozilla Thunderbird")
        self.select("Another")
        self.thunderbird.raise_window("Formatted - Mozilla Thunderbird")
        wait_until(lambda: self.subject_selected() == "Formatted", "the message of the window")
        self.answer()
        mail = self.send_from("Re: Formatted")
        self.check_html(mail)
        self.assertEqual(mail["in-reply-to"], self.ids["Formatted"])


if __name__ == "__main__":
    unittest.main()
