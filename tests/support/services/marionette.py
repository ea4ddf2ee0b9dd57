"""Thunderbird's own remote control, for what no person's key reaches in a test: switching an add-on off and on."""

import json
import socket

from .base import wait_until

_SWITCH = """
const [id, on, done] = arguments;
const { AddonManager } = ChromeUtils.importESModule("resource://gre/modules/AddonManager.sys.mjs");
AddonManager.getAddonByID(id).then(addon => on ? addon.enable() : addon.disable()).then(
  () => done("ok"), problem => done(String(problem)));
"""


class Marionette:
    """One session with a Thunderbird that was started with `ARGUMENTS` and the preference marionette.port."""

    ARGUMENTS = ("--marionette", "--remote-allow-system-access")

    def __init__(self, port):
        self.socket = wait_until(lambda: self._connect(port), "Thunderbird's remote control")
        self.stream = self.socket.makefile("rb")
        self._read()
        self.serial = 0
        self._command("WebDriver:NewSession", {})
        self._command("Marionette:SetContext", {"value": "chrome"})

    @staticmethod
    def _connect(port):
        try:
            return socket.create_connection(("127.0.0.1", port), 10)
        except OSError:
            return None

    def _read(self):
        length = b""
        while (byte := self.stream.read(1)) != b":":
            length += byte
        return json.loads(self.stream.read(int(length)))

    def _command(self, name, parameters):
        self.serial += 1
        text = json.dumps([0, self.serial, name, parameters]).encode()
        self.socket.sendall(b"%d:%s" % (len(text), text))
        _kind, _serial, error, result = self._read()
        if error:
            raise RuntimeError(error)
        return result.get("value")

    def switch_addon(self, identifier, on):
        told = self._command("WebDriver:ExecuteAsyncScript", {"script": _SWITCH, "args": [identifier, on]})
        if told != "ok":
            raise RuntimeError(told)

    def close(self):
        self.stream.close()
        self.socket.close()
