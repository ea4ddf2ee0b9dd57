#!/usr/bin/python3
"""The permissions that Thunderbird knows beside those it shares with Firefox, as a list in JSON.

Read from the schemas that Thunderbird itself judges add-ons by.
"""

import json
import re
import zipfile

ARCHIVE = "/usr/lib/thunderbird/omni.ja"
SCHEMAS = re.compile(r"^chrome/messenger/content/messenger/schemas/.*\.json$")
KINDS = {"Permission", "PermissionNoPrompt", "OptionalPermission", "OptionalPermissionNoPrompt"}


def schemas():
    with zipfile.ZipFile(ARCHIVE) as archive:
        for name in filter(SCHEMAS.match, archive.namelist()):
            text = archive.read(name).decode()
            yield json.loads(text[re.search(r"^\[", text, re.MULTILINE).start():])  # a comment goes before the list


def permissions():
    for schema in schemas():
        for part in schema:
            for kind in part.get("types", []):
                if part["namespace"] == "manifest" and kind.get("$extend") in KINDS:
                    for choice in kind["choices"]:
                        yield from choice.get("enum", [])


print(json.dumps(sorted(set(permissions()))))
