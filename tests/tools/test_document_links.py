"""The documents lead somewhere: every link to a file of the project, and every path that they name. The project is the
first argument."""

import re
import sys
import tempfile
import unittest
from pathlib import Path

PROJECT = Path(sys.argv.pop(1))

LINK = re.compile(r"\]\(([^)#\s]+)")
FOLDERS = "apps|bench|cmake|docs|fuzz|samples|src|tests|tools|translations"
PATH = re.compile(rf"`((?:{FOLDERS})/[\w./-]+)`")
# Names that stand for any, and a file that may come.
PLACEHOLDER = re.compile(r"NAME|\.\.\.|translations/LayerManager_en")


def documents(project):
    return [path for path in (project / "README.md", project / "CONTRIBUTING.md", project / "CHANGELOG.md",
                          *sorted(project.glob("docs/**/*.md")))
            if path.exists()]


def exists(project, name):
    """A source may be named without its suffix, when header and code are meant."""
    path = project / name
    return path.exists() or any(path.with_name(path.name + suffix).exists() for suffix in (".h", ".cpp"))


def dead_ends(project):
    found = []
    for document in documents(project):
        text = document.read_text()
        for target in LINK.findall(text):
            if "://" not in target and not (document.parent / target).exists():
                found.append(f"{document.relative_to(project)}: link to {target}")
        for name in PATH.findall(text):
            if not PLACEHOLDER.search(name) and not exists(project, name):
                found.append(f"{document.relative_to(project)}: {name}")
    return found


class Documents(unittest.TestCase):
    def test_every_link_and_path_leads_somewhere(self):
        self.assertGreater(len(documents(PROJECT)), 20)
        self.assertEqual(dead_ends(PROJECT), [])

    def test_dead_ends_are_found(self):
        with tempfile.TemporaryDirectory() as name:
            project = Path(name)
            (project / "docs/help").mkdir(parents=True)
            (project / "src").mkdir()
            (project / "src/There.h").touch()
            (project / "README.md").write_text("[a](docs/help/page.md#part) `src/There` [b](docs/gone.md) `src/Gone.cpp`")
            (project / "docs/help/page.md").write_text("[up](../../README.md) ![](../lost.png) [web](https://a.example)")
            self.assertEqual(
                dead_ends(project),
                ["README.md: link to docs/gone.md", "README.md: src/Gone.cpp", "docs/help/page.md: link to ../lost.png"],
            )


if __name__ == "__main__":
    unittest.main()
