"""New messages in a real Thunderbird, up to the mail that arrives."""

import unittest

from mail_case import MailCase, text_of, wait_until

AUDIO = bytes(range(256)) * 700


class NewMessage(MailCase):

    def test_accounts_are_those_that_can_send(self):
        self.assertEqual(self.bus.accounts(), [("account1", "Anna's mail", "Anna Lark <anna@example.test>")])

    def test_a_message_that_is_not_visible_has_no_window(self):
        before = self.thunderbird.windows()
        self.bus.make("Nobody sees it", "text")
        self.assertEqual(self.thunderbird.windows(), before)

    def test_a_visible_message_is_sent_from_its_window_as_it_was_made(self):
        message = self.bus.make("From step to step", "First line\nSecond line\n\n")
        self.bus.attach(message, "2026-03-01_09-30-00.m4a", AUDIO, 24)
        self.bus.call("AddRecipient", "to", "Ben", "ben@example.test", path=message)
        self.bus.set(message, "Visible", True)
        self.bus.call("Activate")
        wait_until(lambda: self.active_title().startswith("Write: From step to step"), "the compose window in front")
        self.thunderbird.send_from_window("Write: From step to step")
        [mail] = self.mail.wait_sent()
        self.assertEqual(mail["subject"], "From step to step")
        self.assertEqual(mail["from"], "Anna Lark <anna@example.test>")
        self.assertEqual(mail["to"], "Ben <ben@example.test>")
        self.assertEqual(text_of(mail), "First line\nSecond line")
        [attached] = mail.iter_attachments()
        self.assertEqual((attached.get_filename(), attached.get_content_type()),
                         ("2026-03-01_09-30-00.m4a", "audio/mp4"))
        self.assertEqual(attached.get_content(), AUDIO)

    def test_one_call_makes_shows_and_raises_a_whole_message(self):
        message = self.bus.new_message("All in one", "Hello", attachments=[("voice.m4a", AUDIO)])
        wait_until(lambda: self.active_title().startswith("Write: All in one"), "the compose window in front")
        self.bus.call("AddRecipient", "to", "", "carl@example.test", path=message)
        self.thunderbird.send_from_window("Write: All in one")
        [mail] = self.mail.wait_sent()
        self.assertEqual([part.get_content() for part in mail.iter_attachments()], [AUDIO])
        self.assertEqual(text_of(mail), "Hello")

    def active_title(self):
        return self.sandbox.run(["xdotool", "getactivewindow", "getwindowname"])


if __name__ == "__main__":
    unittest.main()
