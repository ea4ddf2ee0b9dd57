"""A private session bus."""

import os
import socket

from .base import wait_until

CONFIG = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path={socket}</listen>
  <auth>EXTERNAL</auth>
  <servicedir>{services}</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
  <limit name="max_message_unix_fds">256</limit>
  <limit name="max_incoming_unix_fds">1024</limit>
  <limit name="max_outgoing_unix_fds">1024</limit>
</busconfig>
"""


class SessionBus:
    """A dbus-daemon of its own; service files put into `services` make names activatable."""

    def __init__(self, sandbox):
        self.sandbox = sandbox
        self.socket = sandbox.runtime / "bus"
        self.services = sandbox.root / "dbus-services"
        self.services.mkdir(exist_ok=True)
        self.config = sandbox.root / "bus.conf"
        self.config.write_text(CONFIG.format(socket=self.socket, services=self.services))
        sandbox.env["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={self.socket}"
        self.start()

    def start(self):
        self.process = self.sandbox.start(
            "bus", ["dbus-daemon", f"--config-file={self.config}", "--nofork", "--nopidfile"])
        wait_until(self._answers, "the session bus")

    def stop(self):
        self.sandbox.stop(self.process)
        self.socket.unlink(missing_ok=True)

    def _answers(self):
        if not os.path.exists(self.socket):
            return False
        with socket.socket(socket.AF_UNIX) as probe:
            try:
                probe.connect(str(self.socket))
            except OSError:
                return False
        return True


class AccessibilityBus:
    """The accessibility bus and its registry, so that programs can be operated by role and name."""

    def __init__(self, sandbox):
        sandbox.env.pop("NO_AT_BRIDGE", None)
        sandbox.env.update(QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", GNOME_ACCESSIBILITY="1", QT_ACCESSIBILITY="1")
        self.process = sandbox.start("at-spi", ["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"])
        wait_until(lambda: sandbox.run(
            ["dbus-send", "--session", "--print-reply=literal", "--dest=org.freedesktop.DBus", "/org/freedesktop/DBus",
             "org.freedesktop.DBus.NameHasOwner", "string:org.a11y.Bus"]).strip().endswith("true"),
            "the accessibility bus")
