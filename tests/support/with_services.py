#!/usr/bin/python3
"""Runs a command with private services round it, and ends them with it.

    with_services.py [--sound pulseaudio|pipewire] [--bus] [--accessibility] [--display [WIDTHxHEIGHT]]
        [--thunderbird] -- COMMAND ...

The command always gets a throw-away home. What the services are reachable by stands in its environment.
"""

import argparse
import os
import signal
import subprocess
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))

from services.base import Sandbox  # noqa: E402


def parse(argv):
    split = argv.index("--")
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--sound", choices=("pulseaudio", "pipewire"))
    parser.add_argument("--bus", action="store_true")
    parser.add_argument("--accessibility", action="store_true")
    parser.add_argument("--display", nargs="?", const="1280x800")
    parser.add_argument("--thunderbird", action="store_true",
                        help="a real Thunderbird with two accounts; three mails in its inbox, all selected")
    parser.add_argument("--keep", action="store_true", help="keep the throw-away home and say where it is")
    return parser.parse_args(argv[:split]), argv[split + 1:]


def start_services(sandbox, options):
    if options.bus or options.thunderbird or options.accessibility or options.sound == "pipewire":
        from services.bus import SessionBus
        sandbox.session_bus = SessionBus(sandbox)
    if options.display or options.thunderbird:
        from services.display import Display
        sandbox.display = Display(sandbox, options.display or "1280x800")
    if options.accessibility:
        from services.bus import AccessibilityBus
        sandbox.accessibility = AccessibilityBus(sandbox)
    if options.sound:
        from services.sound import SoundServer
        sandbox.sound = SoundServer(sandbox, options.sound)
    if options.thunderbird:
        start_thunderbird(sandbox)


def start_thunderbird(sandbox):
    from services.mailbus import MailBus
    from services.mailserver import MailServer, message
    from services.thunderbird import BUS_NAME, Thunderbird
    mail = MailServer(sandbox)
    for number in (1, 2, 3):
        mail.put("anna", message("Ben Ford <ben@example.test>", "anna@example.test", f"Question {number}", "How are you?",
                                 Cc="Carl <carl@example.test>"))
    sandbox.thunderbird = Thunderbird(sandbox, mail, second_account=True).start()
    sandbox.env["KEST_MAIL_SERVICE"] = BUS_NAME
    bus = MailBus(sandbox.env["DBUS_SESSION_BUS_ADDRESS"])
    sandbox.thunderbird.open_inbox(bus, 3)
    sandbox.thunderbird.select_all(bus)


def main():
    options, command = parse(sys.argv[1:])
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    with Sandbox(keep=options.keep) as sandbox:
        start_services(sandbox, options)
        sandbox.env["KEST_TEST_ROOT"] = str(sandbox.root)
        if options.keep:
            print(f"kept: {sandbox.root}", file=sys.stderr)
        child = subprocess.Popen(command, env=sandbox.env, cwd=os.getcwd())
        try:
            return child.wait()
        finally:
            if child.poll() is None:
                child.kill()
                child.wait()


if __name__ == "__main__":
    sys.exit(main())
