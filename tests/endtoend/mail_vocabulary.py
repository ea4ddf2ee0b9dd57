"""Every member of the application and of an outgoing message, in a Thunderbird that writes plain text."""

import contextlib
import unittest
import xml.etree.ElementTree as ElementTree

import dbus

from mail_case import END, MailCase, repeat_until, text_of, wait_until

APPLICATION = "/org/kest/Mail1"


class Vocabulary(MailCase):

    options = {"second_account": True}

    def shown(self, subject, content="", **properties):
        """A visible message; its window is gone after the test."""
        message = self.bus.make(subject, content)
        for name, value in properties.items():
            self.bus.set(message, name, value)
        self.bus.set(message, "Visible", True)
        self.addCleanup(self.discard, message, subject)
        return message

    def discard(self, message, subject):
        if self.thunderbird.windows(f"Write: {subject}"):
            with contextlib.suppress(dbus.DBusException):
                self.bus.call("Delete", path=message)

    def recipients(self, message, kind):
        return [(str(name), str(address)) for name, address in self.bus.get(message, f"{kind}Recipients")]

    # The application

    def test_the_application_says_who_it_is(self):
        self.assertEqual(self.bus.get(APPLICATION, "ProtocolVersion"), 1)
        self.assertEqual(self.bus.get(APPLICATION, "Name"), "Thunderbird")
        self.assertEqual(list(self.bus.get(APPLICATION, "Features")), ["NewMessage", "Reply"])
        self.assertRegex(self.bus.get(APPLICATION, "ApplicationVersion"), r"^\d+\.")
        self.assertRegex(self.bus.get(APPLICATION, "Version"), r"^\d+\.\d+\.\d+$")

    def test_introspection_shows_the_contract(self):
        told = self.bus.connection.call_blocking(
            self.bus.name, APPLICATION, "org.freedesktop.DBus.Introspectable", "Introspect", "", ())
        methods = {method.get("name") for method in ElementTree.fromstring(told).findall(
            "interface[@name='org.kest.Mail1.Application']/method")}
        self.assertEqual(methods, {"Accounts", "Selection", "MakeOutgoingMessage", "Activate", "NewMessage", "Reply"})

    def test_accounts_stand_in_thunderbirds_order(self):
        self.assertEqual([(name, sender) for _id, name, sender in self.bus.accounts()], [
            ("Anna's mail", "Anna Lark <anna@example.test>"), ("Club", "The Club <club@example.test>")])

    def test_nothing_is_selected_in_an_empty_inbox(self):
        self.assertEqual(self.bus.selection(), [])

    def test_activate_raises_the_main_window_when_nothing_is_written(self):
        self.bus.call("Activate")
        wait_until(lambda: "Mozilla Thunderbird" in self.active_title(), "the main window in front")

    # Outgoing messages

    def test_a_hidden_message_keeps_what_it_is_given(self):
        message = self.bus.make("Sûbject “1”", "One\n\n  two\t3\n")
        self.assertEqual(self.bus.get(message, "Subject"), "Sûbject “1”")
        self.assertEqual(self.bus.get(message, "Content"), "One\n\n  two\t3\n")
        self.assertEqual(self.bus.get(message, "Sender"), "Anna Lark <anna@example.test>")
        self.assertFalse(self.bus.get(message, "Visible"))
        self.bus.set(message, "Subject", "Other")
        self.bus.set(message, "Content", "")
        self.bus.set(message, "Sender", "The Club <club@example.test>")
        self.assertEqual([self.bus.get(message, name) for name in ("Subject", "Content", "Sender")],
                         ["Other", "", "The Club <club@example.test>"])

    def test_recipients_are_kept_by_kind_and_in_order(self):
        for message in (self.bus.make("Hidden"), self.shown("Recipients")):
            self.bus.call("AddRecipient", "to", "Lark, \"Ben\"", "ben@example.test", path=message)
            self.bus.call("AddRecipient", "to", "", "carl@example.test", path=message)
            self.bus.call("AddRecipient", "cc", "Dörte 🎤", "d@example.test", path=message)
            self.bus.call("AddRecipient", "bcc", "eve@example.test", "eve@example.test", path=message)
            self.assertEqual(self.recipients(message, "To"),
                             [("Lark, \"Ben\"", "ben@example.test"), ("", "carl@example.test")])
            self.assertEqual(self.recipients(message, "Cc"), [("Dörte 🎤", "d@example.test")])
            self.assertEqual([address for _name, address in self.recipients(message, "Bcc")], ["eve@example.test"])

    def test_a_recipient_of_no_kind_or_without_address_is_refused(self):
        message = self.bus.make()
        self.assertFails("InvalidArgument", self.bus.call, "AddRecipient", "from", "", "a@example.test", path=message)
        self.assertFails("InvalidArgument", self.bus.call, "AddRecipient", "to", "Name", "", path=message)

    def test_a_visible_message_is_read_and_written_in_its_window(self):
        message = self.shown("Seen", "Text above\nanother line")
        self.assertTrue(self.bus.get(message, "Visible"))
        self.assertEqual(self.bus.get(message, "Content"), "Text above\nanother line")
        self.bus.set(message, "Subject", "Seen twice")
        self.bus.set(message, "Content", "New text")
        self.assertTrue(self.thunderbird.wait_window("Write: Seen twice"))
        self.assertEqual(self.bus.get(message, "Content"), "New text")
        self.bus.call("Delete", path=message)

    def test_the_signature_of_the_sender_stands_below_the_text(self):
        message = self.shown("Signed", "Hello\n\n", Sender="Anna at Work <work@example.test>")
        self.assertEqual(self.bus.get(message, "Sender"), "Anna at Work <work@example.test>")
        self.assertEqual(self.bus.get(message, "Content").rstrip("\n"), "Hello")
        self.bus.call("AddRecipient", "to", "", "ben@example.test", path=message)
        self.bus.call("Send", path=message)
        [mail] = self.mail.wait_sent()
        self.assertEqual(mail["from"], "Anna at Work <work@example.test>")
        self.assertRegex(text_of(mail), r"^Hello\n+-- \nLark & Sons\nby the sea$")

    def test_changing_the_sender_of_a_visible_message_changes_its_signature(self):
        message = self.shown("Other sender", "Hello")
        self.bus.set(message, "Sender", "Anna at Work <work@example.test>")
        self.bus.set(message, "Sender", "Anna Lark <anna@example.test>")
        self.bus.set(message, "Sender", "Anna at Work <work@example.test>")
        self.bus.call("AddRecipient", "to", "", "ben@example.test", path=message)
        self.bus.call("Send", path=message)
        [mail] = self.mail.wait_sent()
        self.assertEqual(text_of(mail).count("Lark & Sons"), 1)
        self.assertTrue(text_of(mail).startswith("Hello\n"), text_of(mail))

    def test_a_stranger_cannot_be_the_sender(self):
        message = self.bus.make()
        words = self.assertFails("InvalidArgument", self.bus.set, message, "Sender", "Mallory <m@example.test>")
        self.assertIn("Mallory", words)

    def test_a_visible_message_cannot_be_hidden(self):
        message = self.shown("Stay")
        self.assertFails("Unsupported", self.bus.set, message, "Visible", False)

    def test_sending_a_hidden_message_sends_it_and_ends_it(self):
        message = self.bus.make("Straight away", "Body")
        self.bus.call("AddRecipient", "to", "Ben", "ben@example.test", path=message)
        self.bus.attach(message, "a.m4a", b"12345")
        self.bus.call("Send", path=message)
        [mail] = self.mail.sent()
        self.assertEqual((mail["subject"], text_of(mail)), ("Straight away", "Body"))
        self.assertEqual([part.get_content() for part in mail.iter_attachments()], [b"12345"])
        self.assertFails("NoSuchObject", self.bus.get, message, "Subject")
        wait_until(lambda: not self.thunderbird.windows("Write: Straight away"), "the window to close")

    def test_a_message_without_recipients_is_not_sent_and_stays(self):
        message = self.shown("To nobody")
        self.assertIn("recipient", self.assertFails("Failed", self.bus.call, "Send", path=message))
        self.assertEqual(self.bus.get(message, "Subject"), "To nobody")

    def test_sending_waits_for_a_person_who_is_asked_something(self):
        message = self.bus.make("", "No subject")
        self.bus.call("AddRecipient", "to", "", "ben@example.test", path=message)
        asked = self.thunderbird.answer_prompt("Subject Reminder", "Return")
        self.bus.call("Send", path=message)
        asked.join(60)
        self.assertEqual(text_of(self.mail.sent()[0]), "No subject")

    def test_delete_discards_without_asking(self):
        hidden, visible = self.bus.make("Hidden"), self.shown("Away with it", "edited")
        self.bus.set(visible, "Content", "edited again")
        for message in (hidden, visible):
            self.bus.call("Delete", path=message)
            self.assertFails("NoSuchObject", self.bus.call, "Delete", path=message)
        wait_until(lambda: not self.thunderbird.windows("Write: Away with it"), "the window to close")

    def test_a_message_whose_window_a_person_closes_is_gone(self):
        message = self.shown("Closed by hand")
        repeat_until(lambda: self.thunderbird.press("Write: Closed by hand", "ctrl+w"),
                     lambda: self.thunderbird.windows("Save Message"), "the question")
        self.thunderbird.press_until_gone("Save Message", "alt+d")
        wait_until(lambda: not self.thunderbird.windows("Write: Closed by hand"), "the window to close")
        self.assertFails("NoSuchObject", self.bus.get, message, "Subject")

    def test_attachments_at_one_index_stand_in_reverse_order(self):
        attached = [("one", 4), ("two", 4), ("three", 4), ("last", END), ("first", 0)]
        for hidden in range(0, len(attached) + 1):
            message = self.bus.make(f"Order {hidden}", "0123456789")
            for number, (name, index) in enumerate(attached):
                if number == hidden:
                    self.bus.set(message, "Visible", True)
                self.bus.attach(message, f"{name}.txt", name.encode(), index)
            self.bus.call("AddRecipient", "to", "", "ben@example.test", path=message)
            self.bus.call("Send", path=message)
            mail = self.mail.wait_sent()[-1]
            self.assertEqual([(part.get_filename(), part.get_content()) for part in mail.iter_attachments()],
                             [(f"{name}.txt", name) for name in ("first", "three", "two", "one", "last")])

    def test_the_account_by_name_gives_the_sender_of_a_new_message(self):
        message = self.bus.new_message("By account", "Text", account="Club")
        self.addCleanup(self.discard, message, "By account")
        self.assertEqual(self.bus.get(message, "Sender"), "The Club <club@example.test>")

    def test_an_unknown_account_means_the_default_one(self):
        message = self.bus.new_message("Unknown account", "Text", account="*none found*")
        self.addCleanup(self.discard, message, "Unknown account")
        self.assertEqual(self.bus.get(message, "Sender"), "Anna Lark <anna@example.test>")

    # Focus

    def test_moving_between_thunderbirds_own_windows_is_no_loss_of_focus(self):
        message = self.shown("Focus")
        self.thunderbird.raise_window("Mozilla Thunderbird")
        self.bus.call("Accounts")
        self.bus.take_signals()
        self.thunderbird.raise_window("Write: Focus")
        self.thunderbird.raise_window("Mozilla Thunderbird")
        stranger = self.sandbox.start("stranger", ["xmessage", "elsewhere"])
        self.assertEqual(self.bus.wait_signal("FocusLost"), [("FocusLost",)])
        self.sandbox.stop(stranger)
        self.thunderbird.raise_window("Write: Focus")
        self.bus.wait_signal("FocusGained")
        self.bus.call("Delete", path=message)

    def active_title(self):
        return self.sandbox.run(["xdotool", "getactivewindow", "getwindowname"])


if __name__ == "__main__":
    unittest.main()
