"""Selection, replies and deletion in a real Thunderbird, in plain text."""

import unittest

from mail_case import MailCase, message, repeat_until, text_of, wait_until

AUDIO = b"\0voice" * 1000
BEN = "Ben Ford <ben@example.test>"


class Replies(MailCase):

    options = {"second_account": True}

    @classmethod
    def prepare_mail(cls):
        cls.mail.put("anna", message(BEN, "anna@example.test", "1 to me", "First question\nBen"))
        cls.mail.put("anna", message(BEN, '"Work, Anna" <WORK@example.test>, carl@example.test', "2 to my other self",
                                     "Hi", Cc="Anna <anna@example.test>, Dora <dora@example.test>"))
        cls.mail.put("anna", message(BEN, "club@example.test", "3 with reply-to", "Ho",
                                     Reply_To="List <list@example.test>"))
        cls.mail.put("anna", message(BEN, "anna@example.test", "4 to delete", "Away"))
        cls.mail.put("anna", message(BEN, "anna@example.test", "5 to keep", "Stay"))

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.thunderbird.open_inbox(cls.bus, 5)
        cls.thunderbird.select_all(cls.bus)
        cls.inbox = {str(cls.bus.get(path, "Subject"))[:1]: path for path in cls.bus.selection()}

    def shown_reply(self, original, **options):
        reply = self.bus.reply(original, **options)
        self.addCleanup(self.bus.call, "Delete", path=reply)
        return reply

    def addresses(self, path, kind):
        return [str(address) for _name, address in self.bus.get(path, f"{kind}Recipients")]

    def is_in_trash(self):
        return any(b"4 to delete" in path.read_bytes() for path in self.mail.files("anna", "Trash"))

    # Selection

    def test_the_selection_stands_in_the_order_of_the_view(self):
        count = self.thunderbird.select_all(self.bus)
        subjects = [str(self.bus.get(path, "Subject")) for path in self.bus.selection()]
        self.assertEqual(len(subjects), count)
        self.assertEqual(subjects, sorted(subjects))

    def test_the_selection_is_asked_of_the_main_window_while_a_compose_window_has_the_focus(self):
        first = self.thunderbird.select_first(self.bus)
        written = self.bus.new_message("In front", "")
        self.addCleanup(self.bus.call, "Delete", path=written)
        self.thunderbird.raise_window("Write: In front")
        self.assertEqual(self.bus.selection(), [first])

    def test_a_message_in_a_tab_of_its_own_is_the_selection(self):
        first = self.thunderbird.select_first(self.bus)
        self.addCleanup(self.thunderbird.close_opened, "1 to me - ")
        self.thunderbird.open_first(self.bus, "1 to me - ")
        self.assertEqual(self.bus.selection(), [first])

    # What a message says

    def test_the_answer_goes_to_the_sender_or_to_whom_the_message_names(self):
        self.assertEqual(self.bus.get(self.inbox["1"], "ReplyTo"), BEN)
        self.assertEqual(self.bus.get(self.inbox["3"], "ReplyTo"), "List <list@example.test>")

    def test_what_is_no_message_cannot_be_asked(self):
        for path in ("/org/kest/Mail1/message/99999", "/org/kest/Mail1/message/x", "/org/kest/Mail1/message/1/2"):
            self.assertFails("NoSuchObject", self.bus.get, path, "Subject")

    # Replies step by step

    def test_a_reply_without_a_window_holds_what_thunderbirds_reply_would(self):
        reply = str(self.bus.call("Reply", False, True, path=self.inbox["1"], signature="bb"))
        self.assertFalse(self.bus.get(reply, "Visible"))
        self.assertEqual(self.thunderbird.windows("Write:"), [])
        self.assertEqual(self.bus.get(reply, "Subject"), "Re: 1 to me")
        self.assertEqual(self.bus.get(reply, "Sender"), "Anna Lark <anna@example.test>")
        self.assertRegex(str(self.bus.get(reply, "Content")), r"Ben Ford wrote:\n> First question\n> Ben\s*$")
        self.assertEqual(self.addresses(reply, "To"), ["ben@example.test"])
        self.bus.call("Delete", path=reply)
        self.assertFails("NoSuchObject", self.bus.get, reply, "Subject")

    def test_a_reply_to_all_goes_to_everybody_else_by_the_identity_that_was_addressed(self):
        reply = str(self.bus.call("Reply", False, True, path=self.inbox["2"], signature="bb"))
        self.assertEqual(self.bus.get(reply, "Sender"), "Anna at Work <work@example.test>")
        self.assertEqual(self.addresses(reply, "To"), ["ben@example.test", "carl@example.test"])
        self.assertEqual(self.addresses(reply, "Cc"), ["dora@example.test"])
        self.assertNotIn("Lark & Sons", self.bus.get(reply, "Content"))
        self.bus.call("Delete", path=reply)

    def test_a_hidden_reply_sends_as_an_answer(self):
        reply = str(self.bus.call("Reply", False, False, path=self.inbox["2"], signature="bb"))
        self.bus.set(reply, "Content", "My answer\n" + self.bus.get(reply, "Content"))
        self.bus.call("Send", path=reply)
        [mail] = self.mail.wait_sent()
        self.assertEqual((mail["to"], mail["from"]), (BEN, "Anna at Work <work@example.test>"))
        self.assertTrue(mail["in-reply-to"])
        self.assertRegex(text_of(mail), r"^My answer\n(.*\n)*> Hi")
        self.assertEqual(text_of(mail).count("Lark & Sons"), 1)

    def test_a_reply_with_nothing_but_an_attachment_is_not_closed_without_a_question(self):
        reply = str(self.bus.call("Reply", False, False, path=self.inbox["5"], signature="bb"))
        self.bus.attach(reply, "voice.m4a", AUDIO)
        self.bus.set(reply, "Visible", True)
        repeat_until(lambda: self.thunderbird.press("Write: Re: 5 to keep", "ctrl+w"),
                     lambda: self.thunderbird.windows("Save Message"), "the question")
        self.thunderbird.press_until_gone("Save Message", "alt+d")
        wait_until(lambda: not self.thunderbird.windows("Write: Re: 5 to keep"), "the window to close")

    def test_a_reply_with_its_window_is_visible(self):
        reply = str(self.bus.call("Reply", True, False, path=self.inbox["3"], signature="bb"))
        self.addCleanup(self.bus.call, "Delete", path=reply)
        self.assertTrue(self.bus.get(reply, "Visible"))
        self.assertTrue(self.thunderbird.wait_window("Write: Re: 3 with reply-to"))
        self.assertEqual(self.addresses(reply, "To"), ["list@example.test"])

    # Replies in one call

    def test_one_call_shows_a_reply_with_text_above_the_quote_and_the_attachment(self):
        reply = self.bus.reply(self.inbox["1"], "Spoken answer\n\n", attachments=[("voice.m4a", AUDIO)])
        wait_until(lambda: "Write: Re: 1 to me" in self.sandbox.run(["xdotool", "getactivewindow", "getwindowname"]),
                   "the reply in front")
        self.assertRegex(str(self.bus.get(reply, "Content")), r"^Spoken answer\n\n\s*On .*\n> First question")
        self.thunderbird.send_from_window("Write: Re: 1 to me")
        [mail] = self.mail.wait_sent()
        self.assertTrue(mail["in-reply-to"])
        self.assertEqual([part.get_content() for part in mail.iter_attachments()], [AUDIO])
        self.assertFails("NoSuchObject", self.bus.get, reply, "Subject")

    def test_one_call_sends_a_reply_to_all_from_the_named_account(self):
        result = self.bus.reply(self.inbox["2"], "On behalf of the club", account="Club", all=True, send=True)
        self.assertEqual(result, "/")
        [mail] = self.mail.sent()
        self.assertEqual(mail["from"], "The Club <club@example.test>")
        self.assertIn("dora@example.test", mail["cc"])
        self.assertTrue(text_of(mail).startswith("On behalf of the club"))
        self.assertEqual(self.bus.get(self.inbox["2"], "Subject"), "2 to my other self")

    def test_a_sent_reply_deletes_the_original_when_asked(self):
        self.bus.reply(self.inbox["4"], "Read and gone", send=True, delete=True)
        self.assertEqual(len(self.mail.sent()), 1)
        wait_until(self.is_in_trash, "the message in the trash")
        self.assertFails("NoSuchObject", self.bus.get, self.inbox["4"], "Subject")

    def test_a_reply_that_the_server_refuses_keeps_the_original_and_its_window(self):
        self.mail.refuse = "554 not today"
        self.thunderbird.answer_prompt("Send Message Error", "Return")
        self.assertFails("Failed", self.bus.reply, self.inbox["5"], "Lost?", send=True, delete=True)
        self.assertEqual(self.bus.get(self.inbox["5"], "Subject"), "5 to keep")
        self.assertTrue(self.thunderbird.windows("Write: Re: 5 to keep"))
        self.mail.refuse = None
        self.thunderbird.send_from_window("Write: Re: 5 to keep")
        [mail] = self.mail.wait_sent()
        self.assertTrue(text_of(mail).startswith("Lost?"))


if __name__ == "__main__":
    unittest.main()
