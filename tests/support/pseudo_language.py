#!/usr/bin/python3
"""Makes a language that nobody speaks: every text two fifths longer, in letters with marks above and below.

    pseudo_language.py KEST_XX.ts PSEUDO.ts

Where such a text fits, a translation will; where one is not translated at all, it stands out.
"""

import re
import sys
import xml.etree.ElementTree as ElementTree

LETTERS = str.maketrans("ABCDEFGHIJKLMNOPRSTUWYZabcdefghijklmnoprstuwyz", "ÅßÇĐÉƑĜĤÎĴĶĻṀÑÖÞŔŠŢÛŴÝŽåɓçđéƒĝĥîĵķļɱñöþŕšţûŵýž")
KEPT = re.compile(r"(%n|%L?\d+|&.)")
GROWTH = 0.4


def pseudo(text):
    if not re.search("[A-Za-z]", KEPT.sub("", text)):
        return text # nothing to translate: "--:--"
    parts = [part if KEPT.fullmatch(part) else part.translate(LETTERS) for part in KEPT.split(text)]
    longer = "~" * max(1, round(len(text) * GROWTH) - len("[]"))
    ellipsis = "…" if text.endswith("…") else ""
    return f"[{''.join(parts).removesuffix(ellipsis)}{longer}]{ellipsis}"


def main(source, target):
    tree = ElementTree.parse(source)
    tree.getroot().set("language", "en")
    for message in tree.getroot().iter("message"):
        translation = message.find("translation")
        translation.clear()
        text = pseudo(message.findtext("source"))
        if message.get("numerus"):
            for _ in range(2):
                ElementTree.SubElement(translation, "numerusform").text = text
        else:
            translation.text = text
    tree.write(target, encoding="utf-8", xml_declaration=True)


if __name__ == "__main__":
    main(*sys.argv[1:])
