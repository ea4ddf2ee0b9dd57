#!/usr/bin/python3
"""Checks the translations in resources/translations.

    check_translations.py [SOURCE_ROOT]   prints everything that is wrong; status 1 when there is anything
    check_translations.py --prove         proves on made-up translations that each fault is caught

Every text is translated, in every plural form that its language has; no placeholder (%1, %n), ellipsis, line feed or letter to
press is lost or doubled; no two labels of the preferences are reached by the same letter; and the texts are those that are in
the sources (CONTRIBUTING.md says how they get there).
"""

import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree
from collections import Counter
from pathlib import Path

FOLDER = "resources/translations"
# How many forms Qt asks for: QLocale's language decides (Qt Linguist's manual, "Translation Rules for Plural Forms").
PLURAL_FORMS = {"ar": 6, "de": 2, "en": 2, "es": 2, "fr": 2, "ja": 1, "pt_BR": 2, "zh_CN": 1}
SHEET = "PrefsSheet"
PLACEHOLDER = re.compile(r"%n|%L?\d+")
LETTER = re.compile(r"&([^\s&])")


def messages(file):
    """(context, source, comment) and the element, of every text."""
    for context in ElementTree.parse(file).getroot().iter("context"):
        for message in context.iter("message"):
            yield (context.findtext("name"), message.findtext("source"), message.findtext("comment") or ""), message


def forms(message):
    translation = message.find("translation")
    plural = [form.text or "" for form in translation.findall("numerusform")]
    return plural if message.get("numerus") else [translation.text or ""]


def wrong_in(source, text):
    """What of `source` is lost or doubled in its translation."""
    if not text.strip():
        yield "is empty"
    # A form for one or two may say the number in a word.
    wanted, found = (Counter(PLACEHOLDER.findall(each)) for each in (source, text))
    if wanted != found and not (wanted - found == Counter({"%n": 1}) and not found - wanted):
        yield f"has {sorted(found.elements())} for {sorted(wanted.elements())}"
    if len(LETTER.findall(source)) != len(LETTER.findall(text)):
        yield "has another number of letters to press"
    if source.endswith("…") != text.endswith("…"):
        yield "has its ellipsis elsewhere"
    if source.count("\n") != text.count("\n") or text != text.strip():
        yield "has other line feeds, or spaces round it"


def problems_of(file, language):
    letters = {}
    for (context, source, _), message in messages(file):
        if message.find("translation").get("type"):
            yield f"“{source}” is {message.find('translation').get('type')}"
            continue
        texts = forms(message)
        if message.get("numerus") and len(texts) != PLURAL_FORMS[language]:
            yield f"“{source}” has {len(texts)} plural forms for {PLURAL_FORMS[language]}"
        yield from (f"“{source}”: “{text}” {what}" for text in texts for what in wrong_in(source, text))
        for letter in LETTER.findall(texts[0]) if context == SHEET else ():
            if letter.lower() in letters:
                yield f"“{texts[0]}” and “{letters[letter.lower()]}” are reached by the same letter"
            letters[letter.lower()] = texts[0]


def texts_in_sources(root, folder):
    """The keys of all texts, and of those with plural forms, as lupdate finds them now."""
    found = []
    for name in ("kest_de.ts", "kest_en.ts"):
        (Path(folder) / name).write_text('<!DOCTYPE TS><TS version="2.1" language="de" sourcelanguage="en"></TS>')
    subprocess.run([root / "tools/update-translations", folder], check=True, capture_output=True)
    for name in ("kest_de.ts", "kest_en.ts"):
        found.append({key for key, _ in messages(Path(folder) / name)})
    return found


def against_sources(file, wanted):
    have = {key for key, _ in messages(file)}
    yield from (f"“{key[1]}” ({key[0]}) of the sources is missing" for key in sorted(wanted - have))
    yield from (f"“{key[1]}” ({key[0]}) is no longer in the sources" for key in sorted(have - wanted))


def problems(root):
    with tempfile.TemporaryDirectory() as folder:
        every, plural = texts_in_sources(root, folder)
    files = {file.stem.removeprefix("kest_"): file for file in sorted((root / FOLDER).glob("kest_*.ts"))}
    if set(files) != set(PLURAL_FORMS) or not every:
        yield f"{FOLDER}: the languages are {sorted(files)}; the sources have {len(every)} texts"
    for language, file in files.items():
        yield from (f"{file.name}: {what}" for what in problems_of(file, language))
        yield from (f"{file.name}: {what}" for what in against_sources(file, plural if language == "en" else every))


def prove():
    def entry(source, translation, attributes="", kind=""):
        return (f"<message{attributes}><source>{source}</source><translation{kind}>{translation}</translation></message>")

    def caught(*entries, context="kest", language="de", wanted=None):
        with tempfile.TemporaryDirectory() as folder:
            file = Path(folder) / "kest_de.ts"
            file.write_text(f"<TS><context><name>{context}</name>{''.join(entries)}</context></TS>")
            return [*problems_of(file, language), *(against_sources(file, wanted) if wanted is not None else ())]

    def plural(*texts):
        return entry("%n days", "".join(f"<numerusform>{text}</numerusform>" for text in texts), ' numerus="yes"')

    right = [caught(entry("%1 of %2…", "%2, davon %1…")), caught(plural("ein Tag", "%n Tage")),
             caught(entry("&amp;A", "&amp;A"), entry("&amp;B", "&amp;B"), context=SHEET),
             caught(entry("A", "B"), wanted={("kest", "A", "")})]
    wrong = {
        "unfinished": caught(entry("A", "B", kind=' type="unfinished"')), "obsolete": caught(entry("A", "B", kind=' type="vanished"')),
        "empty": caught(entry("A", "")), "lost": caught(entry("%1 and %2", "%1")), "doubled": caught(entry("%1", "%1 %1")),
        "no letter": caught(entry("&amp;A", "A")), "two letters": caught(entry("&amp;A", "&amp;A&amp;B")),
        "ellipsis": caught(entry("A…", "A")), "space": caught(entry("A", "A ")), "line feed": caught(entry("A\nB", "A B")),
        "plural forms": caught(plural("ein Tag", "%n Tage"), language="ar"), "lost in a plural": caught(plural("Tag", "%n %1")),
        "same letter": caught(entry("&amp;A", "&amp;A"), entry("&amp;B", "a&amp;A"), context=SHEET),
        "missing": caught(entry("A", "B"), wanted={("kest", "A", ""), ("kest", "C", "")}),
        "gone": caught(entry("A", "B"), wanted=set()),
    }
    return [*(f"wrongly caught: {each}" for each in right if each), *(f"not caught: {name}" for name, each in wrong.items() if not each)]


def main(arguments):
    root = Path(arguments[0]) if arguments and arguments[0] != "--prove" else Path(__file__).parents[2]
    found = prove() if "--prove" in arguments else list(problems(root.resolve()))
    print("\n".join(found) or "nothing is wrong")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
