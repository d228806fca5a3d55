"""What docs/guide.md calls by its name is in the program under that name. Argument: the project's folder."""

import re
import sys
import unittest
from pathlib import Path

PROJECT = Path(sys.argv.pop(1))
GUIDE = (PROJECT / "docs/guide.md").read_text()
SOURCES = "\n".join(path.read_text() for path in sorted((PROJECT / "src").rglob("*.cpp")))

# Two literals without anything between them are one text.
LITERAL = r'"(?:[^"\\\n]|\\.)*"'
TEXTS = {
    "".join(part[1:-1] for part in re.findall(LITERAL, match)).replace("&", "").rstrip(".")
    for match in re.findall(rf"{LITERAL}(?:\s+{LITERAL})*", SOURCES)
}
BY_THE_TOOLKIT = {"OK"}

# Keys that the sources call by what they are for.
KEYS = {
    "Ctrl+O": "QKeySequence::Open",
    "Ctrl+S": "QKeySequence::Save",
    "Ctrl+Z": "QKeySequence::Undo",
    "Ctrl+L": '"Ctrl+L"',
    "Ctrl+A": "Qt::Key_A",
    "F1": "Qt::Key_F1",
    "F2": "Qt::Key_F2",
    "F6": "Qt::Key_F6",
    "Del": "Qt::Key_Delete",
}


def bold_texts():
    """(text, where it stands below) of each part of a bold path such as "Edit > Redo"."""
    for match in re.finditer(r"\*\*(.+?)\*\*", GUIDE, re.DOTALL):
        yield from re.split(r"\s+>\s+", " ".join(match.group(1).split()))


class Guide(unittest.TestCase):
    def test_names_texts_that_the_program_shows(self):
        texts = list(bold_texts())
        self.assertGreater(len(texts), 50)
        for text in texts:
            with self.subTest(text=text):
                self.assertTrue(text.rstrip(".") in TEXTS | BY_THE_TOOLKIT, f"nothing is called {text}")

    def test_names_commands_that_there_are(self):
        commands = (PROJECT / "docs/commands.md").read_text()
        named = re.findall(r"`(-?[A-Z]{3,}[A-Z]*)(?: [^`]*)?`", GUIDE)
        self.assertTrue(named)
        for name in named:
            with self.subTest(command=name):
                self.assertTrue(f"`{name}`" in commands or f'"_{name}"' in SOURCES)

    def test_names_keys_that_the_program_knows(self):
        named = set(re.findall(r"\b(?:Ctrl|Alt|Shift)\+\w+|\bF\d+\b|\bDel\b", GUIDE))
        self.assertEqual(named, set(KEYS))
        for key, word in KEYS.items():
            with self.subTest(key=key):
                self.assertTrue(word in SOURCES, f"nothing is said of {word}")

    def test_leads_to_headings_and_pages_that_there_are(self):
        headings = re.findall(r"^## (.+)$", GUIDE, re.MULTILINE)
        anchors = {re.sub(r"[^\w -]", "", heading.lower()).replace(" ", "-") for heading in headings}
        for target in re.findall(r"\]\(([^)]+)\)", GUIDE):
            with self.subTest(target=target):
                if target.startswith("#"):
                    self.assertIn(target[1:], anchors)
                else:
                    self.assertTrue((PROJECT / "docs" / target).is_file())


if __name__ == "__main__":
    unittest.main(verbosity=2)
