#!/usr/bin/python3
"""Checks that Kest can say in every language what its add-on and its helper say in English.

    check_mail_sentences.py [SOURCE_ROOT]   prints what is wrong; status 1 when there is anything
    check_mail_sentences.py --prove         proves on made-up sources that a sentence that is missing or gone is found

Only failures without a kind of their own ("Failed") are told in the sender's words; the others have a sentence of Kest's for
their kind. What stands between quotation marks in a sentence, or is filled in, is %1.
"""

import re
import sys
from pathlib import Path

TABLE = Path("src/platform/linux/mail/MailSentences.cpp")
IN_ADDON = re.compile(r'MailError\(\s*"Failed",\s*["`](.+?)["`]\s*\)|name: "Failed", message: `(.+?)`')
IN_HOST = re.compile(r'u"Failed"_s, u"(.+?)"_s|AccessDenied, u"(.+?)"_s|\bfail\(u"(.+?)"_s')
IN_TABLE = re.compile(r'QT_TRANSLATE_NOOP\("kest", "(.+?)"\)')


def sentences(pattern, texts):
    found = (next(filter(None, match.groups())) for text in texts for match in pattern.finditer(text))
    return {re.sub(r"\$\{.*?\}+", "%1", sentence) for sentence in found}


def problems(said, known):
    yield from (f"nobody can translate “{sentence}”; see {TABLE}" for sentence in sorted(said - known))
    yield from (f"{TABLE} has “{sentence}”, which nobody says" for sentence in sorted(known - said))


def check(root):
    addon = [path.read_text() for path in sorted((root / "addon").glob("*.js"))]
    host = [path.read_text() for path in sorted((root / "mailhost").glob("*.cpp"))]
    said = sentences(IN_ADDON, addon) | sentences(IN_HOST, host)
    if len(said) < 10:
        yield f"only {len(said)} sentences were found: are they written in another way now?"
    yield from problems(said, sentences(IN_TABLE, [(root / TABLE).read_text()]))


def prove():
    script = 'throw new MailError("Failed", `“${name}” is late.`); new MailError("Busy", "Never shown.");'
    said = sentences(IN_ADDON, [script]) | sentences(IN_HOST, ['fail(u"No file."_s)'])
    assert said == {"“%1” is late.", "No file."}, said
    assert len(list(problems(said, {"No file."}))) == 1
    assert len(list(problems(said, said | {"Gone."}))) == 1
    assert not list(problems(said, said))


if __name__ == "__main__":
    if sys.argv[1:] == ["--prove"]:
        prove()
        sys.exit(0)
    wrong = list(check(Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).resolve().parents[2]))
    print("\n".join(wrong))
    sys.exit(1 if wrong else 0)
