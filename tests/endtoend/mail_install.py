"""The command that people use to put the add-on into their own Thunderbird, and to take it out."""

import json
import os
import subprocess
import unittest
from pathlib import Path

from mail_case import wait_until
from services.base import Sandbox
from services.bus import SessionBus
from services.display import Display
from services.thunderbird import Thunderbird

COMMAND = Path(os.environ["KEST_SOURCE_DIR"]) / "packaging" / "thunderbird-addon"
BUILD = os.environ["KEST_BUILD_DIR"]
ADDON = "kest@kest.invalid"


class Command(unittest.TestCase):
    """Without Thunderbird, on profiles that are only folders."""

    def setUp(self):
        self.sandbox = Sandbox()
        self.addCleanup(self.sandbox.close)

    def profile(self, root=".thunderbird", ini="[Profile0]\nName=default\nIsRelative=1\nPath=abc.default\nDefault=1\n",
                name="abc.default", file="profiles.ini"):
        folder = self.sandbox.home / root / name
        folder.mkdir(parents=True, exist_ok=True)
        (folder.parent / file).write_text(ini)
        return folder

    def run_command(self, *arguments):
        done = subprocess.run([str(COMMAND), *arguments], env=self.sandbox.env, capture_output=True, text=True,
                              timeout=20)
        return done.returncode, done.stdout + done.stderr

    def files(self):
        home = self.sandbox.home
        return sorted(str(path.relative_to(home)) for path in home.rglob("*") if path.is_file())

    def manifest(self):
        return json.loads((self.sandbox.home / ".mozilla/native-messaging-hosts/org.kest.mailhost.json").read_text())

    def test_install_and_remove_leave_the_home_as_it_was(self):
        profile = self.profile()
        (profile / "user.js").write_text('user_pref("mine", 1);\n')
        (profile / "prefs.js").write_text('user_pref("mine", 1);\nuser_pref("extensions.startupScanScopes", 1);\n'
                                          'user_pref("extensions.autoDisableScopes", 14);\n')
        before = self.files()
        self.assertEqual(self.run_command("install", "--build", BUILD)[0], 0)
        self.assertTrue((profile / "extensions" / f"{ADDON}.xpi").exists())
        manifest = self.manifest()
        self.assertEqual((manifest["path"], manifest["allowed_extensions"]), (f"{BUILD}/bin/kest-mail-host", [ADDON]))
        self.assertIn("autoDisableScopes", (profile / "user.js").read_text())
        self.assertEqual(self.run_command("install", "--build", BUILD)[0], 0)
        self.assertEqual((profile / "user.js").read_text().count("autoDisableScopes"), 1)
        self.assertEqual(self.run_command("remove")[0], 0)
        self.assertEqual(self.files(), before)
        self.assertEqual((profile / "user.js").read_text(), 'user_pref("mine", 1);\n')
        self.assertEqual((profile / "prefs.js").read_text(), 'user_pref("mine", 1);\n')

    def test_a_home_without_any_of_it_is_emptied_again(self):
        self.sandbox.welcomed.unlink()
        self.profile()
        self.run_command("install", "--build", BUILD)
        self.run_command("remove")
        self.assertEqual(self.files(), [".thunderbird/profiles.ini"])
        self.assertFalse((self.sandbox.home / ".mozilla").exists())

    def test_a_linked_user_js_in_another_encoding_comes_back_byte_for_byte(self):
        profile = self.profile()
        elsewhere = self.sandbox.home / "dotfiles.js"
        elsewhere.write_bytes(b'// Gr\xf6\xdfe\r\nuser_pref("mine", 1);\r\n')
        before = elsewhere.read_bytes()
        (profile / "user.js").symlink_to(elsewhere)
        self.assertEqual(self.run_command("install", "--build", BUILD)[0], 0)
        self.assertIn(b"autoDisableScopes", elsewhere.read_bytes())
        self.assertEqual(self.run_command("remove")[0], 0)
        self.assertTrue((profile / "user.js").is_symlink())
        self.assertEqual(elsewhere.read_bytes(), before)

    def test_a_thunderbird_in_a_sandbox_is_refused_in_words(self):
        self.profile(root=".var/app/org.mozilla.Thunderbird/.thunderbird")
        code, words = self.run_command("install", "--build", BUILD)
        self.assertNotEqual(code, 0)
        self.assertIn("Flatpak", words)
        self.assertFalse((self.sandbox.home / ".mozilla").exists())

    def test_removing_twice_says_that_nothing_was_there(self):
        self.profile()
        code, words = self.run_command("remove")
        self.assertEqual(code, 0)
        self.assertIn("nothing of Kest", words)

    def test_status_says_how_things_stand(self):
        self.profile()
        code, words = self.run_command("status")
        self.assertEqual(code, 3)
        self.assertEqual(self.run_command("status", "--quiet"), (3, ""))
        self.assertIn("Add-on: not installed", words)
        self.run_command("install", "--build", BUILD)
        code, words = self.run_command("status")
        self.assertEqual(code, 0)
        self.assertIn("bin/kest-mail-host", words)

    def test_the_installations_own_default_profile_goes_before_the_marked_one(self):
        self.profile(name="old.default")
        chosen = self.profile(name="new.esr", file="installs.ini", ini="[ABC]\nDefault=new.esr\nLocked=1\n")
        (chosen.parent / "profiles.ini").write_text("[Profile0]\nPath=old.default\nIsRelative=1\nDefault=1\n")
        self.run_command("install", "--build", BUILD)
        self.assertTrue((chosen / "extensions" / f"{ADDON}.xpi").exists())

    def test_a_profile_under_the_config_folder_is_found(self):
        profile = self.profile(root=".config/thunderbird")
        self.run_command("install", "--build", BUILD)
        self.assertTrue((profile / "extensions" / f"{ADDON}.xpi").exists())

    def test_a_firefox_that_would_lose_its_profiles_is_protected(self):
        self.profile()
        modern = self.sandbox.home / ".config/mozilla"
        (modern / "firefox").mkdir(parents=True)
        code, words = self.run_command("install", "--build", BUILD)
        self.assertEqual(code, 1)
        self.assertIn("Firefox", words)
        self.assertFalse((self.sandbox.home / ".mozilla").exists())
        (self.sandbox.home / ".mozilla").symlink_to(modern)
        self.assertEqual(self.run_command("install", "--build", BUILD)[0], 0)
        self.assertEqual(self.run_command("remove")[0], 0)
        self.assertTrue((self.sandbox.home / ".mozilla").is_symlink())
        self.assertTrue((modern / "firefox").exists())

    def test_an_installed_kest_finds_its_own_parts(self):
        self.profile()
        prefix = self.sandbox.root / "usr"
        subprocess.run(["cmake", "--install", BUILD, "--prefix", str(prefix), "--component", "thunderbird"],
                       capture_output=True, check=True)
        done = subprocess.run([str(prefix / "share/kest/thunderbird/thunderbird-addon"), "install"],
                              env=self.sandbox.env, capture_output=True, text=True, timeout=20)
        self.assertEqual(done.returncode, 0, done.stderr)
        manifest = self.manifest()
        self.assertEqual(manifest["path"], str(prefix / "libexec/kest/kest-mail-host"))

    def test_no_profile_is_said_in_words(self):
        code, words = self.run_command("install", "--build", BUILD)
        self.assertEqual(code, 1)
        self.assertIn("no Thunderbird profile was found", words)

    def test_a_build_without_the_parts_is_said_in_words(self):
        self.profile()
        code, words = self.run_command("install", "--build", "/usr")
        self.assertEqual(code, 1)
        self.assertIn("is missing", words)


class OnTheRealOne(unittest.TestCase):

    def test_install_into_a_used_profile_and_remove_without_a_trace(self):
        with Sandbox() as sandbox:
            SessionBus(sandbox)
            Display(sandbox)
            thunderbird = Thunderbird(sandbox, addon=False)
            thunderbird.start(wait=False)
            wait_until(lambda: thunderbird.windows("Inbox - "), "the main window", 40, every=0.1)
            with self.assertRaisesRegex(RuntimeError, "running"):
                thunderbird.install_addon()
            self.assertFalse(thunderbird.on_bus())
            thunderbird.stop()
            thunderbird.install_addon()
            thunderbird.start()
            thunderbird.stop()
            sandbox.run([COMMAND, "remove", "--profile", thunderbird.profile])
            thunderbird.start(wait=False)
            wait_until(lambda: thunderbird.windows("Inbox - "), "the main window", 40, every=0.1)
            self.assertFalse(thunderbird.on_bus())
            thunderbird.stop()
            traces = [str(path.relative_to(thunderbird.profile)) for path in thunderbird.profile.rglob("*")
                      if path.is_file() and (ADDON in str(path) or ADDON.encode() in path.read_bytes())]
            self.assertEqual(traces, [])


if __name__ == "__main__":
    unittest.main()
