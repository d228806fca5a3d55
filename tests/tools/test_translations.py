"""The catalogues have every text of the sources, translated, with the same places to fill in."""

import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree
from pathlib import Path

PROJECT = Path(sys.argv.pop(1))
LUPDATE = sys.argv.pop(1)
CATALOGUES = sorted((PROJECT / "translations").glob("*.ts"))
PLACES = re.compile(r"%(?:L?\d+|[sdn])")
RESOURCE = re.compile(r'([\w:]+),\s*QT_TRANSLATE_NOOP3\(\s*"KsResString",\s*((?:"(?:[^"\\]|\\.)*"\s*)+),\s*"(\d+)"\)')


def messages(catalogue):
    """(context, source, comment) of each text, and its translation's element."""
    found = {}
    for context in ElementTree.parse(catalogue).iter("context"):
        for message in context.iter("message"):
            key = (context.findtext("name"), message.findtext("source"), message.findtext("comment") or "")
            found[key] = message.find("translation")
    return found


def forms(translation):
    """The texts of a translation: several for one with plural forms."""
    return [form.text or "" for form in translation.findall("numerusform")] or [translation.text or ""]


def places(text):
    """What a text fills in: %1 and its like in any order, %s and %d in theirs."""
    found = PLACES.findall(text)
    return sorted(p for p in found if p[-1].isdigit() or p == "%n"), [p for p in found if p in ("%s", "%d")]


def faults(source, text, context):
    """What is wrong with a translation, in words."""
    if not text.strip() and source.strip():
        yield "it is empty"
    # A plural form may do without its number.
    if places(source.replace("%n", "")) != places(text.replace("%n", "")):
        yield "it fills in other places"
    if len(re.findall(r"&(?!&)\w", source)) != len(re.findall(r"&(?!&)\w", text)):
        yield "it has a key of its own where the text has none, or none where that has one"
    if context == "KsResString" and source.count("/") != text.count("/"):
        yield "it has other parts"
    if source.endswith(("\n", ": ")) != text.endswith(("\n", ": ")) or source.startswith(" ") != text.startswith(" "):
        yield "it begins or ends otherwise"
    if re.findall(r"\|\w+", source) != re.findall(r"\|\w+", text):
        yield "it names other kinds of files"
    if source.endswith("...") != text.endswith("..."):
        yield "one of them ends in dots"


class Translations(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)

    def update(self):
        result = subprocess.run(
            [PROJECT / "tools/update_translations.sh", self.folder],
            env={"PATH": "/usr/bin:/bin", "LUPDATE": LUPDATE, "LC_ALL": "C.UTF-8"},
            capture_output=True,
            text=True,
        )
        self.assertEqual(result.returncode, 0, result.stderr)
        return result.stdout + result.stderr

    def test_there_is_a_german_one_of_the_module(self):
        self.assertIn("LayerManager_de.ts", [catalogue.name for catalogue in CATALOGUES])

    def test_every_text_of_the_sources_is_in_each_and_no_other(self):
        for catalogue in CATALOGUES:
            shutil.copy(catalogue, self.folder)
        said = self.update()
        # A text that has no context, or is no literal, cannot be translated.
        self.assertNotRegex(said, r"cannot be called|warning|Discarding|Error")
        for catalogue in CATALOGUES:
            with self.subTest(catalogue.name):
                ours, fresh = messages(catalogue), messages(self.folder / catalogue.name)
                self.assertEqual(sorted(fresh.keys() - ours.keys()), [], "missing; run tools/update_translations.sh")
                self.assertEqual(sorted(ours.keys() - fresh.keys()), [], "no source has them")

    def test_every_text_is_translated_and_fills_in_the_same(self):
        for catalogue in CATALOGUES:
            wrong = []
            for (context, source, _), translation in messages(catalogue).items():
                if translation.get("type"):
                    wrong.append(f"{context}: {source!r}: {translation.get('type')}")
                for text in forms(translation):
                    wrong += [f"{context}: {source!r}: {fault}" for fault in faults(source, text, context)]
            self.assertEqual(wrong, [], catalogue.name)

    def test_texts_with_plural_forms_have_them_in_english_too(self):
        for catalogue in CATALOGUES:
            plural = {key for key in messages(catalogue) if "%n" in key[1]}
            english = catalogue.with_name(f"{catalogue.stem.partition('_')[0]}_en.ts")
            self.assertTrue(not plural or english.exists(), f"{english.name} is needed for {plural}")

    def test_faults_are_found(self):
        self.assertEqual(list(faults("%1 of %2", "%2 von %1", "x")), [])
        for source, text in (
            ("%s: %d", "%d: %s"),
            ("%1", "eins"),
            ("Layer%d", "Layer"),
            ("&On", "Ein"),
            ("On", "&Ein"),
            ("Names:\n", "Namen:"),
            (" %s", "%s"),
            ("Edit...", "Bearbeiten"),
            ("Layer: ", "Layer:"),
            ("File|las,Drawing|dwg", "Datei|las,Zeichnung|dxf"),
            ("a", ""),
        ):
            self.assertEqual(len(list(faults(source, text, "x"))) > 0, True, (source, text))
        self.assertEqual(list(faults("Title/Text", "Titel", "KsResString")), ["it has other parts"])

    def test_a_new_text_is_missed(self):
        for catalogue in CATALOGUES:
            tree = ElementTree.parse(catalogue)
            context = tree.getroot().find("context")
            dropped = context.find("message")
            context.remove(dropped)
            tree.write(self.folder / catalogue.name, encoding="utf-8")
            before = messages(self.folder / catalogue.name)
            self.update()
            fresh = messages(self.folder / catalogue.name)
            added = fresh.keys() - before.keys()
            self.assertEqual([key[1] for key in added], [dropped.findtext("source")])
            self.assertEqual({fresh[key].get("type") for key in added}, {"unfinished"})

    def test_a_resource_string_is_commented_with_its_id_and_has_one_text(self):
        texts = {}
        for path in (PROJECT / "src").rglob("*.cpp"):
            for number, text, comment in RESOURCE.findall(path.read_text(encoding="utf-8")):
                if number.isdigit():
                    self.assertEqual(number, comment, path)
                joined = "".join(re.findall(r'"((?:[^"\\]|\\.)*)"', text))
                self.assertEqual(texts.setdefault(comment, joined), joined, f"{comment} in {path}")
        self.assertGreater(len(texts), 40)
        catalogued = {key[2] for key in messages(PROJECT / "translations/LayerManager_de.ts") if key[0] == "KsResString"}
        self.assertEqual(catalogued, set(texts))


if __name__ == "__main__":
    unittest.main()
