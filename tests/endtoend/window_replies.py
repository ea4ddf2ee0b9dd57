"""Reply and Reply All from Kest's own window, through both back ends, up to the mail that arrives."""

import unittest

from mail_case import repeat_until, text_of
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

    def test_reply_carries_text_quote_and_recording_to_who_wrote(self):
        for back_end in BACK_ENDS:
            with self.subTest(back_end):
                self.start_kest(back_end)
                self.select("1 to me")
                self.answer()
                mail = self.send_from("Re: 1 to me")
                self.check_answer(mail, "1 to me", "First question", threaded=back_end == "script")
                self.assertEqual((mail["to"], mail["from"]), (BEN, "Anna Lark <anna@example.test>"))

    def test_reply_all_goes_to_everybody_else_from_the_identity_that_was_addressed(self):
        for back_end in BACK_ENDS:
            with self.subTest(back_end):
                self.start_kest(back_end)
                self.select("2 to my other self")
                self.answer("Reply All")
                mail = self.send_from("Re: 2 to my other self")
                self.check_answer(mail, "2 to my other self", "Second question", threaded=back_end == "script")
                self.assertEqual(mail["from"], "Anna at Work <work@example.test>")
                self.assertEqual(self.addresses(mail, "to"), ["ben@example.test", "carl@example.test"])
                self.assertEqual(self.addresses(mail, "cc"), ["dora@example.test"])
                self.assertEqual(text_of(mail).count("Lark & Sons"), 1)

    def test_reply_of_a_reply_to_all_of_several_goes_to_the_sender_alone(self):
        self.start_kest("script")
        self.select("2 to my other self")
        self.answer()
        mail = self.send_from("Re: 2 to my other self")
        self.assertEqual((self.addresses(mail, "to"), mail["cc"]), (["ben@example.test"], None))

    def test_the_answer_goes_to_whom_the_message_names_and_the_recording_carries_the_name(self):
        for back_end in BACK_ENDS:
            with self.subTest(back_end):
                self.start_kest(back_end, bIncudeReplyToInName="true")
                stem = self.kest.only_recording().stem
                self.select("3 with reply-to")
                self.answer()
                mail = self.send_from("Re: 3 with reply-to")
                self.assertEqual(self.addresses(mail, "to"), ["list@example.test"])
                self.check_answer(mail, "3 with reply-to", "Third question", threaded=back_end == "script",
                                  name=f"{stem}_List.m4a")
                self.assertEqual(self.kest.only_recording().name, f"{stem}_List.m4a")
                self.assertEqual(self.kest.only_recording().read_bytes(), self.recording)

    def test_the_chosen_account_answers(self):
        self.start_kest("script", emailAccountToUse='"Club"')
        self.select("1 to me")
        self.answer()
        mail = self.send_from("Re: 1 to me")
        self.check_answer(mail, "1 to me", "First question")
        self.assertEqual(mail["from"], "The Club <club@example.test>")

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
        self.addCleanup(self.thunderbird.close_opened, "1 to me - ")
        self.thunderbird.open_first(self.bus, "1 to me - ")
        self.answer()
        mail = self.send_from("Re: 1 to me")
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

    def test_without_a_selected_message_the_window_says_so_and_keeps_the_recording(self):
        self.start_kest("script")
        self.thunderbird.select_first(self.bus)
        repeat_until(lambda: self.thunderbird.press("Inbox - ", "ctrl+space"), lambda: not self.bus.selection(),
                     "no selected message")
        self.answer()
        self.kest.click("OK")
        self.kest.wait_until_idle(LONG)
        self.assertTrue(self.person.is_enabled(self.kest.control("Reply")))
        self.thunderbird.select_first(self.bus)
        self.answer()
        self.check_answer(self.send_from("Re: 1 to me"), "1 to me", "First question")


if __name__ == "__main__":
    unittest.main()
