"""What a person does to be sure before sending, in the running program's window."""

from services.base import ServiceError, wait_until


class Listening:
    """Works the place for listening through its accessible names, after a recording was stopped."""

    def __init__(self, person, kest, recording):
        self.person = person
        self.kest = kest
        self.recording = recording

    def position(self):
        """(where it is heard, the length), in whole seconds as they are told to people who cannot see it."""
        def seconds(text):
            minutes, rest = text.split(":")
            return 60 * int(minutes) + int(rest)
        told = self.person.value_text(self.kest.control("Position"))
        here, _, length = told.partition(" of ")
        return seconds(here), seconds(length)

    def open(self):
        self.kest.click("Show More")
        wait_until(lambda: self.position()[1] > 0, "the recording to be read", 60)

    def play_and_pause(self):
        self.kest.click("Play")
        wait_until(lambda: self.position()[0] >= 1, "a second of it to be heard", 60)
        self.kest.click("Pause Playing")
        self.kest.control("Play")
        if self.kest.time_text() != "--:--":
            raise ServiceError("playing changed the recording time")

    def seek_and_hear_the_end(self):
        """A click in the middle of the waveform, and what comes behind it."""
        length = self.position()[1]
        self.kest.click("Position")
        wait_until(lambda: abs(self.position()[0] - length / 2) <= 1, "the position to be in the middle", 30)
        self.kest.click("Play")
        wait_until(lambda: self.position() == (length, length), "the end to be heard", 60)
        self.kest.control("Play")

    def discard_and_undo(self):
        self.kest.click("Discard Recording")
        wait_until(lambda: not self.recording.exists(), "the recording to be thrown away")
        if self.person.is_enabled(self.kest.control("New Message")):
            raise ServiceError("a recording that was thrown away is offered for a message")
        self.kest.click("Undo Discard")
        wait_until(self.recording.exists, "the recording to be back")
        self.kest.control("Play")
        wait_until(lambda: self.person.is_enabled(self.kest.control("New Message")), "the recording to be offered")
