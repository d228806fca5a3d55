"""The pictures of docs/pictures.md and docs/guide.md are the ones that the tests compare with. Argument: the project's folder."""

import re
import sys
import unittest
from pathlib import Path

PROJECT = Path(sys.argv.pop(1))
GOLDEN = {path.read_bytes() for path in (PROJECT / "tests/golden").glob("*.png")}


class Pictures(unittest.TestCase):
    def test_are_those_of_the_golden_files(self):
        for picture in sorted((PROJECT / "docs/images").glob("*.png")):
            self.assertIn(picture.read_bytes(), GOLDEN, f"{picture.name} is outdated: copy its golden file")

    def test_are_all_shown(self):
        pages = "".join((PROJECT / "docs" / page).read_text() for page in ("pictures.md", "guide.md"))
        shown = set(re.findall(r"images/([\w.]+)", pages))
        self.assertEqual(shown, {path.name for path in (PROJECT / "docs/images").glob("*.png")})


if __name__ == "__main__":
    unittest.main(verbosity=2)
