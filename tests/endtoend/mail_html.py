"""The same in a Thunderbird that writes HTML, as it does out of the box."""

import contextlib
import http.server
import threading
import unittest

import dbus

from mail_case import MailCase, message, wait_until

BEN = "Ben Ford <ben@example.test>"

PICTURES = """<html><body background="{0}/body"><p>Shall <b>we</b>?</p><img src="{0}/img">
<img srcset="{0}/srcset 1x"><picture><source srcset="{0}/source"><img src="{0}/picture"></picture>
<img loading="lazy" src="{0}/lazy"><img moz-do-not-send="false" src="{0}/preset"><input type="image" src="{0}/input">
<table background="{0}/table"><tr><td>x</td></tr></table><div style="background-image: url({0}/style)">y</div>
<svg><image href="{0}/svg"/></svg><object data="{0}/object"></object><iframe src="{0}/frame"></iframe>
<noscript><img src="{0}/noscript"></noscript>
<form><math><mtext></form><form><mglyph><noframes></math><img src="{0}/later"></noframes></mglyph></form></mtext></math></form>
<div class="moz-signature">-- <br>Ben <img src="{0}/signature"></div></body></html>"""


class Pictures(http.server.ThreadingHTTPServer):
    """A web server that notes what it is asked for."""

    def __init__(self):
        self.asked = asked = []

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                asked.append(self.path)
                self.send_response(404)
                self.send_header("Content-Length", "0")
                self.end_headers()

            def log_message(self, *_):
                pass

        super().__init__(("127.0.0.1", 0), Handler)
        threading.Thread(target=self.serve_forever, daemon=True).start()

    def put_mail(self, mail, name, host):
        """A mail, addressed to an identity with a signature, that shows pictures of ours under a folder of that name."""
        there = message(BEN, "work@example.test", f"Pictures {name}", "Shall we?")
        there.add_alternative(PICTURES.format(f"http://{host}:{self.server_port}/{name}"), subtype="html")
        mail.put("anna", there)

    def asked_for(self, name):
        return [path for path in self.asked if path.startswith(f"/{name}/")]


class Html(MailCase):

    maxDiff = None

    options = {"compose_html": True, "prefs": {"mail.default_send_format": 2, "mail.openMessageBehavior": 0,
                                               "mail.trusteddomains": "localhost"}}

    @classmethod
    def prepare_mail(cls):
        cls.mail.put("anna", message(BEN, "work@example.test", "Quoted", "Shall we?\nBen"))
        cls.pictures = Pictures()
        cls.addClassCleanup(cls.pictures.server_close)
        cls.addClassCleanup(cls.pictures.shutdown)
        cls.pictures.put_mail(cls.mail, "blocked", "127.0.0.1")
        cls.pictures.put_mail(cls.mail, "allowed", "localhost")

    def message_called(self, subject):
        self.thunderbird.open_inbox(self.bus, 3)
        self.thunderbird.select_all(self.bus)
        [found] = [path for path in self.bus.selection() if self.bus.get(path, "Subject") == subject]
        self.thunderbird.select_first(self.bus)
        return found

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
        self.thunderbird.open_inbox(self.bus, 3)
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
        self.thunderbird.open_inbox(self.bus, 3)
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

    def test_pictures_that_thunderbird_blocks_are_not_fetched_by_a_reply(self):
        original = self.message_called("Pictures blocked")
        reply = self.bus.reply(original, "Spoken\n\n", attachments=[("voice.m4a", b"12345")])
        self.bus.set(reply, "Subject", "Re: Pictures")
        self.bus.call("AddRecipient", "cc", "", "ben@example.test", path=reply)
        self.bus.set(reply, "Sender", "Anna Lark <anna@example.test>")
        self.bus.set(reply, "Sender", "Anna at Work <work@example.test>")
        self.thunderbird.send_from_window("Write: Re: Pictures")
        html = self.html_of(self.mail.wait_sent()[0])
        self.assertIn("/blocked/img\"", html)
        self.assertLess(html.index("Spoken"), html.index("<blockquote"))
        written = self.discard(str(self.bus.call("Reply", True, False, path=original, signature="bb")))
        self.bus.set(written, "Content", "Instead")
        hidden = self.discard(str(self.bus.call("Reply", False, False, path=original, signature="bb")))
        self.bus.set(hidden, "Content", "In front\n" + str(self.bus.get(hidden, "Content")))
        self.bus.set(hidden, "Visible", True)
        # Those from a host that is trusted are, in the same way: what was fetched before would have been seen.
        self.discard(self.bus.reply(self.message_called("Pictures allowed"), "Spoken\n\n"))
        wait_until(lambda: "/allowed/img" in self.pictures.asked, "the pictures that are allowed")
        self.assertEqual(self.pictures.asked_for("blocked"), [])

    def test_the_signature_of_the_person_answered_is_not_taken_for_ones_own(self):
        original = self.message_called("Pictures blocked")
        reply = self.discard(str(self.bus.call("Reply", True, False, path=original, signature="bb")))
        self.bus.set(reply, "Sender", "Anna Lark <anna@example.test>")
        self.bus.set(reply, "Content", "Instead")
        self.bus.call("Send", path=reply)
        html = self.html_of(self.mail.wait_sent()[0])
        self.assertIn("Instead", html)
        self.assertNotIn("moz-signature", html)

    def test_a_message_in_a_window_of_its_own_is_the_selection(self):
        self.thunderbird.open_inbox(self.bus, 3)
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
