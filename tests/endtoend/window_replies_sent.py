"""Replies that Kest has sent at once, and originals that it has deleted, on a real Thunderbird and IMAP server."""

import unittest

from mail_case import repeat_until, wait_until
from reply_case import BACK_ENDS, BEN, LONG, ReplyCase

AT_ONCE = {"bSendReplies": "true", "bDeleteOriginals": "true"}


class RepliesSentAtOnce(ReplyCase):

    @classmethod
    def prepare_mail(cls):
        for back_end in BACK_ENDS:
            cls.put(BEN, "anna@example.test", f"to delete by {back_end}", "Away")
            cls.put(BEN, "anna@example.test", f"to keep by {back_end}", "Stay")
        cls.put(BEN, "anna@example.test", "to show", "Shown")

    def setUp(self):
        super().setUp()
        self.addCleanup(self.bring_smtp_back)

    def bring_smtp_back(self):
        self.mail.before_answer = lambda: None
        if not self.mail.smtp:
            self.mail.start_smtp()

    def test_a_sent_reply_moves_the_original_to_the_trash_once_the_server_has_confirmed(self):
        for back_end in BACK_ENDS:
            subject = f"to delete by {back_end}"
            with self.subTest(back_end):
                self.start_kest(back_end, **AT_ONCE)
                self.select(subject)
                unconfirmed = []
                self.mail.before_answer = lambda: unconfirmed.append(self.lies_in("", subject))
                self.answer()
                [mail] = self.mail.wait_sent(seconds=LONG)
                self.assertEqual(unconfirmed, [True])
                self.check_answer(mail, subject, "Away", threaded=back_end == "script")
                wait_until(lambda: self.lies_in("Trash", subject), "the original in the trash", LONG)
                wait_until(lambda: not self.lies_in("", subject), "the original to leave the inbox", LONG)
                self.kest.wait_until_idle(LONG)
                self.assertEqual(self.thunderbird.windows("Write:"), [])

    def test_with_the_server_down_the_reply_stays_open_and_the_original_where_it_is(self):
        for back_end in BACK_ENDS:
            subject = f"to keep by {back_end}"
            with self.subTest(back_end):
                self.start_kest(back_end, **AT_ONCE)
                self.select(subject)
                self.mail.stop_smtp()
                self.answer()
                self.thunderbird.wait_window("Send Message Error", LONG)
                self.thunderbird.press_until_gone("Send Message Error", "Return")
                self.kest.click("OK", LONG)
                self.kest.wait_until_idle(LONG)
                self.assertTrue(self.lies_in("", subject))
                self.assertFalse(self.lies_in("Trash", subject))
                self.assertEqual(self.kest.only_recording().read_bytes(), self.recording)
                self.mail.start_smtp()
                mail = self.send_from(f"Re: {subject}")
                self.check_answer(mail, subject, "Stay", threaded=back_end == "script")
                self.assertTrue(self.lies_in("", subject))

    def test_a_reply_is_made_while_thunderbird_shows_a_question(self):
        self.select("to show")
        waiting = self.bus.new_message("Unsent", "text")
        self.bus.call("AddRecipient", "to", "", "carl@example.test", path=waiting)
        self.mail.stop_smtp()
        repeat_until(lambda: self.thunderbird.press("Write: Unsent", "ctrl+Return"),
                     lambda: self.thunderbird.windows("Send Message Error"), "the question")
        self.mail.start_smtp()
        self.start_kest("script")
        self.answer()
        mail = self.send_from("Re: to show")
        self.check_answer(mail, "to show", "Shown")
        self.thunderbird.press_until_gone("Send Message Error", "Return")
        self.close_kest()
        self.bus.call("Delete", path=waiting)


if __name__ == "__main__":
    unittest.main()
