"""Another add-on in the same Thunderbird, which may start host programs of its own and tries ours."""

import http.server
import json
import threading
import urllib.parse
import zipfile

ADDON = "other@example.test"

MANIFEST = {
    "manifest_version": 2, "name": "Other", "version": "1.0",
    "browser_specific_settings": {"gecko": {"id": ADDON}},
    "permissions": ["nativeMessaging", "http://127.0.0.1/*"],
    "background": {"scripts": ["background.js"]},
}

# Whatever it hears it tells the test, under the way by which it tried.
SCRIPT = """
const tell = (way, what) => fetch(`http://127.0.0.1:PORT/?${new URLSearchParams({way, what})}`, {mode: "no-cors"});
const port = browser.runtime.connectNative("HOST");
port.onMessage.addListener(message => tell("host", `spoke: ${JSON.stringify(message)}`));
port.onDisconnect.addListener(({error}) => tell("host", `refused: ${error ? error.message : ""}`));
browser.runtime.sendMessage("TARGET", {call: 1, member: "Accounts"}).then(
  answer => tell("addon", answer === undefined ? "refused: no answer" : `answered: ${JSON.stringify(answer)}`),
  error => tell("addon", `refused: ${error.message}`));
"""


class OtherAddon:
    """Put it into the profile before Thunderbird starts. `heard` has what came of each way: "host" and "addon"."""

    def __init__(self, profile, host, target):
        self.heard = {}
        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), self._handler())
        threading.Thread(target=self.server.serve_forever, daemon=True).start()
        script = SCRIPT.replace("PORT", str(self.server.server_port)).replace("HOST", host).replace("TARGET", target)
        folder = profile / "extensions"
        folder.mkdir(exist_ok=True)
        with zipfile.ZipFile(folder / f"{ADDON}.xpi", "w") as package:
            package.writestr("manifest.json", json.dumps(MANIFEST))
            package.writestr("background.js", script)

    def _handler(self):
        heard = self.heard

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                query = urllib.parse.parse_qs(urllib.parse.urlsplit(self.path).query)
                heard.setdefault(query["way"][0], []).append(query["what"][0])
                self.send_response(204)
                self.end_headers()

            def log_message(self, *_arguments):
                pass

        return Handler

    def close(self):
        self.server.shutdown()
        self.server.server_close()
