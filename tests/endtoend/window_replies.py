"""Reply and Reply All from Kest's own window, through both back ends, up to the mail that arrives."""

import unittest

import mail_case  # noqa: F401  (finds the services)
from reply_case import BACK_ENDS, BEN, LONG, ReplyCase


class RepliesFromTheWindow(ReplyCase):

    options = {"second_account": True}

    @classmethod
    def prepare_mail(cls):
        cls.put(BEN, "anna@example.test", "1 to me", "First question")
        cls.put(BEN, '"Work, Anna" <WORK@example.test>, carl@example.test', "2 to my other self", "Second question",
                Cc="Anna <anna@example.test>, Dora <dora@example.test>")
        cls.put(BEN, "club@example.test", "3 with reply-to", "Third question", Reply_To="List <list@example.test>")
        cls.put(BEN, "anna@example.test", "", "A question without a subject")
        cls.put(BEN, "anna@example.test", "5 the last", "Last question")

    def test_of_several_selected_messages_the_last_is_answered(self):
        for back_end in BACK_ENDS:
            with self.subTest(back_end):
                self.start_kest(back_end)
                self.thunderbird.select_all(self.bus)
                self.answer()
                mail = self.send_from("Re: 5 the last")
                self.check_answer(mail, "5 the last", "Last question", threaded=back_end == "script")

    def test_a_message_in_a_tab_of_its_own_is_answered(self):
        self.start_kest("script")
        self.select("1 to me")
        self.thunderbird.press("Inbox - ", "Return")
        self.thunderbird.wait_window("1 to me - ")
        self.answer()
        mail = self.send_from("Re: 1 to me")
        self.thunderbird.press("1 to me - ", "ctrl+w")
        self.thunderbird.wait_window("Inbox - ")
        self.check_answer(mail, "1 to me", "First question")

    def test_a_message_without_a_subject_is_answered(self):
        self.start_kest("script")
        self.select("")
        self.answer()
        self.thunderbird.wait_window("Write: Re:", LONG)
        self.kest.wait_until_idle(LONG)
        self.thunderbird.send_from_window("Write: Re:")
        [mail] = self.mail.wait_sent()
        self.check_answer(mail, "", "A question without a subject")


if __name__ == "__main__":
    unittest.main()
