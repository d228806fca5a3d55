#!/usr/bin/env python3
"""Makes a catalogue of a made-up language from another one: every text in brackets, with accents and two fifths
longer, so that texts which nobody can translate and places that are too narrow for them show.

Usage: tools/pseudo_language.py CATALOGUE.ts OUTPUT.ts
"""

import re
import sys
import xml.etree.ElementTree as ElementTree

ACCENTS = str.maketrans("aceilnorsuyzACEILNORSUYZ", "áçéíľñöřšúýžÁÇÉÍĽÑÖŘŠÚÝŽ")
PADDING = "lorem ipsum dolor sit amet consetetur sadipscing elitr sed diam nonumy eirmod tempor".split()
# What the program fills in or reads: places, the key after "&", the line break.
KEPT = re.compile(r"(%L?\d|%[sdn]|&.|@@|\n)")


def longer(text, share=0.4):
    wanted = max(1, round(len(text) * share))
    words = []
    for word in PADDING * (1 + wanted // 60):
        if sum(map(len, words)) + len(words) >= wanted:
            break
        words.append(word)
    return " ".join(words)


def pseudo(text):
    parts = KEPT.split(text)
    accented = "".join(part if i % 2 else part.translate(ACCENTS) for i, part in enumerate(parts))
    return f"[{accented} {longer(text)}]"


def translate(source):
    """Parts of a tooltip, between "/", are texts of their own."""
    return "/".join(part if part in ("", " ") else pseudo(part) for part in source.split("/"))


def main(catalogue, output):
    tree = ElementTree.parse(catalogue)
    tree.getroot().set("language", "en_US")
    for message in tree.iter("message"):
        translation = message.find("translation")
        translation.attrib.pop("type", None)
        text = translate(message.find("source").text)
        forms = translation.findall("numerusform")
        for form in forms:
            form.text = text
        if not forms:
            translation.text = text
    tree.write(output, encoding="utf-8", xml_declaration=True)


if __name__ == "__main__":
    main(*sys.argv[1:])
